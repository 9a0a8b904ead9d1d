#ifndef FILELIST_H
#define FILELIST_H

#include "store/fileinfo.h"

#include <QByteArray>
#include <QVector>

/* The list of the scan files as "/apps/config/filelist.cfg" holds it. No state. */
namespace filelist {

struct List
{
    int current = 0;         // stored index of the current file
    QVector<FileInfo> files; // oldest first; id is the place
    bool wellFormed = true;  // false: reading ended at a bad line, what came before is here
};

/* Reads the file's bytes: UTF-16 or UTF-8 with a byte-order mark, else locale text. */
List parse(const QByteArray& bytes);

/* The file's bytes: UTF-16, little-endian, with a byte-order mark. Tabs and line breaks within a
 * name or brief become blanks, so that the list can always be read again. */
QByteArray format(int current, const QVector<FileInfo>& files);

} // namespace filelist

#endif
