#include "open/iap/straightener.h"

#include "open/iap/panorama.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace {

constexpr double Degree = std::numbers::pi / 180.0;
constexpr int FaintInk = 48;         // of 255: less is no print
constexpr double TellingWay = 250.0; // pixels; a shorter way does not tell the line's direction
constexpr double AngleReach = 6.0;   // degrees on either side of the rough direction
constexpr double AngleBias = 0.01;   // against each degree away from it

constexpr double MostSide = 32766.0; // of what OpenCV turns
constexpr double MostArea = 2.0 * Panorama::MostArea;

constexpr int WindowWidth = 160;
constexpr int WindowStep = 40;
constexpr int BendReach = 10;     // pixels up or down
constexpr int BendRounds = 2;     // the common profile sharpens as the windows are aligned
constexpr double BendCost = 0.01; // against each pixel of difference between neighbours

struct Dot
{
    float x;
    float y;
    float ink;
};

/* The print of the strip at a third of its size. */
std::vector<Dot> reducedDots(const cv::Mat& ink, double scale)
{
    cv::Mat small;
    cv::resize(ink, small, cv::Size(), scale, scale, cv::INTER_AREA);
    std::vector<Dot> dots;
    for (int y = 0; y < small.rows; ++y)
        for (int x = 0; x < small.cols; ++x)
            if (const std::uint8_t value = small.at<std::uint8_t>(y, x); value >= FaintInk)
                dots.push_back({float(x), float(y), float(value)});
    return dots;
}

/* How sharply rows of ink stand out when they are taken at this angle. */
double sharpness(const std::vector<Dot>& dots, double angle, std::vector<float>& rows)
{
    const float c = static_cast<float>(std::cos(angle));
    const float s = static_cast<float>(std::sin(angle));
    const std::size_t half = rows.size() / 2; // a whole number: level dots keep to one row
    const auto middle = static_cast<float>(half);
    std::fill(rows.begin(), rows.end(), 0.0F);
    for (const Dot& dot : dots) {
        const float y = c * dot.y - s * dot.x + middle;
        const int row = static_cast<int>(y);
        if (row < 0 || row + 1 >= static_cast<int>(rows.size()))
            continue;
        const float part = y - float(row);
        rows[row] += dot.ink * (1.0F - part);
        rows[row + 1] += dot.ink * part;
    }
    double sum = 0.0;
    for (std::size_t i = 1; i < rows.size(); ++i)
        sum += double(rows[i] - rows[i - 1]) * (rows[i] - rows[i - 1]);
    return sum;
}

double wayAngle(const std::vector<cv::Point2d>& path)
{
    if (path.size() < 2)
        return 0.0;
    cv::Point2d way = path.back() - path.front();
    if (std::hypot(way.x, way.y) < TellingWay)
        return 0.0;
    if (way.x < 0.0)
        way = -way;
    return std::atan2(way.y, way.x);
}

/* Row profiles of overlapping windows along the strip, each with mean 0 and length 1. */
std::vector<std::vector<float>> windowProfiles(const cv::Mat& ink)
{
    std::vector<std::vector<float>> profiles;
    for (int x = 0; x == 0 || x + WindowWidth / 2 < ink.cols; x += WindowStep) {
        const cv::Rect area = cv::Rect(x, 0, WindowWidth, ink.rows) & cv::Rect({}, ink.size());
        cv::Mat column;
        cv::reduce(ink(area), column, 1, cv::REDUCE_AVG, CV_32F);
        cv::GaussianBlur(column, column, cv::Size(1, 5), 0.0);
        column -= cv::mean(column)[0];
        const double norm = cv::norm(column);
        if (norm > 0.0)
            column /= norm;
        profiles.emplace_back(column.begin<float>(), column.end<float>());
    }
    return profiles;
}

double agreement(const std::vector<float>& common, const std::vector<float>& window, int bend)
{
    const int count = static_cast<int>(common.size());
    double sum = 0.0;
    for (int y = std::max(0, -bend); y < std::min(count, count - bend); ++y)
        sum += double(common[y]) * window[y + bend];
    return sum;
}

std::vector<float> commonProfile(const std::vector<std::vector<float>>& windows,
                                 const std::vector<int>& bends)
{
    std::vector<float> common(windows.front().size());
    const int count = static_cast<int>(common.size());
    for (std::size_t i = 0; i < windows.size(); ++i)
        for (int y = 0; y < count; ++y)
            if (const int from = y + bends[i]; from >= 0 && from < count)
                common[y] += windows[i][from] / float(windows.size());
    return common;
}

/* For each window the rows by which it hangs too low: the smooth sequence that agrees best with
 * the common profile. */
std::vector<int> bestBends(const std::vector<float>& common,
                           const std::vector<std::vector<float>>& windows)
{
    constexpr int states = 2 * BendReach + 1;
    const auto count = static_cast<int>(windows.size());
    cv::Mat_<double> merit(count, states);
    cv::Mat_<int> from(count, states, 0);
    for (int i = 0; i < count; ++i)
        for (int s = 0; s < states; ++s) {
            double best = i == 0 ? 0.0 : -1e9;
            for (int before = std::max(0, s - 3); i > 0 && before <= std::min(states - 1, s + 3);
                 ++before) {
                const double value = merit(i - 1, before) - BendCost * std::abs(before - s);
                if (value > best) {
                    best = value;
                    from(i, s) = before;
                }
            }
            merit(i, s) = best + agreement(common, windows[i], s - BendReach);
        }
    std::vector<int> bends(count);
    int state = BendReach;
    for (int s = 0; s < states; ++s)
        if (merit(count - 1, s) > merit(count - 1, state))
            state = s;
    for (int i = count - 1; i >= 0; --i) {
        bends[i] = state - BendReach;
        state = from(i, state);
    }
    return bends;
}

/* The bend at column x, between those of the windows' middles. */
float bendAt(const std::vector<int>& bends, double x)
{
    const double position =
        std::clamp((x - WindowWidth / 2.0) / WindowStep, 0.0, double(bends.size() - 1));
    const auto left = static_cast<std::size_t>(position);
    const std::size_t right = std::min(left + 1, bends.size() - 1);
    const double part = position - double(left);
    return static_cast<float>(bends[left] * (1.0 - part) + bends[right] * part);
}

} // namespace

double lineAngle(const LineStrip& strip)
{
    constexpr double scale = 1.0 / 3.0;
    constexpr double coarseStep = 0.4;
    constexpr double fineStep = 0.05;
    const std::vector<Dot> dots = reducedDots(strip.ink, scale);
    if (dots.empty())
        return 0.0;
    std::vector<float> rows(
        static_cast<std::size_t>(2.0 * scale * std::hypot(strip.ink.cols, strip.ink.rows) + 4.0));
    const double rough = wayAngle(strip.path);
    double best = rough;
    double bestMerit = -1.0;
    const auto tryAngles = [&](double middle, double reach, double step) {
        for (double offset = -reach; offset <= reach + 1e-9; offset += step) {
            const double angle = middle + offset * Degree;
            const double away = std::abs(angle - rough) / Degree;
            const double merit = sharpness(dots, angle, rows) * (1.0 - AngleBias * away);
            if (merit > bestMerit) {
                bestMerit = merit;
                best = angle;
            }
        }
    };
    tryAngles(rough, AngleReach, coarseStep);
    tryAngles(best, coarseStep, fineStep);
    return best;
}

LineStrip levelled(const LineStrip& strip, double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto turned = [&](cv::Point2d p) {
        return cv::Point2d(c * p.x + s * p.y, -s * p.x + c * p.y);
    };
    const double w = strip.ink.cols;
    const double h = strip.ink.rows;
    const cv::Point2d corners[] = {turned({w, 0}), turned({0, h}), turned({w, h})};
    cv::Point2d low;
    cv::Point2d high;
    for (const cv::Point2d& corner : corners) {
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    const cv::Point2d extent = high - low;
    if (std::max(extent.x, extent.y) > MostSide || extent.x * extent.y > MostArea)
        return {};
    const cv::Size size(static_cast<int>(std::ceil(extent.x)),
                        static_cast<int>(std::ceil(extent.y)));
    const cv::Matx23d turn(c, s, -low.x, -s, c, -low.y);
    LineStrip result;
    cv::warpAffine(strip.ink, result.ink, turn, size, cv::INTER_LINEAR);
    cv::warpAffine(strip.seen, result.seen, turn, size, cv::INTER_NEAREST);
    for (const cv::Point2d& point : strip.path)
        result.path.push_back(turned(point) - low);
    return result;
}

LineStrip unbent(const LineStrip& strip)
{
    const std::vector<std::vector<float>> windows = windowProfiles(strip.ink);
    std::vector<int> bends(windows.size(), 0);
    for (int round = 0; round < BendRounds; ++round)
        bends = bestBends(commonProfile(windows, bends), windows);
    if (std::all_of(bends.begin(), bends.end(), [](int bend) { return bend == 0; }))
        return strip;

    cv::Mat fromX(strip.ink.size(), CV_32F);
    cv::Mat fromY(strip.ink.size(), CV_32F);
    for (int x = 0; x < strip.ink.cols; ++x) {
        const float bend = bendAt(bends, x);
        for (int y = 0; y < strip.ink.rows; ++y) {
            fromX.at<float>(y, x) = float(x);
            fromY.at<float>(y, x) = float(y) + bend;
        }
    }
    LineStrip result;
    cv::remap(strip.ink, result.ink, fromX, fromY, cv::INTER_LINEAR);
    cv::remap(strip.seen, result.seen, fromX, fromY, cv::INTER_NEAREST);
    for (const cv::Point2d& point : strip.path)
        result.path.emplace_back(point.x, point.y - bendAt(bends, point.x));
    return result;
}
