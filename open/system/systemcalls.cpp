#include "platform/systemcalls.h"

#include "desk/desklink.h"
#include "platform/devicepaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

/* Off the device somebody may want to see what a full memory does. */
bool isSaidToBeFull()
{
    return !qEnvironmentVariableIsEmpty("SWIPELINE_ROOT")
           && QFile::exists(devicePath(QLatin1Char('/') + QLatin1String(desklink::FullMarker)));
}

} // namespace

namespace systemcalls {

void syncStorage()
{
    const QByteArray root = QFile::encodeName(devicePath(QStringLiteral("/")));
    if (root == "/") {
        ::sync();
        return;
    }
    const int fd = ::open(root.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::syncfs(fd);
    ::close(fd);
}

void dropPageCache()
{
    const QString path = devicePath(QStringLiteral("/proc/sys/vm/drop_caches"));
    if (!qEnvironmentVariableIsEmpty("SWIPELINE_ROOT"))
        QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write("3\n");
}

void sleepMicroseconds(unsigned microseconds)
{
    ::usleep(microseconds);
}

bool makeDirectory(const QString& path)
{
    return ::mkdir(QFile::encodeName(path).constData(), 0777) == 0;
}

bool freeBytes(const QString& path, quint64& bytes)
{
    if (isSaidToBeFull()) {
        bytes = 0;
        return true;
    }
    struct statfs info = {};
    if (::statfs(QFile::encodeName(path).constData(), &info) != 0)
        return false;
    bytes = static_cast<quint64>(info.f_bsize) * info.f_bfree;
    return true;
}

} // namespace systemcalls
