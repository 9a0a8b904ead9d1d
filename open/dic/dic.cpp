/*
 * The dictionary engine of a machine on which no dictionary can be installed: every list is empty,
 * and so no dictionary can be chosen, opened or searched. Says so as the contract wants it.
 */
#include "platform/zembra_dic.h"

#include <new>

namespace {

constexpr int32_t Ok = 0;
constexpr int32_t Failed = -1;

/* What a list handle points to. */
struct DictionaryList
{
};

template <typename T> bool storeNull(T** place)
{
    if (place)
        *place = nullptr;
    return place != nullptr;
}

} // namespace

int32_t ZEMBRA_DIC_GetDicList(void** dicList, const char* const* dirs, int32_t count)
{
    if (!storeNull(dicList) || count < 0 || (count > 0 && !dirs))
        return Failed;
    *dicList = new (std::nothrow) DictionaryList;
    return *dicList ? Ok : Failed;
}

int32_t ZEMBRA_DIC_FreeDicList(void** dicList)
{
    if (dicList) {
        delete static_cast<DictionaryList*>(*dicList);
        *dicList = nullptr;
    }
    return Ok;
}

int32_t ZEMBRA_DIC_GetDicTypeList(struct tagDictTypeInfo** typeList, void* dicList,
                                  const char* language)
{
    return storeNull(typeList) && dicList && language ? Ok : Failed;
}

int32_t ZEMBRA_DIC_FreeTypeDicList(struct tagDictTypeInfo** typeList)
{
    storeNull(typeList);
    return Ok;
}

int32_t ZEMBRA_DIC_SelectDic(struct tagDictInfo** dict, void*, int32_t, int32_t)
{
    storeNull(dict);
    return Failed;
}

int32_t ZEMBRA_DIC_Initialize(struct tagDictInfo*)
{
    return Failed;
}

int32_t ZEMBRA_DIC_Uninitialize(struct tagDictInfo*)
{
    return Ok;
}

int32_t ZEMBRA_DIC_SearchWord(struct tagResultNodeInfo** result, const uint16_t*, int32_t, int32_t,
                              int32_t)
{
    storeNull(result);
    return Failed;
}

int32_t ZEMBRA_DIC_GetFirstComment(struct tagResultNodeInfo** result, int32_t* position,
                                   const uint16_t*, int32_t)
{
    storeNull(result);
    if (position)
        *position = 0;
    return Failed;
}

int32_t ZEMBRA_DIC_FreeSearchResult(struct tagResultNodeInfo** result)
{
    storeNull(result);
    return Ok;
}
