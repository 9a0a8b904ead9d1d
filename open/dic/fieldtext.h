#ifndef OPEN_DIC_FIELDTEXT_H
#define OPEN_DIC_FIELDTEXT_H

#include <string>
#include <string_view>

namespace dic {

/* The plain text of an entry's fields. `types` has a letter for each field, as StarDict has them,
 * or is empty when the fields name their types themselves. Sounds and pictures are left out,
 * phonetics are set in slashes, mark-up is taken off. Damaged entries give what could be read. */
std::string plainText(std::string_view raw, std::string_view types);

/* Takes mark-up off: line breaks where blocks begin and end, character references resolved. */
std::string withoutMarkup(std::string_view text);

} // namespace dic

#endif
