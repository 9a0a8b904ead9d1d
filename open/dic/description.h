#ifndef OPEN_DIC_DESCRIPTION_H
#define OPEN_DIC_DESCRIPTION_H

#include "open/dic/source.h"

#include <string>
#include <string_view>

namespace dic {

/* What people want to know about a dictionary. */
struct Description
{
    std::u16string name;   // one line, never empty, at most 128 units
    std::u16string origin; // source and licence; several lines, perhaps none
};

/* From NAME.about, else from what the dictionary says about itself; its name, at the last, is that
 * of its files. Reads files, but not the whole of a large dictionary. */
Description describe(const Source& source);

/* The paragraphs of a text that speak of a licence, each in one line; at most a few. */
std::string licenceIn(std::string_view text);

} // namespace dic

#endif
