#ifndef TRANSWORDS_H
#define TRANSWORDS_H

#include <QString>

/*
 * Words of a line on the translate screen. No state, no widgets.
 *
 * Separators and blanks bound words. Letters of Western alphabets, digits and the apostrophe form
 * them; in French the apostrophe bounds them ("l'homme" is two words), in Russian Cyrillic letters
 * form them too. Any other character is a word of its own, as each character of a script that is
 * written without blanks.
 *
 * Positions are UTF-16 code units; `language` is that of the line, as the pen codes it.
 */
namespace transwords {

struct Span
{
    qsizetype start = -1;
    qsizetype end = -1; // one behind the last code unit

    bool isValid() const { return start >= 0 && end > start; }
    qsizetype length() const { return end - start; }
    bool operator==(const Span&) const = default;
};

/* How a line is cut. */
struct Cut
{
    int language = -1;
    bool singleCharacters = false; // each character of a word is a word
    Span whole;                    // a stretch that is one word, whatever is in it
};

/* The first word at or behind `from`; invalid at the end. From within a word what is left of it,
 * from within the stretch that is one word all of it. */
Span next(const QString& text, qsizetype from, const Cut& cut);

/* The last word that ends at or before `before`; invalid at the start. From within a word what is
 * before it. */
Span previous(const QString& text, qsizetype before, const Cut& cut);

/* The piece of a word that a line ends with before its hyphen; invalid when it ends otherwise. */
Span fragmentAtEnd(const QString& text, const Cut& cut);

/* The rest of a word that a line begins with; invalid when it begins otherwise. */
Span restAtStart(const QString& text, const Cut& cut);

/* Whether lines of a language are cut at the place that the dictionary tells, and never joined:
 * those written without blanks. */
bool isWrittenWithoutBlanks(int language);

/* Whether the words are looked up as the longest run of characters that the dictionary has. */
bool isChinese(int language);

bool isHan(const QString& text, qsizetype at);
bool hasHan(const QString& text);

/* The character at `start` with the Chinese ones that follow it, eight at the most. */
QString hanRun(const QString& text, qsizetype start);

/* `word` without what cannot be part of a word at its ends: "(house)," becomes "house". */
QString trimmed(const QString& word, int language);

} // namespace transwords

#endif
