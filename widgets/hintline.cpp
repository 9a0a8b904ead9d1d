#include "widgets/hintline.h"

#include "widgets/painting.h"

#include <QPainter>
#include <QTimerEvent>

HintLine::HintLine(QWidget* screen) : QWidget(screen)
{
    setObjectName(QStringLiteral("HintLine"));
    setGeometry(0, painting::ScreenHeight - painting::LineHeight, painting::ScreenWidth,
                painting::LineHeight);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void HintLine::tell(const QString& text)
{
    m_text = text;
    stopTimer();
    m_timerId = startTimer(Milliseconds);
    show();
    raise();
    update();
}

void HintLine::stopTimer()
{
    if (m_timerId != 0)
        killTimer(m_timerId);
    m_timerId = 0;
}

void HintLine::hideEvent(QHideEvent* event)
{
    stopTimer();
    QWidget::hideEvent(event);
}

void HintLine::timerEvent(QTimerEvent* event)
{
    if (m_timerId != 0 && event->timerId() == m_timerId)
        hide();
    else
        QWidget::timerEvent(event);
}

// Inverse, as the current row of a menu: it is no part of the text behind it.
void HintLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(Qt::black);
    painting::drawLine(painter, rect(), painting::elide(m_text, width()));
}
