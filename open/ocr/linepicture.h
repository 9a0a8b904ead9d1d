#ifndef OPEN_OCR_LINEPICTURE_H
#define OPEN_OCR_LINEPICTURE_H

#include <cstdint>
#include <vector>

namespace ocr {

/* A grey picture: width x height bytes, row after row, 0 black to 255 white. */
struct GreyPicture
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;

    bool isEmpty() const { return pixels.empty(); }
};

/* The largest picture that is looked at; a longer line than 32,767 pixels (2.7 m at 300 dpi) is no
 * line of print, and the recogniser counts in 16 bits. */
constexpr int MaxSide = 32767;
constexpr std::int64_t MaxArea = 64 * 1024 * 1024;

/* Whether the sizes are those of a picture that can be looked at: 1 to MaxSide each, area within
 * MaxArea. */
bool isPlausibleSize(int width, int height);

/*
 * Makes a picture of a line ready for the recogniser: dark print on light paper, full contrast,
 * cropped to the print with a white margin around it, a height that the recogniser is good at.
 * Empty when nothing in the picture could be print. `image` is width x height bytes of a
 * plausible size.
 */
GreyPicture prepareLine(const std::uint8_t* image, int width, int height);

/* A prepared line of which the print, without the margin, is no more than `height` pixels high. */
GreyPicture reducedTo(int height, const GreyPicture& line);

} // namespace ocr

#endif
