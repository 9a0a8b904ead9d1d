#ifndef SPINMULTI_H
#define SPINMULTI_H

#include "widgets/spinitems.h"

/*
 * A row that shows several of its values side by side, the chosen one marked by a box of the
 * opposite colour; marks tell that there are more values to the left or right. It stops at the
 * first and the last value.
 */
class SpinMulti : public SpinItems
{
    Q_OBJECT

public:
    explicit SpinMulti(QWidget* parent = nullptr);

    void moveNext() override;
    void movePrev() override;

    /* How many values are shown side by side where the label leaves room; 3 at first, a number
     * below 1 counts as 1. */
    void setShowMax(int count);

    /* Moves `steps` values on, back when negative, no further than the ends. */
    void addIndex(int steps);

protected:
    int wantedValueWidth() const override;
    void paintValue(QPainter& painter, const rowlayout::Place& place) const override;

private:
    int shownCount() const;
    int cellWidth() const;

    int m_showMax = 3;
};

#endif
