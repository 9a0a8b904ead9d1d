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
    QTimer::singleShot(PaintFirstMs, this, work);
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
    files->setCurFileIndex(created.id);
    setContinueItem(m_mainMenu, created.name);
    bindAndShowEditor();
}

void MainWindow::showContinueEdit()
{
    warnWhenStorageLow();
    ensureScanFolder();
    ensureEditor();
    bindAndShowEditor();
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

void MainWindow::bindAndShowEditor()
{
    FileInfo current;
    const bool found = FileManager::Instance()->getCurInfo(current);
    if (!found || m_editor->setFileInfo(current) != 0) {
        endBusy();
        if (QWidget* menu = WidgetChange::Instance()->getCurWidget())
            menu->setFocus(Qt::OtherFocusReason);
        return;
    }
    WidgetChange* screens = WidgetChange::Instance();
    m_editor->setPrevWidget(screens->getCurWidget() ? screens->getCurWidget() : m_mainMenu);
    endBusy();
    screens->Go2NewWidget(m_editor);
    if (ConfigReader::Instance()->getScanDirectInfo() == ZEMBRA_IAP_VERTICAL)
        showMessage(tr("Vertical Text Scan Mode!"));
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
    FileManager* files = FileManager::Instance();
    FileInfo chosen;
    if (files->getInfoByID(m_chosenFile, chosen)) {
        files->setCurFileIndex(chosen.id);
        setContinueItem(m_mainMenu, chosen.name);
    }
    showContinueEdit();
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
