#include "open/dic/gzip.h"

#include <algorithm>
#include <array>

namespace dic {

namespace {

constexpr std::size_t HeadLength = 10;
constexpr std::size_t TrailerLength = 8;
constexpr std::size_t BlockLength = 64 * 1024;
constexpr std::size_t LongestName = 4096;

enum Flag { HeadSum = 2, Extra = 4, Name = 8, Comment = 16, Reserved = 0xe0 };

unsigned byteAt(const std::string& text, std::size_t place)
{
    return static_cast<unsigned char>(text[place]);
}

unsigned shortAt(const std::string& text, std::size_t place)
{
    return byteAt(text, place) | byteAt(text, place + 1) << 8;
}

// The table of chunk lengths within the extra field; a field without one is no error.
bool readChunkTable(const std::string& extra, GzipHead& head, std::vector<unsigned>& lengths)
{
    for (std::size_t at = 0; at + 4 <= extra.size();) {
        const std::size_t length = shortAt(extra, at + 2);
        if (at + 4 + length > extra.size())
            return false;
        if (extra[at] == 'R' && extra[at + 1] == 'A') {
            if (length < 6 || shortAt(extra, at + 4) != 1)
                return false;
            const std::size_t count = shortAt(extra, at + 8);
            head.chunkLength = shortAt(extra, at + 6);
            if (head.chunkLength == 0 || count == 0 || 6 + 2 * count > length)
                return false;
            for (std::size_t i = 0; i < count; ++i)
                lengths.push_back(shortAt(extra, at + 10 + 2 * i));
            return true;
        }
        at += 4 + length;
    }
    return true;
}

bool skipText(const PlainFile& file, std::uint64_t& offset)
{
    std::array<char, 256> part{};
    const std::uint64_t limit = std::min<std::uint64_t>(file.size(), offset + LongestName);
    while (offset < limit) {
        const std::size_t length = std::min<std::uint64_t>(part.size(), limit - offset);
        if (!file.read(offset, part.data(), length))
            return false;
        const auto end = std::find(part.begin(), part.begin() + length, '\0');
        offset += static_cast<std::uint64_t>(end - part.begin());
        if (end != part.begin() + length) {
            ++offset;
            return true;
        }
    }
    return false;
}

} // namespace

bool readGzipHead(const PlainFile& file, GzipHead& head)
{
    std::string start;
    if (!file.isOpen() || !file.read(0, HeadLength, start) || byteAt(start, 0) != 0x1f
        || byteAt(start, 1) != 0x8b || byteAt(start, 2) != 8 || (byteAt(start, 3) & Reserved))
        return false;
    const unsigned flags = byteAt(start, 3);
    head = GzipHead();
    head.dataOffset = HeadLength;
    std::vector<unsigned> lengths;
    if (flags & Extra) {
        std::string size;
        std::string extra;
        if (!file.read(HeadLength, 2, size) || !file.read(HeadLength + 2, shortAt(size, 0), extra)
            || !readChunkTable(extra, head, lengths))
            return false;
        head.dataOffset += 2 + extra.size();
    }
    if ((flags & Name) && !skipText(file, head.dataOffset))
        return false;
    if ((flags & Comment) && !skipText(file, head.dataOffset))
        return false;
    if (flags & HeadSum)
        head.dataOffset += 2;
    if (head.dataOffset + TrailerLength > file.size())
        return false;
    if (lengths.empty())
        return true;
    head.chunkStart.push_back(head.dataOffset);
    for (const unsigned length : lengths)
        head.chunkStart.push_back(head.chunkStart.back() + length);
    return head.chunkStart.back() + TrailerLength <= file.size();
}

bool inflateFile(const PlainFile& file, std::size_t limit, std::string& out)
{
    GzipHead head;
    out.clear();
    if (!readGzipHead(file, head))
        return false;
    z_stream stream = {};
    if (inflateInit2(&stream, 16 + MAX_WBITS) != Z_OK)
        return false;
    std::string in;
    std::string block(BlockLength, '\0');
    std::uint64_t offset = 0;
    int status = Z_OK;
    while (status == Z_OK && offset < file.size()) {
        const std::size_t part = std::min<std::uint64_t>(BlockLength, file.size() - offset);
        if (!file.read(offset, part, in))
            break;
        offset += part;
        stream.next_in = reinterpret_cast<Bytef*>(in.data());
        stream.avail_in = static_cast<uInt>(part);
        do {
            stream.next_out = reinterpret_cast<Bytef*>(block.data());
            stream.avail_out = static_cast<uInt>(block.size());
            status = inflate(&stream, Z_NO_FLUSH);
            const std::size_t made = block.size() - stream.avail_out;
            if (made > limit - out.size())
                status = Z_DATA_ERROR;
            else
                out.append(block, 0, made);
        } while (status == Z_OK && stream.avail_out == 0);
        if (status == Z_BUF_ERROR && stream.avail_in == 0)
            status = Z_OK;
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END;
}

Inflater::Inflater()
{
    m_usable = inflateInit2(&m_stream, -MAX_WBITS) == Z_OK;
}

Inflater::~Inflater()
{
    if (m_usable)
        inflateEnd(&m_stream);
}

std::size_t Inflater::inflateFrom(const std::string& data, std::size_t wanted, std::string& out)
{
    out.resize(wanted);
    if (!m_usable || inflateReset(&m_stream) != Z_OK)
        return 0;
    m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
    m_stream.avail_in = static_cast<uInt>(data.size());
    m_stream.next_out = reinterpret_cast<Bytef*>(out.data());
    m_stream.avail_out = static_cast<uInt>(wanted);
    while (m_stream.avail_out > 0) {
        const int status = inflate(&m_stream, Z_SYNC_FLUSH);
        if (status != Z_OK || m_stream.avail_in == 0)
            break;
    }
    return wanted - m_stream.avail_out;
}

} // namespace dic
