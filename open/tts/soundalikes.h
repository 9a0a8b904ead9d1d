#ifndef OPEN_TTS_SOUNDALIKES_H
#define OPEN_TTS_SOUNDALIKES_H

#include <span>
#include <string_view>

namespace tts {

/* A Chinese character that the synthesizer reads wrongly in some words, and one that it reads as it
 * should be there. */
struct SoundAlike
{
    char32_t written;
    char32_t said;             // the same character where a longer word is no such word
    std::u32string_view words; // with blanks between, 0 for any digit; everywhere if empty
};

/* Before the one character that is meant where a word has it more than once; else all are. */
constexpr char32_t SoundAlikeMark = U'*';

std::span<const SoundAlike> soundAlikes();

} // namespace tts

#endif
