/*
 * What session, parts and player tell each other, and what the window shows of it.
 */
#include "desk/deskwindow.h"

#include "desk/captionview.h"
#include "desk/desklook.h"
#include "desk/desksession.h"
#include "desk/desktexts.h"
#include "desk/handview.h"
#include "desk/launcherview.h"
#include "desk/pagebar.h"
#include "desk/pageview.h"
#include "desk/penview.h"
#include "desk/scriptview.h"
#include "desk/typedialog.h"

#include <QFileInfo>

void DeskWindow::connectPen()
{
    connect(m_pen, &PenView::keyPressed, &m_session,
            [this](Qt::Key key) { m_session.sendKey(key, true); });
    connect(m_pen, &PenView::keyReleased, &m_session,
            [this](Qt::Key key) { m_session.sendKey(key, false); });
    connect(&m_session, &DeskSession::screenChanged, this, &DeskWindow::showScreen);
    connect(&m_session, &DeskSession::penStarted, this, &DeskWindow::showPen);
    connect(&m_session, &DeskSession::penEnded, this, &DeskWindow::showPen);
    connect(&m_session, &DeskSession::speechChanged, this, [this] {
        m_caption->showTranscript(m_session.transcript());
        m_pen->setSpeaking(m_session.transcript().isSpeaking());
    });
    connect(&m_session, &DeskSession::cameraSwitched, m_pen, &PenView::setCameraOn);
    connect(&m_session, &DeskSession::cameraSwitched, this, &DeskWindow::showPen);
}

void DeskWindow::connectPage()
{
    m_page->setNotice(tr("The page is being printed..."));
    connect(&m_session, &DeskSession::pageChanged, this, [this] {
        m_page->setPage(m_session.page());
        m_pageBar->showPage(m_session.page(), m_session.pageLoader().source());
    });
    connect(m_pageBar, &PageBar::pageWanted, this, &DeskWindow::layPage);
    connect(m_pageBar, &PageBar::typingWanted, this, &DeskWindow::typePage);
    connect(m_pageBar, &PageBar::rulerChanged, m_page, &PageView::setRuler);
    connect(m_pageBar, &PageBar::helpWanted, this, &DeskWindow::showHelp);
    connect(m_pageBar, &PageBar::darkChanged, this, [this](bool dark) {
        m_dark = dark;
        setDark(dark);
    });
    m_pageBar->setDark(desklook::isDark());
    m_dark.reset();
    connect(&m_session, &DeskSession::pageFailed, this, [this](const QString& error) {
        m_page->setNotice(error);
        if (!m_session.page().isEmpty())
            return; // the one before still lies there
        const PageSource source = m_session.pageLoader().source();
        PrintedPage none;
        none.name = QFileInfo(source.name).fileName();
        m_pageBar->showPage(none, source);
    });
    connect(m_page, &PageView::swipeBegins, &m_session, &DeskSession::beginSwipe);
    connect(m_page, &PageView::swipeBegins, this, &DeskWindow::tellWhenCameraIsOff);
    connect(m_page, &PageView::lineWanted, this, &DeskWindow::tellWhenCameraIsOff);
    connect(&m_session, &DeskSession::swipeReported, this, &DeskWindow::tellSwipe);
    connect(m_page, &PageView::swipeMoves, &m_session, &DeskSession::moveSwipe);
    connect(m_page, &PageView::swipeEnds, &m_session, &DeskSession::endSwipe);
    connect(m_page, &PageView::lineWanted, &m_session,
            [this](int line) { m_session.swipeLine(line); });
    connect(&m_session, &DeskSession::swipeStarted, this, [this] { m_pen->setTipPressed(true); });
    connect(&m_session, &DeskSession::swipeLooksAt, m_page, &PageView::showCamera);
    connect(&m_session, &DeskSession::swipeEnded, this, [this] {
        m_pen->setTipPressed(false);
        m_page->hideCamera();
        if (!m_session.link().isCameraOn())
            m_page->showOutcome(whyCameraIsOff(), true);
    });
}

void DeskWindow::tellWhenCameraIsOff()
{
    if (!m_session.link().isCameraOn())
        tell(whyCameraIsOff(), true);
}

QString DeskWindow::whyCameraIsOff() const
{
    return m_session.pen().isRunning()
               ? tr("The pen's camera is off: open a file first, for instance with \"New file\"")
               : tr("The pen is off: start it first");
}

void DeskWindow::tellSwipe(const SwipeReport& report)
{
    const bool lost = report.outcome != desklink::SwipeOutcome::Delivered;
    tell(desktexts::swipe(report), lost && report.outcome != desklink::SwipeOutcome::Stopped);
    m_page->showOutcome(lost ? desktexts::swipe(report) : tr("Scanned"), lost);
}

void DeskWindow::connectLauncher()
{
    connect(m_launcher, &LauncherView::startWanted, &m_session, [this] {
        m_session.startPen();
        m_pen->display().setFocus();
    });
    connect(m_launcher, &LauncherView::languageWanted, &m_session, [this](int row) {
        m_session.chooseLanguage(row);
        m_pen->display().setFocus();
    });
    connect(&m_session, &DeskSession::settingFailed, this,
            [this](const QString& error) { tell(error, true); });
    connect(m_hand, &HandView::handWanted, &m_session, &DeskSession::setHand);
    connect(&m_session, &DeskSession::handChanged, this, [this] {
        m_hand->showHand(m_session.hand());
        m_page->setLeftHand(m_session.hand().left);
    });
    connect(m_script, &ScriptView::told, this, &DeskWindow::tell);
    connect(m_script, &ScriptView::playWanted, this, &DeskWindow::play);
    connect(m_script, &ScriptView::stopWanted, &m_player, &DeskPlayer::stop);
    connect(&m_player, &DeskPlayer::began, this, [this] { m_script->setPlaying(true); });
    connect(&m_player, &DeskPlayer::finished, this, [this](bool ok, const QString& told) {
        m_script->setPlaying(false);
        tell(told, !ok);
    });
}

void DeskWindow::tell(const QString& text, bool alarm)
{
    m_launcher->setStatus(text, alarm);
}

void DeskWindow::layPage(const PageSource& source)
{
    if (source.kind != PageSource::Kind::Typed)
        m_page->setNotice(tr("The page is being printed..."));
    m_session.pageLoader().load(source);
}

void DeskWindow::typePage()
{
    if (!m_typing) {
        m_typing = new TypeDialog(m_session.pageLoader().source(), m_session.page().language, this);
        m_typing->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_typing, &TypeDialog::pageWanted, this, &DeskWindow::layPage);
    }
    m_typing->show();
    m_typing->raise();
    m_typing->activateWindow();
}

void DeskWindow::play(const QString& path)
{
    const QString error = m_player.play(path);
    if (!error.isEmpty())
        tell(error, true);
    else
        m_pen->display().setFocus();
}

void DeskWindow::showScreen()
{
    m_pen->display().setScreen(m_session.screen());
    if (m_session.pen().isRunning())
        m_pen->display().setNotice(m_session.hasWindow() ? QString() : tr("The pen is starting"));
}

void DeskWindow::showPen()
{
    showScreen();
    const PenProcess& pen = m_session.pen();
    const bool running = pen.isRunning();
    m_launcher->setPenRunning(running);
    if (running) {
        tell(m_session.link().isCameraOn() ? tr("The pen waits for a swipe") : tr("The pen is on"),
             false);
        return;
    }
    const QString how = pen.lastEnd().isEmpty() ? tr("The pen is off") : pen.lastEnd();
    m_pen->display().setNotice(how);
    tell(how, !pen.endedWell());
}
