#include "open/dic/sidecar.h"

#include "open/dic/sidecarformat.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace dic {

using namespace sidecarformat;

namespace {

constexpr std::size_t NoBlock = std::numeric_limits<std::size_t>::max();

bool takeRow(std::string_view& text, std::string_view& key, std::string_view& head,
             std::string_view& title, FoundRow& row)
{
    std::uint64_t size = 0;
    if (!takeText(text, key) || !takeText(text, head) || !takeText(text, title)
        || !takeShort(text, row.offset) || !takeShort(text, size)
        || size > std::numeric_limits<std::uint32_t>::max())
        return false;
    row.size = static_cast<std::uint32_t>(size);
    return true;
}

} // namespace

Sidecar::Sidecar(PlainFile file) : m_file(std::move(file)), m_blockNumber(NoBlock) {}

std::unique_ptr<Sidecar> Sidecar::open(PlainFile file, std::string_view fingerprint)
{
    if (!file.isOpen())
        return nullptr;
    std::unique_ptr<Sidecar> sidecar(new Sidecar(std::move(file)));
    return sidecar->readDirectory(fingerprint) ? std::move(sidecar) : nullptr;
}

bool Sidecar::readDirectory(std::string_view fingerprint)
{
    std::string head;
    if (!m_file.read(0, HeadLength + fingerprint.size(), head) || !head.starts_with(Magic)
        || numberAt(head, 44, 4) != sumOf(std::string_view(head).substr(0, 44))
        || numberAt(head, 8, 4) != fingerprint.size() || head.substr(HeadLength) != fingerprint)
        return false;
    m_rows = static_cast<std::uint32_t>(numberAt(head, 12, 4));
    const std::uint64_t offset = numberAt(head, 20, 8);
    const std::uint64_t length = numberAt(head, 28, 8);
    if (length > LargestDirectory || offset + length != m_file.size()
        || !m_file.read(offset, static_cast<std::size_t>(length), m_directory)
        || sumOf(m_directory) != numberAt(head, 36, 4))
        return false;
    return parseDirectory(static_cast<std::uint32_t>(numberAt(head, 16, 4)));
}

bool Sidecar::parseDirectory(std::uint32_t blocks)
{
    std::string_view rest = m_directory;
    m_blocks.reserve(std::min<std::size_t>(blocks, m_directory.size()));
    for (std::uint32_t i = 0; i < blocks; ++i) {
        Block block;
        std::string_view key;
        std::uint64_t length = 0;
        std::uint64_t sum = 0;
        if (!takeShort(rest, block.offset) || !takeShort(rest, length) || !takeShort(rest, sum)
            || !takeText(rest, key) || length > LargestBlock)
            return false;
        block.length = static_cast<std::uint32_t>(length);
        block.sum = static_cast<std::uint32_t>(sum);
        block.keyStart = static_cast<std::uint32_t>(key.data() - m_directory.data());
        block.keyLength = static_cast<std::uint32_t>(key.size());
        m_blocks.push_back(block);
    }
    return rest.empty();
}

std::string_view Sidecar::firstKey(const Block& block) const
{
    return std::string_view(m_directory).substr(block.keyStart, block.keyLength);
}

bool Sidecar::readBlock(std::size_t number)
{
    if (number == m_blockNumber)
        return true;
    const Block& block = m_blocks[number];
    m_blockNumber = NoBlock;
    if (!m_file.read(block.offset, block.length, m_block) || sumOf(m_block) != block.sum)
        return false;
    m_blockNumber = number;
    return true;
}

std::vector<FoundRow> Sidecar::find(std::string_view key)
{
    std::vector<FoundRow> found;
    // The last rows of the block before the first that begins with the key may have it, too.
    auto block = std::lower_bound(
        m_blocks.begin(), m_blocks.end(), key,
        [this](const Block& a, std::string_view wanted) { return firstKey(a) < wanted; });
    if (block != m_blocks.begin())
        --block;
    for (; block != m_blocks.end() && firstKey(*block) <= key; ++block) {
        m_failed = !readBlock(static_cast<std::size_t>(block - m_blocks.begin()));
        if (m_failed)
            return found;
        std::string_view rest = m_block;
        while (!rest.empty()) {
            FoundRow row;
            std::string_view rowKey;
            std::string_view head;
            std::string_view title;
            m_failed = !takeRow(rest, rowKey, head, title, row);
            if (m_failed || rowKey > key || found.size() == MostRows)
                return found;
            if (rowKey == key) {
                row.head = head.empty() ? rowKey : head;
                row.title = title;
                found.push_back(std::move(row));
            }
        }
    }
    return found;
}

} // namespace dic
