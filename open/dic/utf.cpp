#include "open/dic/utf.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace dic {

bool isPlainUtf8(std::string_view text)
{
    const auto* const bytes = reinterpret_cast<const uint8_t*>(text.data());
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t i = 0; i < length;) {
        UChar32 c = 0;
        U8_NEXT(bytes, i, length, c);
        if (c < 0 || (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c == 0x7f)
            return false;
    }
    return true;
}

std::u16string toUtf16(std::string_view text)
{
    const auto* const bytes = reinterpret_cast<const uint8_t*>(text.data());
    const auto length = static_cast<int32_t>(text.size());
    std::u16string out;
    out.reserve(text.size());
    for (int32_t i = 0; i < length;) {
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(bytes, i, length, c);
        if (c < 0x10000) {
            out += static_cast<char16_t>(c);
        } else {
            out += static_cast<char16_t>(U16_LEAD(c));
            out += static_cast<char16_t>(U16_TRAIL(c));
        }
    }
    return out;
}

std::string toUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size() * 2);
    for (std::size_t i = 0; i < text.size();) {
        UChar32 c = 0;
        U16_NEXT_OR_FFFD(text, i, text.size(), c);
        uint8_t bytes[U8_MAX_LENGTH] = {};
        int32_t length = 0;
        U8_APPEND_UNSAFE(bytes, length, c);
        out.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
    }
    return out;
}

std::string_view cutAt(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return text;
    while (bytes > 0 && U8_IS_TRAIL(static_cast<uint8_t>(text[bytes])))
        --bytes;
    return text.substr(0, bytes);
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view Blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

} // namespace dic
