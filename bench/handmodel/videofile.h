#ifndef VIDEOFILE_H
#define VIDEOFILE_H

#include "open/iap/frame.h"

#include <QByteArray>

#include <vector>

/* Frames of one size as a video in the YUV4MPEG2 form, grey, with their resolution in its head:
 * what SWIPELINE_CAMERA takes for a camera. */
QByteArray videoOf(const std::vector<Frame>& frames, int framesPerSecond);

/* Frames a second, out of their times. */
int frameRate(const std::vector<Frame>& frames);

#endif
