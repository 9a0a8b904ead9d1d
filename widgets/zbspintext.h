#ifndef ZBSPINTEXT_H
#define ZBSPINTEXT_H

#include "widgets/barspin.h"

/* A scale of any length: the last value fills the bar, whatever their number. It stops at the
 * first value only; after the last comes the first. */
class ZbSpinText : public BarSpin
{
    Q_OBJECT

public:
    explicit ZbSpinText(QWidget* parent = nullptr);
};

#endif
