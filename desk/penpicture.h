#ifndef PENPICTURE_H
#define PENPICTURE_H

#include <QImage>
#include <QSize>

/*
 * Pictures of the pen's display: what the one-bit panel shows of a rendered frame, and how that
 * looks magnified.
 */
namespace penpicture {

constexpr QSize PanelSize(256, 64);

/* The panel's picture of a frame: one bit a pixel (QImage::Format_Mono, 0 dark, 1 lit), always
 * 256 x 64; what the frame lacks is dark. A pixel is lit from half brightness on, which is where
 * the display's driver draws the line. */
QImage toOneBit(const QImage& frame);

/* Every pixel as a plain square of `factor` (at least 1) pixels, black and white. */
QImage magnified(const QImage& oneBit, int factor);

/* The same as the eye sees it on the panel: separate luminous squares with a faint halo, on the
 * dark grid of the panel. RGB32. */
QImage luminous(const QImage& oneBit, int factor);

} // namespace penpicture

#endif
