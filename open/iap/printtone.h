#ifndef PRINTTONE_H
#define PRINTTONE_H

#include <opencv2/core.hpp>

/* How the print of a swipe stands out from its ground. */
struct PrintTone
{
    bool inverted = false; // light print on a dark ground
    double gain = 1.0;     // by which ink is to be strengthened to be nearly black
};

/*
 * Finds the tone of a swipe's print from its first frames with print. What is asked is which of
 * the two, light or dark, forms thin strokes, and how far these stand out.
 */
class ToneFinder
{
public:
    /* False when the grey picture (8 bit) has no print in it, only noise. */
    bool look(const cv::Mat& grey);

    /* Whether enough has been seen. */
    bool isCertain() const;

    /* What has been found so far. */
    PrintTone tone() const;

private:
    double m_darkStrokes = 0.0; // evidence: squares of their heights
    double m_lightStrokes = 0.0;
    double m_darkest = 0.0; // strongest ink of dark strokes
    double m_lightest = 0.0;
    int m_frames = 0;
};

/* The ink map (inkmap.h) of a frame whose print has the tone. */
cv::Mat tonedInk(const cv::Mat& grey, const PrintTone& tone);

#endif
