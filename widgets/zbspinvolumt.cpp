#include "widgets/zbspinvolumt.h"

ZbSpinVolumt::ZbSpinVolumt(QWidget* parent)
    : BarSpin({100, 10, 70,
               "QProgressBar{padding: 0px ;margin: 0px ;}"
               "QProgressBar::chunk {background-color: white;width: 3px;margin: 2px;}"},
              parent)
{
}
