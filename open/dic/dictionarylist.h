#ifndef OPEN_DIC_DICTIONARYLIST_H
#define OPEN_DIC_DICTIONARYLIST_H

#include "open/dic/description.h"
#include "open/dic/indexshelf.h"
#include "open/dic/registry.h"
#include "platform/zembra_dic.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

/* One dictionary of a list; the record that platform/zembra_dic.h leaves to the engine. */
struct tagDictInfo
{
    std::optional<dic::Source> source; // none for one that is away and keeps its place
    dic::IndexShelf* shelf = nullptr;
    mutable std::optional<dic::Description> description = {}; // once somebody asked
};

namespace dic {

/* The dictionaries of all pairs, in the order that settings refer to. */
class DictionaryList
{
public:
    /* Searches the folders, and begins to see to the indices. */
    explicit DictionaryList(const std::vector<std::string>& folders);

    struct Pair
    {
        LanguagePair languages;
        std::vector<std::unique_ptr<tagDictInfo>> dictionaries;
    };

    const std::vector<Pair>& pairs() const { return m_pairs; }

    /* Counted through the pairs; null outside. */
    tagDictInfo* at(std::int32_t number) const;

    bool owns(const tagDictInfo* dictionary) const;

private:
    std::vector<Pair> m_pairs;
    std::unique_ptr<IndexShelf> m_shelf;
};

/* The records of pairs that callers hold. Any thread. */
class PairRecords
{
public:
    /* Null for a list without pairs. */
    tagDictTypeInfo* keep(const DictionaryList& list);

    /* Frees what keep() returned; anything else is left alone. */
    void release(const tagDictTypeInfo* first);

private:
    struct Record
    {
        std::vector<tagDictTypeInfo> nodes;
        std::vector<std::vector<tagDictLink>> links;
    };

    std::mutex m_mutex;
    std::map<const tagDictTypeInfo*, std::unique_ptr<Record>> m_records;
};

} // namespace dic

#endif
