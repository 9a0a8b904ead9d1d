/* Any frames in any order: a picture of a sensible size, or none and a reason. */
#include "open/iap/stitcher.h"
#include "tests/fuzz/fuzzbytes.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

constexpr int MostFrames = 12;

/* From 100 microseconds to 4 minutes, one in eight backwards. */
std::int64_t elapsedUs(int drawn)
{
    const double elapsed = 100.0 * std::exp2(drawn / 8 * 21.2 / 31.0);
    return static_cast<std::int64_t>(drawn % 8 == 0 ? -elapsed : elapsed);
}

/* A picture of blocks, seen from a place that moves on from frame to frame. */
void fill(Frame& frame, Bytes& bytes)
{
    const int side = 1 + bytes.next() % 16;
    const int moved = bytes.next() - 128;
    const std::uint32_t pattern = std::uint32_t(bytes.next()) * 2654435761U;
    const int light = bytes.next();
    const int dark = bytes.next();
    frame.pixels.resize(std::size_t(frame.width) * std::size_t(frame.height));
    std::size_t i = 0;
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x) {
            const std::uint32_t block = std::uint32_t((x + moved) / side * 31 + y / side * 17);
            const bool isDark = (block * 2246822519U + pattern) >> 30 == 0;
            frame.pixels[i++] = static_cast<std::uint8_t>(isDark ? dark : light);
        }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    const int how = bytes.next();
    Stitcher stitcher({(how & 1) != 0, (how & 2) != 0, (how & 4) != 0});
    Frame frame;
    frame.width = bytes.next() * 3 / 2;
    frame.height = bytes.next();
    frame.dpi = bytes.next() * 6;
    int fed = 0;
    for (; fed < MostFrames && !bytes.isEmpty(); ++fed) {
        frame.timeUs += elapsedUs(bytes.next());
        fill(frame, bytes);
        if (bytes.next() == 255)
            frame.pixels.resize(frame.pixels.size() / 2); // torn
        stitcher.feed(frame);
    }
    const SwipePicture picture = stitcher.finish();
    REQUIRE(picture.framesFed == fed && picture.framesUsed <= fed);
    REQUIRE(!picture.reason.empty());
    REQUIRE(picture.pixels.size() == std::size_t(picture.width) * std::size_t(picture.height));
    REQUIRE((picture.failure == SwipePicture::Failure::None) == !picture.pixels.empty());
    return 0;
}
