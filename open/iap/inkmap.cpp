#include "open/iap/inkmap.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cstdint>

namespace {

constexpr int Reduction = 4;
constexpr int ClosingSide = 9; // pixels of the reduced picture
// Below this the picture is dark for want of light, and noise must not become ink.
constexpr float DarkestPaper = 24.0F;

} // namespace

cv::Mat inkMap(const cv::Mat& grey)
{
    // Strokes are thinner than the closing's element: it fills them with the paper around.
    cv::Mat paper;
    const cv::Size small(std::max(1, grey.cols / Reduction), std::max(1, grey.rows / Reduction));
    cv::resize(grey, paper, small, 0, 0, cv::INTER_AREA);
    static const cv::Mat element =
        cv::getStructuringElement(cv::MORPH_RECT, cv::Size(ClosingSide, ClosingSide));
    cv::morphologyEx(paper, paper, cv::MORPH_CLOSE, element);
    cv::blur(paper, paper, cv::Size(3, 3));
    cv::resize(paper, paper, grey.size(), 0, 0, cv::INTER_LINEAR);

    cv::Mat ink(grey.size(), CV_8U);
    for (int y = 0; y < grey.rows; ++y) {
        const std::uint8_t* greyRow = grey.ptr<std::uint8_t>(y);
        const std::uint8_t* paperRow = paper.ptr<std::uint8_t>(y);
        std::uint8_t* inkRow = ink.ptr<std::uint8_t>(y);
        for (int x = 0; x < grey.cols; ++x) {
            const float white = std::max(DarkestPaper, float(paperRow[x]));
            const float part = (float(paperRow[x]) - float(greyRow[x])) / white;
            inkRow[x] = static_cast<std::uint8_t>(std::clamp(part * 255.0F, 0.0F, 255.0F));
        }
    }
    return ink;
}
