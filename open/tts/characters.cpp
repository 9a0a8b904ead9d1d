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
    if (c < 0x80)
        return between(c | 0x20, U'a', U'z');
    return c == 0xaa || c == 0xb5 || c == 0xba
           || (c >= 0xc0 && c < 0x2000 && c != 0xd7 && c != 0xf7 && !isPunctuation(c)
               && !isSilentMark(c))
           || between(c, 0x2c00, 0x2dff) || between(c, 0xa640, 0xd7ff) || between(c, 0xfb00, 0xfdff)
           || between(c, 0xfe70, 0xfefc);
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
