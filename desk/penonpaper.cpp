#include "desk/penonpaper.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace {

constexpr QSizeF CameraMm(13.5, 8.8);
constexpr double LeanDeg = 34.0;
constexpr double TipMm = 3.2; // from the middle of the camera's field to the tip's edge
constexpr double ConeMm = 14.0;
constexpr double EndMm = 58.0;
constexpr double TrailMm = 4.4;

constexpr QColor Light(0xff, 0x5a, 0x3c); // of the camera
constexpr QColor Read(0x1a, 0x8f, 0x4c);
constexpr QColor Lost(0xc0, 0x26, 0x26);

QColor colourOf(penonpaper::Outcome outcome)
{
    switch (outcome) {
    case penonpaper::Outcome::Read:
        return Read;
    case penonpaper::Outcome::Lost:
        return Lost;
    case penonpaper::Outcome::Open:
        break;
    }
    return Light;
}

QColor seeThrough(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

/* The pen from the tip upwards, along y. */
void paintBody(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    QPainterPath body;
    body.moveTo(-8.0, ConeMm);
    body.lineTo(8.0, ConeMm);
    body.lineTo(9.0, EndMm);
    body.lineTo(-9.0, EndMm);
    body.closeSubpath();
    QLinearGradient fading(0.0, ConeMm, 0.0, EndMm);
    fading.setColorAt(0.0, QColor(0xf4, 0xf5, 0xf8, 245));
    fading.setColorAt(0.5, QColor(0xe4, 0xe7, 0xee, 225));
    fading.setColorAt(1.0, QColor(0xd5, 0xda, 0xe4, 0));
    painter.setBrush(fading);
    painter.drawPath(body);
    QLinearGradient rim = fading;
    rim.setColorAt(0.0, QColor(0x9a, 0xa2, 0xae, 255));
    rim.setColorAt(0.5, QColor(0x9a, 0xa2, 0xae, 200));
    rim.setColorAt(1.0, QColor(0x9a, 0xa2, 0xae, 0));
    QPen edge(QBrush(rim), 1.2);
    edge.setCosmetic(true);
    painter.setPen(edge);
    painter.drawLine(QPointF(-8.0, ConeMm), QPointF(-9.0, EndMm));
    painter.drawLine(QPointF(8.0, ConeMm), QPointF(9.0, EndMm));

    QPainterPath cone;
    cone.moveTo(-3.4, TipMm);
    cone.cubicTo(-4.2, 7.0, -7.4, 9.0, -8.0, ConeMm);
    cone.lineTo(8.0, ConeMm);
    cone.cubicTo(7.4, 9.0, 4.2, 7.0, 3.4, TipMm);
    cone.closeSubpath();
    QLinearGradient shade(-8.0, 0.0, 8.0, 0.0);
    shade.setColorAt(0.0, QColor(0x5a, 0x62, 0x6e));
    shade.setColorAt(0.5, QColor(0x39, 0x40, 0x4a));
    shade.setColorAt(1.0, QColor(0x22, 0x27, 0x2e));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawPath(cone);
}

} // namespace

void penonpaper::paintPen(QPainter& painter, bool leftHand)
{
    painter.save();
    painter.rotate(leftHand ? LeanDeg : -LeanDeg);
    paintBody(painter);
    painter.restore();

    QPen edge(Light, 2);
    edge.setCosmetic(true);
    painter.setPen(edge);
    painter.setBrush(seeThrough(Light, 34));
    painter.drawRoundedRect(
        QRectF(QPointF(-CameraMm.width() / 2, -CameraMm.height() / 2), CameraMm), 0.8, 0.8);
}

void penonpaper::paintTrail(QPainter& painter, const std::vector<QPointF>& points,
                            double pixelsPerMm, Outcome outcome)
{
    if (points.size() < 2)
        return;
    QPainterPath way(points.front());
    for (const QPointF& point : points)
        way.lineTo(point);
    painter.setPen(QPen(seeThrough(colourOf(outcome), 46), TrailMm * pixelsPerMm, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(way);
}

void penonpaper::paintNote(QPainter& painter, const QString& text, Outcome outcome, QPointF at,
                           const QRectF& area)
{
    constexpr double Away = 30.0; // pixels
    const QFontMetricsF metrics(painter.font());
    const double most = std::max(80.0, area.width() - 40.0);
    QRectF box = metrics.boundingRect(QRectF(0, 0, most, 400), Qt::TextWordWrap, text);
    box = box.adjusted(-12, -7, 12, 7);
    box.moveCenter(at + QPointF(0, Away + box.height() / 2));
    if (box.bottom() > area.bottom() - 4)
        box.moveBottom(at.y() - Away);
    box.moveLeft(std::clamp(box.left(), area.left() + 4,
                            std::max(area.left() + 4, area.right() - 4 - box.width())));
    box.moveTop(std::max(box.top(), area.top() + 4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(outcome));
    painter.drawRoundedRect(box, 8, 8);
    painter.setPen(Qt::white);
    painter.drawText(box, Qt::AlignCenter | Qt::TextWordWrap, text);
}
