#ifndef OPEN_DIC_PLAINFILE_H
#define OPEN_DIC_PLAINFILE_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace dic {

/* What tells one state of one file from another. */
struct FileStamp
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0; // nanoseconds

    bool operator==(const FileStamp&) const = default;
};

/*
 * A plain file, open for reading at any place. Links, pipes, devices and folders are not opened,
 * and never waited for. Reads are `pread`: a card that is pulled out fails them and does no harm.
 * Threads: reading is safe from several at a time.
 */
class PlainFile
{
public:
    PlainFile() = default;
    explicit PlainFile(int descriptor); // takes it over
    PlainFile(PlainFile&& other) noexcept;
    PlainFile& operator=(PlainFile&& other) noexcept;
    ~PlainFile();

    static PlainFile open(const std::string& path);

    bool isOpen() const { return m_descriptor >= 0; }
    std::uint64_t size() const { return m_stamp.size; }
    const FileStamp& stamp() const { return m_stamp; }

    /* The path by which this process can open the same file once more. */
    std::string link() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

    /* Exactly `length` bytes from `offset`, or false. */
    bool read(std::uint64_t offset, void* to, std::size_t length) const;
    bool read(std::uint64_t offset, std::size_t length, std::string& out) const;

    /* The whole content; false for more than `limit` bytes. */
    bool readAll(std::size_t limit, std::string& out) const;

private:
    void close();

    int m_descriptor = -1;
    FileStamp m_stamp;
};

} // namespace dic

#endif
