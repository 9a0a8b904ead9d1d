#ifndef LINEPICTURES_H
#define LINEPICTURES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

struct LinePicture
{
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;
};

constexpr int LargestLinePicture = 16 * 1024 * 1024; // pixels

/*
 * A picture from at least eight bytes of anything. Six of them are its sides, kind and grain, so
 * that extreme shapes are as likely as ordinary ones; the rest are pixels, repeated in blocks:
 * strokes, dots, gradients, noise. One in sixteen may have `largest` pixels, the others 64 K at the
 * most.
 */
inline LinePicture linePictureFrom(const std::uint8_t* data, std::size_t size,
                                   int largest = LargestLinePicture)
{
    const auto side = [data](std::size_t at) {
        const int value = data[at] | data[at + 1] << 8;
        return 1 + (value >> (value % 4 * 4)); // up to 16, 256, 4,096 or 65,536
    };
    const int most = data[5] / 16 == 0 ? largest : std::min(largest, 65536);
    LinePicture picture;
    picture.width = std::min(side(0), most);
    picture.height = std::min(side(2), std::max(1, most / picture.width));
    const std::size_t kind = data[4] % 4;
    const std::size_t grain = 1 + data[5] % 32;
    const std::uint8_t* bytes = data + 6;
    const std::size_t count = size - 6;
    picture.pixels.resize(static_cast<std::size_t>(picture.width)
                          * static_cast<std::size_t>(picture.height));
    std::uint32_t random = data[6] | 1u;
    std::size_t i = 0;
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(picture.width); ++x) {
            random = random * 1664525u + 1013904223u;
            const std::uint8_t byte = bytes[(x / grain + y / grain * 7) % count];
            const std::uint32_t noisy = byte / 2 + (random >> 25);
            const std::size_t slope = x * 255 / static_cast<std::size_t>(picture.width);
            const std::size_t values[] = {byte, noisy, (byte + slope) / 2, byte < 128 ? 0u : 255u};
            picture.pixels[i++] = static_cast<unsigned char>(values[kind]);
        }
    }
    return picture;
}

#endif
