/* SPDX-License-Identifier: 0BSD */
/*
 * Where the device's files are.
 *
 * The application names files by their place on the pen ("/apps/config/config.ini"). On a pen
 * that is where they are; on any other machine the environment variable SWIPELINE_ROOT names a
 * folder that stands for the pen's root, and nothing outside it is ever written.
 */
#ifndef DEVICEPATHS_H
#define DEVICEPATHS_H

#include <QString>

/* The place of a device file on this machine: the run root, then `path`, which begins with a
 * slash. SWIPELINE_ROOT is read at each call; a trailing slash of it does not matter. Empty or
 * unset gives `path` itself. Any thread, as long as nobody changes the environment. */
QString devicePath(const QString& path);

#endif
