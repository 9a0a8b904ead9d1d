#include "open/ocr/resultcleaning.h"

#include <cstddef>

namespace ocr {

namespace {

constexpr char32_t Blank = U' ';
constexpr char32_t Dropped = 0;

/* Never the first or last character of a line of print. */
constexpr std::u32string_view EdgeMarks = U"|¦_~`^\\";
/* The same, when they stand alone at the beginning. */
constexpr std::u32string_view LoneStartMarks = U"'‘’,.:;·";
/* The same, when they stand alone at the end. */
constexpr std::u32string_view LoneEndMarks = U"'‘’`·";

bool contains(std::u32string_view set, char32_t character)
{
    return set.find(character) != std::u32string_view::npos;
}

bool isBetween(char32_t character, char32_t first, char32_t last)
{
    return character >= first && character <= last;
}

bool isChinese(char32_t c)
{
    return isBetween(c, 0x2e80, 0x9fff) || isBetween(c, 0xf900, 0xfaff)
           || isBetween(c, 0xfe30, 0xfe4f) || isBetween(c, 0xff00, 0xffef)
           || isBetween(c, 0x20000, 0x3ffff);
}

bool isBlankLike(char32_t c)
{
    return c == Blank || isBetween(c, 0x09, 0x0d) || c == 0x85 || c == 0xa0
           || isBetween(c, 0x2000, 0x200a) || c == 0x2028 || c == 0x2029 || c == 0x202f
           || c == 0x205f || c == 0x3000;
}

bool isInvisible(char32_t c)
{
    return c < 0x20 || isBetween(c, 0x7f, 0x9f) || c == 0xad || isBetween(c, 0x200b, 0x200f)
           || isBetween(c, 0x202a, 0x202e) || isBetween(c, 0x2060, 0x206f) || c == 0xfeff
           || isBetween(c, 0xfff0, 0xfffd) || isBetween(c, 0xe000, 0xf8ff);
}

char32_t plain(char32_t c, bool chinese)
{
    if (isBlankLike(c))
        return Blank;
    if (isInvisible(c))
        return Dropped;
    if (c == 0x2010 || c == 0x2011 || c == 0xfe63)
        return U'-';
    if (c == 0x2bc || c == 0x201b || (!chinese && (c == 0x2018 || c == 0x2019)))
        return U'\'';
    return c;
}

std::u32string_view ligature(char32_t c)
{
    constexpr std::u32string_view Expanded[] = {U"ff", U"fi", U"fl", U"ffi", U"ffl", U"st", U"st"};
    return isBetween(c, 0xfb00, 0xfb06) ? Expanded[c - 0xfb00] : std::u32string_view();
}

/* Plain characters, runs of blanks as one. */
std::u32string plainText(std::u32string_view text, bool chinese)
{
    std::u32string result;
    for (const char32_t original : text) {
        if (const auto expanded = ligature(original); !expanded.empty()) {
            result += expanded;
            continue;
        }
        const char32_t c = plain(original, chinese);
        if (c == Dropped || (c == Blank && (result.empty() || result.back() == Blank)))
            continue;
        result += c;
    }
    if (!result.empty() && result.back() == Blank)
        result.pop_back();
    return result;
}

std::u32string withoutBlanksInChinese(std::u32string_view text)
{
    std::u32string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool beside =
            (i > 0 && isChinese(text[i - 1])) || (i + 1 < text.size() && isChinese(text[i + 1]));
        if (text[i] != Blank || !beside)
            result += text[i];
    }
    return result;
}

/* The form that marks have among Chinese characters; 0 for other characters. */
char32_t wideForm(char32_t c)
{
    return contains(U"!(),:;?", c) ? c + 0xfee0 : 0;
}

/* The full-width forms of the marks that belong to Chinese text: those after Chinese characters,
 * and brackets with a Chinese character beside them outside, each with its counterpart. */
std::u32string withWideMarks(std::u32string text)
{
    std::size_t opening = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t wide = wideForm(text[i]);
        if (text[i] == U'(')
            opening = i;
        if (wide == 0)
            continue;
        bool widened = i > 0 && isChinese(text[i - 1]);
        if (text[i] == U')') {
            const bool before = i + 1 < text.size() && isChinese(text[i + 1]);
            if (before && text[opening] == U'(')
                text[opening] = wideForm(U'(');
            widened = before || text[opening] == wideForm(U'(');
        }
        if (widened)
            text[i] = wide;
    }
    return text;
}

std::u32string_view trimmedStart(std::u32string_view text)
{
    while (!text.empty()) {
        const bool alone = text.size() == 1 || text[1] == Blank;
        const bool stray = contains(EdgeMarks, text[0]) || text[0] == Blank
                           || (alone && contains(LoneStartMarks, text[0]));
        if (!stray)
            break;
        text.remove_prefix(1);
    }
    return text;
}

std::u32string_view trimmedEnd(std::u32string_view text)
{
    while (!text.empty()) {
        const bool alone = text.size() == 1 || text[text.size() - 2] == Blank;
        const bool stray = contains(EdgeMarks, text.back()) || text.back() == Blank
                           || (alone && contains(LoneEndMarks, text.back()));
        if (!stray)
            break;
        text.remove_suffix(1);
    }
    return text;
}

} // namespace

std::u32string decodeUtf8(std::string_view utf8)
{
    std::u32string result;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i++]);
        const int more = lead < 0x80   ? 0
                         : lead < 0xc2 ? -1
                         : lead < 0xe0 ? 1
                         : lead < 0xf0 ? 2
                         : lead < 0xf5 ? 3
                                       : -1;
        if (more < 0)
            continue;
        char32_t c = more == 0 ? lead : lead & (0x3fu >> more);
        int left = more;
        for (; left > 0 && i < utf8.size() && (static_cast<unsigned char>(utf8[i]) & 0xc0) == 0x80;
             --left, ++i)
            c = (c << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3fu);
        const bool overlong = (more == 2 && c < 0x800) || (more == 3 && c < 0x10000);
        if (left == 0 && !overlong && c <= 0x10ffff && !isBetween(c, 0xd800, 0xdfff))
            result += c;
    }
    return result;
}

std::u16string encodeUtf16(std::u32string_view text)
{
    std::u16string result;
    for (const char32_t c : text) {
        if (c > 0x10ffff || isBetween(c, 0xd800, 0xdfff))
            continue;
        if (c < 0x10000) {
            result += static_cast<char16_t>(c);
            continue;
        }
        result += static_cast<char16_t>(0xd800 + ((c - 0x10000) >> 10));
        result += static_cast<char16_t>(0xdc00 + ((c - 0x10000) & 0x3ff));
    }
    return result;
}

std::u32string cleanResult(std::u32string_view text, bool chinese)
{
    std::u32string result = plainText(text, chinese);
    if (chinese)
        result = withoutBlanksInChinese(withWideMarks(withoutBlanksInChinese(result)));
    // What goes at one end can leave a mark at the other alone.
    std::u32string_view trimmed = result;
    for (std::size_t before = trimmed.size() + 1; trimmed.size() != before;) {
        before = trimmed.size();
        trimmed = trimmedEnd(trimmedStart(trimmed));
    }
    return std::u32string(trimmed);
}

} // namespace ocr
