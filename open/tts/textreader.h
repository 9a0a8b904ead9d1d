#ifndef OPEN_TTS_TEXTREADER_H
#define OPEN_TTS_TEXTREADER_H

#include <cstddef>
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
enum class StretchEnd { Text, Pause, Paragraph, Length };

/* Text without mark-up, up to a pause tag, the end of a paragraph or the end of the text; of longer
 * text a part that ends between two words. */
struct Stretch
{
    std::vector<Character> characters;
    StretchEnd end = StretchEnd::Text;
    int pauseMs = 0; // silence to add after it
};

/* Reads a text stretch by stretch, as they are wanted. The text outlives the reader. */
class TextReader
{
public:
    explicit TextReader(std::u16string_view text) : m_text(text) {}

    bool atEnd() const { return m_ended; }
    /* The next stretch; the last ends with the text and may be empty. */
    Stretch next();

private:
    const std::u16string_view m_text;
    std::size_t m_at = 0;
    bool m_ended = false;
};

} // namespace tts

#endif
