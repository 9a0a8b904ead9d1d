#include "open/dic/dictionarylist.h"

#include "open/dic/folderscan.h"
#include "open/dic/penfolders.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <utility>

namespace dic {

namespace {

tagDictTypeInfo recordOf(const LanguagePair& languages)
{
    tagDictTypeInfo record = {};
    const std::u16string name = toUtf16(pairName(languages));
    record.lanID = languages.from;
    record.endLanID = static_cast<std::int16_t>(languages.to);
    const std::size_t length = std::min<std::size_t>(name.size(), ZEMBRA_DIC_WORD_UNITS);
    std::copy_n(name.begin(), length, record.name);
    record.nameBytes = static_cast<std::int32_t>(2 * length);
    return record;
}

} // namespace

DictionaryList::DictionaryList(const std::vector<std::string>& folders)
{
    const std::vector<Source> found = scanFolders(folders);
    if (found.empty())
        return;
    const std::string folder = indexFolder();
    m_shelf = std::make_unique<IndexShelf>(folder);
    for (Registry::Pair& known :
         Registry::arrange(found, folder.empty() ? folder : folder + "registry")) {
        Pair& pair = m_pairs.emplace_back();
        pair.languages = known.languages;
        for (std::optional<Source>& source : known.dictionaries)
            pair.dictionaries.push_back(
                std::make_unique<tagDictInfo>(tagDictInfo{std::move(source), m_shelf.get()}));
    }
    m_shelf->prepare(found);
}

tagDictInfo* DictionaryList::at(std::int32_t number) const
{
    for (const Pair& pair : m_pairs) {
        const auto count = static_cast<std::int32_t>(pair.dictionaries.size());
        if (number >= 0 && number < count)
            return pair.dictionaries[static_cast<std::size_t>(number)].get();
        number -= count;
    }
    return nullptr;
}

bool DictionaryList::owns(const tagDictInfo* dictionary) const
{
    return std::any_of(m_pairs.begin(), m_pairs.end(), [dictionary](const Pair& pair) {
        return std::any_of(pair.dictionaries.begin(), pair.dictionaries.end(),
                           [dictionary](const auto& own) { return own.get() == dictionary; });
    });
}

tagDictTypeInfo* PairRecords::keep(const DictionaryList& list)
{
    if (list.pairs().empty())
        return nullptr;
    auto record = std::make_unique<Record>();
    for (const DictionaryList::Pair& pair : list.pairs()) {
        record->nodes.push_back(recordOf(pair.languages));
        auto& links = record->links.emplace_back();
        for (const auto& dictionary : pair.dictionaries)
            links.push_back({dictionary.get(), nullptr});
        for (std::size_t i = 0; i + 1 < links.size(); ++i)
            links[i].next = &links[i + 1];
    }
    for (std::size_t i = 0; i < record->nodes.size(); ++i) {
        auto& links = record->links[i];
        record->nodes[i].dicts = links.empty() ? nullptr : links.data();
        record->nodes[i].next = i + 1 < record->nodes.size() ? &record->nodes[i + 1] : nullptr;
    }
    tagDictTypeInfo* const first = record->nodes.data();
    const std::lock_guard lock(m_mutex);
    m_records.emplace(first, std::move(record));
    return first;
}

void PairRecords::release(const tagDictTypeInfo* first)
{
    const std::lock_guard lock(m_mutex);
    m_records.erase(first);
}

} // namespace dic
