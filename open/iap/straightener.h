#ifndef STRAIGHTENER_H
#define STRAIGHTENER_H

#include "open/iap/linecutter.h"

/* The angle (radians, clockwise) at which the lines of print run through the strip. The pen's way
 * gives the rough direction, the print the exact one. */
double lineAngle(const LineStrip& strip);

/* The strip turned by -angle, so that lines which run at `angle` become level. Empty when it would
 * be more than 32 million pixels large, or longer than what can be turned. */
LineStrip levelled(const LineStrip& strip, double angle);

/* A level strip whose lines still bend a little (the hand turned the pen, small errors of
 * registration added up): each stretch of it is moved up or down until the lines are straight. */
LineStrip unbent(const LineStrip& strip);

#endif
