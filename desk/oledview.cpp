#include "desk/oledview.h"

#include "desk/desklook.h"
#include "desk/penpicture.h"

#include <QPainter>
#include <algorithm>

namespace {

constexpr int Glass = 14; // dark rim around the lit area

} // namespace

OledView::OledView(int factor, QWidget* parent)
    : QWidget(parent), m_factor(factor), m_oneBit(penpicture::toOneBit(QImage()))
{
    setAccessibleName(tr("The pen's display"));
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(tr("With the focus here the arrow keys, Return and Escape are the pen's keys"));
    setFactor(factor);
}

void OledView::setScreen(const QImage& oneBit)
{
    m_oneBit = oneBit;
    // Whole pixels of the screen make a pixel of the display, also where they are fine.
    m_step = std::max(m_factor, qRound(m_factor * devicePixelRatioF()));
    m_picture = penpicture::luminous(oneBit, m_step);
    m_picture.setDevicePixelRatio(double(m_step) / m_factor);
    update();
}

void OledView::setNotice(const QString& notice)
{
    m_notice = notice;
    setAccessibleDescription(notice);
    update();
}

void OledView::setFactor(int factor)
{
    if (factor == m_factor && !m_picture.isNull())
        return;
    m_factor = factor;
    setFixedSize(sizeHint());
    setScreen(m_oneBit);
    updateGeometry();
}

QSize OledView::sizeHint() const
{
    return penpicture::PanelSize * m_factor + QSize(2 * Glass, 2 * Glass);
}

void OledView::paintEvent(QPaintEvent*)
{
    // The window may have gone to a screen with finer pixels.
    if (m_step != std::max(m_factor, qRound(m_factor * devicePixelRatioF())))
        setScreen(m_oneBit);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF glass = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(hasFocus() ? QPen(desklook::Focus, 2) : QPen(desklook::GlassEdge, 1));
    painter.setBrush(desklook::Glass);
    painter.drawRoundedRect(glass, 10, 10);
    painter.drawImage(Glass, Glass, m_picture);

    // A reflection from the window of the room, faint enough to read through.
    QLinearGradient shine(glass.topLeft(), glass.bottomLeft());
    shine.setColorAt(0.0, QColor(255, 255, 255, 16));
    shine.setColorAt(0.45, QColor(255, 255, 255, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shine);
    painter.drawRoundedRect(glass, 10, 10);

    if (m_notice.isEmpty())
        return;
    painter.setPen(desklook::GlassText);
    QFont font = this->font();
    font.setPixelSize(18);
    painter.setFont(font);
    painter.drawText(rect().adjusted(60, 20, -60, -20), Qt::AlignCenter | Qt::TextWordWrap,
                     m_notice);
}
