#include "open/tts/chinesereading.h"

#include "open/tts/characters.h"
#include "open/tts/chinesefigures.h"
#include "open/tts/respelling.h"
#include "open/tts/soundalikes.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tts {

namespace {

constexpr std::u32string_view Stops = U",.:;!?";
constexpr std::u32string_view WideStops = U"，。：；！？";

char32_t digitAsZero(char32_t c)
{
    return isDigit(c) ? U'0' : c;
}

/* Whether the word stands in the text so that a character of it, the one behind a mark if it has
 * one, is the one at `at`. */
bool standsAt(std::u32string_view text, std::size_t at, std::u32string word)
{
    const auto stands = [&](std::size_t inside) {
        return inside <= at && text.substr(at - inside).starts_with(word);
    };
    if (const std::size_t mark = word.find(SoundAlikeMark); mark != std::u32string::npos) {
        word.erase(mark, 1);
        return stands(mark);
    }
    for (std::size_t inside = word.find(text[at]); inside != std::u32string::npos;
         inside = word.find(text[at], inside + 1))
        if (stands(inside))
            return true;
    return false;
}

std::size_t lengthOf(std::u32string_view word)
{
    return word.size() - static_cast<std::size_t>(std::ranges::count(word, SoundAlikeMark));
}

/* The longest of the words that stands there; 0 for none. */
std::size_t longestAt(std::u32string_view text, std::size_t at, std::u32string_view words)
{
    std::size_t longest = 0;
    while (!words.empty()) {
        const std::u32string_view word = words.substr(0, words.find(U' '));
        words.remove_prefix(std::min(word.size() + 1, words.size()));
        if (lengthOf(word) > longest && standsAt(text, at, std::u32string(word)))
            longest = lengthOf(word);
    }
    return longest;
}

char32_t saidAt(std::u32string_view text, std::size_t at)
{
    char32_t said = text[at];
    std::size_t longest = 0;
    for (const SoundAlike& alike : soundAlikes()) {
        if (alike.written != text[at])
            continue;
        const std::size_t length = longestAt(text, at, alike.words);
        if (length > longest || (longest == 0 && alike.words.empty()))
            said = alike.said;
        longest = std::max(longest, length);
    }
    return said;
}

void readCharacters(std::u32string& text)
{
    std::u32string written = text;
    std::ranges::transform(written, written.begin(), digitAsZero);
    for (std::size_t at = 0; at < text.size(); ++at)
        if (isHan(text[at]))
            text[at] = saidAt(written, at);
}

void readFigure(Piece& piece, std::size_t index)
{
    const Word& word = piece.words[index];
    const std::u32string_view text = piece.text;
    const std::size_t before = text.substr(0, word.begin).find_last_not_of(U' ');
    const std::size_t after = std::min(text.find_first_not_of(U' ', word.end), text.size());
    const auto characterAt = [text](std::size_t at) {
        return at == std::u32string_view::npos ? U'\0' : text[at];
    };
    const std::u32string said = chineseFigure(text.substr(word.begin, word.end - word.begin),
                                              characterAt(before), text.substr(after));
    respellWord(piece, index, said);
}

/* Quotes and brackets between are passed over. */
bool isBehindHan(const std::vector<Character>& text, std::size_t at)
{
    while (at > 0 && isClosing(text[at - 1].code))
        --at;
    return at > 0 && isHan(text[at - 1].code);
}

} // namespace

void widenChineseStops(std::vector<Character>& text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t stop = Stops.find(text[at].code);
        if (stop == std::u32string_view::npos)
            continue;
        if (isBehindHan(text, at) || (at + 1 < text.size() && isHan(text[at + 1].code)))
            text[at].code = WideStops[stop];
    }
}

void readChinese(Piece& piece)
{
    readCharacters(piece.text);
    for (std::size_t i = 0; i < piece.words.size(); ++i)
        if (!isHan(piece.text[piece.words[i].begin]))
            readFigure(piece, i);
}

} // namespace tts
