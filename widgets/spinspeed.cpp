#include "widgets/spinspeed.h"

SpinSpeed::SpinSpeed(QWidget* parent)
    : BarSpin({15, 3, 70,
               "QProgressBar{padding: 0px ;margin: 0px ;}"
               "QProgressBar::chunk {background-color: white;width: 8px;margin: 3px;}"},
              parent)
{
}
