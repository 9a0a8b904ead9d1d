#include "store/plainfile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plainfile {

namespace {

Result readOpen(int fd, qint64 limit, QByteArray& content, qint64* size)
{
    struct stat info = {};
    if (::fstat(fd, &info) != 0)
        return Result::Failed;
    if (!S_ISREG(info.st_mode))
        return Result::Missing;
    if (size != nullptr)
        *size = info.st_size;
    if (info.st_size > limit)
        return Result::TooLarge;
    QByteArray bytes(info.st_size, Qt::Uninitialized);
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t got =
            ::read(fd, bytes.data() + done, static_cast<size_t>(bytes.size() - done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) // nothing more: it shrank meanwhile
            return Result::Failed;
        done += got;
    }
    content = bytes;
    return Result::Done;
}

} // namespace

Result read(const QString& path, qint64 limit, QByteArray& content, qint64* size)
{
    const int fd = ::open(QFile::encodeName(path).constData(),
                          O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    if (fd < 0)
        return Result::Missing;
    const Result result = readOpen(fd, limit, content, size);
    ::close(fd);
    return result;
}

bool isPlainFile(const QString& path)
{
    struct stat info = {};
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0 && S_ISREG(info.st_mode);
}

bool isAnything(const QString& path)
{
    struct stat info = {};
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0;
}

} // namespace plainfile
