#include "desk/penkeyboard.h"

#include "desk/desksession.h"
#include "desk/keybutton.h"
#include "desk/penkeys.h"
#include "desk/penview.h"

#include <QApplication>
#include <QKeyEvent>

PenKeyboard::PenKeyboard(DeskSession& session, PenView& view) : m_session(session), m_view(view)
{
    qApp->installEventFilter(this);
}

/* Whether a key belongs to the pen, with the focus where it is. */
bool PenKeyboard::goesToPen(int key) const
{
    if (key == Qt::Key_Escape || (key >= Qt::Key_F7 && key <= Qt::Key_F12))
        return true;
    const QWidget* const focus = QApplication::focusWidget();
    if (key == Qt::Key_Space && qobject_cast<const KeyButton*>(focus))
        return false; // it presses the button
    return focus == &m_view.display() || qobject_cast<const KeyButton*>(focus) || !focus;
}

bool PenKeyboard::eventFilter(QObject* watched, QEvent* event)
{
    const bool press = event->type() == QEvent::KeyPress;
    if ((!press && event->type() != QEvent::KeyRelease) || !m_view.isActiveWindow()
        || !watched->isWidgetType() || QApplication::activePopupWidget()
        || QApplication::activeModalWidget())
        return QObject::eventFilter(watched, event);
    auto* const keyEvent = static_cast<QKeyEvent*>(event);
    const auto key = penkeys::fromKeyboard(keyEvent->key());
    const bool meant = keyEvent->modifiers() & ~Qt::KeypadModifier ? !press : true;
    if (!key || !meant || (press && !goesToPen(keyEvent->key()))
        || (!press && !m_down.contains(*key)))
        return QObject::eventFilter(watched, event);
    // The pen's own display server repeats keys that stay down.
    if (!keyEvent->isAutoRepeat())
        this->press(*key, press);
    return true;
}

void PenKeyboard::press(Qt::Key key, bool pressed)
{
    if (pressed)
        m_down.insert(key);
    else
        m_down.remove(key);
    m_view.showKey(key, pressed);
    m_session.sendKey(key, pressed);
}

void PenKeyboard::releaseAll()
{
    const QSet<Qt::Key> down = m_down;
    for (const Qt::Key key : down)
        press(key, false);
}
