#ifndef OPEN_DIC_STARDICTINFO_H
#define OPEN_DIC_STARDICTINFO_H

#include "open/dic/plainfile.h"

#include <cstdint>
#include <string>

namespace dic {

/* What NAME.ifo says about a StarDict dictionary. */
struct StarDictInfo
{
    std::string title;
    std::string languages; // "deu-eng", usually empty
    std::string types;     // of the fields that all entries have, else each field names its type
    std::string author;
    std::string website;
    std::string description;
    std::uint64_t words = 0;
    std::uint64_t synonyms = 0;
    std::uint64_t indexBytes = 0;
    int offsetBytes = 4;
};

/* Reads NAME.ifo; false with the reason in `why`. */
bool readStarDictInfo(const PlainFile& file, StarDictInfo& info, std::string& why);

} // namespace dic

#endif
