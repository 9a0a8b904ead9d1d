// MainWindow, dictionaries: the list of them, and the end of what the set-up workers apply.

#include "app/mainwindow.h"

#include "engines/translater.h"

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

void MainWindow::finishTtsSetForSet()
{
    endBusy();
}
