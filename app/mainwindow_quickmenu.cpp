// MainWindow, the menus over the editor: what they offer, and the way back.

#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "editor/myedit.h"
#include "engines/cttsthread.h"
#include "platform/zembra_iap.h"
#include "widgets/mysubmenu.h"

void MainWindow::quickSet()
{
    MySubMenu* menu =
        newMenu(tr("Scan quick settings"), {{tr("Read again."), &MainWindow::soundAgainFun},
                                            {tr("Go to beginning"), &MainWindow::gotoBeginningFun},
                                            {tr("Reading settings"), &MainWindow::newTTS},
                                            {tr("Translate"), &MainWindow::transWordFun},
                                            {tr("Select dictionary"), &MainWindow::selectDicFun},
                                            {tr("Scan languages"), &MainWindow::newLanguage}});
    connect(menu, &MySubMenu::escPressed, this, &MainWindow::quickEsc);
    openMenu(menu);
}

// The menu goes back to the editor by itself, and the editor that is shown lets the pen scan.
void MainWindow::quickEsc(int index, const QString& text)
{
    Q_UNUSED(index)
    Q_UNUSED(text)
    endFlowScreens();
}

void MainWindow::setBiState(int index, const QString& text)
{
    Q_UNUSED(index)
    Q_UNUSED(text)
    endFlowScreens();
}

void MainWindow::setBiStateFlag(int index, const QString& text)
{
    Q_UNUSED(index)
    Q_UNUSED(text)
    ZEMBRA_IAP_SetStopSignal(0);
}

void MainWindow::soundAgainFun()
{
    m_readAgainPending = true;
    m_utterancePending = false;
    returnToEditor();
    if (!m_menuSpeech->isRunning())
        carryOutRequests();
}

void MainWindow::gotoBeginningFun()
{
    m_gotoBeginPending = true;
    m_utterancePending = false;
    returnToEditor();
    if (!m_menuSpeech->isRunning())
        carryOutRequests();
}

// The voice is free: what the user asked for in the quick menu begins.
void MainWindow::carryOutRequests()
{
    if (std::exchange(m_readAgainPending, false))
        soundAgainAfterTalkingMenu();
    if (std::exchange(m_gotoBeginPending, false))
        gotoBeginAfterTalkingMenu();
}

void MainWindow::soundAgainAfterTalkingMenu()
{
    if (!editorIsBelow())
        return;
    // Not whether the reading goes on: a short one may have ended by now.
    if (m_editor->canSoundAgain())
        m_editor->soundAgain();
    else
        editShowSlot(0, QString());
}

void MainWindow::gotoBeginAfterTalkingMenu()
{
    if (!editorIsBelow())
        return;
    m_editor->gotoBeginEdit();
    sayPlace();
}
