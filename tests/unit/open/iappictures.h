#ifndef IAPPICTURES_H
#define IAPPICTURES_H

#include "bench/handmodel/swipe.h"

#include <opencv2/core.hpp>

/* A page of three English lines; the middle one is meant to be swiped. */
PrintSheet threeLines(const PrintSettings& print = {});

/* A page without print. */
PrintSheet blankPage();

/* The middle line of threeLines() as a scanner would give it at 300 dpi, or another line. */
cv::Mat cleanLine(const PrintSettings& print = {}, const QString& text = {});

/* A private copy of a grey picture. */
cv::Mat matOf(const QImage& picture);

/* The part of a line picture (dark on white) that holds print. */
cv::Mat inkedPart(const cv::Mat& line);

/* How alike two line pictures are, scaled to the same size: correlation of their inked parts,
 * 1 at most. */
double likeness(const cv::Mat& one, const cv::Mat& other);

#endif
