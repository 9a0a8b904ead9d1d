#ifndef SCANNAMES_H
#define SCANNAMES_H

#include "store/fileinfo.h"

#include <QDate>
#include <QString>
#include <QVector>

/* How scan files are named. No state. */
namespace scannames {

/* The name of the next new file: the day as "yyMMdd" when no listed file is of that day, else with
 * "_" and one more than the largest number that follows the day in a listed name. */
QString next(const QVector<FileInfo>& files, const QDate& today);

/* The name to try after `name`, which next() or following() gave, turned out to be taken. */
QString following(const QString& name);

/* Today's date as it stands in a FileInfo. */
QString dateText(const QDate& today);

/* The listed name of a file of the scan folder: what comes before the first ".txt"; null when the
 * name does not hold ".txt" at all. */
QString listedName(const QString& fileName);

/* Where a file lies on the pen; empty for an unknown storage. */
QString devicePlace(const FileInfo& info);
QString devicePlaceOfScan(const QString& name);

/* Whether `name` can be a file of the scan folder: not empty, no slash, no zero character. */
bool isUsable(const QString& name);

/* The folder of the scan files, on the pen. */
QString scanFolder();

} // namespace scannames

#endif
