#ifndef LANGUAGEMANAGER_H
#define LANGUAGEMANAGER_H

#include "store/languageinfo.h"

#include <QString>
#include <QStringList>
#include <QVector>

/*
 * The languages that the device knows, out of its two tables.
 *
 * Settings hold row numbers of these tables, engines are told language codes.
 *
 * Loaded by init() on the interface thread before any worker runs; afterwards it is only read, by
 * any thread.
 */
class LanguageManager
{
public:
    static LanguageManager* manager;

    /* The one instance, created on first use. */
    static LanguageManager* Instance();

    /* Deletes the instance, if there is one. */
    static void quitFun();

    /* Loads "/apps/config/scanlanguage.cfg" and "/apps/config/menulan.cfg". A missing table is
     * made, empty. 0, or -1 when a table can be neither read nor made, or when a row of the first
     * does not have seven columns: the rows before it are kept, the second is then not read. */
    int init();

    /* Rows of the scan languages, the display languages, the menu languages. */
    int getLanguageSize() const;
    int getShowLanSize() const;
    int getMenuLanSize() const;

    /* Of a row of the scan languages: the code (0 outside the list), the display name (empty), the
     * speech flag (0), everything (false, and `info` is untouched). */
    int getIntByID(int index) const;
    QString getChnByID(int index) const;
    int getTTSFlagByID(int index) const;
    bool getInfoByID(int index, languageInfo& info) const;

    /* Of a row of the display languages: the name (empty outside the list), the code (0: a table
     * may be empty while the settings name row 0). */
    QString getShowLanByID(int index) const;
    int getLanIntByID(int index) const;

    /* The first row of the display languages with this code; their number when there is none. */
    int getIDByLanINT(int code) const;

    /* The code of the first scan language that is marked as default; the number of scan languages
     * when none is. */
    int getDefaultShowLan() const;

private:
    LanguageManager() = default;

    bool addLanguage(const QString& line);

    QVector<MenuLanInfo> m_menuLanguages;
    QVector<languageInfo> m_scanLanguages;
    QVector<languageInfo> m_showLanguages;
};

#endif
