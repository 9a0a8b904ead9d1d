#ifndef SPINVOLUM_H
#define SPINVOLUM_H

#include "widgets/barspin.h"

/* A volume: six values, 0 to 5, fill the bar. */
class SpinVolum : public BarSpin
{
    Q_OBJECT

public:
    explicit SpinVolum(QWidget* parent = nullptr);
};

#endif
