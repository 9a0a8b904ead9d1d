#ifndef OPEN_OCR_LINEPIECES_H
#define OPEN_OCR_LINEPIECES_H

#include "open/ocr/linepicture.h"

#include <vector>

namespace ocr {

/* Ink between two empty columns of a line. Right and bottom are past the last. */
struct Piece
{
    int left;
    int right;
    int top;
    int bottom;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
};

/* All ink of a prepared line, from left to right. */
std::vector<Piece> piecesOf(const GreyPicture& line);

/* The box around pieces, of which there is at least one. */
Piece boxAround(const std::vector<Piece>& pieces);

} // namespace ocr

#endif
