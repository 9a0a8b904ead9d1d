#ifndef WORDWALK_H
#define WORDWALK_H

#include <QString>

/*
 * Words of a text, for the cursor that walks over them. A word is a run of characters that are
 * neither blanks nor separators (SpeechSeparators); in scripts that are written without blanks
 * (Chinese, Japanese, Thai) each character is a word of its own. Positions are UTF-16 code units.
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
