/*
 * The values that a settings row offers, and which of them is chosen. Plain values, no widget.
 */
#ifndef VALUELIST_H
#define VALUELIST_H

#include <QString>
#include <QStringList>

class ValueList
{
public:
    /* What a step does that would leave the list. */
    enum class End { Wrap, Stop };

    void append(const QString& text);
    int count() const;

    /* Index of the chosen value, 0 for an empty list. */
    int index() const;

    /* The chosen value, empty for an empty list. */
    QString current() const;

    /* The value at an index; empty outside 0 to count() - 1. */
    QString at(int index) const;

    /* Chooses a value. False, and nothing changes, outside 0 to count() - 1. */
    bool setIndex(int index);

    /* Chooses the value after or before the chosen one; `end` says what happens at the last,
     * respectively first value. True when another value is chosen now. */
    bool next(End end);
    bool previous(End end);

    /* Moves `steps` values on, back when negative, no further than the last and first value. True
     * when another value is chosen now. */
    bool advance(int steps);

    /* Index of the first of `shown` values side by side such that the chosen one is among them, in
     * the middle where the list allows. 0 when `shown` is less than 1. */
    int firstShown(int shown) const;

private:
    bool choose(int index);

    QStringList m_values;
    int m_index = 0;
};

#endif
