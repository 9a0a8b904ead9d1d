#include "widgets/spinvolump.h"

#include "widgets/scanbusy.h"

#include <QKeyEvent>

SpinVolump::SpinVolump(QWidget* parent)
    : BarSpin({15, 3, 70,
               "QProgressBar{border: 1px solid white ;padding: 0px ;margin: 0px ;}"
               "QProgressBar::chunk {background-color: white;width: 13px;margin: 0.5px;}",
               ValueList::End::Stop, true},
              parent)
{
}

bool SpinVolump::focusNextPrevChild(bool)
{
    return false;
}

void SpinVolump::keyPressEvent(QKeyEvent* event)
{
    if (scanEngineIsBusy())
        return;
    switch (event->key()) {
    case Qt::Key_Left:
        step(&SpinItems::movePrev);
        break;
    case Qt::Key_Right:
        step(&SpinItems::moveNext);
        break;
    case Qt::Key_Return:
        accept(this);
        break;
    case Qt::Key_Escape:
        escape(this);
        break;
    default:
        event->ignore();
    }
}

void SpinVolump::step(void (SpinItems::*change)())
{
    const QPointer<SpinVolump> self(this);
    (this->*change)();
    trigger(getCurIndex(), getCurItem());
    if (self)
        emit signalUp(0, QStringLiteral("   ") + getCurItem());
}

void SpinVolump::showEvent(QShowEvent* event)
{
    BarSpin::showEvent(event);
    emit signalShow(0, getText1() + getCurItem());
}
