#ifndef LINECUTTER_H
#define LINECUTTER_H

#include <opencv2/core.hpp>

#include <vector>

/* The ink that a swipe has seen. */
struct LineStrip
{
    cv::Mat ink;                   // 8 bit, 255 black
    cv::Mat seen;                  // 8 bit, not 0 where a frame fell
    std::vector<cv::Point2d> path; // of the pen, in pixels of `ink`
};

struct LineCutSettings
{
    int dpi = 300;
    bool han = false;
    bool vertical = false; // characters lie on their left side; the line runs from left to right
};

/*
 * Cuts out the line of print that the pen followed: straight, without its neighbours, dark on
 * even white, with a white rim. 8 bit, 255 white; rows are continuous.
 *
 * Small letters (the height of an x; a Chinese character counts as two of them) come out 18 to 36
 * pixels high: print of 9 to 17 points at 300 dpi keeps its size, other print is scaled so that
 * they are 26. Vertical print comes out as a row of upright characters from left to right.
 *
 * Empty when there is no line of print at the pen's path: nothing, or a picture, rules, a blot.
 */
cv::Mat cutLine(const LineStrip& strip, const LineCutSettings& settings);

#endif
