#ifndef LANGUAGEINFO_H
#define LANGUAGEINFO_H

#include <QString>
#include <QVector>

/* One language of the device: a row of scanlanguage.cfg. */
struct languageInfo
{
    QString name;
    QString code;        // language code as decimal text
    QString displayName; // for menus; the interface may have a translation
    int scanFlag = 0;    // 1: can be scanned
    int speechFlag = 0;  // not 0: can be spoken
    int showFlag = 0;    // 1: can be chosen as the language of the interface
    int defaultFlag = 0; // 1: the default language of the interface
    int id = 0;          // rows in the scan-language list when the row was read
};

/* One language of the menus: a row of menulan.cfg. */
struct MenuLanInfo
{
    QString name;
    QVector<QString> texts; // every further column
};

/* What the menu of scan languages is sorted by. */
struct ScanLanInfoForSort
{
    QString displayName;
    int index = 0; // row in the scan-language list
};

#endif
