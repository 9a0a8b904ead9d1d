#ifndef OPEN_DIC_UTF_H
#define OPEN_DIC_UTF_H

#include <string>
#include <string_view>

namespace dic {

/* Whether this is well-formed UTF-8 without control characters other than tab and line ends. */
bool isPlainUtf8(std::string_view text);

/* Damaged places and lone surrogates become U+FFFD. */
std::u16string toUtf16(std::string_view text);
std::string toUtf8(std::u16string_view text);

/* The longest beginning of at most `bytes` bytes that does not cut a character. */
std::string_view cutAt(std::string_view text, std::size_t bytes);

/* Without blanks, tabs and line ends at both ends. */
std::string_view trimmed(std::string_view text);

} // namespace dic

#endif
