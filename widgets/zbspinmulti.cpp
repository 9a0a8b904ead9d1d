#include "widgets/zbspinmulti.h"

ZbSpinMulti::ZbSpinMulti(QWidget* parent) : SpinMulti(parent) {}
