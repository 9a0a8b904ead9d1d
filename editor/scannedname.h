#ifndef SCANNEDNAME_H
#define SCANNEDNAME_H

#include <QString>

/* A scan as a name: one line without controls, single blanks between words, none at the ends.
 * Empty when nothing is left. */
QString nameFromScan(const QString& scan);

#endif
