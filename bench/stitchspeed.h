#ifndef STITCHSPEED_H
#define STITCHSPEED_H

class QTextStream;

/* Frames a second of the stitcher on one core, beside phase correlation from frame to frame by
 * OpenCV on the same frames. */
void printStitchSpeed(QTextStream& out);

#endif
