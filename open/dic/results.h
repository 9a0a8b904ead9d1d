#ifndef OPEN_DIC_RESULTS_H
#define OPEN_DIC_RESULTS_H

#include "open/dic/dictionary.h"
#include "platform/zembra_dic.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace dic {

/* The records of searches that callers hold: what was not given out is never freed. Any thread. */
class Results
{
public:
    /* Makes records of hits, at most ZEMBRA_DIC_MAX_RESULTS; null for none. */
    tagResultNodeInfo* keep(const std::vector<Hit>& hits);

    /* Frees what keep() returned; anything else is left alone. */
    void release(const tagResultNodeInfo* first);

private:
    struct Record
    {
        std::vector<tagResultNodeInfo> nodes;
        std::vector<std::u16string> texts;
    };

    std::mutex m_mutex;
    std::map<const tagResultNodeInfo*, std::unique_ptr<Record>> m_records;
};

} // namespace dic

#endif
