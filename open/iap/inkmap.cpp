#include "open/iap/inkmap.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cstdint>

namespace {

constexpr int Reduction = 4;
constexpr int ClosingSide = 9; // pixels of the reduced picture
// Below this the picture is dark for want of light, and noise must not become ink.
constexpr float DarkestPaper = 24.0F;

/* The paper's brightness where strokes of print are filled with the paper around. */
cv::Mat withoutStrokes(const cv::Mat& small)
{
    static const cv::Mat element =
        cv::getStructuringElement(cv::MORPH_RECT, cv::Size(ClosingSide, ClosingSide));
    cv::Mat paper;
    cv::morphologyEx(small, paper, cv::MORPH_CLOSE, element);
    return paper;
}

/* The plane that fits best, but for the rim, where a closing cannot see all around. */
cv::Mat planeThrough(const cv::Mat& paper)
{
    const int rimX = paper.cols > 2 * ClosingSide ? ClosingSide / 2 : 0;
    const int rimY = paper.rows > 2 * ClosingSide ? ClosingSide / 2 : 0;
    const double midX = (paper.cols - 1) / 2.0;
    const double midY = (paper.rows - 1) / 2.0;
    double sum = 0.0;
    double alongX = 0.0;
    double alongY = 0.0;
    double squaresX = 0.0;
    double squaresY = 0.0;
    int count = 0;
    for (int y = rimY; y < paper.rows - rimY; ++y)
        for (int x = rimX; x < paper.cols - rimX; ++x) {
            const double value = paper.at<float>(y, x);
            sum += value;
            alongX += value * (x - midX);
            alongY += value * (y - midY);
            squaresX += (x - midX) * (x - midX);
            squaresY += (y - midY) * (y - midY);
            ++count;
        }
    const double slopeX = squaresX > 0.0 ? alongX / squaresX : 0.0;
    const double slopeY = squaresY > 0.0 ? alongY / squaresY : 0.0;
    cv::Mat plane(paper.size(), CV_32F);
    for (int y = 0; y < paper.rows; ++y)
        for (int x = 0; x < paper.cols; ++x)
            plane.at<float>(y, x) =
                std::max(DarkestPaper, static_cast<float>(sum / count + slopeX * (x - midX)
                                                          + slopeY * (y - midY)));
    return plane;
}

} // namespace

cv::Mat inkMap(const cv::Mat& grey)
{
    cv::Mat paper;
    const cv::Size size(std::max(1, grey.cols / Reduction), std::max(1, grey.rows / Reduction));
    cv::Mat small;
    cv::resize(grey, small, size, 0, 0, cv::INTER_AREA);
    small.convertTo(small, CV_32F);
    // The slope of the light is taken out first: along it a closing sees too much at the rim.
    const cv::Mat plane = planeThrough(withoutStrokes(small));
    paper = withoutStrokes(small / plane).mul(plane);
    cv::blur(paper, paper, cv::Size(3, 3));
    cv::resize(paper, paper, grey.size(), 0, 0, cv::INTER_LINEAR);

    cv::Mat ink(grey.size(), CV_8U);
    for (int y = 0; y < grey.rows; ++y) {
        const std::uint8_t* greyRow = grey.ptr<std::uint8_t>(y);
        const float* paperRow = paper.ptr<float>(y);
        std::uint8_t* inkRow = ink.ptr<std::uint8_t>(y);
        for (int x = 0; x < grey.cols; ++x) {
            const float white = std::max(DarkestPaper, paperRow[x]);
            const float part = (paperRow[x] - float(greyRow[x])) / white;
            inkRow[x] = static_cast<std::uint8_t>(std::clamp(part * 255.0F, 0.0F, 255.0F));
        }
    }
    return ink;
}
