/*
 * swipeline-dicindex FOLDER...: makes the indices of all dictionaries in the folders ahead of time,
 * as the engine would when they are first wanted. Folders are those of the pen, in its order;
 * SWIPELINE_ROOT names the pen. Says what cannot be used.
 */
#include "platform/zembra_dic.h"

#include <cstdio>
#include <cstdlib>

namespace {

void open(tagDictTypeInfo* pairs)
{
    int made = 0;
    int refused = 0;
    for (const tagDictTypeInfo* pair = pairs; pair; pair = pair->next) {
        for (const tagDictLink* link = pair->dicts; link; link = link->next)
            ++(ZEMBRA_DIC_Initialize(link->dict) >= 0 ? made : refused);
    }
    std::printf("dictionaries: %d with an index", made);
    if (refused > 0)
        std::printf(", %d that cannot be used", refused);
    std::printf("\n");
}

} // namespace

int main(int argc, char** argv)
{
    void* list = nullptr;
    tagDictTypeInfo* pairs = nullptr;
    const bool good = ZEMBRA_DIC_GetDicList(&list, argv + 1, argc - 1) >= 0
                      && ZEMBRA_DIC_GetDicTypeList(&pairs, list, "ENGLISH") >= 0;
    if (pairs)
        open(pairs);
    ZEMBRA_DIC_FreeTypeDicList(&pairs);
    ZEMBRA_DIC_FreeDicList(&list);
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
