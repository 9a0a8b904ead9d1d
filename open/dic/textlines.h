#ifndef OPEN_DIC_TEXTLINES_H
#define OPEN_DIC_TEXTLINES_H

#include <string_view>

namespace dic {

/* The lines of a small text file: trimmed, without empty ones, with any line ends, without a
 * byte-order mark. The text must live as long. */
class TextLines
{
public:
    explicit TextLines(std::string_view text);

    bool next(std::string_view& line);

private:
    std::string_view m_rest;
};

/* Parts a line at the first `separator`, both sides trimmed; false without one. */
bool splitAt(char separator, std::string_view line, std::string_view& left,
             std::string_view& right);

} // namespace dic

#endif
