#ifndef ZBSPINVOLUM_H
#define ZBSPINVOLUM_H

#include "widgets/barspin.h"

/* A volume, in a narrower bar: six values, 0 to 5, fill it. */
class ZbSpinVolum : public BarSpin
{
    Q_OBJECT

public:
    explicit ZbSpinVolum(QWidget* parent = nullptr);
};

#endif
