#ifndef QUICKSEEK_H
#define QUICKSEEK_H

/*
 * The pace of a quick seek: how far the cursor goes at each tick of a timer while a key is held.
 * It begins word by word, goes on line by line after a while, and then by ever more lines, so that
 * the nearest word and the other end of the longest file are both within reach. Plain arithmetic.
 */
class QuickSeek
{
public:
    enum class Direction { Back = 0, Forward = 1 };
    enum class Unit { Word, Line };

    struct Step
    {
        Unit unit;
        int count; // 1 or more
    };

    /* Time between two ticks in milliseconds. */
    static constexpr int IntervalMs = 150;
    /* Ticks that go by one word, then ticks that go by one line. */
    static constexpr int WordTicks = 10;
    static constexpr int LineTicks = 10;
    /* From then on the lines double after so many ticks, up to a limit. */
    static constexpr int DoublingTicks = 5;
    static constexpr int MaxLines = 256;

    /* The step of a tick, counted from 0 with the press of the key. */
    static Step stepAt(int tick);

    /* Begins anew. */
    void start(Direction direction);
    void stop() { m_active = false; }

    bool isActive() const { return m_active; }
    Direction direction() const { return m_direction; }

    /* The step of the tick that is due, and on to the next one. */
    Step next() { return stepAt(m_tick++); }

private:
    Direction m_direction = Direction::Forward;
    int m_tick = 0;
    bool m_active = false;
};

#endif
