#include "open/tts/textreader.h"

#include "open/tts/characters.h"
#include "open/tts/pausetag.h"

#include <cstddef>

namespace tts {

namespace {

constexpr char32_t ParagraphSeparator = 0x2029;

bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}

bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

Character characterAt(std::u16string_view text, std::size_t at)
{
    char32_t code = text[at];
    int units = 1;
    if (isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1])) {
        code = 0x10000 + ((code & 0x3ff) << 10) + (text[at + 1] & 0x3ffu);
        units = 2;
    }
    return {isUnspeakable(code) ? U' ' : narrowForm(code), static_cast<int>(at), units};
}

/* So that the first words of a long text need not wait for the last to be read: enough for the
 * pieces not to be cut in other places than without it, but for the one at its end. */
constexpr std::size_t LongStretch = 600;
constexpr std::size_t VeryLongStretch = 1200;

bool endsSentence(const std::vector<Character>& text)
{
    for (auto it = text.rbegin(); it != text.rend(); ++it)
        if (!isBlank(it->code) && !isClosing(it->code))
            return isSentenceEnd(it->code);
    return false;
}

/* Whether a stretch may end for its length where this character follows: after the blank behind a
 * sentence, and if none comes between any two words. */
bool mayEndBefore(const std::vector<Character>& text, char32_t following)
{
    if (text.size() < LongStretch || isBlank(following))
        return false;
    const char32_t last = text.back().code;
    if (isBlank(last))
        return text.size() >= VeryLongStretch || endsSentence(text);
    if (!isHan(following))
        return false;
    const bool fullWidth = last >= 0x3000;
    return (fullWidth && isSentenceEnd(last)) || (text.size() >= VeryLongStretch && isHan(last));
}

} // namespace

Stretch TextReader::next()
{
    Stretch stretch;
    while (m_at < m_text.size()) {
        if (const auto tag = readPauseTag(m_text.substr(m_at))) {
            m_at += tag->units;
            stretch.end = StretchEnd::Pause;
            stretch.pauseMs = tag->milliseconds;
            return stretch;
        }
        const Character character = characterAt(m_text, m_at);
        if (mayEndBefore(stretch.characters, character.code)) {
            stretch.end = StretchEnd::Length;
            return stretch;
        }
        m_at += static_cast<std::size_t>(character.units);
        if (character.code == ParagraphSeparator) {
            stretch.end = StretchEnd::Paragraph;
            return stretch;
        }
        stretch.characters.push_back(character);
    }
    m_ended = true;
    return stretch;
}

} // namespace tts
