// MyEdit, keys.

#include "editor/myedit.h"

#include "editor/wordwalk.h"
#include "engines/csoundthread.h"
#include "platform/zembra_iap.h"

#include <QKeyEvent>
#include <QMouseEvent>

void MyEdit::keyPressEvent(QKeyEvent* event)
{
    emit signalKeyPress();
    int state = ZEMBRA_IAP_IDLE;
    ZEMBRA_IAP_GetWorkState(&state);
    if (state == ZEMBRA_IAP_BUSY)
        return;
    if (m_rename && renameKey(event->key()))
        return;
    switch (event->key()) {
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
    case Qt::Key_F12:
        StopTTS();
        setStopFlag(true);
        emit signalQuickSet();
        break;
    default:
        event->ignore();
        break;
    }
}

// The pen has no pointer.
void MyEdit::mousePressEvent(QMouseEvent* event)
{
    event->ignore();
}

// OK reads from the word at the cursor to the end, or stops what is being read.
void MyEdit::PressEnter()
{
    if (m_soundThread->isRunning()) {
        StopTTS();
        return;
    }
    const QString text = documentText();
    const int position = textCursor().position();
    WordSpan word = wordAt(text, position);
    if (!word.isValid())
        word = nextWord(text, position);
    if (word.isValid())
        beginReading(text.mid(word.start), static_cast<int>(word.start));
}

void MyEdit::MovePrev()
{
    StopTTS();
    const WordSpan word = previousWord(documentText(), textCursor().position());
    if (word.isValid())
        moveTo(static_cast<int>(word.start));
}

void MyEdit::MoveNext()
{
    StopTTS();
    const WordSpan word = nextWord(documentText(), textCursor().position());
    if (word.isValid())
        moveTo(static_cast<int>(word.start));
    else
        moveCursor(QTextCursor::End);
}

void MyEdit::MoveUp()
{
    StopTTS();
    moveCursor(QTextCursor::Up);
}

void MyEdit::MoveDown()
{
    StopTTS();
    moveCursor(QTextCursor::Down);
}

void MyEdit::moveTo(int position)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(qBound(0, position, document()->characterCount() - 1));
    setTextCursor(cursor);
    ensureCursorVisible();
}
