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

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr QSize UsualWindow(1240, 980);
constexpr QSize LeastWindow(960, 560);
constexpr int LeaveMs = 3000;

/* From which size of the window on the display is magnified so many times. */
struct Fit
{
    QSize window;
    int factor;
};
constexpr Fit Fits[] = {{{1232, 840}, 4}, {{960, 670}, 3}};
constexpr int LeastFactor = 2;
constexpr int CompactHeight = 720;
constexpr int LauncherShare = 3; // a third of the window
constexpr int MostLauncher = 420;

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
      m_recorder(session),
      m_player(session, [this] { return picture(); }),
      m_pen(new PenView(LeastFactor)),
      m_keyboard(session, *m_pen),
      m_caption(new CaptionView),
      m_page(new PageView),
      m_pageBar(new PageBar),
      m_hand(new HandView),
      m_script(new ScriptView(m_recorder)),
      m_launcher(new LauncherView(session.launcher(), session.storage(), session.setting().root))
{
    setWindowTitle(tr("Swipeline desk"));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(desklook::styleSheet());
    setAcceptDrops(true);
    setMinimumSize(LeastWindow);
    m_column = new QVBoxLayout(this);
    m_column->addWidget(m_pen, 0, Qt::AlignHCenter);
    m_column->addWidget(makeCaptionCard());
    m_row = new QHBoxLayout;
    m_row->addWidget(makePageCard(), 1);
    m_row->addWidget(makeLauncherCard());
    m_column->addLayout(m_row, 1);

    makeShortcuts();
    connectPen();
    connectPage();
    connectLauncher();
    showPen();
    // Without a screen of its own (headless) the desk need not fit one.
    const bool shown = QGuiApplication::platformName() != QLatin1String("offscreen");
    resize(shown && screen() ? UsualWindow.boundedTo(screen()->availableSize()) : UsualWindow);
    fit();
    m_pen->display().setFocus();
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

QWidget* DeskWindow::makeCaptionCard()
{
    QWidget* const captions = card();
    auto* const row = new QHBoxLayout(captions);
    row->setContentsMargins(8, 2, 8, 2);
    row->addWidget(m_caption);
    return captions;
}

QWidget* DeskWindow::makePageCard()
{
    QWidget* const page = card();
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(12, 10, 4, 4);
    column->setSpacing(6);
    column->addWidget(m_pageBar);
    column->addWidget(m_page, 1);
    return page;
}

QWidget* DeskWindow::makeLauncherCard()
{
    m_launcher->addTab(m_hand, tr("&Hand"));
    m_launcher->addTab(m_script, tr("&Script"));
    m_launcherCard = card();
    auto* const column = new QVBoxLayout(m_launcherCard);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_launcher);
    return m_launcherCard;
}

void DeskWindow::makeShortcuts()
{
    const auto shortcut = [this](const QKeySequence& keys, auto&& act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    shortcut(QKeySequence::Open, [this] { m_pageBar->openPage(); });
    shortcut(Qt::CTRL | Qt::Key_T, [this] { typePage(); });
    shortcut(QKeySequence::Save, [this] { m_script->save(); });
    shortcut(Qt::CTRL | Qt::Key_R, [this] { m_script->open(); });
    shortcut(Qt::Key_F6, [this] { moveFocus(); });
    shortcut(Qt::Key_F1, [this] { showHelp(); });
}

void DeskWindow::setDark(bool dark)
{
    if (dark == desklook::isDark())
        return;
    desklook::apply(dark);
    setStyleSheet(desklook::styleSheet());
}

void DeskWindow::recall(const DeskMemory& memory)
{
    restoreGeometry(memory.geometry);
    m_pageBar->setRuler(memory.ruler);
    m_dark = memory.dark;
    if (m_dark) {
        setDark(*m_dark);
        m_pageBar->setDark(*m_dark);
    }
    m_launcher->setTab(memory.tab);
    m_session.setHand(memory.hand);
}

DeskMemory DeskWindow::memory() const
{
    DeskMemory memory;
    memory.geometry = saveGeometry();
    memory.page = m_session.pageLoader().source();
    memory.hand = m_session.hand();
    memory.ruler = m_pageBar->hasRuler();
    memory.dark = m_dark;
    memory.tab = m_launcher->tab();
    return memory;
}

/* Makes things as large as the window has room for. */
void DeskWindow::fit()
{
    int factor = LeastFactor;
    for (const Fit& each : Fits) {
        if (width() >= each.window.width() && height() >= each.window.height())
            factor = std::max(factor, each.factor);
    }
    const bool compact = height() < CompactHeight;
    m_pen->setFactor(factor, compact);
    m_column->setContentsMargins(compact ? 12 : 20, compact ? 8 : 18, compact ? 12 : 20,
                                 compact ? 8 : 18);
    m_column->setSpacing(compact ? 6 : 14);
    m_row->setSpacing(compact ? 8 : 14);
    m_launcher->setCompact(compact);
    m_launcherCard->setFixedWidth(std::min(MostLauncher, width() / LauncherShare + 40));
}

void DeskWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fit();
}

void DeskWindow::dragEnterEvent(QDragEnterEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.first().isLocalFile()
        && PageLoader::canBePage(urls.first().toLocalFile()))
        event->acceptProposedAction();
}

void DeskWindow::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() != 1)
        return;
    layPage(PageLoader::named(urls.first().toLocalFile()));
    event->acceptProposedAction();
}

/* From the pen to the page, and back. */
void DeskWindow::moveFocus()
{
    if (m_page->hasFocus())
        m_pen->display().setFocus(Qt::ShortcutFocusReason);
    else
        m_page->setFocus(Qt::ShortcutFocusReason);
}

void DeskWindow::showHelp()
{
    auto* const box = new QMessageBox(QMessageBox::NoIcon, tr("Keys and hints"), desktexts::help(),
                                      QMessageBox::Close, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void DeskWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        m_keyboard.releaseAll();
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
