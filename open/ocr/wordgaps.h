#ifndef OPEN_OCR_WORDGAPS_H
#define OPEN_OCR_WORDGAPS_H

#include "open/ocr/linepicture.h"
#include "open/ocr/secondreading.h"

#include <vector>

namespace ocr {

/* Columns of a picture; `right` is past the last. */
struct Span
{
    int left = 0;
    int right = 0;
};

/* The stretches of words that deserve a second reading, cut in the white between words. Each is
 * read alone: of words with others of the other language between them, less is read, and worse.
 * `words` are those of the line, from left to right. Where a model says that a word begins and ends
 * can be wrong by half a letter, so the white is looked for. */
std::vector<Span> doubtfulSpans(const GreyPicture& line, const std::vector<Word>& words);

} // namespace ocr

#endif
