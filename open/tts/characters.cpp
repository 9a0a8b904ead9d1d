#include "open/tts/characters.h"

#include <string_view>

namespace tts {

namespace {

bool between(char32_t c, char32_t first, char32_t last)
{
    return c >= first && c <= last;
}

bool contains(std::u32string_view set, char32_t c)
{
    return set.find(c) != std::u32string_view::npos;
}

struct ScriptRange
{
    char32_t first;
    char32_t last;
    Script script;
};

/* Only what the voice of the script has in its dictionary: for any other letter of a script the
 * synthesizer changes its language in the middle of a word, and goes on with one it has freed. */
constexpr ScriptRange ScriptRanges[] = {
    {U'A', U'Z', Script::Latin},       {U'a', U'z', Script::Latin},
    {0xaa, 0xaa, Script::Latin},       {0xb5, 0xb5, Script::Latin},
    {0xba, 0xba, Script::Latin},       {0xc0, 0xd6, Script::Latin},
    {0xd8, 0xf6, Script::Latin},       {0xf8, 0x24f, Script::Latin},
    {0x1e00, 0x1eff, Script::Latin},   {0x386, 0x386, Script::Greek},
    {0x388, 0x38a, Script::Greek},     {0x38c, 0x38c, Script::Greek},
    {0x38e, 0x3a1, Script::Greek},     {0x3a3, 0x3ce, Script::Greek},
    {0x400, 0x45f, Script::Cyrillic},  {0x490, 0x491, Script::Cyrillic},
    {0x621, 0x63a, Script::Arabic},    {0x640, 0x655, Script::Arabic},
    {0x660, 0x66c, Script::Arabic},    {0x670, 0x671, Script::Arabic},
    {0x67e, 0x67e, Script::Arabic},    {0x686, 0x686, Script::Arabic},
    {0x698, 0x698, Script::Arabic},    {0x6a9, 0x6a9, Script::Arabic},
    {0x6af, 0x6af, Script::Arabic},    {0x6cc, 0x6cc, Script::Arabic},
    {0x3007, 0x3007, Script::Chinese}, {0x4e00, 0x9fa5, Script::Chinese},
};

/* Marks and signs that every script uses. */
bool isShared(char32_t c)
{
    return c < 0xc0 || c == 0xd7 || c == 0xf7 || between(c, 0x300, 0x36f) || c == 0x60c
           || c == 0x61b || c == 0x61f || c == 0x6d4 || between(c, 0x2000, 0x2bff)
           || between(c, 0x3000, 0x303f) || between(c, 0xfe00, 0xfe0f) || between(c, 0xfe30, 0xfe4f)
           || between(c, 0xfeff, 0xff65) || between(c, 0xffe0, 0xffee)
           || between(c, 0x1f000, 0x1faff);
}

} // namespace

bool isDigit(char32_t c)
{
    return between(c, U'0', U'9');
}

bool isHan(char32_t c)
{
    return between(c, 0x3400, 0x4dbf) || between(c, 0x4e00, 0x9fff) || between(c, 0xf900, 0xfaff)
           || c == 0x3007 || between(c, 0x20000, 0x323af);
}

bool isBlank(char32_t c)
{
    return c == U' ' || c == 0xa0 || c == 0x1680 || between(c, 0x2000, 0x200a)
           || between(c, 0x2028, 0x2029) || c == 0x202f || c == 0x205f || c == 0x3000;
}

bool isPunctuation(char32_t c)
{
    return contains(U".,;:!?'\"()[]{}-¡«·»¿،؛؟۔", c) || between(c, 0x2010, 0x2027) || c == 0x2039
           || c == 0x203a || between(c, 0x3001, 0x3003) || between(c, 0x3008, 0x3011)
           || between(c, 0x3014, 0x301f) || between(c, 0xfe30, 0xfe4f)
           || contains(U"！＂＇（），－．：；？［］｛｝｡｢｣､･", c);
}

bool isLetter(char32_t c)
{
    return scriptOf(c).has_value();
}

std::optional<Script> scriptOf(char32_t c)
{
    for (const ScriptRange& range : ScriptRanges)
        if (between(c, range.first, range.last))
            return range.script;
    return isShared(c) ? std::nullopt : std::optional(Script::Unknown);
}

bool isSymbol(char32_t c)
{
    return (between(c, 0xa0, 0xbf) && !isBlank(c) && !isPunctuation(c) && !isLetter(c)) || c == 0xd7
           || c == 0xf7 || between(c, 0x2070, 0x2bff) || between(c, 0x1f000, 0x1faff);
}

char32_t narrowForm(char32_t c)
{
    constexpr char32_t Distance = 0xff01 - U'!';
    if (c == 0xffe5)
        return 0xa5; // yen
    if (c == 0x30fb || c == 0xff65)
        return 0xb7; // the dot between the parts of a name
    // Punctuation stays as it is: so it makes its pause between Chinese characters.
    const bool wide = between(c, 0xff03, 0xff06) || between(c, 0xff0a, 0xff0b) || c == 0xff0f
                      || between(c, 0xff10, 0xff19) || between(c, 0xff1c, 0xff1e)
                      || between(c, 0xff20, 0xff3a) || between(c, 0xff41, 0xff5a) || c == 0xff5e;
    return wide ? c - Distance : c;
}

bool isClauseEnd(char32_t c)
{
    return contains(U".,;:!?…、。，．：；！？،؛؟۔", c);
}

bool isSentenceEnd(char32_t c)
{
    return contains(U".!?…。．！？؟۔", c);
}

bool isClosing(char32_t c)
{
    return contains(U"'\")]}»”’›」』】〉》）］｝", c);
}

bool isSilentMark(char32_t c)
{
    return c == 0xad || between(c, 0x200b, 0x200f) || between(c, 0x202a, 0x202e)
           || between(c, 0x2060, 0x206f) || between(c, 0xfe00, 0xfe0f) || c == 0xfeff;
}

bool isUnspeakable(char32_t c)
{
    return c < 0x20 || between(c, 0x7f, 0x9f) || between(c, 0x2800, 0x28ff)
           || between(c, 0xd800, 0xf8ff) || between(c, 0xfdd0, 0xfdef) || between(c, 0xfff0, 0xffff)
           || between(c, 0xe0000, 0x10ffff) || c > 0x10ffff || (c & 0xfffe) == 0xfffe;
}

} // namespace tts
