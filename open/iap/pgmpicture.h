#ifndef PGMPICTURE_H
#define PGMPICTURE_H

#include "open/iap/frame.h"

#include <string>

/* Reads a binary PGM file of 255 levels as a frame without a time. A comment "# dpi N" in its head
 * gives the resolution, 300 otherwise. An invalid frame (isValidFrame) when the file is none or
 * its size is out of range. */
Frame readPgm(const std::string& path);

#endif
