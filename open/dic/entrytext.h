#ifndef OPEN_DIC_ENTRYTEXT_H
#define OPEN_DIC_ENTRYTEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace dic {

/* A dictionary's entry, parted by what a reader of two short lines wants first. UTF-8. */
struct EntryText
{
    std::string word;                // the headword as the entry spells it
    std::vector<std::string> senses; // translations or definitions
    std::string phonetics;           // without brackets
    std::string grammar;             // of the word: "[f]", "[pl]"
    std::vector<std::string> extras; // examples, synonyms, notes, one a line
    char wordClass = 0;              // 'v' verb, 'n' noun, 'a' adjective or adverb, 0 untold
    int prominence = 0;              // of the entry among those of its word, by how it is made up

    /* Senses in the first line, numbered when there are several; then phonetics and gender in
     * square brackets, then the extras. What is in square brackets, and what is not in the first
     * line, is for the eyes only. At most 8,192 UTF-16 code units. Empty when there are no senses.
     */
    std::u16string text() const;
};

/* Cleans the plain text of an entry that was found under `head`: knows how FreeDict, WordNet and
 * CC-CEDICT set their entries, and takes others for translations in the first place. With
 * `linesAreSenses` each line is a sense of its own, else the lines behind a sense explain it. */
EntryText cleanEntry(std::string_view raw, std::string_view head, bool linesAreSenses);

} // namespace dic

#endif
