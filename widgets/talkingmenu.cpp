#include "widgets/talkingmenu.h"

#include "app/widgetchange.h"
#include "engines/cttsthread.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_iap.h"
#include "store/launcher.h"
#include "widgets/painting.h"
#include "widgets/scanbusy.h"

#include <QActionEvent>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTimerEvent>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds SpeechPoll{10};

} // namespace

// A menu is a popup by nature; the frameless hint alone makes it an ordinary child, which shows
// and takes the focus like every other screen.
TalkingMenu::TalkingMenu(const QString& title, QWidget* parent)
    : QMenu(title, parent), m_numLabel(new QLabel(this))
{
    setWindowFlags(Qt::FramelessWindowHint);
    setFont(QFont(QStringLiteral("nits")));
    setFixedSize(painting::ScreenWidth, painting::ScreenHeight);
    m_numLabel->setGeometry(224, 0, 32, 26);
    m_numLabel->setTextFormat(Qt::PlainText);
    m_numLabel->setFont(painting::screenFont());
    m_numLabel->setAlignment(Qt::AlignRight | Qt::AlignTop);
    m_numLabel->setIndent(0);
    m_quitTimer.setSingleShot(true);
    connect(&m_quitTimer, &QTimer::timeout, this, &TalkingMenu::threadQuitTalking);
}

TalkingMenu::~TalkingMenu()
{
    if (m_talking)
        launcher::speakerLeaves(launcher::Speaker::Menu);
}

bool TalkingMenu::setCurIndex(int index)
{
    if (!m_list.setCurrent(index))
        return false;
    restartScroll();
    update();
    return true;
}

int TalkingMenu::getCurIndex() const
{
    return m_list.current();
}

void TalkingMenu::setPrevWidget(QWidget* widget)
{
    m_prevWidget = widget;
}

QWidget* TalkingMenu::getPrevWidget() const
{
    return m_prevWidget;
}

void TalkingMenu::setPrevQuickWidget(QWidget* widget)
{
    m_prevQuickWidget = widget;
}

void TalkingMenu::setLeafNode(bool on)
{
    m_leafNode = on;
}

void TalkingMenu::setQuickFlag(bool on)
{
    m_quickFlag = on;
}

void TalkingMenu::SetShowSecondText(bool on)
{
    m_showSecondText = on;
    restartScroll();
    update();
}

void TalkingMenu::setNumLabel(const QString& text)
{
    m_numLabel->setText(text);
    update();
}

void TalkingMenu::setSpeechWorker(CTTSThread* worker)
{
    if (m_worker)
        disconnect(m_worker, nullptr, this, nullptr);
    m_worker = worker;
    if (worker)
        connect(worker, &QThread::finished, this, &TalkingMenu::workerFinished);
}

void TalkingMenu::ttsFirst()
{
    TTSPlayer::Instance()->stop();
    ttsCurentItem();
}

void TalkingMenu::ttsCurentItem()
{
    if (!m_list.hasCurrent() || !m_worker)
        return;
    m_worker->setContent(currentText());
    m_worker->start(QThread::InheritPriority);
    launcher::tellSoundBegins(launcher::Speaker::Menu);
    m_talking = true;
}

void TalkingMenu::FinishTTS()
{
    launcher::tellSoundEnds(launcher::Speaker::Menu);
    m_talking = false;
}

bool TalkingMenu::isTalking() const
{
    return m_talking;
}

// The worker is shared by all menus: only the one that is talking answers to its end. A worker that
// runs again by the time this is heard has taken a newer entry.
void TalkingMenu::workerFinished()
{
    if (m_talking && !(m_worker && m_worker->isRunning()))
        FinishTTS();
}

void TalkingMenu::ExitWithoutDelete()
{
    TTSPlayer::Instance()->stop();
    const QPointer<TalkingMenu> self(this);
    escPress(m_list.current(), QString());
    if (!self)
        return;
    if (m_prevWidget) {
        WidgetChange::Instance()->Go2PrevWidget(this, m_prevWidget);
        return;
    }
    if (!waitsForSpeech() || !m_worker || !m_worker->isRunning()) {
        endApplication();
        return;
    }
    m_quitTimer.start(SpeechPoll);
}

void TalkingMenu::threadQuitTalking()
{
    if (m_worker && m_worker->isRunning()) {
        m_quitTimer.start(SpeechPoll);
        return;
    }
    m_quitTimer.stop();
    endApplication();
}

void TalkingMenu::endApplication()
{
    launcher::tellLeft();
    QApplication::closeAllWindows();
}

void TalkingMenu::escPress(int index, const QString& text)
{
    emit escPressed(index, text);
}

// Hiding or disabling a menu that has the focus would otherwise send it a Tab key that nobody
// pressed.
bool TalkingMenu::focusNextPrevChild(bool)
{
    return false;
}

// Nothing goes to the base class: it would hide the menu on Escape and move a selection of its
// own.
void TalkingMenu::keyPressEvent(QKeyEvent* event)
{
    const QPointer<TalkingMenu> self(this);
    announceKeyPress();
    if (!self || scanEngineIsBusy())
        return;
    TTSPlayer::Instance()->stop();
    switch (event->key()) {
    case Qt::Key_Up:
        moveUp();
        break;
    case Qt::Key_Down:
        moveDown();
        break;
    case Qt::Key_Return:
        enter();
        break;
    case Qt::Key_Escape:
        ExitWithoutDelete();
        break;
    default:
        event->ignore(); // the window has keys of its own
        update();
    }
}

void TalkingMenu::moveUp()
{
    const QPointer<TalkingMenu> self(this);
    if (m_list.moveUp()) {
        restartScroll();
        announceUp(m_list.current(), currentText(), m_list.fromEnd());
    }
    if (self)
        update();
}

void TalkingMenu::moveDown()
{
    const QPointer<TalkingMenu> self(this);
    if (m_list.moveDown()) {
        restartScroll();
        announceDown(m_list.current(), currentText(), m_list.fromEnd());
    }
    if (self)
        update();
}

void TalkingMenu::enter()
{
    if (m_leafNode)
        chooseLeaf();
    else if (m_list.hasCurrent())
        actions().at(m_list.current())->activate(QAction::Trigger);
}

void TalkingMenu::chooseLeaf()
{
    const QPointer<TalkingMenu> self(this);
    escPress(m_list.current(), QString());
    if (!self)
        return;
    if (!m_quickFlag) {
        WidgetChange::Instance()->Go2PrevWidget(this, m_prevWidget);
        return;
    }
    emit okPressed(m_list.current(), QString());
    if (!self)
        return;
    WidgetChange::Instance()->Go2PrevWidget(this, m_prevQuickWidget);
    ZEMBRA_IAP_SetStopSignal(0);
    m_quickFlag = false;
}

void TalkingMenu::showEvent(QShowEvent* event)
{
    QMenu::showEvent(event);
    restartScroll();
    if (m_list.hasCurrent())
        announceShow(m_list.current(), currentText(), m_list.fromEnd());
}

void TalkingMenu::hideEvent(QHideEvent* event)
{
    m_scrollTimer.stop();
    m_quitTimer.stop(); // another screen was entered before the application could be left
    QMenu::hideEvent(event);
}

void TalkingMenu::actionEvent(QActionEvent* event)
{
    QMenu::actionEvent(event);
    m_list.setCount(static_cast<int>(actions().size()));
    restartScroll();
    update();
}

void TalkingMenu::mousePressEvent(QMouseEvent* event)
{
    event->ignore();
}

void TalkingMenu::mouseReleaseEvent(QMouseEvent* event)
{
    event->ignore();
}

void TalkingMenu::mouseMoveEvent(QMouseEvent* event)
{
    event->ignore();
}

QString TalkingMenu::textAt(int index) const
{
    return actions().at(index)->text();
}

QString TalkingMenu::currentText() const
{
    return m_list.hasCurrent() ? textAt(m_list.current()) : QString();
}
