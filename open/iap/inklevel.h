#ifndef INKLEVEL_H
#define INKLEVEL_H

#include <opencv2/core.hpp>

/* The level of ink (0 to 255, one byte a pixel) that only `part` (0 to 1) of the pixels under the
 * mask exceed; the mask is of the picture's size, or empty for all pixels. */
int levelAbove(const cv::Mat& ink, double part, const cv::Mat& mask = cv::Mat());

#endif
