#include "tests/unit/open/dicengine.h"

#include "open/dic/utf.h"

namespace {

std::string utf8(const std::uint16_t* text, int bytes)
{
    return dic::toUtf8(std::u16string(text, text + bytes / 2));
}

} // namespace

DicEngine::DicEngine(const std::vector<std::string>& folders)
{
    std::vector<const char*> dirs;
    for (const std::string& folder : folders)
        dirs.push_back(folder.c_str());
    status = ZEMBRA_DIC_GetDicList(&m_list, dirs.data(), int32_t(dirs.size()));
}

DicEngine::~DicEngine()
{
    ZEMBRA_DIC_FreeDicList(&m_list);
}

std::vector<std::string> DicEngine::pairs()
{
    std::vector<std::string> lines;
    tagDictTypeInfo* types = nullptr;
    status = ZEMBRA_DIC_GetDicTypeList(&types, m_list, "ENGLISH");
    for (const tagDictTypeInfo* type = types; type; type = type->next) {
        int count = 0;
        for (const tagDictLink* link = type->dicts; link; link = link->next)
            ++count;
        lines.push_back(utf8(type->name, type->nameBytes) + " " + std::to_string(count));
    }
    ZEMBRA_DIC_FreeTypeDicList(&types);
    return lines;
}

bool DicEngine::open(int number)
{
    tagDictInfo* dictionary = nullptr;
    status = ZEMBRA_DIC_SelectDic(&dictionary, m_list, 1, number);
    if (status >= 0)
        status = ZEMBRA_DIC_Initialize(dictionary);
    return status >= 0;
}

std::vector<DicEngine::Found> DicEngine::take(tagResultNodeInfo* result)
{
    std::vector<Found> found;
    for (const tagResultNodeInfo* node = result; node; node = node->next)
        found.push_back(
            {utf8(node->word, node->wordBytes), utf8(node->text, node->textBytes), node->property});
    ZEMBRA_DIC_FreeSearchResult(&result);
    return found;
}

std::vector<DicEngine::Found> DicEngine::search(const std::u16string& word)
{
    tagResultNodeInfo* result = nullptr;
    status = ZEMBRA_DIC_SearchWord(&result, reinterpret_cast<const std::uint16_t*>(word.data()),
                                   int32_t(2 * word.size()), 1, 0);
    return take(result);
}

std::vector<DicEngine::Found> DicEngine::first(const std::u16string& line, int& position)
{
    tagResultNodeInfo* result = nullptr;
    int32_t place = -1;
    status = ZEMBRA_DIC_GetFirstComment(&result, &place,
                                        reinterpret_cast<const std::uint16_t*>(line.data()),
                                        int32_t(2 * line.size()));
    position = place;
    return take(result);
}
