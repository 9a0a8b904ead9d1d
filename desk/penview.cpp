#include "desk/penview.h"

#include "desk/desklook.h"
#include "desk/keybutton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace {

constexpr int TipLength = 92;
constexpr double GlowRadius = 30.0; // of the camera's light
constexpr int Shadow = 8;
constexpr int BodyPadding = 20;
constexpr int CompactPadding = 12;
constexpr int KeyMiddle = 18; // of the row of keys, above the padding
constexpr double BodyRadius = 46.0;
constexpr int GrilleWidth = 96;

/* Positions of the groups of keys in penkeys::all(). */
constexpr int MenuKeys = 0;
constexpr int MoveKeys = 2;
constexpr int SeekKeys = 7;

} // namespace

PenView::PenView(int factor, QWidget* parent) : QWidget(parent), m_display(new OledView(factor))
{
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_display, 0, Qt::AlignHCenter);
    auto* const row = new QHBoxLayout;
    row->setSpacing(8);
    row->addSpacing(14);
    addKeys(*row, MenuKeys, 2);
    row->addSpacing(18);
    row->addWidget(makeBrand());
    row->addStretch(3);
    addKeys(*row, MoveKeys, 5);
    row->addStretch(4);
    addKeys(*row, SeekKeys, 2);
    row->addStretch(1);
    row->addSpacing(GrilleWidth);
    column->addLayout(row);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFactor(factor, false);
}

void PenView::setFactor(int factor, bool compact)
{
    m_display->setFactor(factor);
    const int padding = compact ? CompactPadding : BodyPadding;
    layout()->setContentsMargins(TipLength + BodyPadding, padding, BodyPadding + Shadow + 14,
                                 padding - 4 + Shadow);
    layout()->setSpacing(compact ? 6 : 12);
    m_grilleRow = padding + KeyMiddle;
}

QLabel* PenView::makeBrand()
{
    auto* const brand = new QLabel(QStringLiteral("swipeline"));
    brand->setStyleSheet(QStringLiteral("color: %1; font-size: 13px; letter-spacing: 3px")
                             .arg(desklook::BodyText.name()));
    return brand;
}

void PenView::addKeys(QHBoxLayout& row, int first, int count)
{
    for (const penkeys::PenKey& key :
         penkeys::all().subspan(std::size_t(first), std::size_t(count))) {
        auto* const button = new KeyButton(key);
        connect(button, &KeyButton::pressed, this, [this, k = key.key] { emit keyPressed(k); });
        connect(button, &KeyButton::released, this, [this, k = key.key] { emit keyReleased(k); });
        m_keys.insert(key.key, button);
        row.addWidget(button);
    }
}

void PenView::showKey(Qt::Key key, bool pressed)
{
    if (KeyButton* const button = m_keys.value(key))
        button->showPressed(pressed);
}

void PenView::setCameraOn(bool on)
{
    m_cameraOn = on;
    update();
}

void PenView::setTipPressed(bool pressed)
{
    m_tipPressed = pressed;
    update();
}

void PenView::setSpeaking(bool speaking)
{
    m_speaking = speaking;
    update();
}

void PenView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(TipLength, 2, -Shadow, -Shadow);
    paintTip(painter, body);
    paintBody(painter, body);
    paintGrille(painter, body);
}

void PenView::paintTip(QPainter& painter, const QRectF& body) const
{
    const double middle = body.center().y();
    QPainterPath cone;
    cone.moveTo(body.left() + 6, middle - 92);
    cone.cubicTo(body.left() - 16, middle - 84, body.left() - 34, middle - 34, body.left() - 58,
                 middle - 25);
    cone.lineTo(body.left() - 58, middle + 25);
    cone.cubicTo(body.left() - 34, middle + 34, body.left() - 16, middle + 84, body.left() + 6,
                 middle + 92);
    cone.closeSubpath();
    QLinearGradient shade(0, middle - 92, 0, middle + 92);
    shade.setColorAt(0.0, QColor(0x5a, 0x62, 0x6e));
    shade.setColorAt(0.5, QColor(0x39, 0x40, 0x4a));
    shade.setColorAt(1.0, QColor(0x22, 0x27, 0x2e));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawPath(cone);

    // The window of the camera, lit while the scan engine runs.
    const QRectF window(body.left() - 71, middle - 19, 18, 38);
    const QColor light = m_tipPressed ? QColor(0xff, 0x5a, 0x3c)
                         : m_cameraOn ? QColor(0xff, 0xb4, 0xa0)
                                      : QColor(0x6b, 0x70, 0x78);
    if (m_tipPressed) {
        QRadialGradient glow(window.center(), GlowRadius);
        glow.setColorAt(0.0, QColor(255, 90, 60, 150));
        glow.setColorAt(1.0, QColor(255, 90, 60, 0));
        painter.setBrush(glow);
        painter.drawEllipse(window.center(), GlowRadius, GlowRadius);
    }
    painter.setBrush(light);
    painter.drawRoundedRect(window, 6, 6);
}

void PenView::paintBody(QPainter& painter, const QRectF& body) const
{
    painter.setPen(Qt::NoPen);
    for (int i = Shadow; i > 0; i -= 2) {
        painter.setBrush(QColor(20, 30, 45, 9));
        painter.drawRoundedRect(body.adjusted(-i / 2.0, i / 2.0, i / 2.0, i), BodyRadius,
                                BodyRadius);
    }
    QLinearGradient shade(body.topLeft(), body.bottomLeft());
    shade.setColorAt(0.0, desklook::BodyLight);
    shade.setColorAt(0.7, desklook::BodyMiddle);
    shade.setColorAt(1.0, desklook::BodyDark);
    painter.setBrush(shade);
    painter.setPen(QPen(desklook::BodyEdge, 1));
    painter.drawRoundedRect(body, BodyRadius, BodyRadius);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(body.adjusted(2.5, 2.5, -2.5, -2.5), BodyRadius - 2, BodyRadius - 2);
}

void PenView::paintGrille(QPainter& painter, const QRectF& body) const
{
    const double row = height() - Shadow - m_grilleRow;
    const QColor hole = m_speaking ? desklook::Focus : QColor(0x8b, 0x93, 0x9e);
    painter.setPen(Qt::NoPen);
    painter.setBrush(hole);
    for (int y = -2; y <= 2; ++y) {
        for (int x = 0; x < 6; ++x) {
            const double stagger = y % 2 == 0 ? 0.0 : 5.0;
            painter.drawEllipse(QPointF(body.right() - 100 + x * 10 + stagger, row + y * 7), 2.1,
                                2.1);
        }
    }
}
