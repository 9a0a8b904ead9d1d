#ifndef OPEN_DIC_DICTINDEX_H
#define OPEN_DIC_DICTINDEX_H

#include "open/dic/plainfile.h"
#include "open/dic/rows.h"

#include <string>

namespace dic {

/* Where the body says what it is. */
struct DictFacts
{
    struct Place
    {
        std::uint64_t offset = 0;
        std::uint32_t size = 0; // 0 when it does not say
    };

    Place title;
    Place info; // origin and licence, at length
    Place url;
};

/* Reads the index of a DICT dictionary: lines of head, place and length (in digits to the base of
 * 64) and, in some, the true spelling. Lines that are none of this are counted and left out, as
 * are those about the database itself, which are put into `facts`. False when the file cannot be
 * read. */
bool readDictIndex(const PlainFile& file, const RowSink& sink, DictFacts& facts,
                   IndexReport& report);

/* Reads the facts alone. They sort near the beginning of an index, and no more of a large one is
 * read when they are there. */
DictFacts readDictFacts(const PlainFile& file);

} // namespace dic

#endif
