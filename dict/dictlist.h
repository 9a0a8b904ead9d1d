#ifndef DICTLIST_H
#define DICTLIST_H

#include "widgets/comboboxborder.h"

#include <QBasicTimer>

/*
 * The list of the dictionaries of a language pair: one line in a frame, with the current name and
 * its place among the others. A name too long for the line scrolls slowly; without names a text
 * says so. It takes no keys: whose it is moves through it.
 *
 * Interface thread only.
 */
class DictList : public ComboBoxBorder
{
    Q_OBJECT
    /* Whether names that are too long scroll. */
    Q_PROPERTY(bool animated READ isAnimated WRITE setAnimated)

public:
    explicit DictList(QWidget* parent = nullptr);

    /* The names instead of those before; the first one is current. */
    void setNames(const QVector<QString>& names);

    /* One entry on or back; wraps around at the ends, and goes to the first or last one when none
     * is current. Nothing happens without names. */
    void selectNext();
    void selectPrevious();

    /* What the line shows and the voice says: the current name, or that there is none. */
    QString shownText() const;

    bool isAnimated() const { return m_animated; }
    void setAnimated(bool on);

    /* Number of the timer of the slow scroll, -1 while nothing scrolls. A timer event with that
     * number is one tick. */
    int scrollTimerId() const;

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QString place() const;
    QRect textBox() const;
    void refresh();

    QBasicTimer m_scrollTimer;
    int m_scrollTick = 0;
    bool m_animated = true;
};

#endif
