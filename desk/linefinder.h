#ifndef LINEFINDER_H
#define LINEFINDER_H

#include <QImage>
#include <QRect>
#include <QVector>

/*
 * Finds ink on a page (Format_Grayscale8). Serves the convenience "swipe this line"; the scan
 * engine knows nothing of it.
 */
namespace linefinder {

/* The box of the dark pixels inside `area`; empty when there are none. */
QRect inkBox(const QImage& page, const QRect& area);

/* The boxes of the lines of print, from top to bottom: runs of rows that hold ink, at least
 * `minHeight` rows high. For upright print in one column. */
QVector<QRect> lines(const QImage& page, int minHeight);

} // namespace linefinder

#endif
