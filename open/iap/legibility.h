#ifndef LEGIBILITY_H
#define LEGIBILITY_H

#include <opencv2/core.hpp>

/* What tells print from pictures, rules and blots, for a line's ink (8 bit, 0 paper to 255). */
struct InkTraits
{
    double solid = 0.0; // part of the ink that is in well-blackened pixels
    double crisp = 0.0; // steepness where ink begins, in parts of full black a pixel
    double ruled = 0.0; // part of the blackened pixels that belong to long straight rules
    int blackened = 0;  // pixels that are more than half black
};

InkTraits inkTraits(const cv::Mat& ink, int letterHeight);

/* Whether the ink can be print at all. `letterHeight`: of small letters, pixels. */
bool isLegible(const cv::Mat& ink, int letterHeight);

#endif
