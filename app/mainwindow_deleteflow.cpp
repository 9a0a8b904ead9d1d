// MainWindow, deleting a scan file. What is deleted is gone for good: it is asked before.

#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "store/filemanager.h"
#include "widgets/mysubmenu.h"
#include "widgets/yesnoselect.h"

void MainWindow::deleteFileMenu()
{
    showFileMenu(FileMenuUse::Delete);
}

void MainWindow::deleteFile()
{
    FileInfo chosen;
    if (!m_fileMenu || !FileManager::Instance()->getInfoByID(m_fileMenu->getCurIndex(), chosen))
        return;
    YesnoSelect dialog(this);
    connect(&dialog, &YesnoSelect::signalEsc, this, &MainWindow::escFormdeleteset);
    const bool wanted = askYesNo(dialog, {tr("Are you sure to delete it?"),
                                          tr("Press OK to delete, or right to interrupt."),
                                          tr("Press OK to interrupt, or left to delete.")});
    if (isFrozen() || !m_fileMenu)
        return;
    if (wanted)
        carryOutDelete(chosen);
    else
        speakCurrentFile();
}

// The question is answered or left: its instruction is cut short.
void MainWindow::escFormdeleteset()
{
    keyPressSlot();
}

// The list may have changed while the question was on the screen: only the file that was asked
// about goes.
void MainWindow::carryOutDelete(const FileInfo& chosen)
{
    FileManager* files = FileManager::Instance();
    const int place = m_fileMenu->getCurIndex();
    FileInfo there;
    if (!files->getInfoByID(place, there) || there.name != chosen.name
        || files->removeAt(place) != 0) {
        showMessage(tr("The file cannot be deleted."));
        if (m_fileMenu && !isFrozen())
            speakCurrentFile();
        return;
    }
    updateContinueItem();
    refreshFileMenu();
    if (!m_fileMenu || isFrozen()) // the store may have shown a message
        return;
    if (files->getFileNum() > 0) {
        m_fileMenu->setCurIndex(qMin(place, files->getFileNum() - 1));
        speakCurrentFile();
        return;
    }
    showMessage(tr("No available files!"));
    if (isFrozen())
        return;
    ScanWindow();
    releaseFileMenu();
}
