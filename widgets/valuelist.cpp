#include "widgets/valuelist.h"

#include <algorithm>

void ValueList::append(const QString& text)
{
    m_values.append(text);
}

int ValueList::count() const
{
    return static_cast<int>(m_values.size());
}

int ValueList::index() const
{
    return m_index;
}

QString ValueList::current() const
{
    return at(m_index);
}

QString ValueList::at(int index) const
{
    return m_values.value(index);
}

bool ValueList::setIndex(int index)
{
    if (index < 0 || index >= count())
        return false;
    m_index = index;
    return true;
}

bool ValueList::next(End end)
{
    return choose(m_index + 1 == count() && end == End::Wrap ? 0 : m_index + 1);
}

bool ValueList::previous(End end)
{
    return choose(m_index == 0 && end == End::Wrap ? count() - 1 : m_index - 1);
}

bool ValueList::advance(int steps)
{
    if (count() == 0)
        return false;
    // The sum could leave the range of an int.
    const qint64 wanted = qint64{m_index} + steps;
    return choose(static_cast<int>(std::clamp<qint64>(wanted, 0, count() - 1)));
}

int ValueList::firstShown(int shown) const
{
    if (shown < 1)
        return 0;
    return std::clamp(m_index - shown / 2, 0, std::max(0, count() - shown));
}

bool ValueList::choose(int index)
{
    const int before = m_index;
    return setIndex(index) && m_index != before;
}
