#ifndef OPEN_OCR_VERTICALMARKS_H
#define OPEN_OCR_VERTICALMARKS_H

#include "open/ocr/linepicture.h"

namespace ocr {

/*
 * Vertically set text has its commas and full stops at the upper right of a character's square and
 * its brackets lying. In a prepared line of such characters, set side by side, this puts them where
 * and how horizontal text has them, which is what the recogniser knows: marks down onto the line
 * and towards the character before, brackets upright.
 */
void setMarksHorizontally(GreyPicture& line);

} // namespace ocr

#endif
