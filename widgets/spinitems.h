#ifndef SPINITEMS_H
#define SPINITEMS_H

#include "widgets/rowlayout.h"
#include "widgets/valuelist.h"

#include <QBasicTimer>
#include <QWidget>

class QPainter;

/*
 * A row of a settings page: a label, and a value chosen from a list. The page moves through the
 * values and selects the row; the selected row is inverse. Plain rows wrap around at both ends of
 * their list.
 *
 * A row is 246 x 20 pixels: the column at the right edge of the display belongs to the page's
 * marks. Label or value too long for their place end with an ellipsis; in the selected row they
 * scroll slowly instead. Texts are plain.
 *
 * Interface thread only. A row takes no focus and no keys.
 */
class SpinItems : public QWidget
{
    Q_OBJECT
    /* Whether texts that are too long scroll while the row is selected. */
    Q_PROPERTY(bool animated READ isAnimated WRITE setAnimated)

public:
    explicit SpinItems(QWidget* parent = nullptr);

    /* Chooses the next or previous value and repaints. Nothing happens without values. */
    virtual void moveNext();
    virtual void movePrev();

    /* Chooses a value; ignored outside 0 to the last index. */
    virtual void setCurIndex(int index);

    /* The font of label and value: its family, weight and slant. They are drawn 16 pixels high
     * whatever size the font has. */
    virtual void setTextFont(const QFont& font);

    /* Appends a value. */
    void addItem(const QString& text);

    /* The label. */
    void setText1(const QString& text);
    QString getText1() const;

    /* The chosen value, empty without values; its index; the number of values. */
    QString getCurItem() const;
    int getCurIndex() const;
    int count() const;

    /* The row is the page's current one. */
    void setSelect(bool on);
    bool isSelected() const;

    /* Least number of pixels between label and value; 8 at first, a negative one counts as 0. */
    void setInterSpace(int pixels);

    /* The value is changed with Left and Right only, and Enter leaves the page; false at first. */
    void setLeftRightClick(bool on);
    bool isLeftRightClick() const;

    /* The row is one of several choices that stand side by side: only its label is drawn, in the
     * middle of a box of one text line at the row's top. */
    void setChoice(bool on);

    /* Emits triggered(). */
    void trigger(int index, const QString& text);

    bool isAnimated() const;
    void setAnimated(bool on);

    /* Number of the timer of the slow scroll, -1 while nothing scrolls. A timer event with that
     * number is one tick. */
    int scrollTimerId() const;

signals:
    /* The user has changed the value: its index and its text. */
    void triggered(int index, const QString& text);

protected:
    /* Another value is chosen, or there are more values. */
    virtual void valueChanged();

    /* Width in pixels that the value would like to have, 0 for a value that stands in its column
     * whatever it is. */
    virtual int wantedValueWidth() const;

    /* Draws the value in the painter's pen. */
    virtual void paintValue(QPainter& painter, const rowlayout::Place& place) const;

    const ValueList& values() const { return m_values; }
    ValueList& values() { return m_values; }

    rowlayout::Place place() const;

    /* Top of the row's 20 pixels: the middle of a widget that is higher. */
    int top() const;

    QFont textFont() const;

    /* Width of a text in the row's font. */
    int textWidth(const QString& text) const;

    /* Draws one line at (x, top) in `room` pixels: scrolled or with an ellipsis when too long. */
    void paintText(QPainter& painter, int x, int room, const QString& text) const;

    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void refresh();
    void paintChoice(QPainter& painter) const;

    ValueList m_values;
    QString m_label;
    QFont m_font;
    QBasicTimer m_scrollTimer;
    int m_scrollTick = 0;
    int m_interSpace = 8;
    bool m_selected = false;
    bool m_leftRightClick = false;
    bool m_choice = false;
    bool m_animated = true;
};

#endif
