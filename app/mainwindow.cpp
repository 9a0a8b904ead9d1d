#include "app/mainwindow.h"

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {}

MainWindow::~MainWindow() = default;

void MainWindow::tirggleEditSingal(const QString& text)
{
    emit signalEdit(text);
}
