#include "open/dic/textlines.h"

#include "open/dic/utf.h"

#include <algorithm>

namespace dic {

TextLines::TextLines(std::string_view text) : m_rest(text)
{
    constexpr std::string_view Mark = "\xef\xbb\xbf";
    if (m_rest.starts_with(Mark))
        m_rest.remove_prefix(Mark.size());
}

bool TextLines::next(std::string_view& line)
{
    while (!m_rest.empty()) {
        const std::size_t end = std::min(m_rest.find_first_of("\r\n"), m_rest.size());
        line = trimmed(m_rest.substr(0, end));
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        if (!line.empty())
            return true;
    }
    return false;
}

bool splitAt(char separator, std::string_view line, std::string_view& left, std::string_view& right)
{
    const std::size_t at = line.find(separator);
    if (at == std::string_view::npos)
        return false;
    left = trimmed(line.substr(0, at));
    right = trimmed(line.substr(at + 1));
    return true;
}

} // namespace dic
