// MyEdit, keys.

#include "editor/myedit.h"

#include "widgets/heldkeys.h"
#include "widgets/hintline.h"
#include "widgets/scanbusy.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace {

using Direction = QuickSeek::Direction;

bool isSeekKey(int key)
{
    return key == Qt::Key_F7 || key == Qt::Key_F8;
}

Direction directionOf(int seekKey)
{
    return seekKey == Qt::Key_F7 ? Direction::Back : Direction::Forward;
}

} // namespace

void MyEdit::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    // A press that repeats itself would begin the seek anew, cut off the word that it came to, or
    // switch reading on and off.
    if (event->isAutoRepeat() && HeldKeys::actsOnce(key))
        return;
    emit signalKeyPress();
    stopSeek();
    if (scanEngineIsBusy())
        return;
    m_hint->hide();
    if (m_rename && renameKey(key))
        return;
    if (key != Qt::Key_Return)
        StopTTS();
    switch (key) {
    case Qt::Key_Escape:
        SaveAndExit();
        break;
    case Qt::Key_Return:
        PressEnter();
        break;
    case Qt::Key_Left:
        MovePrev();
        break;
    case Qt::Key_Up:
        MoveUp();
        break;
    case Qt::Key_Right:
        MoveNext();
        break;
    case Qt::Key_Down:
        MoveDown();
        break;
    case Qt::Key_F7:
    case Qt::Key_F8:
        startSeek(directionOf(key));
        break;
    case Qt::Key_F12:
        setStopFlag(true);
        emit signalQuickSet();
        break;
    default:
        event->ignore();
        break;
    }
}

void MyEdit::keyReleaseEvent(QKeyEvent* event)
{
    if (!isSeekKey(event->key())) {
        event->ignore();
        return;
    }
    if (!event->isAutoRepeat() && m_seek.isActive()
        && m_seek.direction() == directionOf(event->key()))
        landSeek();
}

// The release of the key may go elsewhere from now on.
void MyEdit::focusOutEvent(QFocusEvent* event)
{
    stopSeek();
    QTextEdit::focusOutEvent(event);
}

void MyEdit::hideEvent(QHideEvent* event)
{
    stopSeek();
    m_hint->hide();
    QTextEdit::hideEvent(event);
}

void MyEdit::mousePressEvent(QMouseEvent* event)
{
    if (!m_mouse) {
        event->ignore();
        return;
    }
    StopTTS();
    moveTo(cursorForPosition(event->pos()).position());
}
