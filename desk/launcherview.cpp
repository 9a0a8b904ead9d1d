#include "desk/launcherview.h"

#include "desk/desklook.h"
#include "desk/penfiles.h"
#include "desk/penlanguages.h"
#include "desk/penstorage.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <QtConcurrentRun>

namespace {

constexpr int MaxMessages = 500;
constexpr int FilesEveryMs = 1000;
constexpr int SentRole = Qt::UserRole;

QString filesOnPen(const QString& root)
{
    QString text;
    for (const penfiles::ScanFile& file : penfiles::list(root))
        text += file.path + LauncherView::tr(" (%1 bytes)").arg(file.bytes) + QLatin1Char('\n')
                + file.text + QLatin1String("\n\n");
    return text.isEmpty() ? LauncherView::tr("No scan files yet") : text;
}

} // namespace

LauncherView::LauncherView(Launcher& launcher, PenStorage& storage, QString root, QWidget* parent)
    : QWidget(parent),
      m_launcher(launcher),
      m_storage(storage),
      m_root(std::move(root)),
      m_status(new QLabel),
      m_start(nullptr),
      m_usb(nullptr),
      m_languages(new QComboBox),
      m_tabs(new QTabWidget),
      m_messages(new QListWidget),
      m_files(new QPlainTextEdit)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 14);
    column->setSpacing(10);
    m_status->setWordWrap(true);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setObjectName(QStringLiteral("status"));
    m_status->setAccessibleName(tr("How things stand"));
    column->addWidget(m_status);
    column->addWidget(makeSwitches());

    m_messages->setAccessibleName(tr("Messages between launcher and pen"));
    m_messages->setUniformItemSizes(true);
    m_files->setAccessibleName(tr("Files on the pen's card"));
    m_files->setReadOnly(true);
    m_files->setTabChangesFocus(true);
    m_tabs->addTab(m_files, tr("&Card"));
    m_tabs->addTab(m_messages, tr("&Messages"));
    column->addWidget(m_tabs, 1);

    connect(&m_launcher, &Launcher::logged, this, &LauncherView::addMessage);
    connect(&m_launcher, &Launcher::usbChanged, m_usb, &QPushButton::setChecked);
    auto* const timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this] {
        if (m_files->isVisible())
            readFiles();
    });
    connect(m_tabs, &QTabWidget::currentChanged, this, &LauncherView::readFiles);
    connect(&m_filesReader, &QFutureWatcher<QString>::finished, this, &LauncherView::showFiles);
    timer->start(FilesEveryMs);
    readFiles();
}

QWidget* LauncherView::makeSwitches()
{
    m_start = addSwitch(tr("Start the pe&n"), tr("Starts the pen's application"));
    connect(m_start, &QPushButton::clicked, this, &LauncherView::startWanted);
    m_usb = addSwitch(tr("&USB cable"), tr("Plugs a USB cable into the pen, or pulls it out"));
    m_usb->setCheckable(true);
    connect(m_usb, &QPushButton::clicked, this, [this](bool plugged) {
        if (plugged)
            m_launcher.plugUsb();
        else
            m_launcher.unplugUsb();
    });
    auto* const power = addSwitch(tr("Po&wer key"), tr("Presses the power key: the pen is silent"));
    connect(power, &QPushButton::clicked, &m_launcher, &Launcher::pressPower);
    auto* const save = addSwitch(tr("Sa&ve"), tr("Asks the pen to save the open file"));
    connect(save, &QPushButton::clicked, &m_launcher, &Launcher::save);
    auto* const stop = addSwitch(tr("S&top"), tr("Asks the pen to save and close"));
    connect(stop, &QPushButton::clicked, &m_launcher, &Launcher::stop);
    m_whileRunning = {m_usb, power, save, stop};

    m_card =
        addSwitch(tr("C&ard out"), tr("Takes the memory card out of the pen, or puts it back"));
    m_card->setCheckable(true);
    connect(m_card, &QPushButton::clicked, this, [this](bool out) {
        if (!m_storage.setCardOut(out))
            setStatus(m_storage.errorString(), true);
        m_card->setChecked(m_storage.isCardOut());
    });
    connect(&m_storage, &PenStorage::cardChanged, m_card, &QPushButton::setChecked);
    m_full =
        addSwitch(tr("Memory &full"), tr("Fills the memory of the pen and its card, or frees it"));
    m_full->setCheckable(true);
    connect(m_full, &QPushButton::clicked, this, [this](bool full) {
        if (!m_storage.setFull(full))
            setStatus(m_storage.errorString(), true);
        m_full->setChecked(m_storage.isFull());
    });
    connect(&m_storage, &PenStorage::fullChanged, m_full, &QPushButton::setChecked);

    auto* const switches = new QWidget;
    auto* const grid = new QGridLayout(switches);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(8);
    grid->addWidget(m_start, 0, 0, 1, 4);
    for (int i = 0; i < m_whileRunning.size(); ++i)
        grid->addWidget(m_whileRunning.at(i), 1, i);
    addLanguages(*grid, 2);
    grid->addWidget(m_card, 3, 0, 1, 2);
    grid->addWidget(m_full, 3, 2, 1, 2);
    return switches;
}

void LauncherView::addLanguages(QGridLayout& grid, int row)
{
    const QVector<penlanguages::Language> languages = penlanguages::list(m_root);
    for (const penlanguages::Language& language : languages)
        m_languages->addItem(language.ownName);
    m_languages->setCurrentIndex(penlanguages::chosen(m_root));
    m_languages->setToolTip(tr("Language of the pen's menus and help; the pen starts anew"));
    m_languages->setMinimumHeight(desklook::FieldHeight);
    connect(m_languages, &QComboBox::activated, this, &LauncherView::languageWanted);
    auto* const label = new QLabel(tr("&Language of the pen"));
    label->setBuddy(m_languages);
    grid.addWidget(label, row, 0, 1, 2);
    grid.addWidget(m_languages, row, 2, 1, 2);
    label->setVisible(!languages.isEmpty());
    m_languages->setVisible(!languages.isEmpty());
}

QPushButton* LauncherView::addSwitch(const QString& text, const QString& tip)
{
    auto* const button = new QPushButton(text);
    button->setToolTip(tip);
    button->setAccessibleDescription(tip);
    button->setAutoDefault(false);
    return button;
}

void LauncherView::setPenRunning(bool running)
{
    m_start->setVisible(!running);
    m_languages->setCurrentIndex(penlanguages::chosen(m_root));
    for (QWidget* const button : std::as_const(m_whileRunning))
        button->setEnabled(running);
}

void LauncherView::setStatus(const QString& status, bool alarm)
{
    m_status->setText(status);
    m_status->setProperty("alarm", alarm);
    m_status->style()->polish(m_status);
}

void LauncherView::addTab(QWidget* page, const QString& title)
{
    m_tabs->addTab(page, title);
}

int LauncherView::tab() const
{
    return m_tabs->currentIndex();
}

void LauncherView::setTab(int tab)
{
    m_tabs->setCurrentIndex(tab);
}

void LauncherView::setCompact(bool compact)
{
    layout()->setContentsMargins(16, compact ? 6 : 14, 16, compact ? 6 : 14);
    layout()->setSpacing(compact ? 4 : 10);
}

void LauncherView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (int i = 0; i < m_messages->count(); ++i)
        colour(*m_messages->item(i));
}

void LauncherView::colour(QListWidgetItem& item)
{
    const desklook::Colours& colours = desklook::colours();
    item.setForeground(item.data(SentRole).toBool() ? colours.accent : colours.text);
}

void LauncherView::addMessage(const Launcher::Entry& entry)
{
    // An arrow to the right is to the pen.
    const QString arrow = entry.sent ? QStringLiteral("  \u2192  ") : QStringLiteral("  \u2190  ");
    auto* const item =
        new QListWidgetItem(entry.time.toString(QStringLiteral("HH:mm:ss.zzz")) + arrow
                            + entry.message + QLatin1String("  ") + QString::fromUtf8(entry.payload)
                            + (entry.delivered ? QString() : tr("  (nobody listens)")));
    item->setData(SentRole, entry.sent);
    colour(*item);
    const QScrollBar* const bar = m_messages->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    m_messages->addItem(item);
    if (m_messages->count() > MaxMessages)
        delete m_messages->takeItem(0);
    if (atEnd)
        m_messages->scrollToBottom();
}

void LauncherView::readFiles()
{
    if (!m_filesReader.isRunning())
        m_filesReader.setFuture(QtConcurrent::run(filesOnPen, m_root));
}

void LauncherView::showFiles()
{
    const QString text = m_filesReader.result();
    if (m_filesText == text)
        return;
    m_filesText = text;
    m_files->setPlainText(text);
}
