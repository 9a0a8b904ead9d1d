#ifndef OPEN_DIC_LOOKUP_H
#define OPEN_DIC_LOOKUP_H

#include "open/dic/dictionary.h"
#include "open/dic/wordforms.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace dic {

/* The first word of a line that the dictionary has. */
struct FirstWord
{
    std::size_t position = 0; // of its first code unit, counted from 1; 0 when there is none
    std::vector<Hit> hits;
};

/*
 * Leads from words as they are printed to entries of a dictionary. In this order, and ending with
 * what finds something: the word itself and other spellings of it, together with what it is a form
 * of, by the table or by stems; parts around an apostrophe; parts of a compound; and words that
 * differ in accents only, where the word is none of the language. In Chinese: all words that the
 * text begins with, the longest first.
 *
 * A word in small letters is no name and, in German, no noun; one in capitals is a noun there, or
 * begins a sentence. What agrees with that comes first.
 */
class Lookup
{
public:
    static constexpr std::size_t MostHits = 20;

    /* Both must live as long. */
    Lookup(Dictionary& dictionary, WordForms& forms) : m_dictionary(dictionary), m_forms(forms) {}

    /* At most MostHits, best first. */
    std::vector<Hit> search(std::u16string_view word);

    FirstWord firstOf(std::u16string_view line);

private:
    std::vector<Hit> searchChinese(std::u16string_view text);
    std::vector<Hit> searchWord(const std::string& word);
    std::vector<Hit> findLemma(const Lemma& lemma);
    std::vector<Hit> findStem(const std::string& word, bool agreeing);
    std::vector<Hit> findParticiple(const std::string& word);
    std::string inflectedPart(const std::string& part);
    std::vector<Hit> searchParts(const std::string& word);
    std::vector<Hit> searchCompound(const std::string& word);

    Dictionary& m_dictionary;
    WordForms& m_forms;
};

} // namespace dic

#endif
