#ifndef LAUNCHERVIEW_H
#define LAUNCHERVIEW_H

#include "desk/launcher.h"

#include <QFutureWatcher>
#include <QWidget>

class QComboBox;
class QGridLayout;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QLabel;

/*
 * The launcher's side of the pen: its switches, the messages that go to and fro, and what lies on
 * the card.
 */
class LauncherView : public QWidget
{
    Q_OBJECT

public:
    /* `root`: the run root whose scan files are shown. */
    LauncherView(Launcher& launcher, QString root, QWidget* parent = nullptr);

    void setPenRunning(bool running);
    /* How things stand with the pen, in a few words. */
    void setStatus(const QString& status, bool alarm);

signals:
    void startWanted();
    /* The user wants the pen's interface in a language, a row of penlanguages::list(). */
    void languageWanted(int row);

private:
    QWidget* makeSwitches();
    void addLanguages(QGridLayout& grid, int row);
    QPushButton* addSwitch(const QString& text, const QString& tip);
    void addMessage(const Launcher::Entry& entry);
    void readFiles();
    void showFiles();

    Launcher& m_launcher;
    const QString m_root;
    QLabel* m_status;
    QPushButton* m_start;
    QPushButton* m_usb;
    QComboBox* m_languages;
    QList<QWidget*> m_whileRunning;
    QListWidget* m_messages;
    QPlainTextEdit* m_files;
    QString m_filesText;
    QFutureWatcher<QString> m_filesReader; // a full card takes longer than a key may wait
};

#endif
