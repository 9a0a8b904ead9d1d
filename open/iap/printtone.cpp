#include "open/iap/printtone.h"

#include "open/iap/inklevel.h"
#include "open/iap/inkmap.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

constexpr int GroundSide = 42; // pixels; wider than strokes
constexpr int Rim = 4;
constexpr int CertainFrames = 8;        // with print
constexpr double StrongestPart = 0.002; // of the pixels: those of the darkest strokes
constexpr double LeastInk = 12.0;       // of 255
constexpr double LeastAboveNoise = 5.0;
constexpr double FullInk = 200.0;
constexpr double GoodInk = 110.0; // is left as it is
constexpr double MostGain = 8.0;

/* Spread of the noise: the usual curvature of the picture. Few pixels belong to edges of print. */
double noiseOf(const cv::Mat& ink)
{
    static const cv::Mat kernel =
        (cv::Mat_<float>(3, 3) << 1, -2, 1, -2, 4, -2, 1, -2, 1); // blind for slopes and edges
    cv::Mat curvature;
    cv::filter2D(ink, curvature, CV_16S, kernel);
    cv::Mat size;
    cv::convertScaleAbs(curvature, size, 0.25);
    return 4.0 * levelAbove(size, 0.5) / (0.6745 * 6.0);
}

/* How far the strongest strokes rise above the ground; 0 when that is noise. */
double strengthOf(const cv::Mat& ink)
{
    // At the rim the paper's brightness is known less well.
    const int rim = std::min({Rim, ink.cols / 4, ink.rows / 4});
    cv::Mat smooth;
    cv::GaussianBlur(ink(cv::Rect(rim, rim, ink.cols - 2 * rim, ink.rows - 2 * rim)), smooth,
                     cv::Size(3, 3), 0.0);
    const double strength = levelAbove(smooth, StrongestPart) - levelAbove(smooth, 0.5);
    return strength < std::max(LeastInk, LeastAboveNoise * noiseOf(ink)) ? 0.0 : strength;
}

} // namespace

bool ToneFinder::look(const cv::Mat& grey)
{
    const double dark = strengthOf(inkMap(grey));
    const double light = strengthOf(inkMap(255 - grey));
    if (dark == 0.0 && light == 0.0)
        return false;
    // Less than half of any place is covered by strokes: the median is the ground, and keeps clear
    // of the edges of large dark areas, which are no strokes.
    const int side = std::min({GroundSide, grey.cols, grey.rows}) / 2 * 2 - 1;
    cv::Mat ground;
    cv::medianBlur(grey, ground, side);
    m_darkStrokes += cv::norm(ground - grey, cv::NORM_L2SQR); // differences below 0 become 0
    m_lightStrokes += cv::norm(grey - ground, cv::NORM_L2SQR);
    m_darkest = std::max(m_darkest, dark);
    m_lightest = std::max(m_lightest, light);
    ++m_frames;
    return true;
}

bool ToneFinder::isCertain() const
{
    return m_frames >= CertainFrames;
}

PrintTone ToneFinder::tone() const
{
    PrintTone tone;
    tone.inverted = m_lightStrokes > m_darkStrokes;
    const double strength = tone.inverted ? m_lightest : m_darkest;
    if (strength > 0.0 && strength < GoodInk)
        tone.gain = std::min(MostGain, FullInk / strength);
    return tone;
}

cv::Mat tonedInk(const cv::Mat& grey, const PrintTone& tone)
{
    cv::Mat ink = inkMap(tone.inverted ? cv::Mat(255 - grey) : grey);
    if (tone.gain != 1.0)
        ink *= tone.gain;
    return ink;
}
