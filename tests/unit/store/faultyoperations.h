#ifndef FAULTYOPERATIONS_H
#define FAULTYOPERATIONS_H

#include "store/fileoperations.h"

#include <array>
#include <optional>
#include <set>

/*
 * The file operations of this machine with one that fails: the calls are in use as long as the
 * object lives. Calls are counted from 1.
 */
class FaultyOperations : public FileOperations
{
public:
    enum class Call {
        Open,
        Size,
        Read,
        Write,
        Truncate,
        Flush,
        Close,
        Remove,
        RenameToNew,
        RenameOver,
        FlushFolder,
        Count
    };

    FaultyOperations();
    ~FaultyOperations() override;

    /* The nth call of a kind fails once. */
    void failAt(Call call, int nth, int error);

    /* The nth call of all fails, and, when `forGood`, all after it that write. */
    void failAtAny(int nth, int error, bool forGood);

    /* The nth call of a kind is interrupted by a signal. */
    void interruptAt(Call call, int nth) { failAt(call, nth, 4 /* EINTR */); }

    /* Reads and writes move that many bytes at most. */
    void setLargestTransfer(qint64 bytes) { m_largestTransfer = bytes; }

    /* Writes beyond that offset fail with "no space". */
    void setStorageEnd(qint64 offset) { m_storageEnd = offset; }

    int calls() const { return m_total; }
    int calls(Call call) const { return m_counts.at(size_t(call)); }
    int openFiles() const { return int(m_open.size()); }
    bool hasFailed() const { return m_failed.has_value(); }
    bool hasFailed(Call call) const { return m_failed == call; }

    int open(const QByteArray& path, int flags) override;
    qint64 plainFileSize(int file) override;
    qint64 read(int file, char* data, qint64 length, qint64 offset) override;
    qint64 write(int file, const char* data, qint64 length, qint64 offset) override;
    int truncate(int file, qint64 size) override;
    int flush(int file) override;
    int flushData(int file) override; // a Call::Flush, too
    int close(int file) override;
    int remove(const QByteArray& path) override;
    int renameToNew(const QByteArray& from, const QByteArray& to) override;
    int renameOver(const QByteArray& from, const QByteArray& to) override;
    int flushFolder(const QByteArray& path) override;

private:
    struct Fault
    {
        std::optional<Call> call; // any when not set
        int nth;
        int error;
        bool forGood;
    };

    bool fails(Call call);

    std::optional<Fault> m_fault;
    std::array<int, size_t(Call::Count)> m_counts = {};
    int m_total = 0;
    std::optional<Call> m_failed;
    qint64 m_largestTransfer = qint64(1) << 40;
    qint64 m_storageEnd = qint64(1) << 60;
    std::set<int> m_open;
};

#endif
