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
    std::string table;      // "deu.forms": lines of form, tab, lemma, perhaps tab, class
    std::string affixes;    // "deu.aff" of Hunspell
    std::string dictionary; // "deu.dic" of Hunspell
};

/* The files of a language in a folder, there or not. */
WordFormFiles wordFormFiles(const std::string& folder, int language);

/* What a form is a form of. */
struct Lemma
{
    std::string word;
    char wordClass = 0; // 'v' verb, 'n' noun, 'a' adjective or adverb, 'f' other, 0 untold
    bool leads = false; // is meant more often than the word that is spelled like the form
};

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

    /* What the table says the word (its folded key) is a form of, in the table's order. A row in
     * which the form is its own lemma is not among them: those before it lead. */
    std::vector<Lemma> lemmas(std::string_view key) const;

    /* The stems that Hunspell sees, the longest first, without the word itself. */
    std::vector<std::string> stems(const std::string& word);

    /* Whether Hunspell takes it for a word of the language; false without its files. */
    bool knows(const std::string& word);

private:
    struct Form
    {
        std::string_view key;
        std::string_view lemma;
        char wordClass = 0;
    };

    void readTable(const std::string& path);
    void openSpelling(const WordFormFiles& files);

    std::string m_text; // of the table: folded keys and lemmas
    std::vector<Form> m_forms;
    std::unique_ptr<Hunspell> m_spelling;
    std::string m_encoding; // of Hunspell's files
};

} // namespace dic

#endif
