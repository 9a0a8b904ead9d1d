#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "engines/translater.h"
#include "store/fileinfo.h"

#include <QMainWindow>
#include <QPointer>
#include <memory>

class CharScanner;
class CTTSThread;
class CTtsThread;
class CTtsThreadForSet;
class MyEdit;
class MySubMenu;
class QCopChannel;
class SandGlass;
class YesnoSelect;

/*
 * The controller of the whole application: owns the screens and moves between them, builds and
 * speaks the menus, and obeys the launcher.
 *
 * One frameless window of 256 by 64 pixels at (0, 0). Interface thread only, but for
 * tirggleEditSingal().
 *
 * Its code is in several files: mainwindow.cpp (construction, navigation), mainwindow_speech.cpp
 * (menu speech), mainwindow_messages.cpp (the launcher), mainwindow_dialogs.cpp (messages and
 * questions), mainwindow_scanflows.cpp (Scan to file), mainwindow_filelists.cpp,
 * mainwindow_deleteflow.cpp, mainwindow_renameflow.cpp (lists of files, deleting, renaming),
 * mainwindow_extrakeys.cpp (keys that a screen has no use for), mainwindow_dictflows.cpp
 * (dictionaries).
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    /* Shuts the process's singletons down: recognition, speech, files, settings, navigation. */
    ~MainWindow() override;

    /* Tells the launcher that this application is on screen. */
    void SendShow();

    /* Shows the main menu, and builds it when it does not exist yet. */
    void ScanWindow();

    /* Builds the main menu; with the item "Continue scan" when `fileName`, the current file, is
     * not empty. Owned by this window. */
    MySubMenu* newScanMenu(const QString& fileName);

    /* Hands text recognised for a new file name to the rename flow. Any thread. */
    void tirggleEditSingal(const QString& text);

    /* Watches a widget whose keys go to the editor; not owned, null for none. */
    void setKeyForwarder(QWidget* widget);

    /* Shows the widget that forwards keys, if there is one. */
    void hideButton();

    bool eventFilter(QObject* object, QEvent* event) override;

    /* What the launcher may ask for. */
    void Save();
    void SaveAll();
    void StopAll();
    void Back2Normal();
    void StopOnly();

    /* The language pairs of the installed dictionaries, in the engine's order. */
    const QVector<_stTransLan>& dictionaries() const { return m_dictionaries; }

    MyEdit* editor() const { return m_editor; }

    /* The input of a new file name; null until one was renamed. */
    MyEdit* renameEditor() const { return m_renameEdit; }
    CTTSThread* menuSpeech() const { return m_menuSpeech.get(); }
    bool keepRunning() const { return m_keepRunning; }

public slots:
    /* One message of the launcher; unknown ones are ignored. */
    void handleReceived(const QString& message, const QByteArray& payload);

    /* A key cuts menu speech short. */
    void keyPressSlot();

    /* Speaks a menu item with its help text. `index` counts from 0, `last` is the index of the
     * menu's last item. */
    void menuShowSlot(int index, const QString& text, int last);
    void menuUpSlot(int index, const QString& text, int last);
    void menuDownSlot(int index, const QString& text, int last);
    void mainMenuShowSlot(int index, const QString& text, int last);

    /* Speaks a text and a help text with a pause between them; while the voice is still busy they
     * wait, and of several that wait the last is kept. */
    void talkingMenuTTS(int index, const QString& text, const QString& instruction);
    void startSlot();
    void finishTalkingMenu();

    /* The set-up workers have applied what they were given: the busy sign goes. */
    void finishTtsSet();
    void finishTtsSetForSet();

    void newFile();
    void continueFile();
    void openFileMenu();
    void openFile();
    void escFromfilemenuSlot();
    void deleteFileMenu();
    void deleteFile();
    void escFormdeleteset();
    void newSet();
    void editEsc();
    void inputDelete();
    void editShowSlot(int index, const QString& text);

    /* Renames the entry of the open list that is current: a scanned proposal has come, or (without
     * one) a key asks for it. Elsewhere they do nothing. */
    void Recognize(const QString& text);
    void renameCurrentFile();

    /* The input of the new name: it is shown, takes a scan, is left with OK or with Escape. */
    void editRenameShowSlot(int index, const QString& text);
    void newInput();
    void renameSlot(const QString& newName);
    void renameEscSlot();

signals:
    void signalEdit(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void sortDictLoad();

    using MenuSlot = void (MainWindow::*)(int index, const QString& text, int last);

    void setupUi();
    void silence();
    void hushMenu();
    bool editorIsUsable() const;
    void speak(const QString& text, const QString& instruction);

    /* Creates the busy indicator and runs `work` once it is painted; does nothing while there is
     * one already. */
    void startBusy(void (MainWindow::*work)());
    void endBusy();
    void showNewEdit();
    void showContinueEdit();
    void showOpenEdit();
    void ensureEditor();
    bool prepareEditor();
    bool fileIsThere(const FileInfo& file);
    /* Binds the editor to a file and shows it; false when the file cannot be opened. */
    bool showEdit(const FileInfo& file);
    void tellScanDirection();
    /* Makes a file the one that "Continue scan" opens. */
    void makeCurrent(const FileInfo& file);
    /* Lets the main menu's first item name the current file, if there is one. */
    void updateContinueItem();
    void setContinueItem(MySubMenu* menu, const QString& fileName);

    /* A message that fills the screen for two seconds and is spoken; the focus goes back to the
     * screen below. */
    void showMessage(const QString& text);
    void spaceMessage();

    struct Question
    {
        QString text;
        QString ifYes; // said while Yes, while No is chosen
        QString ifNo;
    };
    /* Runs a dialog and speaks what it asks. True on Yes only. */
    bool askYesNo(YesnoSelect& dialog, const Question& question);
    void dismissDialogs();
    void focusCurrent();
    /* Whether the card is with a PC, or the application ends: flows stop where they are. */
    bool isFrozen() const;

    enum class FileMenuUse { Open, Delete };
    void showFileMenu(FileMenuUse use);
    void refreshFileMenu();
    void addFileEntry(const QString& text);
    void releaseFileMenu();
    void speakCurrentFile();
    void carryOutDelete(const FileInfo& chosen);

    /* While the open list is shown a swipe is a new name for its current entry. */
    bool openListIsShown() const;
    void resumeNameScanning();
    void pauseNameScanning();
    void resumeAfterUsb();
    void beginRename(const QString& proposal);
    void showRenameInput(const QString& proposal);
    void ensureRenameEdit();
    QString refusalOf(const QString& name) const;
    void carryOutRename(const QString& name);
    void returnToOpenList();
    /* The editor that forwarded keys go to. */
    MyEdit* forwardedEditor() const;
    void connectMenu(MySubMenu* menu, MenuSlot onShow = &MainWindow::menuShowSlot);

    MyEdit* m_editor = nullptr;
    std::unique_ptr<CTtsThread> m_setupThread;
    std::unique_ptr<CTtsThreadForSet> m_settingsThread;
    std::unique_ptr<CTTSThread> m_menuSpeech;
    MySubMenu* m_mainMenu = nullptr;
    QPointer<MySubMenu> m_fileMenu; // a list of files
    FileMenuUse m_fileMenuUse = FileMenuUse::Open;
    MyEdit* m_renameEdit = nullptr;
    std::unique_ptr<CharScanner> m_nameScanner;
    FileInfo m_renamed; // the file that gets a new name
    QPointer<QWidget> m_keyForwarder;
    QCopChannel* m_channel = nullptr;
    QPointer<SandGlass> m_sandGlass;
    int m_chosenFile = -1; // display index of the file chosen in the open list

    QVector<_stTransLan> m_dictionaries;

    bool m_editorWasOpen = false;
    bool m_keepRunning = true;
    bool m_utterancePending = false;
    QString m_pendingText;
    QString m_pendingInstruction;
};

#endif
