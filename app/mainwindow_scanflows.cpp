// MainWindow, Scan to file: the slots behind the items of the main menu.

#include "app/mainwindow.h"

#include "app/storagecheck.h"
#include "app/widgetchange.h"
#include "editor/myedit.h"
#include "engines/csoundthread.h"
#include "engines/recchar.h"
#include "engines/ttsplayer.h"
#include "platform/devicepaths.h"
#include "platform/zembra_iap.h"
#include "store/configreader.h"
#include "store/filemanager.h"
#include "store/plainfile.h"
#include "store/scannames.h"
#include "widgets/mysubmenu.h"
#include "widgets/sandglass.h"

#include <QTimer>

namespace {

constexpr int PaintFirstMs = 1;

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
    showSandGlass();
    QTimer::singleShot(PaintFirstMs, this, [this, work] {
        // The card may have gone to a PC meanwhile.
        if (isFrozen())
            endBusy();
        else
            (this->*work)();
    });
}

void MainWindow::showSandGlass()
{
    if (!m_sandGlass) {
        m_sandGlass = new SandGlass(this);
        m_sandGlass->setGeometry(SandGlass::Place);
        m_sandGlass->show();
    }
    m_sandGlass->raise();
}

void MainWindow::endBusy()
{
    delete m_sandGlass;
}

void MainWindow::showNewEdit()
{
    FileManager* files = FileManager::Instance();
    if (!files->exceedMaxNum()) {
        endBusy();
        showMessage(tr("Max number of files exceeded. Please remove some files."));
        return;
    }
    if (!prepareEditor())
        return;

    FileInfo created;
    if (files->saveFile(QString()).isEmpty() || !files->getLatestFile(created)) {
        endBusy();
        focusCurrent(); // the store has told the user
        return;
    }
    makeCurrent(created);
    if (showEdit(created))
        tellScanDirection();
}

// In the list file too: after a cut of power the menu offers the file that was worked on.
void MainWindow::makeCurrent(const FileInfo& file)
{
    FileManager::Instance()->setCurFileIndex(file.id);
    FileManager::Instance()->flush();
    updateContinueItem();
}

void MainWindow::showContinueEdit()
{
    FileInfo current;
    if (!FileManager::Instance()->getCurInfo(current))
        endBusy();
    else if (fileIsThere(current) && prepareEditor() && showEdit(current))
        tellScanDirection();
}

// A file that has vanished is not opened empty: leaving it would write it anew.
bool MainWindow::fileIsThere(const FileInfo& file)
{
    if (plainfile::isPlainFile(devicePath(scannames::devicePlace(file))))
        return true;
    endBusy();
    showMessage(tr("The file is missing."));
    resumeNameScanning();
    return false;
}

// Makes sure of storage, folder and editor. False when the card has gone to a PC meanwhile.
bool MainWindow::prepareEditor()
{
    spaceMessage();
    if (isFrozen()) {
        endBusy();
        return false;
    }
    ensureScanFolder();
    ensureEditor();
    return true;
}

void MainWindow::ensureEditor()
{
    if (!m_editor) {
        m_editor = new MyEdit(this);
        m_editor->setGeometry(rect());
        m_editor->hide();
        m_editor->installEventFilter(this);
        connect(m_editor, &MyEdit::signalEsc, this, &MainWindow::editEsc);
        connect(m_editor, &MyEdit::signalDelete, this, &MainWindow::inputDelete);
        connect(m_editor, &MyEdit::signalKeyPress, this, &MainWindow::keyPressSlot);
        connect(m_editor, &MyEdit::signalShow, this, &MainWindow::editShowSlot);
        connect(m_editor, &MyEdit::signalQuickSet, this, &MainWindow::quickSet);
        connect(m_editor->soundThread(), &QThread::started, this,
                [this] { m_lastVoice = Voice::Editor; });
        connect(m_editor, &MyEdit::signalHint, this, &MainWindow::hintSlot);
        connect(m_editor, &MyEdit::signalTransScan, this, &MainWindow::beginTransScan);
        connect(m_editor, &MyEdit::signalTransText, this, &MainWindow::takeTransScan);
    }
    TTSPlayer::Instance()->setEdit(m_editor);
    m_editor->Getscanner()->setEdit(m_editor);
}

// A file that cannot be opened leaves the user where he was.
bool MainWindow::showEdit(const FileInfo& file)
{
    if (m_editor->setFileInfo(file) != 0) {
        endBusy();
        focusCurrent();
        resumeNameScanning();
        return false;
    }
    WidgetChange* screens = WidgetChange::Instance();
    // A settings menu that was opened while the file was: it ends, and is nothing to come back to.
    QWidget* below = screens->getCurWidget();
    if (m_flowScreens.contains(below))
        below = m_fileMenu ? m_fileMenu.data() : m_mainMenu;
    m_editor->setPrevWidget(below ? below : m_mainMenu);
    endBusy();
    screens->Go2NewWidget(m_editor);
    endFlowScreens();
    return true;
}

void MainWindow::tellScanDirection()
{
    if (ConfigReader::Instance()->getScanDirectInfo() == ZEMBRA_IAP_VERTICAL)
        showMessage(tr("Vertical Text Scan Mode!"));
}

void MainWindow::openFileMenu()
{
    showFileMenu(FileMenuUse::Open);
    resumeNameScanning();
}

void MainWindow::escFromfilemenuSlot()
{
    pauseNameScanning();
    releaseFileMenu();
}

void MainWindow::openFile()
{
    if (m_sandGlass || !m_fileMenu)
        return;
    m_chosenFile = m_fileMenu->getCurIndex();
    ZEMBRA_IAP_Uninitialize();
    startBusy(&MainWindow::showOpenEdit);
}

void MainWindow::showOpenEdit()
{
    FileInfo chosen;
    if (!FileManager::Instance()->getInfoByID(m_chosenFile, chosen)) {
        endBusy();
        resumeNameScanning();
    } else if (fileIsThere(chosen) && prepareEditor() && showEdit(chosen)) {
        makeCurrent(chosen);
        tellScanDirection();
    }
}

// The editor goes back by itself when it leaves a file; without one it only asks. The list that it
// may go back to shows what the file holds now.
void MainWindow::editEsc()
{
    refreshFileMenu();
    if (WidgetChange::Instance()->getCurWidget() == m_editor && !m_editor->isBound()
        && !m_editor->getPrevWidget())
        ScanWindow();
}

void MainWindow::inputDelete()
{
    m_editor->setPrevWidget(nullptr);
    resumeNameScanning();
}
