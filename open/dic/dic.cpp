/*
 * Dictionaries in the formats DICT and StarDict: the functions of platform/zembra_dic.h.
 */
#include "platform/zembra_dic.h"

#include "open/dic/dictionary.h"
#include "open/dic/dictionarylist.h"
#include "open/dic/log.h"
#include "open/dic/lookup.h"
#include "open/dic/penfolders.h"
#include "open/dic/results.h"
#include "open/dic/wordforms.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int32_t Ok = 0;
constexpr int32_t Failed = -1;
constexpr int32_t LongestText = 1 << 20; // bytes of a line; longer ones are cut

/* The dictionary that searches go to. */
struct Open
{
    std::mutex mutex;
    const tagDictInfo* info = nullptr;
    std::unique_ptr<dic::Dictionary> dictionary;
    std::unique_ptr<dic::WordForms> forms;
    int formsLanguage = 0;
};

struct Engine
{
    Open open;
    dic::Results results;
    dic::PairRecords pairs;
};

Engine& engine()
{
    static auto* const engine = new Engine; // outlives whoever is late to release a record
    return *engine;
}

template <typename T> bool storeNull(T** place)
{
    if (place)
        *place = nullptr;
    return place != nullptr;
}

/* Runs an operation; one that runs out of memory or files fails, like any other. */
template <typename Operation> int32_t guarded(const char* name, const Operation& operation)
{
    try {
        return operation();
    } catch (const std::exception& error) {
        dic::note(name, error.what());
        return Failed;
    }
}

void close(Open& open)
{
    open.info = nullptr;
    open.dictionary.reset();
}

bool isText(const uint16_t* text, int32_t bytes)
{
    return bytes >= 0 && bytes % 2 == 0 && (text || bytes == 0);
}

std::u16string textOf(const uint16_t* text, int32_t bytes)
{
    return text ? std::u16string(text, text + std::min(bytes, LongestText) / 2) : std::u16string();
}

/* Searches in the open dictionary; nothing found is no failure unless its files could not be read.
 */
template <typename Search>
int32_t searchOpen(const char* name, tagResultNodeInfo** result, const Search& search)
{
    return guarded(name, [&] {
        Open& open = engine().open;
        const std::lock_guard lock(open.mutex);
        if (!open.dictionary)
            return Failed;
        dic::Lookup lookup(*open.dictionary, *open.forms);
        open.dictionary->takeFailure();
        *result = search(lookup);
        return !*result && open.dictionary->takeFailure() ? Failed : Ok;
    });
}

} // namespace

int32_t ZEMBRA_DIC_GetDicList(void** dicList, const char* const* dirs, int32_t count)
{
    if (!storeNull(dicList) || count < 0 || (count > 0 && !dirs))
        return Failed;
    return guarded("GetDicList", [=] {
        std::vector<std::string> folders;
        folders.reserve(static_cast<std::size_t>(count));
        for (int32_t i = 0; i < count; ++i)
            folders.emplace_back(dirs[i] ? dirs[i] : "");
        *dicList = new dic::DictionaryList(folders);
        return Ok;
    });
}

int32_t ZEMBRA_DIC_FreeDicList(void** dicList)
{
    if (!dicList || !*dicList)
        return Ok;
    auto* const list = static_cast<dic::DictionaryList*>(std::exchange(*dicList, nullptr));
    {
        Open& open = engine().open;
        const std::lock_guard lock(open.mutex);
        if (open.info && list->owns(open.info))
            close(open);
    }
    delete list;
    return Ok;
}

int32_t ZEMBRA_DIC_GetDicTypeList(struct tagDictTypeInfo** typeList, void* dicList,
                                  const char* language)
{
    if (!storeNull(typeList) || !dicList || !language)
        return Failed;
    return guarded("GetDicTypeList", [=] {
        *typeList = engine().pairs.keep(*static_cast<const dic::DictionaryList*>(dicList));
        return Ok;
    });
}

int32_t ZEMBRA_DIC_FreeTypeDicList(struct tagDictTypeInfo** typeList)
{
    if (typeList && *typeList)
        engine().pairs.release(std::exchange(*typeList, nullptr));
    return Ok;
}

int32_t ZEMBRA_DIC_SelectDic(struct tagDictInfo** dict, void* dicList, int32_t kind, int32_t number)
{
    if (!storeNull(dict) || !dicList || kind != 1)
        return Failed;
    *dict = static_cast<const dic::DictionaryList*>(dicList)->at(number);
    return *dict ? Ok : Failed;
}

int32_t ZEMBRA_DIC_DescribeDic(const struct tagDictInfo* dict, int32_t what, uint16_t* text,
                               int32_t bytes)
{
    if (!dict || !dict->source || !isText(text, bytes)
        || (what != ZEMBRA_DIC_NAME && what != ZEMBRA_DIC_ORIGIN))
        return Failed;
    return guarded("DescribeDic", [=] {
        if (!dict->description)
            dict->description = dic::describe(*dict->source);
        std::u16string_view told =
            what == ZEMBRA_DIC_NAME ? dict->description->name : dict->description->origin;
        told = told.substr(0, static_cast<std::size_t>(bytes) / 2);
        if (!told.empty() && (told.back() & 0xfc00) == 0xd800)
            told.remove_suffix(1); // no half characters
        std::copy(told.begin(), told.end(), text);
        return static_cast<int32_t>(2 * told.size());
    });
}

int32_t ZEMBRA_DIC_Initialize(struct tagDictInfo* dict)
{
    if (!dict || !dict->source)
        return Failed;
    return guarded("Initialize", [dict] {
        Open& open = engine().open;
        // Not under the lock: the index may have to be made first.
        auto dictionary = dic::Dictionary::open(*dict->source, *dict->shelf);
        if (!dictionary)
            return Failed;
        const int language = dictionary->pair().from;
        std::unique_ptr<dic::WordForms> forms;
        if (open.formsLanguage != language)
            forms = std::make_unique<dic::WordForms>(
                dic::wordFormFiles(dic::wordFormFolder(), language));
        const std::lock_guard lock(open.mutex);
        open.info = dict;
        open.dictionary = std::move(dictionary);
        if (forms) {
            open.forms = std::move(forms);
            open.formsLanguage = language;
        }
        return Ok;
    });
}

int32_t ZEMBRA_DIC_Uninitialize(struct tagDictInfo* dict)
{
    Open& open = engine().open;
    const std::lock_guard lock(open.mutex);
    if (dict && open.info == dict)
        close(open);
    return Ok;
}

int32_t ZEMBRA_DIC_SearchWord(struct tagResultNodeInfo** result, const uint16_t* word,
                              int32_t bytes, int32_t kind, int32_t flag)
{
    if (!storeNull(result) || !isText(word, bytes) || kind != 1 || flag != 0)
        return Failed;
    return searchOpen("SearchWord", result, [=](dic::Lookup& lookup) {
        return engine().results.keep(lookup.search(textOf(word, bytes)));
    });
}

int32_t ZEMBRA_DIC_GetFirstComment(struct tagResultNodeInfo** result, int32_t* position,
                                   const uint16_t* text, int32_t bytes)
{
    if (!storeNull(result) || !position)
        return Failed;
    *position = 0;
    if (!isText(text, bytes))
        return Failed;
    return searchOpen("GetFirstComment", result, [=](dic::Lookup& lookup) {
        const dic::FirstWord first = lookup.firstOf(textOf(text, bytes));
        tagResultNodeInfo* const found = engine().results.keep(first.hits);
        *position = found ? static_cast<int32_t>(first.position) : 0;
        return found;
    });
}

int32_t ZEMBRA_DIC_FreeSearchResult(struct tagResultNodeInfo** result)
{
    if (result && *result)
        engine().results.release(std::exchange(*result, nullptr));
    return Ok;
}
