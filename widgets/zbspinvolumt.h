#ifndef ZBSPINVOLUMT_H
#define ZBSPINVOLUMT_H

#include "widgets/barspin.h"

/* A finer scale: eleven values, 0 to 10, fill the bar. */
class ZbSpinVolumt : public BarSpin
{
    Q_OBJECT

public:
    explicit ZbSpinVolumt(QWidget* parent = nullptr);
};

#endif
