#include "desk/keybutton.h"

#include "desk/desklook.h"

#include <QPainter>
#include <QPainterPath>
#include <optional>

namespace {

constexpr QSize KeySize(58, 40);
constexpr double Radius = 9.0;

/* A triangle that points to the right, within a unit square around the origin. */
QPainterPath triangle(double shift)
{
    QPainterPath path;
    path.moveTo(shift - 0.45, -0.6);
    path.lineTo(shift + 0.55, 0.0);
    path.lineTo(shift - 0.45, 0.6);
    path.closeSubpath();
    return path;
}

/* How far the symbol of a key is turned; nothing for keys with letters. */
std::optional<double> turnOf(Qt::Key key)
{
    switch (key) {
    case Qt::Key_Right:
    case Qt::Key_F8:
        return 0.0;
    case Qt::Key_Down:
        return 90.0;
    case Qt::Key_Left:
    case Qt::Key_F7:
        return 180.0;
    case Qt::Key_Up:
        return 270.0;
    default:
        return std::nullopt;
    }
}

} // namespace

KeyButton::KeyButton(const penkeys::PenKey& key, QWidget* parent)
    : QAbstractButton(parent), m_key(key.key)
{
    setText(QString::fromUtf8(key.label));
    setToolTip(tr(key.purpose));
    setAccessibleName(tr("Key %1").arg(QString::fromUtf8(key.name)));
    setAccessibleDescription(toolTip());
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(KeySize);
}

void KeyButton::showPressed(bool pressed)
{
    m_shownPressed = pressed;
    update();
}

QSize KeyButton::sizeHint() const
{
    return KeySize;
}

void KeyButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool down = isDown() || m_shownPressed;
    QRectF face = QRectF(rect()).adjusted(2, 2, -2, -4);
    painter.setPen(Qt::NoPen);
    if (!down) {
        painter.setBrush(QColor(0, 0, 0, 55));
        painter.drawRoundedRect(face.translated(0, 2), Radius, Radius);
    } else {
        face.translate(0, 1.5);
    }
    QLinearGradient gradient(face.topLeft(), face.bottomLeft());
    gradient.setColorAt(0.0, down ? desklook::KeyPressed : desklook::KeyTop);
    gradient.setColorAt(1.0, down ? desklook::KeyPressed : desklook::KeyBottom);
    painter.setBrush(gradient);
    if (hasFocus())
        painter.setPen(QPen(desklook::Focus, 2));
    painter.drawRoundedRect(face, Radius, Radius);
    paintSymbol(painter, face);
}

void KeyButton::paintSymbol(QPainter& painter, const QRectF& face) const
{
    const std::optional<double> turn = turnOf(m_key);
    if (!turn) {
        QFont font = this->font();
        font.setPixelSize(14);
        font.setWeight(QFont::DemiBold);
        painter.setFont(font);
        painter.setPen(desklook::KeyText);
        painter.drawText(face, Qt::AlignCenter, text());
        return;
    }
    const bool seeks = m_key == Qt::Key_F7 || m_key == Qt::Key_F8;
    painter.translate(face.center());
    painter.rotate(*turn);
    painter.scale(9.0, 9.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(desklook::KeyText);
    if (seeks) {
        painter.drawPath(triangle(-0.5));
        painter.drawPath(triangle(0.5));
    } else {
        painter.drawPath(triangle(0.0));
    }
}
