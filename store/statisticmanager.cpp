#include "store/statisticmanager.h"

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
