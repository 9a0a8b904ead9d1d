#include "store/fileoperations.h"

#include "platform/systemcalls.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::atomic<FileOperations*> replacement = nullptr;

} // namespace

FileOperations& FileOperations::current()
{
    static FileOperations system;
    FileOperations* const operations = replacement;
    return operations != nullptr ? *operations : system;
}

void FileOperations::setCurrent(FileOperations* operations)
{
    replacement = operations;
}

int FileOperations::open(const QByteArray& path, int flags)
{
    return ::open(path.constData(), flags, 0666);
}

qint64 FileOperations::plainFileSize(int file)
{
    struct stat info = {};
    if (::fstat(file, &info) != 0)
        return -1;
    if (!S_ISREG(info.st_mode)) {
        errno = EINVAL;
        return -1;
    }
    return info.st_size;
}

qint64 FileOperations::read(int file, char* data, qint64 length, qint64 offset)
{
    return ::pread(file, data, static_cast<size_t>(length), offset);
}

qint64 FileOperations::write(int file, const char* data, qint64 length, qint64 offset)
{
    return systemcalls::writeAt(file, data, length, offset);
}

int FileOperations::truncate(int file, qint64 size)
{
    return ::ftruncate(file, size);
}

int FileOperations::flush(int file)
{
    return ::fsync(file);
}

int FileOperations::flushData(int file)
{
    return ::fdatasync(file);
}

int FileOperations::close(int file)
{
    return ::close(file);
}

int FileOperations::remove(const QByteArray& path)
{
    return ::unlink(path.constData());
}

int FileOperations::renameToNew(const QByteArray& from, const QByteArray& to)
{
    struct stat info = {};
    if (::lstat(from.constData(), &info) != 0)
        return -1;
    if (!S_ISREG(info.st_mode)) {
        errno = EINVAL;
        return -1;
    }
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    // File systems that cannot promise it leave it to us to look first; nobody else writes here.
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    if (::lstat(to.constData(), &info) == 0) {
        errno = EEXIST;
        return -1;
    }
    return ::rename(from.constData(), to.constData());
}

int FileOperations::renameOver(const QByteArray& from, const QByteArray& to)
{
    return ::rename(from.constData(), to.constData());
}

int FileOperations::flushFolder(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray folder = slash > 0 ? path.left(slash) : QByteArray(slash == 0 ? "/" : ".");
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return -1;
    const int result = ::fsync(fd);
    ::close(fd);
    // Some file systems cannot flush a folder; nothing is lost by that.
    return result != 0 && errno == EINVAL ? 0 : result;
}
