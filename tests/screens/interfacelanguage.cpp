#include "tests/screens/interfacelanguage.h"

#include "app/startup.h"
#include "platform/devicepaths.h"
#include "store/languagemanager.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QXmlStreamReader>

namespace {

const QString Source = QStringLiteral(SWIPELINE_SOURCE_DIR);

QString nameOf(int code)
{
    const char* const file = translationFor(code);
    return file ? QFileInfo(QLatin1String(file)).completeBaseName() : QString();
}

void takeFromDevice(const QString& penPath)
{
    const QString target = devicePath(penPath);
    QFile::remove(target);
    if (!QFile::copy(Source + QStringLiteral("/device") + penPath, target))
        qFatal("cannot copy device%s", qPrintable(penPath));
}

QList<InterfaceLanguage::Text> textsOf(const QString& path)
{
    QList<InterfaceLanguage::Text> texts;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    QXmlStreamReader reader(&file);
    QString context;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("name"))
            context = reader.readElementText();
        else if (reader.name() == QLatin1String("source"))
            texts.append({context, reader.readElementText()});
    }
    if (reader.hasError())
        qFatal("%s: %s", qPrintable(path), qPrintable(reader.errorString()));
    return texts;
}

} // namespace

InterfaceLanguage::InterfaceLanguage(int code)
    : m_code(code),
      m_loaded(load(QStringLiteral(SWIPELINE_BINARY_DIR "/translations/%1.qm").arg(nameOf(code)))),
      m_source(Source + QStringLiteral("/translations/%1.ts").arg(nameOf(code)))
{
}

void InterfaceLanguage::chooseOnPen() const
{
    for (const char* file : {"/apps/config/scanlanguage.cfg", "/apps/config/menulan.cfg",
                             "/apps/res/laba.bmp", "/apps/res/sandglass.gif"})
        takeFromDevice(QLatin1String(file));
    LanguageManager::Instance()->init();
    const int row = LanguageManager::Instance()->getIDByLanINT(m_code);
    LanguageManager::quitFun(); // start-up reads the tables by itself
    QSettings settings(devicePath(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat);
    settings.setValue(QStringLiteral("SystemSet/Lan"), row);
}

QList<InterfaceLanguage::Text> InterfaceLanguage::neverAsked() const
{
    QList<Text> texts = textsOf(m_source);
    texts.removeIf([this](const Text& text) { return m_asked.contains(text); });
    return texts;
}

QString InterfaceLanguage::translate(const char* context, const char* text,
                                     const char* disambiguation, int n) const
{
    m_asked.insert({QString::fromUtf8(context), QString::fromUtf8(text)});
    return QTranslator::translate(context, text, disambiguation, n);
}

QList<InterfaceLanguage::Text> textsAt(const QString& place)
{
    QList<InterfaceLanguage::Text> texts;
    QFile file(Source + QStringLiteral("/translations/places.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& line : lines) {
        const QString rule = line.section(QStringLiteral(": "), 0, 0); // "row+title MainWindow"
        if (rule.section(u' ', 0, 0).split(u'+').contains(place))
            texts.append({rule.section(u' ', 1), line.section(QStringLiteral(": "), 1)});
    }
    return texts;
}
