#include "open/dic/wordcutter.h"

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace dic {

namespace {

constexpr int French = 103;
constexpr int Russian = 151;

} // namespace

bool WordCutter::bounds(char16_t c) const
{
    constexpr std::u16string_view Separators = u",.:;?!";
    return Separators.find(c) != std::u16string_view::npos || u_isUWhiteSpace(c)
           || (m_language == French && c == u'\'');
}

bool WordCutter::forms(char16_t c) const
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')
           || c == u'\'' || (c >= 0xc0 && c <= 0xff) || c == 0x8c || c == 0x9c || c == 0xa1
           || c == 0x152 || c == 0x153 || c == 0x178
           || (m_language == Russian && c >= 0x400 && c <= 0x4ff);
}

bool WordCutter::next(WordPlace& place)
{
    while (m_at < m_line.size() && bounds(m_line[m_at]))
        ++m_at;
    if (m_at == m_line.size())
        return false;
    place.start = m_at;
    if (!forms(m_line[m_at]))
        ++m_at;
    else
        while (m_at < m_line.size() && forms(m_line[m_at]) && !bounds(m_line[m_at]))
            ++m_at;
    place.end = m_at;
    return true;
}

bool isHan(char16_t c)
{
    return u_hasBinaryProperty(c, UCHAR_IDEOGRAPHIC);
}

bool hasLetter(std::u16string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        UChar32 c = 0;
        U16_NEXT(text, i, text.size(), c);
        if (u_isalpha(c))
            return true;
    }
    return false;
}

} // namespace dic
