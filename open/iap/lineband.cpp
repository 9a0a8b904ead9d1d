#include "open/iap/lineband.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

constexpr float LeastInk = 3.0F;     // of 255, mean of a row: less is no line
constexpr float CorePart = 0.4F;     // of the fullest row
constexpr float HighestPart = 0.75F; // the same for lines that nearly touch
constexpr float PartStep = 0.07F;
constexpr double TightBridgeMm = 0.1;
constexpr double AimMm = 3.2;       // how far off its middle a line may be passed
constexpr double LeastCoreMm = 0.5; // lower runs are rules and dirt
// Higher cores are several lines; of type up to 16 points.
constexpr double MostCoreMm = 4.0;
constexpr double MostHanCoreMm = 5.6;
// Two lines of small characters are no higher than one of large ones, but between them there is
// less ink: 0.67 of the core's median or less were seen, against 0.87 or more within one line.
constexpr double LeastTwoHanMm = 3.2;
constexpr float HanValleyPart = 0.77F;
constexpr double ValleyMargin = 0.3;  // of the core's height, at both ends
constexpr double NeighbourPart = 0.2; // of the line's height: it may be half in view only

struct Run
{
    int first;
    int last;
    int height() const { return last - first + 1; }
};

double distance(const Run& run, double row)
{
    if (row < run.first)
        return run.first - row;
    return row > run.last ? row - run.last : 0.0;
}

/* Runs of rows above the threshold; gaps of up to `bridge` rows do not part them. */
std::vector<Run> fullRuns(const std::vector<float>& profile, float threshold, int bridge)
{
    std::vector<Run> runs;
    for (int y = 0; y < static_cast<int>(profile.size()); ++y) {
        if (profile[y] < threshold)
            continue;
        if (!runs.empty() && y - runs.back().last - 1 <= bridge)
            runs.back().last = y;
        else
            runs.push_back({y, y});
    }
    return runs;
}

/* The run nearest to a row that is high enough for a line and not out of the pen's aim. */
std::optional<Run> nearestCore(const std::vector<Run>& runs, double middle, double dotsPerMm)
{
    std::optional<Run> core;
    for (const Run& run : runs) {
        if (run.height() < LeastCoreMm * dotsPerMm || distance(run, middle) > AimMm * dotsPerMm)
            continue;
        if (!core || distance(run, middle) < distance(*core, middle))
            core = run;
    }
    return core;
}

/* The line that the pen was aimed at, and the runs of all that lie around it. */
struct Parted
{
    Run core;
    std::vector<Run> runs;
};

/* Whether a core of square characters has a valley in its middle, as two lines have. */
bool isTwoHanLines(const std::vector<float>& profile, const Run& core, double dotsPerMm,
                   float ground)
{
    if (core.height() < LeastTwoHanMm * dotsPerMm)
        return false;
    const auto first = profile.begin() + core.first;
    const auto last = profile.begin() + core.last + 1;
    const auto margin = static_cast<int>(ValleyMargin * core.height());
    const float lowest = *std::min_element(first + margin, last - margin);
    std::vector<float> sorted(first, last);
    const auto median = sorted.begin() + core.height() / 2;
    std::nth_element(sorted.begin(), median, sorted.end());
    return lowest - ground < HanValleyPart * (*median - ground);
}

/* Raises the threshold until the run nearest to the middle is one line: what little ink there is
 * between lines joins them at a low one. At the lowest threshold when that never happens. */
std::optional<Parted> partLines(const std::vector<float>& profile, double middle, double dotsPerMm,
                                bool square, float ground, float fullest)
{
    int bridge = static_cast<int>(std::lround((square ? 0.3 : 0.5) * dotsPerMm));
    const double most = (square ? MostHanCoreMm : MostCoreMm) * dotsPerMm;
    const auto isOneLine = [&](const Run& run) {
        return run.height() <= most && !(square && isTwoHanLines(profile, run, dotsPerMm, ground));
    };
    std::optional<Parted> parted;
    for (float part = CorePart; part < HighestPart; part += PartStep) {
        std::vector<Run> runs = fullRuns(profile, ground + part * (fullest - ground), bridge);
        const std::optional<Run> nearest = nearestCore(runs, middle, dotsPerMm);
        if (nearest && (!parted || isOneLine(*nearest)))
            parted = Parted{*nearest, std::move(runs)};
        if (!parted || isOneLine(parted->core))
            break;
        bridge = static_cast<int>(std::lround(TightBridgeMm * dotsPerMm));
    }
    return parted;
}

/* The emptiest row strictly between two; the middle one of several. */
int valley(const std::vector<float>& profile, int after, int before)
{
    int first = after + 1;
    int last = after + 1;
    for (int y = after + 1; y < before; ++y) {
        if (profile[y] < profile[first])
            first = last = y;
        else if (profile[y] == profile[first] && y == last + 1)
            last = y;
    }
    return (first + last) / 2;
}

} // namespace

std::vector<float> rowProfile(const cv::Mat& ink, const cv::Mat& seen, double smoothing)
{
    std::vector<float> sums(ink.rows);
    std::vector<int> counts(ink.rows);
    for (int y = 0; y < ink.rows; ++y) {
        sums[y] = static_cast<float>(cv::sum(ink.row(y))[0]);
        counts[y] = cv::countNonZero(seen.row(y));
    }
    // A row seen here and there only must not stand out.
    const int most = *std::max_element(counts.begin(), counts.end());
    cv::Mat profile(ink.rows, 1, CV_32F);
    for (int y = 0; y < ink.rows; ++y)
        profile.at<float>(y) = sums[y] / float(std::max({1, counts[y], most / 3}));
    cv::GaussianBlur(profile, profile, cv::Size(1, 2 * int(std::ceil(2.0 * smoothing)) + 1),
                     smoothing, smoothing);
    return {profile.begin<float>(), profile.end<float>()};
}

std::optional<LineBand> findLine(const std::vector<float>& profile, double middle, double dotsPerMm,
                                 bool square)
{
    const int rows = static_cast<int>(profile.size());
    const int from = std::clamp(static_cast<int>(middle - AimMm * dotsPerMm), 0, rows - 1);
    const int to = std::clamp(static_cast<int>(middle + AimMm * dotsPerMm), from, rows - 1);
    std::vector<float> sorted = profile;
    std::nth_element(sorted.begin(), sorted.begin() + rows / 10, sorted.end());
    const float ground = sorted[rows / 10];
    const float fullest = *std::max_element(profile.begin() + from, profile.begin() + to + 1);
    if (fullest - ground < LeastInk)
        return std::nullopt;

    const auto parted = partLines(profile, middle, dotsPerMm, square, ground, fullest);
    if (!parted)
        return std::nullopt;

    const Run& core = parted->core;
    const double height = core.height();
    LineBand band;
    band.coreTop = core.first;
    band.coreBottom = core.last;
    band.belowTop = rows;
    for (const Run& run : parted->runs) {
        if (run.height() < NeighbourPart * height)
            continue;
        if (run.last < core.first)
            band.aboveBottom = run.last;
        if (run.first > core.last && band.belowTop == rows)
            band.belowTop = run.first;
    }
    const int reachUp = static_cast<int>((square ? 0.35 : 1.25) * height);
    const int reachDown = static_cast<int>((square ? 0.35 : 0.8) * height);
    band.top = std::max(0, core.first - reachUp);
    band.bottom = std::min(rows - 1, core.last + reachDown);
    if (band.aboveBottom >= 0)
        band.top = std::max(band.top, valley(profile, band.aboveBottom, core.first));
    if (band.belowTop < rows)
        band.bottom = std::min(band.bottom, valley(profile, core.last, band.belowTop));
    return band;
}
