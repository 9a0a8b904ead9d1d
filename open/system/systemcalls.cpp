#include "platform/systemcalls.h"

#include "desk/desklink.h"
#include "platform/devicepaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
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

bool isOnCard(int file)
{
    const QString link = QStringLiteral("/proc/self/fd/%1").arg(file);
    const QString card = QFileInfo(devicePath(QStringLiteral("/mnt/mmc"))).canonicalFilePath();
    return !card.isEmpty() && QFileInfo(link).symLinkTarget().startsWith(card + QLatin1Char('/'));
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

qint64 writeAt(int file, const char* data, qint64 length, qint64 offset)
{
    if (length > 0 && isSaidToBeFull() && isOnCard(file)) {
        struct stat info = {};
        if (::fstat(file, &info) != 0)
            return -1;
        // As on a card without a free block: what is there can be overwritten, nothing can grow.
        length = std::min<qint64>(length, info.st_size - offset);
        if (length <= 0) {
            errno = ENOSPC;
            return -1;
        }
    }
    return ::pwrite(file, data, static_cast<std::size_t>(length), offset);
}

} // namespace systemcalls
