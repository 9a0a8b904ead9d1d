#include "open/dic/plainfile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace dic {

PlainFile::PlainFile(int descriptor) : m_descriptor(descriptor)
{
    struct stat info = {};
    if (m_descriptor < 0)
        return;
    if (fstat(m_descriptor, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size < 0) {
        close();
        return;
    }
    m_stamp.device = info.st_dev;
    m_stamp.inode = info.st_ino;
    m_stamp.size = static_cast<std::uint64_t>(info.st_size);
    m_stamp.modified = std::int64_t(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
}

PlainFile::PlainFile(PlainFile&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)), m_stamp(other.m_stamp)
{
}

PlainFile& PlainFile::operator=(PlainFile&& other) noexcept
{
    if (this != &other) {
        close();
        m_descriptor = std::exchange(other.m_descriptor, -1);
        m_stamp = other.m_stamp;
    }
    return *this;
}

PlainFile::~PlainFile()
{
    close();
}

void PlainFile::close()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

PlainFile PlainFile::open(const std::string& path)
{
    return PlainFile(
        ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

bool PlainFile::read(std::uint64_t offset, void* to, std::size_t length) const
{
    if (offset > m_stamp.size || length > m_stamp.size - offset)
        return false;
    auto* at = static_cast<char*>(to);
    while (length > 0) {
        const ssize_t got = pread(m_descriptor, at, length, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        at += got;
        offset += static_cast<std::uint64_t>(got);
        length -= static_cast<std::size_t>(got);
    }
    return true;
}

bool PlainFile::read(std::uint64_t offset, std::size_t length, std::string& out) const
{
    if (offset > m_stamp.size || length > m_stamp.size - offset)
        return false;
    out.resize(length);
    return read(offset, out.data(), length);
}

bool PlainFile::readAll(std::size_t limit, std::string& out) const
{
    return isOpen() && m_stamp.size <= limit && read(0, std::size_t(m_stamp.size), out);
}

} // namespace dic
