#include "widgets/messagedialog.h"

#include "widgets/announcer.h"
#include "widgets/painting.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTimerEvent>
#include <utility>

// A dialog with a parent needs Qt::Dialog besides the frameless hint: with the hint alone it
// would be a child widget, and no key would reach it.
MessageDialog::MessageDialog(QWidget* parent, QString text, int milliseconds)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      m_text(std::move(text)),
      m_milliseconds(qMax(0, milliseconds))
{
    setObjectName(QStringLiteral("MessageDialog"));
    setFixedSize(painting::ScreenWidth, painting::ScreenHeight);
    move(0, 0);
}

QString MessageDialog::text() const
{
    return m_text;
}

int MessageDialog::timerId() const
{
    return m_timerId;
}

void MessageDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    stopTimer();
    m_timerId = startTimer(m_milliseconds);
    announcer::announce(m_text);
}

void MessageDialog::hideEvent(QHideEvent* event)
{
    stopTimer();
    QDialog::hideEvent(event);
}

void MessageDialog::timerEvent(QTimerEvent* event)
{
    if (m_timerId != 0 && event->timerId() == m_timerId)
        done(1);
    else
        QDialog::timerEvent(event);
}

void MessageDialog::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        announcer::hush();
        done(0);
        break;
    case Qt::Key_Return:
        announcer::hush();
        done(1);
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

void MessageDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    painting::drawMessage(painter, rect(), m_text);
}

void MessageDialog::stopTimer()
{
    if (m_timerId != 0)
        killTimer(m_timerId);
    m_timerId = 0;
}
