// DictScanEdit, keys.

#include "dict/dictscanedit.h"

#include "app/widgetchange.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundtransthread.h"
#include "engines/cttsthread.h"
#include "engines/ttsplayer.h"
#include "widgets/heldkeys.h"
#include "widgets/hintline.h"
#include "widgets/scanbusy.h"

#include <QKeyEvent>
#include <QTextEdit>

void DictScanEdit::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (event->isAutoRepeat() && HeldKeys::actsOnce(key))
        return;
    if (key == Qt::Key_Return && !m_enter.counts(m_clock()))
        return;
    m_hint->hide();
    if (silenceByKey(key))
        return;
    if (scanEngineIsBusy())
        return;
    const bool isLineKey = key == Qt::Key_Up || key == Qt::Key_Down;
    if (isLineKey && m_transThread->isRunning())
        return;
    if (!carryOut(key))
        event->ignore();
    else if (key != Qt::Key_Return)
        m_interrupted = false;
}

// False for a key that the screen has no use for.
bool DictScanEdit::carryOut(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        pressEscape();
        break;
    case Qt::Key_Return:
        pressEnter();
        break;
    case Qt::Key_Left:
        step(false);
        break;
    case Qt::Key_Right:
        step(true);
        break;
    case Qt::Key_Up:
        MoveUp();
        m_scanPane->setFocus(Qt::OtherFocusReason);
        break;
    case Qt::Key_Down:
        MoveDown();
        break;
    case Qt::Key_F5:
    case Qt::Key_F7:
        moveResult(false);
        break;
    case Qt::Key_F6:
    case Qt::Key_F8:
        moveResult(true);
        break;
    case Qt::Key_F12:
        emit signalQuickset(true);
        break;
    default:
        return false;
    }
    return true;
}

// What speaks gives way to a key, which does no more then. True when the key is used up.
bool DictScanEdit::silenceByKey(int key)
{
    if (m_menuSpeech && m_menuSpeech->isRunning()) {
        emit signalKeyPress();
        TTSPlayer::Instance()->stop();
        if (m_menuSpeech->isRunning())
            return true;
    }
    if (m_srcThread->isRunning()) {
        m_srcAgain = false;
        m_stoppedByKey = true; // before the stop: one that comes too early is made good by it
        TTSPlayer::Instance()->stop();
        return true;
    }
    if (!m_transThread->isRunning() || key == Qt::Key_Up || key == Qt::Key_Down)
        return false;
    emit recfinished();
    m_transThread->clearContent();
    TTSPlayer::Instance()->stop();
    m_interrupted = key == Qt::Key_Return;
    endMarking();
    return true;
}

void DictScanEdit::pressEscape()
{
    if (m_curRowOnly != 0) {
        m_curRowOnly = 0;
        layPanes();
        if (m_scan)
            showAnew();
        else
            showResults();
        m_scanPane->setFocus(Qt::OtherFocusReason);
        return;
    }
    leave();
}

void DictScanEdit::leave()
{
    stopReading();
    m_previousFragment.clear();
    m_pendingFragment.clear();
    showScanText(QString());
    forgetResults();
    resumeeditformat();
    m_okSound = false;
    emit escPressed();
    WidgetChange::Instance()->Go2PrevWidget(this, m_previous);
}

void DictScanEdit::pressEnter()
{
    TTSPlayer::Instance()->stop();
    if (menuSpeaks() || m_srcReading || m_soundTrans)
        return;
    remember();
    if (m_interrupted)
        soundWordByTypeTrans();
    else
        soundOnlySrcForTrans();
}
