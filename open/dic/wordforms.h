#ifndef OPEN_DIC_WORDFORMS_H
#define OPEN_DIC_WORDFORMS_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class Hunspell;

namespace dic {

/* The files that know the forms of a language's words; any may be missing. Hunspell trusts its
 * files: they come from the pen's own storage, never from a card. */
struct WordFormFiles
{
    std::string table;      // "deu.forms": lines of form, tab, lemma
    std::string affixes;    // "deu.aff" of Hunspell
    std::string dictionary; // "deu.dic" of Hunspell
};

/* The files of a language in a folder, there or not. */
WordFormFiles wordFormFiles(const std::string& folder, int language);

/*
 * Knows which words are forms of which: by a table of the irregular ones, and by Hunspell. Without
 * files it knows nothing. One thread at a time.
 */
class WordForms
{
public:
    WordForms();
    explicit WordForms(const WordFormFiles& files);
    ~WordForms();

    /* What the table says the word (its folded key) is a form of, in the table's order. */
    std::vector<std::string> lemmas(std::string_view key) const;

    /* The stems that Hunspell sees, the longest first, without the word itself. */
    std::vector<std::string> stems(const std::string& word);

    /* Whether Hunspell takes it for a word of the language; false without its files. */
    bool knows(const std::string& word);

private:
    struct Form
    {
        std::string_view key;
        std::string_view lemma;
    };

    void readTable(const std::string& path);
    void openSpelling(const WordFormFiles& files);

    std::string m_text; // of the table, with folded keys
    std::vector<Form> m_forms;
    std::unique_ptr<Hunspell> m_spelling;
    std::string m_encoding; // of Hunspell's files
};

} // namespace dic

#endif
