#include "store/filewriter.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

namespace {

// O_NONBLOCK: opening a pipe must not wait for its other end.
constexpr int OpenFlags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;

// What is overwritten is kept in memory meanwhile. Texts are a few hundred kilobytes at most.
constexpr qint64 MaxOldBytes = 16 * 1024 * 1024;

} // namespace

// An open plain file; made by the operation when it was not there.
class FileWriter::OpenFile
{
public:
    OpenFile(FileOperations& operations, const QString& path, int flags)
        : m_operations(operations), m_path(QFile::encodeName(path))
    {
        m_fd = m_operations.open(m_path, OpenFlags | flags);
        if (m_fd >= 0)
            m_size = m_operations.plainFileSize(m_fd);
    }
    ~OpenFile()
    {
        if (m_fd >= 0)
            m_operations.close(m_fd);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isPlain() const { return m_fd >= 0 && m_size >= 0; }
    int fd() const { return m_fd; }
    qint64 size() const { return m_size; }
    const QByteArray& path() const { return m_path; }

    bool flushAndClose()
    {
        const bool flushed = m_operations.flush(m_fd) == 0;
        return close() && flushed;
    }
    bool close()
    {
        // Whatever close() says, the descriptor is gone.
        const bool closed = m_fd < 0 || m_operations.close(m_fd) == 0;
        m_fd = -1;
        return closed;
    }

private:
    FileOperations& m_operations;
    QByteArray m_path;
    int m_fd = -1;
    qint64 m_size = -1;
};

// Writes the bytes of `content` from `from` on to `offset` of the file.
bool FileWriter::write(OpenFile& file, const QByteArray& content, qint64 from, qint64 offset)
{
    while (from < content.size()) {
        const qint64 written = m_operations.write(file.fd(), content.constData() + from,
                                                  content.size() - from, offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        from += written;
        offset += written;
    }
    return true;
}

// Writes `tail` behind the old end; takes it away again when it does not fit.
bool FileWriter::grow(OpenFile& file, const QByteArray& tail)
{
    if (write(file, tail, 0, file.size()) && m_operations.flush(file.fd()) == 0)
        return true;
    m_operations.truncate(file.fd(), file.size());
    return false;
}

bool FileWriter::readOld(OpenFile& file, QByteArray& old)
{
    if (file.size() > MaxOldBytes)
        return false;
    old.resize(file.size());
    for (qint64 done = 0; done < old.size();) {
        const qint64 got = m_operations.read(file.fd(), old.data() + done, old.size() - done, done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        done += got;
    }
    return true;
}

// Overwrites in place; puts the old content back on a failure.
bool FileWriter::rewrite(OpenFile& file, const QByteArray& content)
{
    QByteArray old;
    if (!readOld(file, old))
        return false;
    const qsizetype common = std::min(old.size(), content.size());
    if (content.size() > common && !grow(file, content.sliced(common)))
        return false;
    const bool shorter = content.size() < old.size();
    if (write(file, content.first(common), 0, 0)
        && (!shorter || m_operations.truncate(file.fd(), content.size()) == 0)
        && m_operations.flush(file.fd()) == 0)
        return true;
    write(file, old, 0, 0);
    m_operations.truncate(file.fd(), old.size());
    m_operations.flush(file.fd());
    return false;
}

// Writes a file that was just made; removes it on a failure.
bool FileWriter::fill(OpenFile& file, const QByteArray& content)
{
    if (file.isPlain() && write(file, content, 0, 0) && file.flushAndClose()
        && m_operations.flushFolder(file.path()) == 0)
        return true;
    m_operations.remove(file.path());
    return false;
}

FileWriter::Result FileWriter::create(const QString& path, const QByteArray& content)
{
    OpenFile file(m_operations, path, O_CREAT | O_EXCL);
    if (file.fd() < 0)
        return errno == EEXIST ? Result::Exists : Result::Failed;
    return fill(file, content) ? Result::Done : Result::Failed;
}

// Changes a file that exists; makes it when it does not.
FileWriter::Result FileWriter::update(const QString& path, const QByteArray& content,
                                      bool (FileWriter::*change)(OpenFile&, const QByteArray&))
{
    OpenFile file(m_operations, path, 0);
    if (file.fd() < 0 && errno == ENOENT)
        return create(path, content) == Result::Done ? Result::Done : Result::Failed;
    if (!file.isPlain())
        return Result::Failed;
    return (this->*change)(file, content) && file.close() ? Result::Done : Result::Failed;
}

FileWriter::Result FileWriter::overwrite(const QString& path, const QByteArray& content)
{
    return update(path, content, &FileWriter::rewrite);
}

FileWriter::Result FileWriter::append(const QString& path, const QByteArray& content)
{
    return update(path, content, &FileWriter::grow);
}

FileWriter::Result FileWriter::log(const QString& path, qint64 end, const QByteArray& content)
{
    OpenFile file(m_operations, path, 0);
    if (file.fd() < 0 && errno == ENOENT && end == 0)
        return create(path, content) == Result::Done ? Result::Done : Result::Failed;
    if (!file.isPlain() || file.size() < end)
        return Result::Failed;
    if (file.size() > end && m_operations.truncate(file.fd(), end) != 0)
        return Result::Failed;
    if (write(file, content, 0, end) && m_operations.flushData(file.fd()) == 0)
        return Result::Done;
    m_operations.truncate(file.fd(), end);
    m_operations.flushData(file.fd());
    return Result::Failed;
}

FileWriter::Result FileWriter::clear(const QString& path, bool flushed)
{
    OpenFile file(m_operations, path, 0);
    if (file.fd() < 0 && errno == ENOENT)
        return Result::Done;
    if (!file.isPlain() || (file.size() > 0 && m_operations.truncate(file.fd(), 0) != 0)
        || (flushed && m_operations.flushData(file.fd()) != 0))
        return Result::Failed;
    return Result::Done;
}

FileWriter::Result FileWriter::replace(const QString& path, const QByteArray& content)
{
    const QByteArray target = QFile::encodeName(path);
    const QByteArray fresh = target + ".new";
    m_operations.remove(fresh); // left by a crash
    if (create(QFile::decodeName(fresh), content) != Result::Done)
        return Result::Failed;
    if (m_operations.renameOver(fresh, target) != 0) {
        m_operations.remove(fresh);
        return Result::Failed;
    }
    return m_operations.flushFolder(target) == 0 ? Result::Done : Result::Failed;
}

FileWriter::Result FileWriter::remove(const QString& path)
{
    const QByteArray encoded = QFile::encodeName(path);
    if (m_operations.remove(encoded) != 0)
        return Result::Failed;
    // The file is gone whatever the flush says: a failure of it would only be believed wrongly.
    m_operations.flushFolder(encoded);
    return Result::Done;
}

FileWriter::Result FileWriter::rename(const QString& from, const QString& to)
{
    const QByteArray target = QFile::encodeName(to);
    if (m_operations.renameToNew(QFile::encodeName(from), target) != 0)
        return errno == EEXIST ? Result::Exists : Result::Failed;
    m_operations.flushFolder(target);
    return Result::Done;
}
