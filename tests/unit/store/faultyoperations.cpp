#include "tests/unit/store/faultyoperations.h"

#include <algorithm>
#include <cerrno>

FaultyOperations::FaultyOperations()
{
    setCurrent(this);
}

FaultyOperations::~FaultyOperations()
{
    setCurrent(nullptr);
}

void FaultyOperations::failAt(Call call, int nth, int error)
{
    m_fault = Fault{call, nth, error, false};
}

void FaultyOperations::failAtAny(int nth, int error, bool forGood)
{
    m_fault = Fault{std::nullopt, nth, error, forGood};
}

bool FaultyOperations::fails(Call call)
{
    ++m_total;
    const int count = ++m_counts.at(size_t(call));
    if (!m_fault)
        return false;
    const bool now =
        m_fault->call ? *m_fault->call == call && count == m_fault->nth : m_total == m_fault->nth;
    const bool later = m_fault->forGood && m_failed && call == Call::Write;
    if (!now && !later)
        return false;
    m_failed = call;
    errno = m_fault->error;
    return true;
}

int FaultyOperations::open(const QByteArray& path, int flags)
{
    if (fails(Call::Open))
        return -1;
    const int file = FileOperations::open(path, flags);
    if (file >= 0)
        m_open.insert(file);
    return file;
}

qint64 FaultyOperations::plainFileSize(int file)
{
    return fails(Call::Size) ? -1 : FileOperations::plainFileSize(file);
}

qint64 FaultyOperations::read(int file, char* data, qint64 length, qint64 offset)
{
    if (fails(Call::Read))
        return -1;
    return FileOperations::read(file, data, std::min(length, m_largestTransfer), offset);
}

qint64 FaultyOperations::write(int file, const char* data, qint64 length, qint64 offset)
{
    if (fails(Call::Write))
        return -1;
    if (offset >= m_storageEnd) {
        m_failed = Call::Write;
        errno = ENOSPC;
        return -1;
    }
    return FileOperations::write(
        file, data, std::min({length, m_largestTransfer, m_storageEnd - offset}), offset);
}

int FaultyOperations::truncate(int file, qint64 size)
{
    return fails(Call::Truncate) ? -1 : FileOperations::truncate(file, size);
}

int FaultyOperations::flush(int file)
{
    return fails(Call::Flush) ? -1 : FileOperations::flush(file);
}

int FaultyOperations::flushData(int file)
{
    return fails(Call::Flush) ? -1 : FileOperations::flushData(file);
}

int FaultyOperations::close(int file)
{
    // As the system does: the descriptor is gone even when closing fails.
    m_open.erase(file);
    const bool failing = fails(Call::Close);
    const int error = errno;
    const int result = FileOperations::close(file);
    if (!failing)
        return result;
    errno = error;
    return -1;
}

int FaultyOperations::remove(const QByteArray& path)
{
    return fails(Call::Remove) ? -1 : FileOperations::remove(path);
}

int FaultyOperations::renameToNew(const QByteArray& from, const QByteArray& to)
{
    return fails(Call::RenameToNew) ? -1 : FileOperations::renameToNew(from, to);
}

int FaultyOperations::renameOver(const QByteArray& from, const QByteArray& to)
{
    return fails(Call::RenameOver) ? -1 : FileOperations::renameOver(from, to);
}

int FaultyOperations::flushFolder(const QByteArray& path)
{
    return fails(Call::FlushFolder) ? -1 : FileOperations::flushFolder(path);
}
