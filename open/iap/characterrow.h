#ifndef CHARACTERROW_H
#define CHARACTERROW_H

#include <opencv2/core.hpp>

/*
 * Sets a column of characters as a row. `ink` (8 bit, 255 black) holds the column lying on its
 * side: the column's beginning at the left, each character's head to the left. The result holds
 * the characters upright from left to right. Characters are taken to be about as long as the
 * column is wide; cuts fall into the gaps near that pitch.
 */
cv::Mat characterRow(const cv::Mat& ink);

#endif
