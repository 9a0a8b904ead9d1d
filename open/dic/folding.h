#ifndef OPEN_DIC_FOLDING_H
#define OPEN_DIC_FOLDING_H

#include <string>
#include <string_view>

namespace dic {

/* The key under which a word is found however it is written: compatibility forms and case folded
 * (NFKC), without punctuation, blanks single. A word of nothing but punctuation keeps it. UTF-8
 * in and out. */
std::string foldedKey(std::string_view word);

/* The same without accents, for a key that foldedKey() made. */
std::string accentFreeKey(std::string_view key);

/* The first character in capitals, as a title has it ("haus": "Haus"). */
std::string capitalized(std::string_view word);

/* Whether the first character is a capital letter. */
bool beginsWithCapital(std::string_view word);

/* How many characters (code points) a text has. */
std::size_t characterCount(std::string_view text);

} // namespace dic

#endif
