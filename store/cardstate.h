#ifndef CARDSTATE_H
#define CARDSTATE_H

#include <QString>

/* Whether the storages of the scan files are there. No state. */
namespace cardstate {

/* Whether the folder that holds a file of the pen can be written to at all, and, for the scan
 * folder, whether the card is there: on a pen the folder may also exist below the place where the
 * card is mounted while it is not. An empty folder on a card is there. */
bool isThere(const QString& penPath);

/* The same for the scan folder. */
bool isCardThere();

/* Whether another file system begins at this folder of the machine. */
bool isMountPoint(const QString& folder);

} // namespace cardstate

#endif
