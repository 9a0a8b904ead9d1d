#ifndef WORDWALK_H
#define WORDWALK_H

#include <QString>

/*
 * Words of a text, for the cursor that walks over them. A word is a run of characters that are
 * neither blanks nor separators (SpeechSeparators). Hyphen and apostrophe belong to their word:
 * "well-known" and "don't" are heard whole.
 *
 * In scripts that are written without blanks (Chinese, Japanese, Thai) each character is a word of
 * its own. A run up to the next mark would be a whole clause; where the words in it end only a
 * dictionary could tell, and a reader who steps wants to hear the one character that he does not
 * know. Their punctuation is stepped on, too: it is part of the line as the voice reads it. Latin
 * letters and digits between them stay together ("USB").
 *
 * Positions are UTF-16 code units.
 */
struct WordSpan
{
    qsizetype start = -1;
    qsizetype end = -1; // one behind the last code unit

    bool isValid() const { return start >= 0; }
    qsizetype length() const { return end - start; }
};

/* The word that `position` lies in or directly behind; invalid between words. */
WordSpan wordAt(const QString& text, qsizetype position);

/* The first word that begins behind `position`; invalid at the end. */
WordSpan nextWord(const QString& text, qsizetype position);

/* The last word that begins before `position`; invalid at the start. */
WordSpan previousWord(const QString& text, qsizetype position);

#endif
