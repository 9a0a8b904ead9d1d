#ifndef INKMAP_H
#define INKMAP_H

#include <opencv2/core.hpp>

/*
 * How much ink there is at each pixel of a grey picture (8 bit, 255 white): 0 paper to 255 black,
 * 8 bit, the same size. The paper's brightness is estimated around each pixel, so that uneven
 * light leaves no trace. Strokes up to about 30 pixels wide count as ink.
 */
cv::Mat inkMap(const cv::Mat& grey);

#endif
