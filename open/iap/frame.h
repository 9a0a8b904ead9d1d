#ifndef FRAME_H
#define FRAME_H

#include <cstdint>
#include <vector>

/* One picture of the camera: width x height grey bytes (0 black to 255 white), row after row
 * without padding. */
struct Frame
{
    std::int64_t timeUs = 0; // when it was exposed; only differences count
    int width = 0;           // pixels, MinFrameSide to MaxFrameSide
    int height = 0;
    int dpi = 0; // resolution on the paper, MinFrameDpi to MaxFrameDpi
    std::vector<std::uint8_t> pixels;
};

constexpr double MmPerInch = 25.4; // of paper, as dpi counts

constexpr int MinFrameSide = 16;
constexpr int MaxFrameSide = 320;
constexpr int MinFrameDpi = 50;
constexpr int MaxFrameDpi = 1200;

/* Whether the numbers are in their ranges and the picture is complete. */
inline bool isValidFrame(const Frame& frame)
{
    const auto inRange = [](int value, int low, int high) { return value >= low && value <= high; };
    return inRange(frame.width, MinFrameSide, MaxFrameSide)
           && inRange(frame.height, MinFrameSide, MaxFrameSide)
           && inRange(frame.dpi, MinFrameDpi, MaxFrameDpi)
           && frame.pixels.size() == static_cast<std::size_t>(frame.width) * frame.height;
}

#endif
