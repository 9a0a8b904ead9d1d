#ifndef STATISTICMANAGER_H
#define STATISTICMANAGER_H

#include <QString>

/* Names of the languages in the usage records. */
class StatisticManager
{
public:
    /* The ISO 639-1 name of a language code or voice code; "other" for codes that are none. Any
     * thread. */
    static QString IsoMapFun(int code);
};

#endif
