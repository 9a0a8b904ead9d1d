#include "open/iap/inklevel.h"

#include <cstdint>
#include <vector>

int levelAbove(const cv::Mat& ink, double part, const cv::Mat& mask)
{
    std::vector<int> counts(256);
    int total = 0;
    for (int y = 0; y < ink.rows; ++y)
        for (int x = 0; x < ink.cols; ++x)
            if (mask.empty() || mask.at<std::uint8_t>(y, x) != 0) {
                ++counts[ink.at<std::uint8_t>(y, x)];
                ++total;
            }
    int above = 0;
    for (int level = 255; level > 0; --level) {
        above += counts[level];
        if (above > part * total)
            return level;
    }
    return 0;
}
