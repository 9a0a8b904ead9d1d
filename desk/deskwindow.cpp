#include "desk/deskwindow.h"

#include "desk/captionview.h"
#include "desk/desklook.h"
#include "desk/desksession.h"
#include "desk/keybutton.h"
#include "desk/launcherview.h"
#include "desk/pageview.h"
#include "desk/penkeys.h"
#include "desk/penview.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int LargeFactor = 4;
constexpr int SmallFactor = 3;
constexpr QSize LargeWindow(1240, 980);
constexpr int LeaveMs = 3000;
constexpr int LauncherWidth = 420;

/* The display keeps its fourfold size where the screen leaves room for the page below it. */
int factorFor(const QScreen* screen)
{
    // Without a screen of its own (headless) the desk need not fit one.
    if (!screen || QGuiApplication::platformName() == QLatin1String("offscreen"))
        return LargeFactor;
    const QSize room = screen->availableSize();
    return room.width() >= LargeWindow.width() && room.height() >= 860 ? LargeFactor : SmallFactor;
}

QString deskStyle()
{
    return QStringLiteral(
               "DeskWindow { background: %1; color: %2; }"
               "QWidget#card { background: %3; border: 1px solid %4; border-radius: 12px; }"
               "QPushButton { background: #f6f7f9; border: 1px solid %4; border-radius: 7px;"
               " padding: 6px 10px; color: %2; }"
               "QPushButton:hover { background: #eef1f5; }"
               "QPushButton:focus { border: 2px solid %5; padding: 5px 9px; }"
               "QPushButton:checked { background: %5; color: white; }"
               "QPushButton:pressed { background: #dfe4ea; }"
               "QPushButton:disabled { color: #aab1ba; }"
               "QListWidget, QPlainTextEdit { border: 0; background: %3; color: %2;"
               " font-size: 12px; }"
               "PageView { background: %3; }"
               "QTabWidget::pane { border: 1px solid %4; border-radius: 6px; top: -1px; }"
               "QTabBar::tab { padding: 5px 14px; border: 1px solid transparent; color: %6; }"
               "QTabBar::tab:selected { color: %2; border-bottom: 2px solid %5; }"
               "QTabBar::tab:focus { border: 1px solid %5; border-radius: 4px; }"
               "QScrollBar:vertical { background: transparent; width: 10px; margin: 2px; }"
               "QScrollBar::handle:vertical { background: #c3c9d1; border-radius: 3px;"
               " min-height: 30px; }"
               "QScrollBar::handle:vertical:hover { background: #a4adb8; }"
               "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
               "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }")
        .arg(desklook::Desk.name(), desklook::Text.name(), desklook::Panel.name(),
             desklook::PanelEdge.name(), desklook::Accent.name(), desklook::QuietText.name());
}

QWidget* card()
{
    auto* const widget = new QWidget;
    widget->setObjectName(QStringLiteral("card"));
    widget->setAttribute(Qt::WA_StyledBackground);
    return widget;
}

} // namespace

DeskWindow::DeskWindow(DeskSession& session, QWidget* parent)
    : QWidget(parent),
      m_session(session),
      m_pen(new PenView(factorFor(screen()))),
      m_caption(new CaptionView),
      m_page(new PageView),
      m_launcher(new LauncherView(session.launcher(), session.setting().root))
{
    setWindowTitle(tr("Swipeline desk"));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(deskStyle());
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 18);
    column->setSpacing(14);
    column->addWidget(m_pen, 0, Qt::AlignHCenter);

    QWidget* const captionCard = card();
    auto* const captionRow = new QHBoxLayout(captionCard);
    captionRow->setContentsMargins(8, 2, 8, 2);
    captionRow->addWidget(m_caption);
    column->addWidget(captionCard);

    auto* const row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(makePageCard(), 1);
    QWidget* const launcherCard = card();
    launcherCard->setFixedWidth(LauncherWidth);
    auto* const launcherColumn = new QVBoxLayout(launcherCard);
    launcherColumn->setContentsMargins(0, 0, 0, 0);
    launcherColumn->addWidget(m_launcher);
    row->addWidget(launcherCard);
    column->addLayout(row, 1);

    connectPen();
    connectPage();
    showPen();
    resize(LargeWindow);
    m_pen->display().setFocus();
    qApp->installEventFilter(this);
}

DeskWindow::~DeskWindow() = default;

QImage DeskWindow::picture()
{
    return grab().toImage();
}

QImage DeskWindow::penPicture()
{
    const QRect caption = m_caption->parentWidget()->geometry();
    return grab(m_pen->geometry().united(caption)).toImage();
}

QWidget* DeskWindow::makePageCard()
{
    QWidget* const page = card();
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(12, 10, 4, 4);
    column->setSpacing(6);
    column->addWidget(makePageBar());
    column->addWidget(m_page, 1);
    return page;
}

QWidget* DeskWindow::makePageBar()
{
    auto* const bar = new QWidget;
    auto* const row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 0, 8, 0);
    auto* const label = new QLabel(tr("&Page"));
    m_pages = new QComboBox;
    m_pages->setAccessibleName(tr("Sample page"));
    for (const QString& sample : PageLoader::samples())
        m_pages->addItem(sample.at(0).toUpper() + sample.mid(1), sample);
    label->setBuddy(m_pages);
    auto* const open = new QPushButton(tr("&Open..."));
    open->setToolTip(tr("A picture or a PDF file as the page"));
    auto* const ruler = new QCheckBox(tr("&Ruler"));
    ruler->setToolTip(tr("A drag follows the line on which it began"));
    ruler->setChecked(true);
    auto* const hand = new QCheckBox(tr("&Left hand"));
    hand->setToolTip(tr("The pen is held in the left hand: its camera looks the other way up"));
    auto* const hint = new QLabel(tr("Drag over a line to swipe it, or double-click it"));
    hint->setStyleSheet(QStringLiteral("color: %1").arg(desklook::QuietText.name()));
    row->addWidget(label);
    row->addWidget(m_pages);
    row->addWidget(open);
    row->addWidget(ruler);
    row->addWidget(hand);
    row->addStretch();
    row->addWidget(hint);
    connect(m_pages, &QComboBox::activated, this, &DeskWindow::choosePage);
    connect(open, &QPushButton::clicked, this, &DeskWindow::openPage);
    connect(ruler, &QCheckBox::toggled, m_page, &PageView::setRuler);
    connect(hand, &QCheckBox::toggled, &m_session, [this](bool left) {
        HandModel model = m_session.hand();
        model.left = left;
        m_session.setHand(model);
    });
    return bar;
}

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
    connect(m_launcher, &LauncherView::languageWanted, &m_session, [this](int row) {
        m_session.chooseLanguage(row);
        m_pen->display().setFocus();
    });
    connect(&m_session, &DeskSession::languageFailed, this,
            [this](const QString& error) { m_launcher->setStatus(error, true); });
    connect(m_launcher, &LauncherView::startWanted, &m_session, [this] {
        m_session.startPen();
        m_pen->display().setFocus();
    });
}

void DeskWindow::connectPage()
{
    m_page->setNotice(tr("The page is being printed..."));
    connect(&m_session, &DeskSession::pageChanged, this, [this] {
        m_page->setPage(m_session.page());
        // A page of the user's own is named, but is not among the samples.
        m_pages->setPlaceholderText(m_session.page().name);
        m_pages->setCurrentIndex(m_pages->findText(m_session.page().name));
    });
    connect(&m_session, &DeskSession::pageFailed, m_page, &PageView::setNotice);
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
    });
}

void DeskWindow::tellWhenCameraIsOff()
{
    if (!m_session.link().isCameraOn())
        m_launcher->setStatus(
            tr("The pen's camera is off: open a file first, for instance with \"New file\""), true);
}

void DeskWindow::tellSwipe(const SwipeReport& report)
{
    switch (report.outcome) {
    case desklink::SwipeOutcome::Delivered:
        m_launcher->setStatus(tr("A line was scanned (%1 pictures)").arg(report.frames), false);
        break;
    case desklink::SwipeOutcome::NoPrint:
        m_launcher->setStatus(tr("No print was found under the pen"), true);
        break;
    case desklink::SwipeOutcome::BadMotion:
        m_launcher->setStatus(tr("The swipe cannot be read: too fast, or off the line"), true);
        break;
    case desklink::SwipeOutcome::Stopped:
        m_launcher->setStatus(tr("The pen did not want a swipe just now"), false);
        break;
    }
}

void DeskWindow::choosePage()
{
    PageSource source;
    source.name = m_pages->currentData().toString();
    m_session.pageLoader().load(source);
}

void DeskWindow::openPage()
{
    auto* const dialog = new QFileDialog(this, tr("Open a page"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(tr("Pages (*.png *.jpg *.jpeg *.pdf)"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        PageSource source;
        source.kind = PageSource::Kind::File;
        source.name = path;
        m_page->setNotice(tr("The page is being printed..."));
        m_session.pageLoader().load(source);
    });
    dialog->open();
}

/* Whether a key belongs to the pen, with the focus where it is. */
bool DeskWindow::goesToPen(int key) const
{
    if (key == Qt::Key_Escape || (key >= Qt::Key_F7 && key <= Qt::Key_F12))
        return true;
    const QWidget* const focus = QApplication::focusWidget();
    if (key == Qt::Key_Space && qobject_cast<const KeyButton*>(focus))
        return false; // it presses the button
    return focus == &m_pen->display() || qobject_cast<const KeyButton*>(focus) || !focus;
}

bool DeskWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool press = event->type() == QEvent::KeyPress;
    if ((!press && event->type() != QEvent::KeyRelease) || !isActiveWindow()
        || !watched->isWidgetType() || QApplication::activePopupWidget()
        || QApplication::activeModalWidget())
        return QWidget::eventFilter(watched, event);
    auto* const keyEvent = static_cast<QKeyEvent*>(event);
    const auto key = penkeys::fromKeyboard(keyEvent->key());
    if (!key || (press && !goesToPen(keyEvent->key())) || (!press && !m_down.contains(*key)))
        return QWidget::eventFilter(watched, event);
    // The pen's own display server repeats keys that stay down.
    if (!keyEvent->isAutoRepeat())
        pressKey(*key, press);
    return true;
}

void DeskWindow::pressKey(Qt::Key key, bool pressed)
{
    if (pressed)
        m_down.insert(key);
    else
        m_down.remove(key);
    m_pen->showKey(key, pressed);
    m_session.sendKey(key, pressed);
}

void DeskWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // The release of a key that is still down would go to another window.
    if (event->type() != QEvent::ActivationChange || isActiveWindow())
        return;
    const QSet<Qt::Key> down = m_down;
    for (const Qt::Key key : down)
        pressKey(key, false);
}

void DeskWindow::closeEvent(QCloseEvent* event)
{
    if (!m_session.pen().isRunning()) {
        QWidget::closeEvent(event);
        return;
    }
    // The pen saves first; one that does not hear is switched off.
    event->ignore();
    connect(&m_session, &DeskSession::penEnded, this, &DeskWindow::close, Qt::UniqueConnection);
    m_session.launcher().stop();
    QTimer::singleShot(LeaveMs, &m_session.pen(), &PenProcess::stop);
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
        m_launcher->setStatus(m_session.link().isCameraOn() ? tr("The pen waits for a swipe")
                                                            : tr("The pen is on"),
                              false);
        return;
    }
    const QString how = pen.lastEnd().isEmpty() ? tr("The pen is off") : pen.lastEnd();
    m_pen->display().setNotice(how);
    m_launcher->setStatus(how, !pen.endedWell());
}
