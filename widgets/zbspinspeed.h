#ifndef ZBSPINSPEED_H
#define ZBSPINSPEED_H

#include "widgets/barspin.h"

/* A speed, in a narrower bar: six values, 0 to 5, fill it. */
class ZbSpinSpeed : public BarSpin
{
    Q_OBJECT

public:
    explicit ZbSpinSpeed(QWidget* parent = nullptr);
};

#endif
