#include "open/dic/results.h"

#include "open/dic/utf.h"

#include <algorithm>
#include <utility>

namespace dic {

namespace {

constexpr std::size_t WordUnits = ZEMBRA_DIC_WORD_UNITS - 1;

void putWord(tagResultNodeInfo& node, std::u16string_view word)
{
    word = word.substr(0, WordUnits);
    if (!word.empty() && (word.back() & 0xfc00) == 0xd800)
        word.remove_suffix(1); // no half characters
    std::copy(word.begin(), word.end(), node.word);
    node.wordBytes = static_cast<int32_t>(2 * word.size());
}

} // namespace

tagResultNodeInfo* Results::keep(const std::vector<Hit>& hits)
{
    auto record = std::make_unique<Record>();
    for (const Hit& hit : hits) {
        std::u16string text = hit.entry.text();
        if (text.empty() || record->nodes.size() == ZEMBRA_DIC_MAX_RESULTS)
            continue;
        tagResultNodeInfo node = {};
        putWord(node, toUtf16(hit.entry.word));
        node.property = static_cast<std::uint8_t>(hit.match);
        record->nodes.push_back(node);
        record->texts.push_back(std::move(text));
    }
    if (record->nodes.empty())
        return nullptr;
    for (std::size_t i = 0; i < record->nodes.size(); ++i) {
        tagResultNodeInfo& node = record->nodes[i];
        node.text = reinterpret_cast<const std::uint16_t*>(record->texts[i].data());
        node.textBytes = static_cast<int32_t>(2 * record->texts[i].size());
        node.next = i + 1 < record->nodes.size() ? &record->nodes[i + 1] : nullptr;
    }
    tagResultNodeInfo* const first = record->nodes.data();
    const std::lock_guard lock(m_mutex);
    m_records.emplace(first, std::move(record));
    return first;
}

void Results::release(const tagResultNodeInfo* first)
{
    const std::lock_guard lock(m_mutex);
    m_records.erase(first);
}

} // namespace dic
