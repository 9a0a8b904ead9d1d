#include "widgets/zbspintext.h"

ZbSpinText::ZbSpinText(QWidget* parent)
    : BarSpin({0, 3, 60,
               "QProgressBar{padding: 0px ;margin: 0px ;}"
               "QProgressBar::chunk {background-color: white;width: 7px;margin: 2px;}",
               ValueList::End::Wrap},
              parent)
{
}
