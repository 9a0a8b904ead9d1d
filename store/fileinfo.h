#ifndef FILEINFO_H
#define FILEINFO_H

#include <QString>

/* One file of scanned text. */
struct FileInfo
{
    QString name;    // without folder and ".txt"; shown in the list
    QString brief;   // a few characters of the text; "Import" for files found in the folder
    QString date;    // of the last save, "yyyyMMdd"
    int storage = 0; // 0: "/mnt/mmc/e_ScanFile", 1: "/mnt/mtdblock3/e_ListenFile"
    int id = 0;      // place in the stored list
};

#endif
