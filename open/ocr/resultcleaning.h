#ifndef OPEN_OCR_RESULTCLEANING_H
#define OPEN_OCR_RESULTCLEANING_H

#include <string>
#include <string_view>

namespace ocr {

/* UTF-8 as UTF-32; what is no UTF-8 is left out. */
std::u32string decodeUtf8(std::string_view utf8);

/* UTF-32 as UTF-16; what is no character is left out. */
std::u16string encodeUtf16(std::u32string_view text);

/*
 * What a pen's user wants of what the recogniser returns: one line; no stray marks at the ends
 * (edges of the picture read as bars or strokes); typographic apostrophes, hyphens, ligatures and
 * blanks in their plain form; soft hyphens, zero-width and control characters dropped. With
 * `chinese` also no blanks beside Chinese characters, commas and the like after them and brackets
 * around them in full width, and quotation marks left as they are.
 */
std::u32string cleanResult(std::u32string_view text, bool chinese);

} // namespace ocr

#endif
