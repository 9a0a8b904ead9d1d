#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include <QMainWindow>

/* The controller of the whole application. */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /* Hands text recognised for a new file name to the rename flow. Any thread. */
    void tirggleEditSingal(const QString& text);

signals:
    void signalEdit(const QString& text);
};

#endif
