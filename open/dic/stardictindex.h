#ifndef OPEN_DIC_STARDICTINDEX_H
#define OPEN_DIC_STARDICTINDEX_H

#include "open/dic/plainfile.h"
#include "open/dic/rows.h"
#include "open/dic/stardictinfo.h"

#include <string>

namespace dic {

/* The index files of a StarDict dictionary. */
struct StarDictFiles
{
    PlainFile index;
    bool indexCompressed = false;
    PlainFile synonyms; // not open when there is none
};

/* Hands over the words and their synonyms. False with the reason in `why` when the index does not
 * have the length that NAME.ifo tells, or does not consist of records. */
bool readStarDictIndex(const StarDictFiles& files, const StarDictInfo& info, const RowSink& sink,
                       IndexReport& report, std::string& why);

} // namespace dic

#endif
