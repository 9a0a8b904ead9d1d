#include "open/iap/panorama.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace {

constexpr float LeastWeight = 0.002F; // of the frame's rim: better than nothing
constexpr float SeenWeight = 0.001F;

int floorDivided(int value, int by)
{
    return value >= 0 ? value / by : -((by - 1 - value) / by);
}

/* A hill: highest in the frame's middle, falling off to all sides. */
cv::Mat hillWeights(cv::Size size)
{
    const auto flank = [](int i, int count) {
        const double part = (i + 0.5) / count * std::numbers::pi;
        return std::sin(part) * std::sin(part);
    };
    cv::Mat weights(size, CV_32F);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            const double across = flank(x, size.width);
            const double down = std::sqrt(flank(y, size.height));
            weights.at<float>(y, x) = std::max(LeastWeight, float(across * across * down));
        }
    return weights;
}

} // namespace

Panorama::Panorama(cv::Size frameSize)
    : m_frameSize(frameSize), m_weights(hillWeights(frameSize)), m_weighted(frameSize, CV_32FC2)
{
}

cv::Rect Panorama::placedBounds(const Shift& place) const
{
    const double c = std::abs(std::cos(place.angle));
    const double s = std::abs(std::sin(place.angle));
    const double halfWidth = (c * m_frameSize.width + s * m_frameSize.height) / 2.0;
    const double halfHeight = (s * m_frameSize.width + c * m_frameSize.height) / 2.0;
    const cv::Point low(static_cast<int>(std::floor(place.x - halfWidth)),
                        static_cast<int>(std::floor(place.y - halfHeight)));
    const cv::Point high(static_cast<int>(std::ceil(place.x + halfWidth)) + 1,
                         static_cast<int>(std::ceil(place.y + halfHeight)) + 1);
    return {low, high};
}

bool Panorama::isTooLarge(const cv::Rect& bounds)
{
    return bounds.width > MostSide || bounds.height > MostSide
           || bounds.width * bounds.height > MostArea;
}

bool Panorama::add(const cv::Mat& ink, const Shift& place)
{
    const double reach = std::max(std::abs(place.x), std::abs(place.y));
    if (!(reach < MostSide)) // also what is no number
        return false;
    const cv::Rect area = placedBounds(place);
    if (isTooLarge(m_bounds | area))
        return false;
    const int lastRow = floorDivided(area.y + area.height - 1, TileSide);
    const int lastColumn = floorDivided(area.x + area.width - 1, TileSide);
    const int firstRow = floorDivided(area.y, TileSide);
    const int firstColumn = floorDivided(area.x, TileSide);
    const std::size_t touched =
        std::size_t(lastRow - firstRow + 1) * std::size_t(lastColumn - firstColumn + 1);
    if (m_tiles.size() + touched > MostTiles)
        return false;

    for (int y = 0; y < ink.rows; ++y) {
        const std::uint8_t* inkRow = ink.ptr<std::uint8_t>(y);
        const float* weightRow = m_weights.ptr<float>(y);
        cv::Vec2f* out = m_weighted.ptr<cv::Vec2f>(y);
        for (int x = 0; x < ink.cols; ++x)
            out[x] = {inkRow[x] * weightRow[x], weightRow[x]};
    }
    const double c = std::cos(place.angle);
    const double s = std::sin(place.angle);
    const double midX = (m_frameSize.width - 1) / 2.0;
    const double midY = (m_frameSize.height - 1) / 2.0;
    // The middle of an even number of pixels lies between two: the first frame is to fall on the
    // plane's own grid, or else everything would be interpolated once more.
    const double gridX = midX - std::floor(midX);
    const double gridY = midY - std::floor(midY);
    const cv::Matx23d toPatch(c, -s, place.x + gridX - area.x - c * midX + s * midY, //
                              s, c, place.y + gridY - area.y - s * midX - c * midY);
    cv::warpAffine(m_weighted, m_patch, toPatch, area.size(), cv::INTER_LINEAR, cv::BORDER_CONSTANT,
                   cv::Scalar());
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = firstColumn; column <= lastColumn; ++column)
            addToTile({row, column}, m_patch, area);
    m_bounds |= area;
    return true;
}

void Panorama::addToTile(const TileIndex& index, const cv::Mat& patch, const cv::Rect& patchArea)
{
    const cv::Rect tileArea(index.second * TileSide, index.first * TileSide, TileSide, TileSide);
    const cv::Rect common = tileArea & patchArea;
    if (common.empty())
        return;
    cv::Mat& tile = m_tiles[index];
    if (tile.empty())
        tile = cv::Mat::zeros(TileSide, TileSide, CV_32FC2);
    cv::Mat target = tile(common - tileArea.tl());
    target += patch(common - patchArea.tl());
}

cv::Mat Panorama::picture(const cv::Rect& area, cv::Mat* seen) const
{
    cv::Mat ink = cv::Mat::zeros(area.size(), CV_8U);
    if (seen)
        *seen = cv::Mat::zeros(area.size(), CV_8U);
    for (const auto& [index, tile] : m_tiles) {
        const cv::Point corner(index.second * TileSide, index.first * TileSide);
        const cv::Rect common = cv::Rect(corner, tile.size()) & area;
        for (int y = common.y; y < common.y + common.height; ++y)
            for (int x = common.x; x < common.x + common.width; ++x) {
                const cv::Vec2f sum = tile.at<cv::Vec2f>(y - corner.y, x - corner.x);
                if (sum[1] < SeenWeight)
                    continue;
                ink.at<std::uint8_t>(y - area.y, x - area.x) =
                    cv::saturate_cast<std::uint8_t>(sum[0] / sum[1]);
                if (seen)
                    seen->at<std::uint8_t>(y - area.y, x - area.x) = 255;
            }
    }
    return ink;
}
