#ifndef OPEN_OCR_DOTLEADERS_H
#define OPEN_OCR_DOTLEADERS_H

#include "open/ocr/linepicture.h"

namespace ocr {

/*
 * The models read long rows of dots, as tables of contents have them, as letters ("eeesss"), and
 * such a line with so little confidence that all of it is lost. This makes three close dots of each
 * such row in a prepared line and moves what follows up to them; an ellipsis is no such row. `line`
 * becomes shorter.
 */
void shortenDotLeaders(GreyPicture& line);

} // namespace ocr

#endif
