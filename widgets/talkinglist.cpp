#include "widgets/talkinglist.h"

#include <algorithm>

void TalkingList::setCount(int count)
{
    m_count = std::max(0, count);
    m_current = std::clamp(m_current, 0, std::max(0, m_count - 1));
    keepCurrentVisible();
}

int TalkingList::count() const
{
    return m_count;
}

int TalkingList::current() const
{
    return m_current;
}

bool TalkingList::hasCurrent() const
{
    return m_count > 0;
}

bool TalkingList::setCurrent(int index)
{
    if (index < 0 || index >= m_count)
        return false;
    m_current = index;
    keepCurrentVisible();
    return true;
}

bool TalkingList::moveUp()
{
    return setCurrent(m_current - 1);
}

bool TalkingList::moveDown()
{
    return setCurrent(m_current + 1);
}

int TalkingList::fromEnd() const
{
    return m_count - m_current - 1;
}

int TalkingList::firstVisible() const
{
    return m_first;
}

int TalkingList::visibleCount() const
{
    return std::min(VisibleRows, m_count - m_first);
}

bool TalkingList::moreAbove() const
{
    return m_first > 0;
}

bool TalkingList::moreBelow() const
{
    return m_first + VisibleRows < m_count;
}

QString TalkingList::positionText() const
{
    if (!hasCurrent())
        return {};
    return QString::number(m_current + 1) + QLatin1Char('/') + QString::number(m_count);
}

void TalkingList::keepCurrentVisible()
{
    const int lastFirst = std::max(0, m_count - VisibleRows);
    m_first = std::clamp(m_first, m_current - VisibleRows + 1, m_current);
    m_first = std::clamp(m_first, 0, lastFirst);
}

int slowscroll::offset(int tick, int textWidth, int room)
{
    const int excess = textWidth - room;
    if (excess <= 0 || tick < 0)
        return 0;
    const int moving = (excess + PixelsPerTick - 1) / PixelsPerTick;
    const int step = tick % (RestTicks + moving + RestTicks);
    if (step < RestTicks)
        return 0;
    return std::min(excess, (step - RestTicks + 1) * PixelsPerTick);
}
