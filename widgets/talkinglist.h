/*
 * The list behind a menu: which entry is current, which entries are visible, what the title line
 * and a row that is too long for the screen show. Plain values, no widget.
 */
#ifndef TALKINGLIST_H
#define TALKINGLIST_H

#include <QString>

class TalkingList
{
public:
    static constexpr int VisibleRows = 3;

    /* Number of entries, 0 or more. When the current entry falls off the end, the last one
     * becomes current. */
    void setCount(int count);
    int count() const;

    /* Index of the current entry, 0 for an empty list. */
    int current() const;

    /* Whether there is a current entry. */
    bool hasCurrent() const;

    /* Makes an entry current. False, and nothing changes, outside 0 to count() - 1. */
    bool setCurrent(int index);

    /* One entry towards the start or the end; false at the ends: there is no wrap-around. */
    bool moveUp();
    bool moveDown();

    /* How many entries follow the current one; -1 for an empty list. */
    int fromEnd() const;

    /* Index of the first of the visible rows. The rows scroll no more than is needed to keep the
     * current entry visible. */
    int firstVisible() const;

    /* Number of visible rows that hold an entry, 0 to VisibleRows. */
    int visibleCount() const;

    /* Whether entries are hidden above or below the visible rows. */
    bool moreAbove() const;
    bool moreBelow() const;

    /* "2/5": place of the current entry, from 1, and the number of entries. Empty for an empty
     * list. */
    QString positionText() const;

private:
    void keepCurrentVisible();

    int m_count = 0;
    int m_current = 0;
    int m_first = 0;
};

/*
 * The slow scroll of a text that is too long for its row: it rests at the start, moves to the
 * left until its end is seen, rests, and begins anew.
 */
namespace slowscroll {

constexpr int TickMilliseconds = 40;
constexpr int RestTicks = 25;    /* one second at each end */
constexpr int PixelsPerTick = 2; /* about six Latin characters a second */

/* Pixels by which the text is shifted to the left at a tick, counted from 0 since the row became
 * current. 0 for a text that fits, for any tick. */
int offset(int tick, int textWidth, int room);

} // namespace slowscroll

#endif
