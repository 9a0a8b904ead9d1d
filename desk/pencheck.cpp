#include "desk/pencheck.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>
#include <utility>

namespace {

struct Model
{
    const char* file;
    const char* languages;
    const char* package;
};
constexpr Model Models[] = {
    {"Latin.traineddata", QT_TRANSLATE_NOOP("PenCheck", "languages in Latin letters"),
     "tesseract-ocr-script-latn"},
    {"rus.traineddata", QT_TRANSLATE_NOOP("PenCheck", "Russian"), "tesseract-ocr-rus"},
    {"eng.traineddata", QT_TRANSLATE_NOOP("PenCheck", "English within Russian"),
     "tesseract-ocr-eng"},
    {"chi_sim.traineddata", QT_TRANSLATE_NOOP("PenCheck", "Chinese"), "tesseract-ocr-chi-sim"},
};
constexpr const char* DictionaryFolders[] = {"apps/data/dict", "mnt/mmc/usrdict",
                                             "mnt/hidmmc/sysdict"};

QString tr(const char* text)
{
    return QCoreApplication::translate("PenCheck", text);
}

// In the folder or in one of those below it, where the pen looks, too.
bool holdsDictionary(const QString& folder)
{
    const QStringList names = {QStringLiteral("*.index"), QStringLiteral("*.ifo"),
                               QStringLiteral("*.idx"), QStringLiteral("*.idx.gz")};
    return QDirIterator(folder, names, QDir::Files, QDirIterator::Subdirectories).hasNext();
}

} // namespace

QStringList pencheck::voiceFolders()
{
    const QString below = QStringLiteral("/espeak-ng-data");
    const QString own = qEnvironmentVariable("ESPEAK_DATA_PATH");
    QStringList first;
    if (!own.isEmpty())
        first << own + below << own;
    first << QDir::homePath() + below;
    // espeak-ng takes the first of these that is there, whether voices are in it or not.
    for (const QString& folder : std::as_const(first)) {
        if (QFileInfo(folder).isDir())
            return {folder};
    }
    QStringList folders;
    folders << QStringLiteral("/usr/share/espeak-ng-data")
            << QStringLiteral("/usr/local/share/espeak-ng-data");
    const QDir libraries(QStringLiteral("/usr/lib"));
    for (const QString& name : libraries.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        folders << libraries.filePath(name) + below;
    return folders;
}

QStringList pencheck::missing(const QString& root, const QStringList& voices)
{
    QStringList sentences;
    for (const Model& model : Models) {
        const QString path = root + QLatin1String("/apps/data/ocrrec/") + QLatin1String(model.file);
        if (!QFileInfo(path).isFile())
            sentences << tr("Print cannot be recognised (%1): %2 is missing. It comes with the "
                            "package %3.")
                             .arg(tr(model.languages), path, QLatin1String(model.package));
    }
    const auto hasVoices = [](const QString& folder) {
        return QFileInfo(folder + QLatin1String("/phontab")).isFile();
    };
    const QString ownVoices = root + QLatin1String("/mnt/hidmmc/sysdict/ttsrec/espeak-ng-data");
    if (!hasVoices(ownVoices) && !std::ranges::any_of(voices, hasVoices))
        sentences << tr("The pen cannot speak: the voices are missing. They come with the package "
                        "espeak-ng-data.");
    const auto holds = [&root](const char* folder) {
        return holdsDictionary(root + QLatin1Char('/') + QLatin1String(folder));
    };
    if (!std::ranges::any_of(DictionaryFolders, holds))
        sentences << tr("Words cannot be looked up: there is no dictionary on the pen. "
                        "scripts/install-dictionaries puts some there.");
    const QString font = root + QLatin1String("/apps/res/fonts/unifont.otf");
    if (!QFileInfo(font).isFile())
        sentences << tr("The pen's display will look wrong: its font %1 is missing. It comes with "
                        "the package fonts-unifont.")
                         .arg(font);
    return sentences;
}
