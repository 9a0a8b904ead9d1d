#ifndef HANDVIEW_H
#define HANDVIEW_H

#include "desk/handmodel.h"

#include <QScrollArea>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QSlider;

/* Adjusts the hand that moves the pen, and the light. */
class HandView : public QScrollArea
{
    Q_OBJECT

public:
    explicit HandView(QWidget* parent = nullptr);

    void showHand(const HandModel& hand);

signals:
    void handWanted(const HandModel& hand);

private:
    struct Row
    {
        const HandModel::Trait* trait;
        QSlider* slider;
        QLabel* value;
    };

    void addTrait(QGridLayout& grid, const HandModel::Trait& trait);
    void showValue(const Row& row);

    HandModel m_hand;
    QCheckBox* m_left;
    std::vector<Row> m_rows;
};

#endif
