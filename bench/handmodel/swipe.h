#ifndef SWIPE_H
#define SWIPE_H

#include "desk/camera/handpath.h"
#include "desk/camera/pencamera.h"
#include "desk/camera/printsheet.h"
#include "open/iap/frame.h"

#include <vector>

/* A hand that swipes a pen over a line of a printed page. Used by measurements and tests. */
struct Swipe
{
    CameraSettings camera;
    HandSettings hand;
    bool backwards = false; // from the line's end to its beginning
    double beyondMm = 3.0;  // the hand starts and ends so far off the print
    double aimMm = 0.0;     // and so far below the middle of the line
    double driftMm = 0.0;   // and sinks by so much more until the line's end
};

/* The frames of the swipe over line number `line` of the page. */
std::vector<Frame> swipeFrames(const PrintSheet& page, int line, const Swipe& swipe);

/* A camera's picture as the engine takes it. */
Frame frameOf(const QImage& picture, std::int64_t timeUs, int dpi);

#endif
