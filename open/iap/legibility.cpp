#include "open/iap/legibility.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

constexpr int HalfBlack = 128;
constexpr int LongestStroke = 5;    // letter heights; a longer straight run is a rule
constexpr int TallestStroke = 4;    // the same, upright
constexpr double LeastSolid = 0.70; // print has 0.73 and more, photographs up to 0.68
constexpr double LeastCrisp = 0.12;
constexpr double MostRuled = 0.6;
constexpr int LeastBlackened = 12;

/* Black pixels of straight runs at least as long as the element. */
cv::Mat runs(const cv::Mat& black, cv::Size element)
{
    cv::Mat opened;
    cv::morphologyEx(black, opened, cv::MORPH_OPEN,
                     cv::getStructuringElement(cv::MORPH_RECT, element));
    return opened;
}

/* Mean slope across the border between black and white. */
double borderSlope(const cv::Mat& ink)
{
    double sum = 0.0;
    int count = 0;
    for (int y = 1; y + 1 < ink.rows; ++y) {
        const std::uint8_t* row = ink.ptr<std::uint8_t>(y);
        const std::uint8_t* above = ink.ptr<std::uint8_t>(y - 1);
        const std::uint8_t* below = ink.ptr<std::uint8_t>(y + 1);
        for (int x = 1; x + 1 < ink.cols; ++x) {
            if (row[x] < HalfBlack
                || (row[x + 1] >= HalfBlack && row[x - 1] >= HalfBlack && above[x] >= HalfBlack
                    && below[x] >= HalfBlack))
                continue;
            sum += std::max(
                {row[x] - row[x - 1], row[x] - row[x + 1], row[x] - above[x], row[x] - below[x]});
            ++count;
        }
    }
    return count > 0 ? sum / count / 255.0 : 0.0;
}

} // namespace

InkTraits inkTraits(const cv::Mat& ink, int letterHeight)
{
    InkTraits traits;
    const cv::Mat black = ink >= HalfBlack;
    traits.blackened = cv::countNonZero(black);
    const double all = cv::sum(ink)[0];
    if (all == 0.0 || traits.blackened == 0)
        return traits;
    cv::Mat solid;
    ink.copyTo(solid, black);
    traits.solid = cv::sum(solid)[0] / all;
    traits.crisp = borderSlope(ink);
    const cv::Mat rules = runs(black, {std::max(2, LongestStroke * letterHeight), 1})
                          | runs(black, {1, std::max(2, TallestStroke * letterHeight)});
    traits.ruled = double(cv::countNonZero(rules)) / traits.blackened;
    return traits;
}

bool isLegible(const cv::Mat& ink, int letterHeight)
{
    const InkTraits traits = inkTraits(ink, letterHeight);
    return traits.blackened >= LeastBlackened && traits.solid >= LeastSolid
           && traits.crisp >= LeastCrisp && traits.ruled <= MostRuled;
}
