#include "open/iap/registration.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace {

// Variance of ink below which a picture counts as plain: keeps noise from correlating.
constexpr double PlainVariance = 60.0;
constexpr double PrintVariance = 150.0; // of the coarsest level
constexpr double LargestPartX = 0.80;   // of the frame's side, searched in each direction
constexpr double LargestPartY = 0.30;
constexpr int Candidates = 4;
constexpr double ExpectationWeight = 0.06;
constexpr double ExpectationRange = 24.0; // pixels of the full frame
constexpr double OverlapWeight = 0.08;    // against a place where the frames hardly overlap
constexpr float EdgeSlope = 6.0F;         // levels of ink a pixel
constexpr int RefineSteps = 5;
constexpr int MinRefinePixels = 60;

struct Place
{
    int x;
    int y;
    double score;
};

std::int64_t crossSum(const cv::Mat& key, const cv::Mat& frame, const cv::Rect& inKey, int dx,
                      int dy)
{
    std::int64_t total = 0;
    for (int y = inKey.y; y < inKey.y + inKey.height; ++y) {
        const std::uint8_t* a = key.ptr<std::uint8_t>(y) + inKey.x;
        const std::uint8_t* b = frame.ptr<std::uint8_t>(y - dy) + inKey.x - dx;
        int sum = 0;
        for (int x = 0; x < inKey.width; ++x)
            sum += a[x] * b[x];
        total += sum;
    }
    return total;
}

template <typename T> double areaSum(const cv::Mat& integral, const cv::Rect& r)
{
    return double(integral.at<T>(r.y + r.height, r.x + r.width))
           - double(integral.at<T>(r.y, r.x + r.width))
           - double(integral.at<T>(r.y + r.height, r.x)) + double(integral.at<T>(r.y, r.x));
}

/* Normalised correlation where frame pixel p lies on key pixel p + (dx, dy). */
double correlation(const FramePyramid::Level& key, const FramePyramid::Level& frame, int dx, int dy)
{
    const cv::Rect whole(0, 0, key.ink.cols, key.ink.rows);
    const cv::Rect inKey = whole & cv::Rect(dx, dy, whole.width, whole.height);
    if (inKey.area() == 0)
        return -1.0;
    const cv::Rect inFrame = inKey - cv::Point(dx, dy);
    const double n = inKey.area();
    const double meanA = areaSum<int>(key.sum, inKey) / n;
    const double meanB = areaSum<int>(frame.sum, inFrame) / n;
    const double varA = areaSum<double>(key.squares, inKey) / n - meanA * meanA;
    const double varB = areaSum<double>(frame.squares, inFrame) / n - meanB * meanB;
    const double cov = double(crossSum(key.ink, frame.ink, inKey, dx, dy)) / n - meanA * meanB;
    return cov / std::sqrt((varA + PlainVariance) * (varB + PlainVariance));
}

/* How much a place is held against, for being far from the expected one and for resting on a
 * small overlap. Full pixels. */
double doubt(double x, double y, const Shift& expected, cv::Size size)
{
    const double distance = std::hypot(x - expected.x, y - expected.y);
    const double apart = 1.0
                         - std::max(0.0, 1.0 - std::abs(x) / size.width)
                               * std::max(0.0, 1.0 - std::abs(y) / size.height);
    return ExpectationWeight * std::min(1.0, distance / ExpectationRange) + OverlapWeight * apart;
}

/* Places of the coarsest level that are worth a closer look: the best ones, each a summit among its
 * neighbours, and the expected one. */
std::vector<Place> coarsePlaces(const FramePyramid& key, const FramePyramid& frame,
                                const Shift& expected)
{
    constexpr int level = FramePyramid::Levels - 1;
    constexpr int scale = 1 << level;
    const FramePyramid::Level& keyLevel = key.level(level);
    const int rangeX = static_cast<int>(keyLevel.ink.cols * LargestPartX);
    const int rangeY = static_cast<int>(keyLevel.ink.rows * LargestPartY);
    // With a rim of worst scores, so that every place has eight neighbours.
    cv::Mat_<float> scores(2 * rangeY + 3, 2 * rangeX + 3, -2.0F);
    for (int dy = -rangeY; dy <= rangeY; ++dy)
        for (int dx = -rangeX; dx <= rangeX; ++dx)
            scores(dy + rangeY + 1, dx + rangeX + 1) =
                static_cast<float>(correlation(keyLevel, frame.level(level), dx, dy)
                                   - doubt(dx * scale, dy * scale, expected, key.size()));
    cv::Mat_<float> highest;
    cv::dilate(scores, highest, cv::Mat());
    std::vector<Place> places;
    for (int y = 1; y + 1 < scores.rows; ++y)
        for (int x = 1; x + 1 < scores.cols; ++x)
            if (scores(y, x) >= highest(y, x))
                places.push_back({x - rangeX - 1, y - rangeY - 1, scores(y, x)});
    const auto count = std::min<std::size_t>(Candidates, places.size());
    std::partial_sort(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(count),
                      places.end(),
                      [](const Place& a, const Place& b) { return a.score > b.score; });
    places.resize(count);
    // Between two places of this level a true one may stand out less than false ones that fall on
    // its grid: the expected place always has its chance.
    places.push_back({cvRound(expected.x / scale), cvRound(expected.y / scale), 0.0});
    return places;
}

/* The best place within `reach` of a place on one level. */
Place climbed(const FramePyramid& key, const FramePyramid& frame, int level, int x, int y,
              int reach)
{
    Place best = {x, y, -std::numeric_limits<double>::infinity()};
    for (int dy = y - reach; dy <= y + reach; ++dy)
        for (int dx = x - reach; dx <= x + reach; ++dx) {
            const double score = correlation(key.level(level), frame.level(level), dx, dy);
            if (score > best.score)
                best = {dx, dy, score};
        }
    return best;
}

/* Ink at a place between pixels, from the four around it. */
float inkBetween(const cv::Mat& ink, float x, float y)
{
    const int left = static_cast<int>(x);
    const int top = static_cast<int>(y);
    const std::uint8_t* upper = ink.ptr<std::uint8_t>(top) + left;
    const std::uint8_t* lower = upper + ink.step[0];
    const float fx = x - float(left);
    const float fy = y - float(top);
    return (upper[0] * (1.0F - fx) + upper[1] * fx) * (1.0F - fy)
           + (lower[0] * (1.0F - fx) + lower[1] * fx) * fy;
}

/* Equations of least squares for a step: along, across, and a turn. */
struct StepEquations
{
    cv::Matx33d normal = cv::Matx33d::zeros(); // its upper right half
    cv::Vec3d right = {0.0, 0.0, 0.0};
    int used = 0;

    void add(const cv::Vec3d& slope, double error)
    {
        for (int i = 0; i < 3; ++i) {
            for (int j = i; j < 3; ++j)
                normal(i, j) += slope[i] * slope[j];
            right[i] += slope[i] * error;
        }
        ++used;
    }

    /* Nothing when they have no ground. */
    std::optional<cv::Vec3d> solved()
    {
        if (used < MinRefinePixels)
            return std::nullopt;
        normal(1, 0) = normal(0, 1);
        normal(2, 0) = normal(0, 2);
        normal(2, 1) = normal(1, 2);
        cv::Vec3d step;
        if (!cv::solve(normal, right, step, cv::DECOMP_CHOLESKY))
            return std::nullopt;
        return step;
    }
};

/* What the frame's edge pixels ask for where `shift` puts them on the key. */
StepEquations equationsOf(const cv::Mat& keyInk, const FramePyramid& frame, const Shift& shift)
{
    const float c = static_cast<float>(std::cos(shift.angle));
    const float s = static_cast<float>(std::sin(shift.angle));
    const float midX = static_cast<float>((keyInk.cols - 1) / 2.0 + shift.x);
    const float midY = static_cast<float>((keyInk.rows - 1) / 2.0 + shift.y);
    const float lastX = static_cast<float>(keyInk.cols - 1);
    const float lastY = static_cast<float>(keyInk.rows - 1);
    StepEquations equations;
    for (const FramePyramid::EdgePixel& edge : frame.edges()) {
        const float x = c * edge.x - s * edge.y + midX;
        const float y = s * edge.x + c * edge.y + midY;
        if (x < 0.0F || y < 0.0F)
            continue;
        if (x >= lastX || y >= lastY)
            continue;
        const float seen = inkBetween(keyInk, x, y);
        equations.add({edge.slopeX, edge.slopeY, edge.slopeY * edge.x - edge.slopeX * edge.y},
                      double(seen) - edge.ink);
    }
    return equations;
}

/* One step of least squares on the frame's edge pixels; false when it has no ground. */
bool refineStep(const cv::Mat& keyInk, const FramePyramid& frame, Shift& shift, double& change)
{
    const std::optional<cv::Vec3d> solved = equationsOf(keyInk, frame, shift).solved();
    if (!solved)
        return false;
    const cv::Vec3d& step = *solved;
    // The step moves the frame's own grid; the key sees it the other way round.
    shift.angle -= step[2];
    const double turnedX = std::cos(shift.angle) * step[0] - std::sin(shift.angle) * step[1];
    const double turnedY = std::sin(shift.angle) * step[0] + std::cos(shift.angle) * step[1];
    shift.x -= turnedX;
    shift.y -= turnedY;
    change = std::abs(turnedX) + std::abs(turnedY) + std::abs(step[2]) * keyInk.cols / 2.0;
    return true;
}

/* Sub-pixel place and turn; the integer place when the search for them leads astray. */
Shift refined(const FramePyramid& key, const FramePyramid& frame, const Place& place,
              double startAngle)
{
    constexpr double mostMoved = 3.0; // pixels
    constexpr double mostTurned = 0.12;
    const Shift start = {double(place.x), double(place.y), 0.0};
    Shift shift = {start.x, start.y, startAngle};
    double change = 1.0;
    for (int i = 0; i < RefineSteps && change > 0.01; ++i)
        if (!refineStep(key.level(0).ink, frame, shift, change))
            return start;
    const bool astray = std::hypot(shift.x - start.x, shift.y - start.y) > mostMoved
                        || std::abs(shift.angle) > mostTurned;
    return astray ? start : shift;
}

} // namespace

Shift composed(const Shift& outer, const Shift& inner)
{
    const double c = std::cos(outer.angle);
    const double s = std::sin(outer.angle);
    return {outer.x + c * inner.x - s * inner.y, outer.y + s * inner.x + c * inner.y,
            outer.angle + inner.angle};
}

FramePyramid::FramePyramid(const cv::Mat& ink)
{
    cv::GaussianBlur(ink, m_levels[0].ink, cv::Size(3, 3), 0.0);
    for (int i = 1; i < Levels; ++i) {
        const cv::Mat& finer = m_levels[i - 1].ink;
        cv::resize(finer, m_levels[i].ink, cv::Size(finer.cols / 2, finer.rows / 2), 0, 0,
                   cv::INTER_AREA);
    }
    for (Level& level : m_levels)
        cv::integral(level.ink, level.sum, level.squares, CV_32S, CV_64F);
    collectEdges();
}

bool FramePyramid::hasPrint() const
{
    const Level& coarse = m_levels[Levels - 1];
    const cv::Rect whole(0, 0, coarse.ink.cols, coarse.ink.rows);
    const double n = whole.area();
    const double mean = areaSum<int>(coarse.sum, whole) / n;
    return areaSum<double>(coarse.squares, whole) / n - mean * mean > PrintVariance;
}

void FramePyramid::collectEdges()
{
    const cv::Mat& ink = m_levels[0].ink;
    const float midX = static_cast<float>((ink.cols - 1) / 2.0);
    const float midY = static_cast<float>((ink.rows - 1) / 2.0);
    for (int y = 1; y + 1 < ink.rows; ++y) {
        const std::uint8_t* above = ink.ptr<std::uint8_t>(y - 1);
        const std::uint8_t* row = ink.ptr<std::uint8_t>(y);
        const std::uint8_t* below = ink.ptr<std::uint8_t>(y + 1);
        for (int x = 1; x + 1 < ink.cols; ++x) {
            const float slopeX = float(row[x + 1] - row[x - 1]) * 0.5F;
            const float slopeY = float(below[x] - above[x]) * 0.5F;
            if (std::abs(slopeX) + std::abs(slopeY) >= EdgeSlope)
                m_edges.push_back(
                    {float(x) - midX, float(y) - midY, float(row[x]), slopeX, slopeY});
        }
    }
}

Registration registerFrame(const FramePyramid& key, const FramePyramid& frame,
                           const Shift& expected)
{
    Place best = {0, 0, -std::numeric_limits<double>::infinity()};
    double bestMerit = best.score;
    for (const Place& coarse : coarsePlaces(key, frame, expected)) {
        const Place place = climbed(key, frame, 1, coarse.x * 2, coarse.y * 2, 2);
        const double merit = place.score - doubt(place.x * 2, place.y * 2, expected, key.size());
        if (merit > bestMerit) {
            bestMerit = merit;
            best = place;
        }
    }
    const Place fine = climbed(key, frame, 0, best.x * 2, best.y * 2, 1);
    return {refined(key, frame, fine, expected.angle), std::max(fine.score, best.score)};
}
