#ifndef OPEN_TTS_CHARACTERS_H
#define OPEN_TTS_CHARACTERS_H

#include <optional>

namespace tts {

/* Whose letters a character belongs to. `Unknown`: letters that no voice can be asked to speak. */
enum class Script { Latin, Cyrillic, Greek, Arabic, Chinese, Unknown };

/* Kinds of character, as far as speech needs them. */

bool isDigit(char32_t c);       // 0 to 9 of ASCII
bool isHan(char32_t c);         // Chinese characters
bool isBlank(char32_t c);       // blanks of any width, line separators
bool isPunctuation(char32_t c); // marks that are not spoken: stops, quotes, brackets, dashes

/* The script of a letter or of a digit of its own; nothing for what all scripts share: digits,
 * marks, signs, symbols, emoji. */
std::optional<Script> scriptOf(char32_t c);
bool isLetter(char32_t c);

/* A sign that is spoken by its name: arrows, units, emoji, but none of ASCII. */
bool isSymbol(char32_t c);

/* The narrow form of a full-width letter, digit or sign, every other character as it is. */
char32_t narrowForm(char32_t c);

/* Ends a clause and makes a pause: . , ; : ! ? and their full-width and Arabic forms. */
bool isClauseEnd(char32_t c);
/* Those of them that end a sentence. */
bool isSentenceEnd(char32_t c);
/* Quotes and brackets that may follow the end of a clause. */
bool isClosing(char32_t c);

/* Marks without width or sound, part of the word that they stand in: soft hyphen, joiners. */
bool isSilentMark(char32_t c);

/* What must not reach the synthesizer and counts as a blank: controls (U+0001 begins an embedded
 * command there), private use, surrogates, what is no character, and Braille patterns, some of
 * which end the process. */
bool isUnspeakable(char32_t c);

} // namespace tts

#endif
