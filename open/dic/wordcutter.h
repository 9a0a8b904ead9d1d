#ifndef OPEN_DIC_WORDCUTTER_H
#define OPEN_DIC_WORDCUTTER_H

#include <cstddef>
#include <string_view>

namespace dic {

/* A word of a line, in UTF-16 code units. */
struct WordPlace
{
    std::size_t start = 0;
    std::size_t end = 0; // behind the last unit
};

/*
 * Cuts a line into words by the classes of characters that the translate screen uses, so that the
 * word found here is the word selected there: separators and blanks bound words; letters of Western
 * alphabets, digits and the apostrophe form them (in French it bounds them), Cyrillic letters where
 * the language is Russian; any other character is a word of its own.
 */
class WordCutter
{
public:
    /* `language` is that of the line, as the pen codes it. */
    WordCutter(std::u16string_view line, int language) : m_line(line), m_language(language) {}

    /* The next word; false at the end. */
    bool next(WordPlace& place);

private:
    bool bounds(char16_t c) const;
    bool forms(char16_t c) const;

    std::u16string_view m_line;
    int m_language;
    std::size_t m_at = 0;
};

/* A character of the Chinese script. */
bool isHan(char16_t c);

/* Whether there is a letter or an ideograph, without which no dictionary is asked. */
bool hasLetter(std::u16string_view text);

} // namespace dic

#endif
