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
class QListWidgetItem;
class QTabWidget;
class PenStorage;

/*
 * The launcher's side of the pen: its switches, the messages that go to and fro, and what lies on
 * the card.
 */
class LauncherView : public QWidget
{
    Q_OBJECT

public:
    /* `root`: the run root whose scan files are shown. */
    LauncherView(Launcher& launcher, PenStorage& storage, QString root, QWidget* parent = nullptr);

    /* Another page beside messages and card. */
    void addTab(QWidget* page, const QString& title);
    int tab() const;
    void setTab(int tab);

    /* Less room around things, for a small window. */
    void setCompact(bool compact);

    void setPenRunning(bool running);
    /* How things stand with the pen, in a few words. */
    void setStatus(const QString& status, bool alarm);

signals:
    void startWanted();
    /* The user wants the pen's interface in a language, a row of penlanguages::list(). */
    void languageWanted(int row);

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeSwitches();
    void addLanguages(QGridLayout& grid, int row);
    QPushButton* addSwitch(const QString& text, const QString& tip);
    void addMessage(const Launcher::Entry& entry);
    void readFiles();
    void showFiles();

    static void colour(QListWidgetItem& item);

    Launcher& m_launcher;
    PenStorage& m_storage;
    const QString m_root;
    QLabel* m_status;
    QPushButton* m_start;
    QPushButton* m_usb;
    QComboBox* m_languages;
    QPushButton* m_card = nullptr;
    QPushButton* m_full = nullptr;
    QList<QWidget*> m_whileRunning;
    QTabWidget* m_tabs;
    QListWidget* m_messages;
    QPlainTextEdit* m_files;
    QString m_filesText;
    QFutureWatcher<QString> m_filesReader; // a full card takes longer than a key may wait
};

#endif
