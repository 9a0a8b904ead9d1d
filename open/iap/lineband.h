#ifndef LINEBAND_H
#define LINEBAND_H

#include <opencv2/core.hpp>

#include <optional>
#include <vector>

/* Rows of a level strip between which the line of print lies. */
struct LineBand
{
    int coreTop = 0;    // the rows full of ink: the height of an x, or of a Chinese character
    int coreBottom = 0; // the last such row
    int top = 0;        // the valley between the line and the one above, or the limit of its reach
    int bottom = 0;     // the last row of the line
    int aboveBottom = -1; // last core row of the line above, -1 when none is in view
    int belowTop = 0;     // first core row of the line below, the number of rows when none

    int coreHeight() const { return coreBottom - coreTop + 1; }
};

/* Mean ink of each row over the columns that were seen there, smoothed. */
std::vector<float> rowProfile(const cv::Mat& ink, const cv::Mat& seen, double smoothing);

/* The line of print nearest to row `middle`; nothing when there is none. `dotsPerMm`: resolution;
 * `square`: each character fills a square, as in Chinese and in vertical text. */
std::optional<LineBand> findLine(const std::vector<float>& profile, double middle, double dotsPerMm,
                                 bool square);

#endif
