#ifndef PENONPAPER_H
#define PENONPAPER_H

#include <QPointF>
#include <QRectF>
#include <QString>
#include <vector>

class QPainter;

/*
 * What is drawn onto the page of print while the pen moves over it: the pen, where it has been, and
 * what became of it. Colours are for paper, which is white on every desk.
 */
namespace penonpaper {

enum class Outcome {
    Open, // the swipe is under way
    Read,
    Lost
};

/* The tip of the pen with the field of its camera in the middle of (0, 0); a unit is a millimetre.
 * The rest of the pen leans towards the hand that holds it, and fades. */
void paintPen(QPainter& painter, bool leftHand);

/* The way that the camera has gone. */
void paintTrail(QPainter& painter, const std::vector<QPointF>& points, double pixelsPerMm,
                Outcome outcome);

/* A short text below `at`, or above it where there is no room, within `area`. */
void paintNote(QPainter& painter, const QString& text, Outcome outcome, QPointF at,
               const QRectF& area);

} // namespace penonpaper

#endif
