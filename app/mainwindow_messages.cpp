// MainWindow, messages: what the launcher asks for, and what it is told.

#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/ttsplayer.h"
#include "platform/oled.h"
#include "platform/zembra_iap.h"
#include "store/filemanager.h"
#include "store/launcher.h"
#include "widgets/mysubmenu.h"

#include <QApplication>

void MainWindow::SendShow()
{
    launcher::tellShown();
}

void MainWindow::handleReceived(const QString& message, const QByteArray& payload)
{
    if (message == QLatin1String("execute(QString)")) {
        if (payload == "presspoweroff" || payload == "plugusb") {
            silence();
        } else if (payload == "stop") {
            returnToEditor(); // before the signal: the editor that is shown clears it
            ZEMBRA_IAP_SetStopSignal(1);
            StopAll();
            close();
        } else if (payload == "save") {
            TTSPlayer::Instance()->stop();
            SaveAll();
        } else if (payload == "savenochujiao") {
            Save();
        } else if (payload == "stoponly") {
            m_keepRunning = false;
            StopOnly();
        } else if (payload == "chujiaostop") {
            ZEMBRA_IAP_SetStopSignal(0);
        }
    } else if (message == QLatin1String("USB(QString)")) {
        if (payload == "plug")
            StopAll();
        else if (payload == "delete")
            Back2Normal();
    }
}

// Everything that speaks or waits to speak falls silent; nothing is waited for.
void MainWindow::silence()
{
    hushMenu();
    if (m_editor) {
        m_editor->StopTTS(); // a scan that waits for its read delay, too
        m_editor->setFlagForTalk(false);
    }
    if (m_renameEdit)
        m_renameEdit->StopTTS();
    if (m_transEdit) {
        m_transEdit->clearTransContent();
        m_transEdit->stopReading();
        m_transEdit->setOKSoundFlagForTalk(false);
    }
    TTSPlayer::Instance()->stop();
    m_utterancePending = false;
    m_messageIsSpoken = false;
    m_messages.clear();
    m_readAgainPending = false;
    m_gotoBeginPending = false;
    m_confirmation.clear();
}

// The disabled state doubles as the frozen state while the card belongs to the PC. A menu that is
// open over the editor disables it, too; what was scanned is to be saved all the same.
bool MainWindow::editorIsUsable() const
{
    const QWidget* current = WidgetChange::Instance()->getCurWidget();
    const bool frozen = current && !current->isEnabled();
    return m_editor && (m_editor->isEnabled() || (m_editor->isBound() && !frozen));
}

void MainWindow::Save()
{
    if (!editorIsUsable())
        return;
    m_editor->awaitScan();
    m_editor->StopTTS();
    m_editor->SaveOnly();
}

void MainWindow::SaveAll()
{
    if (!editorIsUsable())
        return;
    ZEMBRA_IAP_SetStopSignal(1);
    oled_update_set(1);
    Save();
}

// Saving may show a message, and the PC may be done with the card while it is shown.
void MainWindow::StopAll()
{
    m_usbHasEnded = false;
    ++m_stopsRunning;
    stopAndFreeze();
    if (--m_stopsRunning == 0 && m_usbHasEnded)
        Back2Normal();
}

void MainWindow::stopAndFreeze()
{
    dismissDialogs();
    m_editorWasOpen = false;
    if (editorIsUsable()) {
        returnToEditor(); // leaving it goes to the screen below it
        const bool fileWasOpen = m_editor->isBound();
        m_editor->SaveAndExit();
        // A text that could not be saved stays in the editor: reopening the file would lose it.
        m_editorWasOpen = fileWasOpen && !m_editor->isBound();
    }
    pauseNameScanning();
    closeDictionary();
    if (QWidget* current = WidgetChange::Instance()->getCurWidget())
        current->setEnabled(false);
}

void MainWindow::Back2Normal()
{
    m_usbHasEnded = true;
    if (m_stopsRunning > 0)
        return;
    if (QWidget* current = WidgetChange::Instance()->getCurWidget()) {
        current->setEnabled(true);
        current->setFocus(Qt::OtherFocusReason);
    }
    resumeAfterUsb();
    // Said once more, it must not load the file over what was scanned since.
    if (m_editor && m_editorWasOpen && !m_editor->isBound())
        continueFile();
}

// Files may have come on the card, and the scan engine was stopped.
void MainWindow::resumeAfterUsb()
{
    FileManager* files = FileManager::Instance();
    const int before = files->getFileNum();
    files->getFileList();
    refreshFileMenu();
    if (m_fileMenu) // what is new is above
        m_fileMenu->setCurIndex(m_fileMenu->getCurIndex() + files->getFileNum() - before);
    resumeNameScanning();
    if (m_renameEdit && m_renameEdit->renameFlag())
        m_renameEdit->setScanInit();
    openDictionary();
    if (m_dictJob && m_transEdit && WidgetChange::Instance()->getCurWidget() == m_transEdit)
        showDictBusy(); // its keys rest until then
}

void MainWindow::StopOnly()
{
    dismissDialogs();
    pauseNameScanning();
    if (editorIsUsable())
        m_editor->StopOnly();
    launcher::tellLeft();
    QApplication::closeAllWindows();
}
