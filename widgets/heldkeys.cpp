#include "widgets/heldkeys.h"

#include <QKeyEvent>

bool HeldKeys::actsOnce(int key)
{
    return key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_Left && key != Qt::Key_Right;
}

bool HeldKeys::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(object, event);
    const auto* press = static_cast<const QKeyEvent*>(event);
    return press->isAutoRepeat() && actsOnce(press->key());
}
