#ifndef OPEN_DIC_ENTRYLINES_H
#define OPEN_DIC_ENTRYLINES_H

#include "open/dic/entrytext.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/* What cleaning entries of all kinds shares. */
namespace dic {

struct EntryLine
{
    std::string_view text; // trimmed, never empty
    std::size_t indent = 0;
};

std::vector<EntryLine> linesOf(std::string_view raw);

/* Takes the first line into `entry` when it only repeats the headword, with phonetics and grammar;
 * tells whether it did. */
bool takeHeadLine(const EntryLine& line, std::string_view head, EntryText& entry);

/* The class of the word that the first tag in angle brackets tells ("<v, trans>": 'v'), as
 * EntryText has it; 0 when there is none. */
char wordClassOf(std::string_view text);

/* Without grammar in angle brackets, except genders and plurals, which move to square ones; without
 * braces; blanks single. */
std::string tidy(std::string_view text);

/* Takes "12." and blanks from the beginning: the number, 0 when there is none. */
unsigned takeNumber(std::string_view& text, char mark);

/* The entry as WordNet or CC-CEDICT set it; false when it is not set so. */
bool cleanWordNet(const std::vector<EntryLine>& lines, EntryText& entry);
bool cleanCedict(const std::vector<EntryLine>& lines, EntryText& entry);

} // namespace dic

#endif
