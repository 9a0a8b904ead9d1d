// MainWindow, the keys that a screen has no use for.

#include "app/mainwindow.h"

#include <QKeyEvent>

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F11)
        renameCurrentFile();
    else
        QMainWindow::keyPressEvent(event);
}
