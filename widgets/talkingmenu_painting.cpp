// How a talking menu looks.
#include "widgets/painting.h"
#include "widgets/talkingmenu.h"

#include <QLabel>
#include <QPainter>
#include <QTimerEvent>

void TalkingMenu::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    const bool ownNumber = !m_numLabel->text().isEmpty();
    painting::drawTitle(painter, title(), ownNumber ? QString() : m_list.positionText(),
                        ownNumber ? m_numLabel->width() : 0);
    for (int row = 0; row < m_list.visibleCount(); ++row)
        paintRow(painter, row);
    if (m_list.moreAbove())
        painting::drawMark(painter, painting::listRow(0), painting::Mark::Up);
    if (m_list.moreBelow())
        painting::drawMark(painter, painting::listRow(TalkingList::VisibleRows - 1),
                           painting::Mark::Down);
}

void TalkingMenu::paintRow(QPainter& painter, int row) const
{
    const int index = m_list.firstVisible() + row;
    const bool current = index == m_list.current();
    painting::Row content;
    content.text = painting::oneLine(textAt(index));
    content.second = secondTextAt(index);
    content.current = current;
    if (current && m_scrollTimer.isActive())
        content.scroll = slowscroll::offset(m_scrollTick, painting::textWidth(content.text),
                                            painting::rowRoom(content.second));
    content.elided = !current || !m_scrollTimer.isActive();
    painting::drawRow(painter, painting::listRow(row), palette(), content);
}

QString TalkingMenu::secondTextAt(int index) const
{
    return m_showSecondText ? painting::oneLine(actions().at(index)->statusTip()) : QString();
}

bool TalkingMenu::isAnimated() const
{
    return m_animated;
}

void TalkingMenu::setAnimated(bool on)
{
    m_animated = on;
    restartScroll();
    update();
}

int TalkingMenu::scrollTimerId() const
{
    return m_scrollTimer.isActive() ? m_scrollTimer.timerId() : -1;
}

void TalkingMenu::restartScroll()
{
    m_scrollTick = 0;
    m_scrollTimer.stop();
    if (!m_animated || !isVisible() || !m_list.hasCurrent())
        return;
    const int width = painting::textWidth(painting::oneLine(currentText()));
    if (width > painting::rowRoom(secondTextAt(m_list.current())))
        m_scrollTimer.start(slowscroll::TickMilliseconds, this);
}

void TalkingMenu::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_scrollTimer.timerId() || !m_scrollTimer.isActive()) {
        QMenu::timerEvent(event);
        return;
    }
    ++m_scrollTick;
    update();
}
