#ifndef OPEN_OCR_PLAUSIBILITY_H
#define OPEN_OCR_PLAUSIBILITY_H

#include <string_view>

namespace ocr {

/* Below it a reading is worth a second look. */
constexpr int SureConfidence = 65;

/*
 * Whether a cleaned reading is of print, rather than of dirt, lines, cut letters or a picture.
 * `confidence` is the recogniser's, 0 to 100. Measured on blurred, noisy and cut lines, it is about
 * the share of right characters; a reading of which more than half is wrong helps nobody. Pictures
 * without print reach up to 70, but with few characters, or mostly single ones, marks, repeats.
 */
bool isPlausible(std::u32string_view text, int confidence);

} // namespace ocr

#endif
