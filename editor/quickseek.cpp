#include "editor/quickseek.h"

QuickSeek::Step QuickSeek::stepAt(int tick)
{
    if (tick < WordTicks)
        return {Unit::Word, 1};
    int lines = 1;
    for (int left = tick - WordTicks - LineTicks; left >= 0 && lines < MaxLines;
         left -= DoublingTicks)
        lines *= 2;
    return {Unit::Line, lines};
}

void QuickSeek::start(Direction direction)
{
    m_direction = direction;
    m_tick = 0;
    m_active = true;
}
