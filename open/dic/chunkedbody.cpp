#include "open/dic/chunkedbody.h"

#include <algorithm>
#include <array>
#include <utility>
#include <zlib.h>

namespace dic {

ChunkedBody::ChunkedBody(PlainFile file) : m_file(std::move(file))
{
    std::array<unsigned char, 8> trailer{};
    if (!readGzipHead(m_file, m_head)) {
        m_fault = "its head is damaged";
    } else if (m_head.chunkLength == 0) {
        m_fault = "is compressed in one piece, which dictzip mends";
    } else if (!m_file.read(m_file.size() - trailer.size(), trailer.data(), trailer.size())) {
        m_fault = "cannot be read";
    } else {
        const auto number = [&trailer](std::size_t at) {
            return trailer[at] | std::uint32_t(trailer[at + 1]) << 8
                   | std::uint32_t(trailer[at + 2]) << 16 | std::uint32_t(trailer[at + 3]) << 24;
        };
        m_sum = number(0);
        m_size = number(4);
        // All chunks are full but the last.
        const std::uint64_t chunks = m_head.chunkStart.size() - 1;
        if (m_size > chunks * m_head.chunkLength || m_size <= (chunks - 1) * m_head.chunkLength)
            m_fault = "its length does not fit its chunks";
    }
    if (!m_fault.empty())
        m_size = 0;
    m_chunks.resize(KeptChunks);
}

std::size_t ChunkedBody::lengthOf(std::size_t number) const
{
    const std::uint64_t start = std::uint64_t(number) * m_head.chunkLength;
    return static_cast<std::size_t>(std::min<std::uint64_t>(m_head.chunkLength, m_size - start));
}

bool ChunkedBody::inflateChunk(std::size_t number, std::size_t length, std::string& out)
{
    const std::uint64_t start = m_head.chunkStart[number];
    ++m_inflations;
    return m_file.read(start, m_head.chunkStart[number + 1] - start, m_compressed)
           && m_inflater.inflateFrom(m_compressed, length, out) == length;
}

// A chunk of which at least the first `length` bytes are there; null on damage.
const ChunkedBody::Chunk* ChunkedBody::chunk(std::size_t number, std::size_t length)
{
    auto place = std::find_if(m_chunks.begin(), m_chunks.end(), [number](const Chunk& kept) {
        return kept.lastUsed > 0 && kept.number == number;
    });
    if (place == m_chunks.end()) {
        place =
            std::min_element(m_chunks.begin(), m_chunks.end(), [](const Chunk& a, const Chunk& b) {
                return a.lastUsed < b.lastUsed;
            });
        place->lastUsed = 0;
    }
    if (place->lastUsed == 0 || place->text.size() < length) {
        place->lastUsed = 0;
        place->number = number;
        if (!inflateChunk(number, length, place->text))
            return nullptr;
    }
    place->lastUsed = ++m_uses;
    return &*place;
}

bool ChunkedBody::read(std::uint64_t offset, std::size_t length, std::string& out)
{
    out.clear();
    if (offset > m_size || length > m_size - offset)
        return false;
    while (out.size() < length) {
        const std::uint64_t at = offset + out.size();
        const auto number = static_cast<std::size_t>(at / m_head.chunkLength);
        const auto within = static_cast<std::size_t>(at % m_head.chunkLength);
        const std::size_t part = std::min(length - out.size(), lengthOf(number) - within);
        const Chunk* const found = chunk(number, within + part);
        if (!found)
            return false;
        out.append(found->text, within, part);
    }
    return true;
}

bool ChunkedBody::verify(const std::atomic<bool>& stop)
{
    uLong sum = crc32(0, nullptr, 0);
    std::string text;
    for (std::size_t number = 0; number + 1 < m_head.chunkStart.size(); ++number) {
        const std::size_t length = lengthOf(number);
        if (stop || !inflateChunk(number, length, text))
            return false;
        sum = crc32(sum, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(length));
    }
    return sum == m_sum;
}

} // namespace dic
