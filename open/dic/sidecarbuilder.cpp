#include "open/dic/sidecarbuilder.h"

#include "open/dic/folding.h"
#include "open/dic/sidecar.h"
#include "open/dic/sidecarformat.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <unistd.h>

namespace dic {

using namespace sidecarformat;

namespace {

/* Writes through a buffer and knows how far it is. */
class Output
{
public:
    explicit Output(int descriptor) : m_descriptor(descriptor) {}

    void append(std::string_view text)
    {
        m_buffer += text;
        m_length += text.size();
        if (m_buffer.size() >= 64 * 1024)
            flush();
    }

    void flush()
    {
        std::string_view rest = m_buffer;
        while (!rest.empty() && m_good) {
            const ssize_t wrote = ::write(m_descriptor, rest.data(), rest.size());
            if (wrote > 0)
                rest.remove_prefix(static_cast<std::size_t>(wrote));
            else
                m_good = wrote < 0 && errno == EINTR;
        }
        m_buffer.clear();
    }

    std::uint64_t length() const { return m_length; }
    bool good() const { return m_good; }

private:
    int m_descriptor;
    std::string m_buffer;
    std::uint64_t m_length = 0;
    bool m_good = true;
};

struct Directory
{
    std::string text;
    std::uint32_t blocks = 0;
};

void writeBlock(std::string& block, std::string_view firstKey, Output& out, Directory& directory)
{
    if (block.empty())
        return;
    appendShort(directory.text, out.length());
    appendShort(directory.text, block.size());
    appendShort(directory.text, sumOf(block));
    appendShort(directory.text, firstKey.size());
    directory.text += firstKey;
    ++directory.blocks;
    out.append(block);
    block.clear();
}

std::string headOf(std::string_view fingerprint, std::size_t rows, const Directory& directory,
                   std::uint64_t offset)
{
    std::string head(Magic);
    appendNumber(head, fingerprint.size(), 4);
    appendNumber(head, rows, 4);
    appendNumber(head, directory.blocks, 4);
    appendNumber(head, offset, 8);
    appendNumber(head, directory.text.size(), 8);
    appendNumber(head, sumOf(directory.text), 4);
    appendNumber(head, 0, 4);
    appendNumber(head, sumOf(head), 4);
    return head;
}

bool writeAt(int descriptor, std::string_view text)
{
    return pwrite(descriptor, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
}

} // namespace

void SidecarBuilder::add(const Row& row)
{
    const std::string key = foldedKey(row.head);
    if (key.empty() || key.size() > 4 * LongestHead)
        return;
    addKey(key, row);
    const std::string plain = accentFreeKey(key);
    if (plain != key)
        addKey(AccentFreeMark + plain, row);
}

void SidecarBuilder::addKey(std::string_view key, const Row& row)
{
    Item item = {};
    const std::string_view head = row.head == key ? std::string_view() : row.head;
    item.offset = row.offset;
    item.size = row.size;
    item.text = m_text.size();
    item.keyLength = static_cast<std::uint16_t>(key.size());
    item.headLength = static_cast<std::uint16_t>(head.size());
    item.titleLength = static_cast<std::uint16_t>(row.title.size());
    m_text.append(key).append(head).append(row.title);
    m_items.push_back(item);
}

std::string_view SidecarBuilder::keyOf(const Item& item) const
{
    return std::string_view(m_text).substr(item.text, item.keyLength);
}

void SidecarBuilder::appendRow(const Item& item, std::string& block) const
{
    const std::string_view text(m_text);
    std::uint64_t at = item.text;
    for (const std::uint16_t length : {item.keyLength, item.headLength, item.titleLength}) {
        appendShort(block, length);
        block += text.substr(at, length);
        at += length;
    }
    appendShort(block, item.offset);
    appendShort(block, item.size);
}

bool SidecarBuilder::write(int descriptor, std::string_view fingerprint,
                           const std::atomic<bool>& stop)
{
    if (m_items.size() > std::numeric_limits<std::uint32_t>::max())
        return false;
    std::stable_sort(m_items.begin(), m_items.end(),
                     [this](const Item& a, const Item& b) { return keyOf(a) < keyOf(b); });
    Output out(descriptor);
    Directory directory;
    std::string block;
    std::string_view firstKey;
    out.append(std::string(HeadLength, '\0'));
    out.append(fingerprint);
    for (const Item& item : m_items) {
        if (stop)
            return false;
        if (block.empty())
            firstKey = keyOf(item);
        appendRow(item, block);
        if (block.size() >= BlockLength)
            writeBlock(block, firstKey, out, directory);
    }
    writeBlock(block, firstKey, out, directory);
    const std::uint64_t offset = out.length();
    out.append(directory.text);
    out.flush();
    return out.good()
           && writeAt(descriptor, headOf(fingerprint, m_items.size(), directory, offset));
}

} // namespace dic
