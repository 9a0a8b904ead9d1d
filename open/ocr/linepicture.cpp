#include "open/ocr/linepicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace ocr {

namespace {

constexpr int MinimumContrast = 32; // grey levels between paper and ink
constexpr int MinimumInkHeight = 4; // pixels; less is dust, or no letters
constexpr int LongestLine = 250;    // times its height; the widest page has 200, more is a rule,
                                    // or scribble that Tesseract would spend minutes on
constexpr int Margin = 12;          // white around the print, in pixels
constexpr int SmallestHeight = 36;  // print of fewer pixels is enlarged to it
constexpr int LargestHeight = 96;   // print of more pixels is reduced to it
constexpr double LargestZoom = 4;

struct Box
{
    int left;
    int top;
    int right; // past the last
    int bottom;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
};

struct Tones
{
    int paper;
    int ink;
};

/* The grey value below which `share` of the pixels lie. */
int percentile(const std::array<std::int64_t, 256>& histogram, std::int64_t total, double share)
{
    const auto wanted = static_cast<std::int64_t>(static_cast<double>(total) * share);
    std::int64_t sum = 0;
    for (int grey = 0; grey < 256; ++grey) {
        sum += histogram[static_cast<std::size_t>(grey)];
        if (sum > wanted)
            return grey;
    }
    return 255;
}

/* Paper is what most of the picture shows; ink is the far end of what is left. */
Tones tonesOf(const std::uint8_t* image, std::int64_t area)
{
    std::array<std::int64_t, 256> histogram = {};
    for (std::int64_t i = 0; i < area; ++i)
        ++histogram[image[i]];
    const int darkest = percentile(histogram, area, 0.002);
    const int lightest = percentile(histogram, area, 0.998);
    const int middle = percentile(histogram, area, 0.5);
    if (middle - darkest >= lightest - middle)
        return {percentile(histogram, area, 0.75), darkest};
    return {percentile(histogram, area, 0.25), lightest};
}

/* Full contrast, ink dark whatever it was. */
std::vector<std::uint8_t> stretched(const std::uint8_t* image, std::int64_t area, Tones tones)
{
    std::array<std::uint8_t, 256> map = {};
    for (int grey = 0; grey < 256; ++grey) {
        const double share = static_cast<double>(grey - tones.ink) / (tones.paper - tones.ink);
        map[static_cast<std::size_t>(grey)] =
            static_cast<std::uint8_t>(std::lround(std::clamp(share, 0.0, 1.0) * 255));
    }
    std::vector<std::uint8_t> result(static_cast<std::size_t>(area));
    std::transform(image, image + area, result.begin(),
                   [&map](std::uint8_t grey) { return map[grey]; });
    return result;
}

Box inkBox(const std::vector<std::uint8_t>& pixels, int width, int height)
{
    Box box = {width, height, 0, 0};
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* row = pixels.data() + static_cast<std::ptrdiff_t>(y) * width;
        for (int x = 0; x < width; ++x) {
            if (row[x] >= 128)
                continue;
            box.left = std::min(box.left, x);
            box.right = std::max(box.right, x + 1);
            box.top = std::min(box.top, y);
            box.bottom = std::max(box.bottom, y + 1);
        }
    }
    return box;
}

double zoomFor(const Box& box)
{
    if (box.height() < SmallestHeight)
        return std::min(LargestZoom, static_cast<double>(SmallestHeight) / box.height());
    if (box.height() > LargestHeight)
        return static_cast<double>(LargestHeight) / box.height();
    return 1;
}

/* Mean over the source pixels that one target pixel covers when reducing, bilinear otherwise. */
class Sampler
{
public:
    Sampler(const std::vector<std::uint8_t>& pixels, int width, const Box& box)
        : m_pixels(pixels), m_width(width), m_box(box)
    {
    }

    double mean(double left, double top, double side) const
    {
        double sum = 0;
        for (int y = static_cast<int>(top); y < top + side; ++y) {
            double row = 0;
            for (int x = static_cast<int>(left); x < left + side; ++x)
                row += at(x, y) * covered(x, left, side);
            sum += row * covered(y, top, side);
        }
        return sum / (side * side);
    }

    double between(double x, double y) const
    {
        const double fx = std::floor(x);
        const double fy = std::floor(y);
        const int ix = static_cast<int>(fx);
        const int iy = static_cast<int>(fy);
        const double ax = x - fx;
        const double ay = y - fy;
        return (at(ix, iy) * (1 - ax) + at(ix + 1, iy) * ax) * (1 - ay)
               + (at(ix, iy + 1) * (1 - ax) + at(ix + 1, iy + 1) * ax) * ay;
    }

private:
    /* How much of pixel `at` lies between `from` and `from` + `length`. */
    static double covered(int at, double from, double length)
    {
        return std::min(at + 1.0, from + length) - std::max<double>(at, from);
    }

    int at(int x, int y) const
    {
        const int cx = std::clamp(x, 0, m_box.width() - 1) + m_box.left;
        const int cy = std::clamp(y, 0, m_box.height() - 1) + m_box.top;
        return m_pixels[static_cast<std::size_t>(cy) * static_cast<std::size_t>(m_width)
                        + static_cast<std::size_t>(cx)];
    }

    const std::vector<std::uint8_t>& m_pixels;
    const int m_width;
    const Box m_box;
};

GreyPicture zoomedWithMargin(const std::vector<std::uint8_t>& pixels, int width, const Box& box,
                             double zoom)
{
    const int innerWidth = std::max(1, static_cast<int>(std::lround(box.width() * zoom)));
    const int innerHeight = std::max(1, static_cast<int>(std::lround(box.height() * zoom)));
    GreyPicture result = {innerWidth + 2 * Margin, innerHeight + 2 * Margin, {}};
    if (!isPlausibleSize(result.width, result.height))
        return {};
    result.pixels.assign(
        static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height), 255);

    const Sampler source(pixels, width, box);
    for (int y = 0; y < innerHeight; ++y) {
        std::uint8_t* row =
            result.pixels.data() + static_cast<std::ptrdiff_t>(y + Margin) * result.width + Margin;
        for (int x = 0; x < innerWidth; ++x) {
            const double grey =
                zoom < 1 ? source.mean(x / zoom, y / zoom, 1 / zoom)
                         : source.between((x + 0.5) / zoom - 0.5, (y + 0.5) / zoom - 0.5);
            row[x] = static_cast<std::uint8_t>(std::lround(grey));
        }
    }
    return result;
}

} // namespace

bool isPlausibleSize(int width, int height)
{
    return width >= 1 && height >= 1 && width <= MaxSide && height <= MaxSide
           && static_cast<std::int64_t>(width) * height <= MaxArea;
}

GreyPicture prepareLine(const std::uint8_t* image, int width, int height)
{
    const std::int64_t area = static_cast<std::int64_t>(width) * height;
    const Tones tones = tonesOf(image, area);
    if (std::abs(tones.paper - tones.ink) < MinimumContrast)
        return {};
    const std::vector<std::uint8_t> pixels = stretched(image, area, tones);
    const Box box = inkBox(pixels, width, height);
    if (box.height() < MinimumInkHeight || box.width() < 2
        || box.width() > LongestLine * box.height())
        return {};
    return zoomedWithMargin(pixels, width, box, zoomFor(box));
}

GreyPicture reducedTo(int height, const GreyPicture& line)
{
    const Box box = {Margin, Margin, line.width - Margin, line.height - Margin};
    if (box.height() <= height)
        return line;
    return zoomedWithMargin(line.pixels, line.width, box,
                            static_cast<double>(height) / box.height());
}

} // namespace ocr
