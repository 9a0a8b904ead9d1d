#include "store/cardstate.h"

#include "platform/devicepaths.h"
#include "store/scannames.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace cardstate {

namespace {

// Only on a pen (nothing stands for its root) the card is a file system of its own. A pen that
// keeps its scans in a plain folder has files there.
bool isBareMountPlace()
{
    const QString card = QStringLiteral("/mnt/mmc");
    return devicePath(card) == card && !isMountPoint(card)
           && QDir(scannames::scanFolder()).isEmpty();
}

} // namespace

bool isMountPoint(const QString& folder)
{
    struct stat inside = {};
    struct stat above = {};
    const QByteArray path = QFile::encodeName(folder);
    return ::stat(path.constData(), &inside) == 0 && ::stat((path + "/..").constData(), &above) == 0
           && (inside.st_dev != above.st_dev || inside.st_ino == above.st_ino);
}

bool isThere(const QString& penPath)
{
    const QString folder = penPath.left(penPath.lastIndexOf(u'/'));
    return QDir(devicePath(folder)).exists()
           && (folder != scannames::scanFolder() || !isBareMountPlace());
}

bool isCardThere()
{
    return isThere(scannames::devicePlaceOfScan(QString()));
}

} // namespace cardstate
