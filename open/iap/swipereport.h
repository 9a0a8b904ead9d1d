#ifndef SWIPEREPORT_H
#define SWIPEREPORT_H

#include <string>

/* What became of a swipe. */
struct SwipeReport
{
    enum class Outcome { Delivered, NoPrint, BadMotion, Stopped };

    Outcome outcome = Outcome::Delivered;
    int frames = 0; // received
    int width = 0;  // of the panorama, 0 without one
    int height = 0;
    std::string reason; // in words, UTF-8
};

#endif
