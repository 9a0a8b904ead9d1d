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

/* A line of two parts with a blank of 25 mm between, and the swipe over it at that speed: on
 * the blank, where a frame sees no print, the hand rests for so many seconds. */
PrintSheet partedLine(const QString& left, const QString& right);
std::vector<Frame> swipeWithRest(const PrintSheet& page, double mmPerSecond, int seconds);

/* A swipe over so many pixels of marks as small as letters. */
std::vector<Frame> endlessSwipe(int pixels);

/* A private copy of a grey picture. */
cv::Mat matOf(const QImage& picture);

/* The part of a line picture (dark on white) that holds print. */
cv::Mat inkedPart(const cv::Mat& line);

/* How alike two line pictures are, scaled to the same size: correlation of their inked parts,
 * 1 at most. */
double likeness(const cv::Mat& one, const cv::Mat& other);

#endif
