#include "tests/fakes/fakedic.h"

#include "platform/zembra_dic.h"
#include "tests/fakes/calllog.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>
#include <set>
#include <string_view>

// The engine's own idea of a dictionary.
struct tagDictInfo
{
    FakeDic::Dictionary content;
};

namespace {

struct Pair
{
    std::int32_t language;
    std::int16_t endLanguage;
    std::u16string name;
    std::vector<FakeDic::Dictionary> dictionaries;
};

struct List
{
    std::vector<Pair> pairs;
    std::vector<std::vector<std::unique_ptr<tagDictInfo>>> dictionaries; // by pair
};

struct Results
{
    std::vector<tagResultNodeInfo> nodes;
    std::vector<std::u16string> definitions;
};

struct Types
{
    std::vector<tagDictTypeInfo> nodes;
    std::vector<std::vector<tagDictLink>> links;
};

struct State
{
    std::vector<Pair> pairs;
    std::map<std::string, std::int32_t> failures;
    std::vector<std::unique_ptr<List>> lists;
    std::vector<std::unique_ptr<Types>> types;
    std::vector<std::unique_ptr<Results>> results;
    std::set<const void*> live; // lists, types and results that are not released
    tagDictInfo* open = nullptr;
    int misuses = 0;
};

// Not in the state: they are used by several threads.
std::atomic<int> callsUnderWay{0};
std::atomic<int> overlaps{0};
std::mutex holdMutex;
std::condition_variable holdChanged;
bool held = false;

// Stands in each function: a call of the engine.
class Call
{
public:
    Call()
    {
        if (callsUnderWay++ > 0)
            ++overlaps;
    }
    ~Call() { --callsUnderWay; }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
};

State& state()
{
    static auto* const state = new State;
    return *state;
}

// Logs the call; the status that the test has set for it, 0 without one.
std::int32_t scripted(const std::string& function, const std::string& arguments = {})
{
    CallLog::add(function + "(" + arguments + ")");
    const auto found = state().failures.find(function);
    return found == state().failures.end() ? 0 : found->second;
}

bool isLive(const void* record)
{
    if (state().live.count(record))
        return true;
    ++state().misuses;
    return false;
}

tagDictTypeInfo typeOf(const Pair& pair)
{
    tagDictTypeInfo type = {};
    type.lanID = pair.language;
    type.endLanID = pair.endLanguage;
    const std::size_t units = std::min<std::size_t>(pair.name.size(), ZEMBRA_DIC_WORD_UNITS);
    type.nameBytes = static_cast<std::int32_t>(2 * units);
    std::copy_n(pair.name.begin(), units, type.name);
    return type;
}

tagResultNodeInfo nodeOf(const FakeDic::Entry& entry, const std::u16string& definition)
{
    tagResultNodeInfo node = {};
    const std::size_t units = std::min<std::size_t>(entry.word.size(), ZEMBRA_DIC_WORD_UNITS - 1);
    std::copy_n(entry.word.begin(), units, node.word);
    node.wordBytes = static_cast<std::int32_t>(2 * units);
    node.property = entry.property;
    node.text = reinterpret_cast<const std::uint16_t*>(definition.data());
    node.textBytes = static_cast<std::int32_t>(2 * definition.size());
    return node;
}

tagResultNodeInfo* publish(const std::vector<FakeDic::Entry>& entries)
{
    if (entries.empty())
        return nullptr;
    const std::size_t count = std::min<std::size_t>(entries.size(), ZEMBRA_DIC_MAX_RESULTS);
    auto results = std::make_unique<Results>();
    for (std::size_t i = 0; i < count; ++i)
        results->definitions.push_back(entries[i].definition);
    for (std::size_t i = 0; i < count; ++i)
        results->nodes.push_back(nodeOf(entries[i], results->definitions[i]));
    for (std::size_t i = 0; i + 1 < count; ++i)
        results->nodes[i].next = &results->nodes[i + 1];
    tagResultNodeInfo* const first = results->nodes.data();
    state().live.insert(first);
    state().results.push_back(std::move(results));
    return first;
}

std::u16string textOf(const std::uint16_t* text, std::int32_t bytes)
{
    return text ? std::u16string(text, text + bytes / 2) : std::u16string();
}

std::vector<FakeDic::Entry> entriesOf(const std::u16string& word)
{
    const auto& entries = state().open->content.entries;
    const auto found = entries.find(word);
    return found == entries.end() ? std::vector<FakeDic::Entry>() : found->second;
}

bool canSearch(std::int32_t bytes)
{
    return state().open && bytes >= 0 && bytes % 2 == 0;
}

void closeDictionariesOf(const List& list)
{
    for (const auto& pair : list.dictionaries) {
        for (const auto& dictionary : pair) {
            if (state().open == dictionary.get())
                state().open = nullptr;
        }
    }
}

} // namespace

void FakeDic::reset()
{
    holdInitialize(false);
    overlaps = 0;
    state() = State();
}

void FakeDic::addPair(std::int32_t language, std::int16_t endLanguage, std::u16string name,
                      std::vector<Dictionary> dictionaries)
{
    state().pairs.push_back({language, endLanguage, std::move(name), std::move(dictionaries)});
}

void FakeDic::fail(const std::string& function, std::int32_t status)
{
    state().failures[function] = std::min(status, 0);
}

void FakeDic::holdInitialize(bool on)
{
    {
        const std::lock_guard lock(holdMutex);
        held = on;
    }
    holdChanged.notify_all();
}

int FakeDic::openDictionaries()
{
    return state().open ? 1 : 0;
}

int FakeDic::openRecords()
{
    return static_cast<int>(state().live.size());
}

int FakeDic::misuses()
{
    return state().misuses + overlaps;
}

int32_t ZEMBRA_DIC_GetDicList(void** dicList, const char* const* dirs, int32_t count)
{
    const Call call;
    std::string arguments;
    for (int32_t i = 0; i < count; ++i)
        arguments += fakes::penPath(dirs[i]) + ", ";
    if (const int32_t status = scripted("ZEMBRA_DIC_GetDicList", arguments + std::to_string(count)))
        return status;
    if (!dicList)
        return -1;
    auto list = std::make_unique<List>();
    list->pairs = state().pairs;
    for (const Pair& pair : list->pairs) {
        auto& dictionaries = list->dictionaries.emplace_back();
        for (const FakeDic::Dictionary& content : pair.dictionaries)
            dictionaries.push_back(std::make_unique<tagDictInfo>(tagDictInfo{content}));
    }
    *dicList = list.get();
    state().live.insert(list.get());
    state().lists.push_back(std::move(list));
    return 0;
}

int32_t ZEMBRA_DIC_FreeDicList(void** dicList)
{
    const Call call;
    if (const int32_t status = scripted("ZEMBRA_DIC_FreeDicList"))
        return status;
    if (!dicList || !*dicList)
        return 0;
    if (!isLive(*dicList))
        return -1;
    closeDictionariesOf(*static_cast<List*>(*dicList));
    state().live.erase(*dicList);
    *dicList = nullptr;
    return 0;
}

int32_t ZEMBRA_DIC_GetDicTypeList(struct tagDictTypeInfo** typeList, void* dicList,
                                  const char* language)
{
    const Call call;
    const std::string named = language ? language : "null";
    if (const int32_t status = scripted("ZEMBRA_DIC_GetDicTypeList", named))
        return status;
    if (!typeList || !isLive(dicList))
        return -1;
    const List& list = *static_cast<List*>(dicList);
    *typeList = nullptr;
    if (list.pairs.empty())
        return 0;

    auto types = std::make_unique<Types>();
    for (const Pair& pair : list.pairs)
        types->nodes.push_back(typeOf(pair));
    types->links.resize(list.pairs.size());
    for (std::size_t i = 0; i < list.pairs.size(); ++i) {
        auto& links = types->links[i];
        for (const auto& dictionary : list.dictionaries[i])
            links.push_back({dictionary.get(), nullptr});
        for (std::size_t j = 0; j + 1 < links.size(); ++j)
            links[j].next = &links[j + 1];
        types->nodes[i].dicts = links.empty() ? nullptr : links.data();
        types->nodes[i].next = i + 1 < list.pairs.size() ? &types->nodes[i + 1] : nullptr;
    }
    *typeList = types->nodes.data();
    state().live.insert(*typeList);
    state().types.push_back(std::move(types));
    return 0;
}

int32_t ZEMBRA_DIC_FreeTypeDicList(struct tagDictTypeInfo** typeList)
{
    const Call call;
    if (const int32_t status = scripted("ZEMBRA_DIC_FreeTypeDicList"))
        return status;
    if (!typeList || !*typeList)
        return 0;
    if (!isLive(*typeList))
        return -1;
    state().live.erase(*typeList);
    std::memset((*typeList)->name, 0xde, sizeof(*typeList)->name);
    (*typeList)->lanID = -1;
    *typeList = nullptr;
    return 0;
}

int32_t ZEMBRA_DIC_SelectDic(struct tagDictInfo** dict, void* dicList, int32_t kind, int32_t number)
{
    const Call call;
    if (const int32_t status =
            scripted("ZEMBRA_DIC_SelectDic", std::to_string(kind) + ", " + std::to_string(number)))
        return status;
    if (!dict || !isLive(dicList))
        return -1;
    *dict = nullptr;
    for (const auto& pair : static_cast<List*>(dicList)->dictionaries) {
        const auto size = static_cast<int32_t>(pair.size());
        if (number >= 0 && number < size) {
            *dict = pair[static_cast<std::size_t>(number)].get();
            return 0;
        }
        number -= size;
    }
    return -1;
}

int32_t ZEMBRA_DIC_DescribeDic(const struct tagDictInfo* dict, int32_t what, uint16_t* text,
                               int32_t bytes)
{
    const Call call;
    if (const int32_t status =
            scripted("ZEMBRA_DIC_DescribeDic", std::to_string(what) + ", " + std::to_string(bytes)))
        return status;
    if (!dict || dict->content.away || bytes < 0 || bytes % 2 != 0 || (bytes > 0 && !text)
        || (what != ZEMBRA_DIC_NAME && what != ZEMBRA_DIC_ORIGIN))
        return -1;
    std::u16string_view told = what == ZEMBRA_DIC_NAME ? dict->content.name : dict->content.origin;
    told = told.substr(0, static_cast<std::size_t>(bytes) / 2);
    if (!told.empty() && (told.back() & 0xfc00) == 0xd800)
        told.remove_suffix(1);
    std::copy(told.begin(), told.end(), text);
    return static_cast<int32_t>(2 * told.size());
}

int32_t ZEMBRA_DIC_Initialize(struct tagDictInfo* dict)
{
    const Call call;
    if (const int32_t status = scripted("ZEMBRA_DIC_Initialize", dict ? "dictionary" : "null"))
        return status;
    {
        std::unique_lock lock(holdMutex);
        holdChanged.wait_for(lock, FakePatience, [] { return !held; });
    }
    if (!dict || dict->content.unreadable || dict->content.away)
        return -1;
    state().open = dict;
    return 0;
}

int32_t ZEMBRA_DIC_Uninitialize(struct tagDictInfo* dict)
{
    const Call call;
    if (const int32_t status = scripted("ZEMBRA_DIC_Uninitialize", dict ? "dictionary" : "null"))
        return status;
    if (dict && state().open == dict)
        state().open = nullptr;
    return 0;
}

int32_t ZEMBRA_DIC_SearchWord(struct tagResultNodeInfo** result, const uint16_t* word,
                              int32_t bytes, int32_t kind, int32_t flag)
{
    const Call call;
    const std::u16string text = textOf(word, std::max(bytes, 0));
    const std::string arguments = "\"" + fakes::utf8(text) + "\", " + std::to_string(bytes) + ", "
                                  + std::to_string(kind) + ", " + std::to_string(flag);
    if (const int32_t status = scripted("ZEMBRA_DIC_SearchWord", arguments))
        return status;
    if (!result)
        return -1;
    *result = nullptr;
    if (!canSearch(bytes))
        return -1;
    *result = publish(entriesOf(text));
    return 0;
}

int32_t ZEMBRA_DIC_GetFirstComment(struct tagResultNodeInfo** result, int32_t* position,
                                   const uint16_t* text, int32_t bytes)
{
    const Call call;
    const std::u16string line = textOf(text, std::max(bytes, 0));
    const std::string arguments = "\"" + fakes::utf8(line) + "\", " + std::to_string(bytes);
    if (const int32_t status = scripted("ZEMBRA_DIC_GetFirstComment", arguments))
        return status;
    if (!result || !position)
        return -1;
    *result = nullptr;
    *position = 0;
    if (!canSearch(bytes))
        return -1;
    for (std::size_t begin = 0; begin < line.size();) {
        const std::size_t end = std::min(line.find(u' ', begin), line.size());
        *result = publish(entriesOf(line.substr(begin, end - begin)));
        if (*result) {
            *position = static_cast<int32_t>(begin) + 1;
            return 0;
        }
        begin = end + 1;
    }
    return 0;
}

int32_t ZEMBRA_DIC_FreeSearchResult(struct tagResultNodeInfo** result)
{
    const Call call;
    if (const int32_t status = scripted("ZEMBRA_DIC_FreeSearchResult"))
        return status;
    if (!result || !*result)
        return 0;
    if (!isLive(*result))
        return -1;
    state().live.erase(*result);
    for (tagResultNodeInfo* node = *result; node; node = node->next)
        std::memset(node->word, 0xde, sizeof node->word);
    *result = nullptr;
    return 0;
}
