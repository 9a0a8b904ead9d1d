#ifndef STORAGECHECK_H
#define STORAGECHECK_H

#include <QtGlobal>

/* Bytes below which the internal storage counts as nearly full: 1 MiB. */
constexpr quint64 MinimumFreeBytes = 1'048'576;

/* Whether the internal storage ("/mnt/mtdblock3/") has less than MinimumFreeBytes free, or cannot
 * tell. */
bool isStorageLow();

/* Shows the storage warning, modally for two seconds, when isStorageLow(). */
void warnWhenStorageLow();

/* Makes the folder of the scan files ("/mnt/mmc/e_ScanFile") when it is missing, with the page
 * cache dropped before and after, so that the folder reaches the card at once. */
void ensureScanFolder();

#endif
