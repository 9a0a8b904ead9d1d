// MainWindow, renaming by scanning: a swipe over a new name while the list of files to open is
// shown, or F11 on an entry and a swipe after that.

#include "app/mainwindow.h"

#include "app/renamerules.h"
#include "app/widgetchange.h"
#include "editor/myedit.h"
#include "editor/scannedname.h"
#include "engines/charscanner.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_iap.h"
#include "store/filemanager.h"
#include "store/launcher.h"
#include "widgets/evenlines.h"
#include "widgets/mysubmenu.h"
#include "widgets/painting.h"
#include "widgets/sandglass.h"
#include "widgets/yesnoselect.h"

#include <QApplication>
#include <QLabel>

namespace {

// Over the box of the new name; title and old name stay in view.
const QRect HintPlace(0, 32, 256, 32);
constexpr int HintLines = 2;

} // namespace

void MainWindow::resumeNameScanning()
{
    if (!openListIsShown() || isFrozen())
        return;
    if (!m_nameScanner) {
        m_nameScanner = std::make_unique<CharScanner>(this);
        connect(this, &MainWindow::signalEdit, this, &MainWindow::Recognize, Qt::QueuedConnection);
    }
    m_nameScanner->start();
}

// The card goes to a PC, or the application ends: neither list nor input takes a swipe.
void MainWindow::pauseNameScanning()
{
    if (openListIsShown() || (m_renameEdit && m_renameEdit->renameFlag()))
        ZEMBRA_IAP_Uninitialize();
}

// A text may come late: after a key has led elsewhere, or while something lies over the list.
void MainWindow::Recognize(const QString& text)
{
    if (entryCanBeRenamed())
        beginRename(text);
}

void MainWindow::renameCurrentFile()
{
    if (entryCanBeRenamed())
        beginRename(QString());
}

bool MainWindow::entryCanBeRenamed() const
{
    return openListIsShown() && !isFrozen() && !m_sandGlass && !QApplication::activeModalWidget();
}

// Files of the other store are only opened, changed and deleted here.
void MainWindow::beginRename(const QString& proposal)
{
    if (!FileManager::Instance()->getInfoByID(m_fileMenu->getCurIndex(), m_renamed))
        return;
    ZEMBRA_IAP_Uninitialize();
    if (m_renamed.storage != 0) {
        showMessage(tr("This file cannot be renamed."));
        resumeNameScanning();
        return;
    }
    showRenameInput(proposal);
}

void MainWindow::showRenameInput(const QString& proposal)
{
    ensureRenameEdit();
    if (m_keyForwarder)
        m_keyForwarder->hide();
    m_renameEdit->startRename(m_renamed.name, proposal, renamerules::MaxLength);
    m_renameEdit->setPrevWidget(m_fileMenu);
    WidgetChange::Instance()->Go2NewWidget(m_renameEdit);
}

// An editor of its own: that of the texts may hold one that could not be saved.
void MainWindow::ensureRenameEdit()
{
    if (m_renameEdit)
        return;
    m_renameEdit = new MyEdit(this);
    m_renameEdit->setGeometry(rect());
    m_renameEdit->hide();
    m_renameEdit->installEventFilter(this);
    connect(m_renameEdit, &MyEdit::signalConfirmRename, this, &MainWindow::renameSlot);
    connect(m_renameEdit, &MyEdit::signalCancelRename, this, &MainWindow::renameEscSlot);
    connect(m_renameEdit, &MyEdit::signalShow, this, &MainWindow::editRenameShowSlot);
    connect(m_renameEdit, &MyEdit::signalKeyPress, this, &MainWindow::keyPressSlot);
    connect(m_renameEdit, &MyEdit::signalHint, this, &MainWindow::hintSlot);
    connect(m_renameEdit, &MyEdit::signalNewInput, this, &MainWindow::newInput);

    const QStringList lines = evenlines::evenLines(tr("Scan to rename,press ok to confirm."),
                                                   HintPlace.width(), HintLines);
    auto* hint = new QLabel(lines.join(u'\n'), m_renameEdit);
    hint->setTextFormat(Qt::PlainText);
    hint->setFont(painting::screenFont());
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignCenter);
    hint->setGeometry(HintPlace);
    hint->setAutoFillBackground(true);
    hint->hide();
    setKeyForwarder(hint);
}

// Until there is a name the hint stands in its place.
void MainWindow::editRenameShowSlot(int index, const QString& text)
{
    if (text.isEmpty())
        hideButton();
    talkingMenuTTS(index, text, tr("Scan to rename,press ok to confirm."));
}

void MainWindow::newInput()
{
    TTSPlayer::Instance()->stop();
    ZEMBRA_IAP_SetStopSignal(1); // one scan at a time; its end lets the next one come
    launcher::tellSwipe();
    if (m_keyForwarder)
        m_keyForwarder->hide();
    if (MyEdit* edit = forwardedEditor())
        edit->savePosition();
}

MyEdit* MainWindow::forwardedEditor() const
{
    return m_renameEdit && m_renameEdit->renameFlag() ? m_renameEdit : m_editor;
}

void MainWindow::renameSlot(const QString& newName)
{
    if (!m_fileMenu)
        return;
    const QString name = nameFromScan(newName);
    const QString refusal = refusalOf(name);
    if (!refusal.isEmpty()) {
        // Back into the input: the next swipe brings a better one.
        showMessage(refusal);
        if (m_fileMenu && !isFrozen())
            showRenameInput(name);
        return;
    }
    YesnoSelect dialog(this);
    dialog.setMsgText(renamerules::question(m_renamed.name, name));
    connect(&dialog, &YesnoSelect::signalEsc, this, &MainWindow::keyPressSlot);
    const bool wanted = askYesNo(dialog, {tr("Sure to rename the file?"),
                                          tr("Press OK to rename, or right to interrupt."),
                                          tr("Press OK to interrupt, or left to rename.")});
    if (isFrozen() || !m_fileMenu)
        return;
    if (wanted)
        carryOutRename(name);
    if (!isFrozen() && m_fileMenu)
        returnToOpenList();
}

void MainWindow::returnToOpenList()
{
    if (WidgetChange::Instance()->getCurWidget() == m_fileMenu) {
        speakCurrentFile();
        resumeNameScanning();
        return;
    }
    m_renameEdit->setRenameFlag(false);
    renameEscSlot();
}

QString MainWindow::refusalOf(const QString& name) const
{
    const QString refusal = renamerules::text(renamerules::judge(name));
    if (!refusal.isEmpty())
        return refusal;
    FileManager* files = FileManager::Instance();
    QVector<FileInfo> listed;
    files->getInfoList(listed);
    const bool isListed = std::any_of(listed.cbegin(), listed.cend(),
                                      [&](const FileInfo& file) { return file.name == name; });
    return isListed || !files->judgeSameName(0, name) ? tr("File exists.") : QString();
}

void MainWindow::carryOutRename(const QString& name)
{
    FileManager* files = FileManager::Instance();
    const int place = files->getFileNum() - 1 - m_renamed.id;
    FileInfo there;
    if (!files->getInfoByID(place, there) || there.name != m_renamed.name
        || !files->renameFile(m_renamed.name, name)) {
        showMessage(tr("The file cannot be renamed."));
        return;
    }
    const bool listed = files->saveCfg(place, name);
    refreshFileMenu();
    m_fileMenu->setCurIndex(place);
    updateContinueItem();
    if (!listed)
        showMessage(tr("File system is damaged, please connect to PC and repair."));
}

void MainWindow::renameEscSlot()
{
    if (m_fileMenu && WidgetChange::Instance()->getCurWidget() != m_fileMenu)
        WidgetChange::Instance()->Go2NewWidget(m_fileMenu);
    resumeNameScanning();
}
