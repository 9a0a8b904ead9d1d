#include "open/iap/characterrow.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double ShortestPitch = 0.75; // of the column's width
constexpr double LongestPitch = 1.6;
constexpr double UnevenCost = 0.4; // against a character as long again as the pitch

/* Ink of each place along the column, mean 1. */
std::vector<double> inkAlong(const cv::Mat& ink)
{
    cv::Mat sums;
    cv::reduce(ink, sums, 0, cv::REDUCE_SUM, CV_64F);
    const double mean = std::max(1.0, cv::mean(sums)[0]);
    std::vector<double> along(sums.begin<double>(), sums.end<double>());
    for (double& value : along)
        value /= mean;
    return along;
}

/* The distance of the gaps: where the column looks most like itself, moved on. */
int pitchOf(const std::vector<double>& along, int width)
{
    const auto count = static_cast<int>(along.size());
    int best = width;
    double bestMerit = -std::numeric_limits<double>::infinity();
    for (int pitch = static_cast<int>(ShortestPitch * width);
         pitch <= static_cast<int>(LongestPitch * width) && pitch < count; ++pitch) {
        double sum = 0.0;
        for (int i = pitch; i < count; ++i)
            sum += (along[i] - 1.0) * (along[i - pitch] - 1.0);
        const double merit = sum / (count - pitch);
        if (merit > bestMerit) {
            bestMerit = merit;
            best = pitch;
        }
    }
    return std::max(1, best);
}

/* The places where characters end, from 0 to the column's length: cuts through little ink, at
 * distances near the pitch. */
std::vector<int> cutsOf(const std::vector<double>& along, int pitch)
{
    const auto count = static_cast<int>(along.size());
    std::vector<double> cost(count + 1, std::numeric_limits<double>::infinity());
    std::vector<int> from(count + 1, 0);
    cost.at(0) = 0.0;
    for (int end = 1; end <= count; ++end) {
        const double through = end < count ? along[end] : 0.0;
        const int longest = std::min(end, 2 * pitch);
        for (int length = 1; length <= longest; ++length) {
            const double uneven = double(length - pitch) / pitch;
            const double value = cost[end - length] + through + UnevenCost * uneven * uneven * 4.0;
            if (value < cost[end]) {
                cost[end] = value;
                from[end] = end - length;
            }
        }
    }
    std::vector<int> cuts = {count};
    while (cuts.back() > 0)
        cuts.push_back(from[cuts.back()]);
    std::reverse(cuts.begin(), cuts.end());
    return cuts;
}

} // namespace

cv::Mat characterRow(const cv::Mat& ink)
{
    const std::vector<double> along = inkAlong(ink);
    const std::vector<int> cuts = cutsOf(along, pitchOf(along, ink.rows));
    const int gap = std::max(1, ink.rows / 12);
    const auto cells = static_cast<int>(cuts.size()) - 1;
    int height = 1;
    for (int i = 0; i < cells; ++i)
        height = std::max(height, cuts[i + 1] - cuts[i]);
    cv::Mat row = cv::Mat::zeros(height, cells * (ink.rows + gap), CV_8U);
    for (int i = 0; i < cells; ++i) {
        cv::Mat upright;
        cv::rotate(ink.colRange(cuts[i], cuts[i + 1]), upright, cv::ROTATE_90_CLOCKWISE);
        const int top = (height - upright.rows) / 2;
        upright.copyTo(row(cv::Rect(i * (ink.rows + gap), top, upright.cols, upright.rows)));
    }
    return row;
}
