#ifndef PRINTEDVIDEO_H
#define PRINTEDVIDEO_H

#include <string>

/* Writes a video of a pen that passes over a line of print, 70 pictures of 160 x 104 pixels at
 * 300 dpi, without Qt. Below its name with ".tip": the tip is down during the first 62 of them. */
void writePrintedVideo(const std::string& path, int picturesPerSecond);

#endif
