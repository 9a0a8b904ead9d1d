#include "platform/zembra_dic.h"
#include "tests/fakes/fakedic.h"
#include "tests/flows/scenarios/dictionaryhost.h"
#include "tests/unit/open/dicfiles.h"

#include <QDir>
#include <QFile>

namespace {

// Named so that the engine finds them in the order in which they are given.
QString stemOf(int number, const GivenDictionary& given)
{
    return QStringLiteral("/mnt/mmc/usrdict/%1-%2").arg(number).arg(given.name.toLower());
}

} // namespace

void dictionaryhost::install(const QVector<GivenDictionary>& dictionaries, const TestRoot& root)
{
    QDir().mkpath(root.path(QStringLiteral("/mnt/mmc/usrdict")));
    QDir().mkpath(root.path(QStringLiteral("/apps/data/dictindex")));
    for (int i = 0; i < dictionaries.size(); ++i) {
        const GivenDictionary& given = dictionaries.at(i);
        const QString stem = root.path(stemOf(i, given));
        std::vector<dicfiles::Entry> entries;
        for (const GivenDictionary::Entry& entry : given.entries) {
            entries.push_back(
                {entry.word.toStdString(), (entry.word + u'\n' + entry.definition).toStdString()});
        }
        dicfiles::writeDict(stem.toStdString(), entries);
        dicfiles::write(stem.toStdString() + ".about", QStringLiteral("languages=%1\nname=%2\n")
                                                           .arg(given.languages, given.name)
                                                           .toStdString());
        if (given.damaged) // every entry lies behind the end of the file
            QFile::resize(stem + QStringLiteral(".dict"), 0);
    }
}

// The stage asks the scripted engine, which is not here.
void FakeDic::reset() {}
void FakeDic::holdInitialize(bool on)
{
    Q_UNUSED(on)
}
int FakeDic::openDictionaries()
{
    return 0;
}
int FakeDic::openRecords()
{
    return 0;
}
int FakeDic::misuses()
{
    // Without a call of the engine from here the linker would take the scripted one.
    return ZEMBRA_DIC_Uninitialize(nullptr);
}
