// MainWindow, dictionaries: the list of them, and the way to a translation.

#include "app/mainwindow.h"

#include "editor/myedit.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"

// The engine's order is stable, and settings refer to places in it: it is kept.
void MainWindow::sortDictLoad()
{
    m_dictionaries.clear();
    Translater::Instance()->GetDict(m_dictionaries);
}

void MainWindow::finishTtsSet()
{
    endBusy();
}

QString MainWindow::getWordFromCursor() const
{
    return m_editor ? m_editor->getWordFromMyEdit() : QString();
}

void MainWindow::transWordFun()
{
    TTSPlayer::Instance()->stop();
    hushMenu();
    showMessage(getWordFromCursor().isEmpty() ? tr("word is null") : tr("Not available yet."));
}

void MainWindow::selectDicFun()
{
    showMessage(tr("Not available yet."));
}
