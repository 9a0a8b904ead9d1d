#ifndef SPINSPEED_H
#define SPINSPEED_H

#include "widgets/barspin.h"

/* A speed: six values, 0 to 5, fill the bar. */
class SpinSpeed : public BarSpin
{
    Q_OBJECT

public:
    explicit SpinSpeed(QWidget* parent = nullptr);
};

#endif
