// MainWindow, Scan to file: the slots behind the items of the main menu.

#include "app/mainwindow.h"

#include "app/storagecheck.h"
#include "app/widgetchange.h"
#include "editor/myedit.h"
#include "engines/recchar.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_iap.h"
#include "store/configreader.h"
#include "store/filemanager.h"
#include "widgets/messagedialog.h"
#include "widgets/mysubmenu.h"
#include "widgets/sandglass.h"

#include <QAction>
#include <QTimer>

namespace {

constexpr int PaintFirstMs = 1;
const QRect ScreenPlace(0, 0, 256, 64);

} // namespace

void MainWindow::newFile()
{
    startBusy(&MainWindow::showNewEdit);
}

void MainWindow::continueFile()
{
    startBusy(&MainWindow::showContinueEdit);
}

void MainWindow::startBusy(void (MainWindow::*work)())
{
    if (m_sandGlass)
        return;
    m_sandGlass = new SandGlass(this);
    m_sandGlass->setGeometry(SandGlass::Place);
    m_sandGlass->show();
    m_sandGlass->raise();
    QTimer::singleShot(PaintFirstMs, this, [this, work] {
        // The card may have gone to a PC meanwhile.
        const QWidget* current = WidgetChange::Instance()->getCurWidget();
        if (current && !current->isEnabled())
            endBusy();
        else
            (this->*work)();
    });
}

void MainWindow::endBusy()
{
    delete m_sandGlass;
}

void MainWindow::showMessage(const QString& text)
{
    talkingMenuTTS(0, text, QString());
    MessageDialog(this, text).exec();
    if (QWidget* current = WidgetChange::Instance()->getCurWidget())
        current->setFocus(Qt::OtherFocusReason);
}

void MainWindow::showNewEdit()
{
    FileManager* files = FileManager::Instance();
    if (!files->exceedMaxNum()) {
        endBusy();
        showMessage(tr("Max number of files exceeded. Please remove some files."));
        return;
    }
    warnWhenStorageLow();
    ensureScanFolder();
    ensureEditor();

    FileInfo created;
    if (files->saveFile(QString()).isEmpty() || !files->getLatestFile(created)) {
        endBusy();
        return; // the store has told the user
    }
    makeCurrent(created);
    bindAndShowEditor(created);
}

// In the list file too: after a cut of power the menu offers the file that was worked on.
void MainWindow::makeCurrent(const FileInfo& file)
{
    FileManager::Instance()->setCurFileIndex(file.id);
    FileManager::Instance()->flush();
    setContinueItem(m_mainMenu, file.name);
}

void MainWindow::showContinueEdit()
{
    FileInfo current;
    if (FileManager::Instance()->getCurInfo(current))
        showEdit(current);
    else
        endBusy();
}

bool MainWindow::showEdit(const FileInfo& file)
{
    warnWhenStorageLow();
    ensureScanFolder();
    ensureEditor();
    return bindAndShowEditor(file);
}

void MainWindow::ensureEditor()
{
    if (!m_editor) {
        m_editor = new MyEdit(this);
        m_editor->setGeometry(ScreenPlace);
        m_editor->hide();
        m_editor->installEventFilter(this);
        connect(m_editor, &MyEdit::signalEsc, this, &MainWindow::editEsc);
        connect(m_editor, &MyEdit::signalDelete, this, &MainWindow::inputDelete);
        connect(m_editor, &MyEdit::signalKeyPress, this, &MainWindow::keyPressSlot);
        connect(m_editor, &MyEdit::signalShow, this, &MainWindow::editShowSlot);
    }
    TTSPlayer::Instance()->setEdit(m_editor);
    m_editor->Getscanner()->setEdit(m_editor);
}

bool MainWindow::bindAndShowEditor(const FileInfo& file)
{
    if (m_editor->setFileInfo(file) != 0) {
        endBusy();
        if (QWidget* menu = WidgetChange::Instance()->getCurWidget())
            menu->setFocus(Qt::OtherFocusReason);
        return false;
    }
    WidgetChange* screens = WidgetChange::Instance();
    m_editor->setPrevWidget(screens->getCurWidget() ? screens->getCurWidget() : m_mainMenu);
    endBusy();
    screens->Go2NewWidget(m_editor);
    if (ConfigReader::Instance()->getScanDirectInfo() == ZEMBRA_IAP_VERTICAL)
        showMessage(tr("Vertical Text Scan Mode!"));
    return true;
}

// Newest first, as the store lists them.
void MainWindow::openFileMenu()
{
    QVector<FileInfo> files;
    FileManager::Instance()->getInfoList(files);
    if (files.isEmpty()) {
        showMessage(tr("No available files!"));
        return;
    }
    delete m_subMenu;
    m_subMenu = new MySubMenu(tr("Open file"), this);
    m_subMenu->setGeometry(ScreenPlace);
    for (const FileInfo& file : std::as_const(files)) {
        QAction* entry = m_subMenu->addAction(file.name + QLatin1String("  [") + file.brief + u']');
        connect(entry, &QAction::triggered, this, &MainWindow::openFile);
    }
    connectMenu(m_subMenu);
    m_subMenu->setPrevWidget(WidgetChange::Instance()->getCurWidget());
    WidgetChange::Instance()->Go2NewWidget(m_subMenu);
}

void MainWindow::openFile()
{
    if (m_sandGlass || !m_subMenu)
        return;
    m_chosenFile = m_subMenu->getCurIndex();
    ZEMBRA_IAP_Uninitialize();
    startBusy(&MainWindow::showOpenEdit);
}

void MainWindow::showOpenEdit()
{
    // A file that cannot be opened does not become the one to continue.
    FileInfo chosen;
    if (!FileManager::Instance()->getInfoByID(m_chosenFile, chosen))
        endBusy();
    else if (showEdit(chosen))
        makeCurrent(chosen);
}

void MainWindow::deleteFileMenu()
{
    showMessage(tr("Not available yet."));
}

void MainWindow::newSet()
{
    showMessage(tr("Not available yet."));
}

// The editor goes back by itself when it leaves a file; without one it only asks.
void MainWindow::editEsc()
{
    if (WidgetChange::Instance()->getCurWidget() == m_editor && !m_editor->isBound()
        && !m_editor->getPrevWidget())
        ScanWindow();
}

void MainWindow::inputDelete()
{
    m_editor->setPrevWidget(nullptr);
}
