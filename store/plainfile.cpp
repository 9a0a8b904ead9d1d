#include "store/plainfile.h"

#include "store/fileoperations.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace plainfile {

namespace {

Result readOpen(FileOperations& operations, int file, qint64 limit, QByteArray& content,
                qint64* size)
{
    const qint64 length = operations.plainFileSize(file);
    if (length < 0)
        return Result::Missing;
    if (size != nullptr)
        *size = length;
    if (length > limit)
        return Result::TooLarge;
    QByteArray bytes(length, Qt::Uninitialized);
    for (qsizetype done = 0; done < bytes.size();) {
        const qint64 got = operations.read(file, bytes.data() + done, bytes.size() - done, done);
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
    FileOperations& operations = FileOperations::current();
    const int file = operations.open(QFile::encodeName(path),
                                     O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    if (file < 0)
        return Result::Missing;
    const Result result = readOpen(operations, file, limit, content, size);
    operations.close(file);
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
