// MainWindow, messages and questions: shown over the screen that is current, and spoken.

#include "app/mainwindow.h"

#include "app/storagecheck.h"
#include "app/widgetchange.h"
#include "widgets/messagedialog.h"
#include "widgets/yesnoselect.h"

#include <QApplication>

void MainWindow::showMessage(const QString& text)
{
    if (!m_keepRunning)
        return; // what ends in the background has nobody to tell
    MessageDialog(this, text).exec();
    focusCurrent();
}

void MainWindow::spaceMessage()
{
    if (isStorageLow())
        showMessage(tr("No enough storage space. Please remove some files."));
}

bool MainWindow::askYesNo(YesnoSelect& dialog, const Question& question)
{
    connect(&dialog, &YesnoSelect::signalShow, this, [this, question](int choice) {
        talkingMenuTTS(0, question.text, choice == 0 ? question.ifYes : question.ifNo);
    });
    // Left leads to Yes and right to No, wherever one was.
    connect(&dialog, &YesnoSelect::singalLR, this, [this, question](int direction) {
        talkingMenuTTS(0, QString(), direction == 0 ? question.ifYes : question.ifNo);
    });
    const bool yes = dialog.exec() == QDialog::Accepted && dialog.getValue() == 0;
    focusCurrent();
    return yes;
}

void MainWindow::focusCurrent()
{
    if (QWidget* current = WidgetChange::Instance()->getCurWidget())
        current->setFocus(Qt::OtherFocusReason);
}

bool MainWindow::isFrozen() const
{
    const QWidget* current = WidgetChange::Instance()->getCurWidget();
    return !m_keepRunning || (current && !current->isEnabled());
}

// Without an answer: a question that is left so changes nothing.
void MainWindow::dismissDialogs()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        auto* dialog = qobject_cast<QDialog*>(window);
        if (dialog && dialog->isVisible())
            dialog->reject();
    }
}
