#ifndef OPEN_TTS_TEXTREADER_H
#define OPEN_TTS_TEXTREADER_H

#include <string_view>
#include <vector>

namespace tts {

/* One character of the text, and where it stands there. */
struct Character
{
    char32_t code; // a blank for what cannot be spoken
    int offset;    // in UTF-16 units
    int units;     // 1 or 2
};

/* How a stretch of text ends. */
enum class StretchEnd { Text, Pause, Paragraph };

/* Text without mark-up, up to a pause tag, the end of a paragraph or the end of the text. */
struct Stretch
{
    std::vector<Character> characters;
    StretchEnd end = StretchEnd::Text;
    int pauseMs = 0; // silence to add after it
};

/* The text as stretches, in order; the last ends with the text and may be empty. */
std::vector<Stretch> readText(std::u16string_view text);

} // namespace tts

#endif
