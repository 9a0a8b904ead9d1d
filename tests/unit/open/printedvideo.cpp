#include "tests/unit/open/printedvideo.h"

#include <opencv2/imgproc.hpp>

#include <fstream>

void writePrintedVideo(const std::string& path, int picturesPerSecond)
{
    constexpr int pictures = 70;
    constexpr int step = 12; // pixels from picture to picture
    const cv::Size window(160, 104);
    cv::Mat page(window.height, window.width + pictures * step, CV_8U, cv::Scalar(235));
    cv::putText(page, "A quick brown fox jumps over the lazy dog", cv::Point(150, 62),
                cv::FONT_HERSHEY_COMPLEX, 0.9, cv::Scalar(30), 2, cv::LINE_AA);
    std::ofstream video(path, std::ios::binary);
    video << "YUV4MPEG2 W" << window.width << " H" << window.height << " F" << picturesPerSecond
          << ":1 Cmono XDPI=300\n";
    for (int i = 0; i < pictures; ++i) {
        const cv::Mat picture = page(cv::Rect(cv::Point(i * step, 0), window)).clone();
        video << "FRAME\n";
        video.write(reinterpret_cast<const char*>(picture.data),
                    static_cast<std::streamsize>(picture.total()));
    }
    std::ofstream tip(path + ".tip");
    tip << "0 " << 62 * 1000 / picturesPerSecond << '\n';
}
