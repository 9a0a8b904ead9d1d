#include "store/statisticmanager.h"

#include "platform/devicepaths.h"
#include "platform/systemcalls.h"
#include "store/filewriter.h"
#include "store/scantext.h"

#include <string_view>

StatisticManager* StatisticManager::manager = nullptr;

namespace {

// No field but the last may end its column, and none its line.
QString field(QString text, std::u16string_view separators)
{
    for (const char16_t separator : separators)
        text.replace(QChar(separator), u' ');
    return text;
}

} // namespace

StatisticManager* StatisticManager::Instance()
{
    if (manager == nullptr)
        manager = new StatisticManager;
    return manager;
}

void StatisticManager::quitFun()
{
    delete manager;
    manager = nullptr;
}

// Each record has a byte-order mark of its own: readers of these files find the records by it.
int StatisticManager::flush(const statisticInfo& info)
{
    const QString record = field(info.word, u"\t\r\n") + u'\t' + field(info.time, u"\t\r\n") + u'\t'
                           + QString::number(info.count) + u'\t' + field(info.languages, u"\r\n")
                           + QStringLiteral("\r\n");
    // The spelling of the name is what the readers look for.
    const QString path = devicePath(QStringLiteral("/mnt/mmc/Stastistic_File.txt"));
    if (FileWriter().append(path, scantext::encode(record)) != FileWriter::Result::Done)
        return -1;
    systemcalls::syncStorage();
    return 0;
}

QString StatisticManager::IsoMapFun(int code)
{
    struct Name
    {
        int code;
        const char* iso;
    };
    // 202 is a Spanish voice, the other codes from 200 on are English ones.
    static constexpr Name Names[] = {
        {1, "zh"},   {101, "en"}, {103, "fr"}, {104, "de"}, {105, "es"}, {106, "it"}, {107, "sv"},
        {108, "da"}, {109, "no"}, {110, "nl"}, {111, "pt"}, {151, "ru"}, {152, "ar"}, {200, "en"},
        {201, "en"}, {202, "es"}, {203, "en"}, {204, "en"}, {205, "en"}, {206, "en"}};
    for (const Name& name : Names)
        if (name.code == code)
            return QString::fromLatin1(name.iso);
    return QStringLiteral("other");
}
