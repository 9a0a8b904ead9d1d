#ifndef STATISTICMANAGER_H
#define STATISTICMANAGER_H

#include <QString>

/* One usage record: a word that was looked up. */
struct statisticInfo
{
    QString time;      // when: milliseconds since 1970-01-01 UTC, decimal
    qint32 count = 0;  // how often
    QString word;      // what
    QString languages; // of the dictionary, as IsoMapFun() names them; columns end with tabs
};

/*
 * Usage records, and the names of the languages in them.
 *
 * Interface thread only, but for IsoMapFun().
 */
class StatisticManager
{
public:
    static StatisticManager* manager;

    /* The one instance, created on first use. */
    static StatisticManager* Instance();

    /* Deletes the instance, if there is one. */
    static void quitFun();

    /* Adds a record to "/mnt/mmc/Stastistic_File.txt", which is made when it is missing. A tab or
     * line break in the word is written as a blank. 0, or -1 when it could not be written: the file
     * is what it was before. */
    int flush(const statisticInfo& info);

    /* The ISO 639-1 name of a language code or voice code; "other" for codes that are none. Any
     * thread. */
    static QString IsoMapFun(int code);

private:
    StatisticManager() = default;
};

#endif
