#ifndef ZBSPINMULTI_H
#define ZBSPINMULTI_H

#include "widgets/spinmulti.h"

/* As SpinMulti, for the pages of dictionary mode. */
class ZbSpinMulti : public SpinMulti
{
    Q_OBJECT

public:
    explicit ZbSpinMulti(QWidget* parent = nullptr);
};

#endif
