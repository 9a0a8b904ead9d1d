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

} // namespace

std::vector<Stretch> readText(std::u16string_view text)
{
    std::vector<Stretch> stretches(1);
    std::size_t at = 0;
    while (at < text.size()) {
        Stretch& current = stretches.back();
        if (const auto tag = readPauseTag(text.substr(at))) {
            current.end = StretchEnd::Pause;
            current.pauseMs = tag->milliseconds;
            stretches.emplace_back();
            at += tag->units;
            continue;
        }
        const Character character = characterAt(text, at);
        at += static_cast<std::size_t>(character.units);
        if (character.code == ParagraphSeparator) {
            current.end = StretchEnd::Paragraph;
            stretches.emplace_back();
        } else {
            current.characters.push_back(character);
        }
    }
    return stretches;
}

} // namespace tts
