/*
 * Line pictures of any size up to 16 megapixels and any content through everything that happens to
 * them before they are read.
 */
#include "open/ocr/linepicture.h"
#include "open/ocr/verticalmarks.h"
#include "tests/fuzz/linepictures.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

void prepare(const std::uint8_t* data, std::size_t size)
{
    const LinePicture picture = linePictureFrom(data, size);
    if (!ocr::isPlausibleSize(picture.width, picture.height))
        return;
    ocr::GreyPicture line = ocr::prepareLine(picture.pixels.data(), picture.width, picture.height);
    if (line.isEmpty())
        return;
    REQUIRE(ocr::isPlausibleSize(line.width, line.height));
    const auto area = static_cast<std::size_t>(line.width) * static_cast<std::size_t>(line.height);
    REQUIRE(line.pixels.size() == area);
    REQUIRE(line.height <= 96 + 2 * 12);
    const auto isInk = [](std::uint8_t grey) { return grey < 192; };
    const bool inked = std::any_of(line.pixels.begin(), line.pixels.end(), isInk);
    ocr::setMarksHorizontally(line);
    REQUIRE(line.pixels.size() == area);
    REQUIRE(inked == std::any_of(line.pixels.begin(), line.pixels.end(), isInk));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 8)
        return 0;
    prepare(data, size);
    return 0;
}
