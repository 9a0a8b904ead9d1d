#ifndef BARSPIN_H
#define BARSPIN_H

#include "widgets/spinitems.h"

class QProgressBar;

/*
 * A row whose value is a bar instead of a text. The rows of this family differ in what Look says
 * and in nothing else, but for SpinVolump.
 *
 * The bar stands between brackets that show how far it can reach, in a black box of its own, so
 * that it can be seen in the inverse row as well.
 */
class BarSpin : public SpinItems
{
    Q_OBJECT

public:
    /* Step to the next or previous value and update the bar; at the end of the list nothing
     * happens, unless Look says otherwise. */
    void moveNext() override;
    void movePrev() override;

    /* Sets the bar to the chosen value; a value beyond the bar's range fills it. */
    void showSpin();

    /* The bar; owned by the row. */
    const QProgressBar* bar() const { return m_bar; }

protected:
    struct Look
    {
        int maximum; /* of the bar, from 0; 0: the last value fills it */
        int step;    /* of the bar for each value */
        int width;   /* of the value's place in pixels; the bar is 3 less */
        const char* styleSheet;
        ValueList::End last = ValueList::End::Stop; /* what follows the last value */
        bool framed = false; /* the style sheet draws a border: no brackets are needed */
    };

    BarSpin(const Look& look, QWidget* parent);

    void valueChanged() override;
    int wantedValueWidth() const override;
    void paintValue(QPainter& painter, const rowlayout::Place& place) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Look m_look;
    QProgressBar* m_bar;
};

#endif
