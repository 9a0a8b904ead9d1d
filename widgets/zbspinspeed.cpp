#include "widgets/zbspinspeed.h"

ZbSpinSpeed::ZbSpinSpeed(QWidget* parent)
    : BarSpin({15, 3, 60,
               "QProgressBar{padding: 0px ;margin: 0px ;}"
               "QProgressBar::chunk {background-color: white;width: 7px;margin: 2px;}"},
              parent)
{
}
