#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "engines/translater.h"
#include "store/fileinfo.h"

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <memory>
#include <optional>
#include <utility>

class CharScanner;
class CTTSThread;
class CTtsThread;
class CTtsThreadForSet;
class DictScanEdit;
class DictSwitch;
class MyEdit;
class MySubMenu;
class QCopChannel;
class SandGlass;
class SpinItems;
class TTSConfig;
class YesnoSelect;
struct ScanLanInfoForSort;
struct WordItem;

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
 * mainwindow_settingsflows.cpp (settings menus), mainwindow_settingspages.cpp (settings pages),
 * mainwindow_quickmenu.cpp (the menus over the editor), mainwindow_extrakeys.cpp (keys that a
 * screen has no use for), mainwindow_dictionaries.cpp (the choice and opening of dictionaries),
 * mainwindow_dictflows.cpp (translating), mainwindow_dictmenus.cpp (menus of dictionary mode).
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

    /* The translate screen; null until the first translation. */
    DictScanEdit* translateScreen() const { return m_transEdit; }
    DictSwitch* dictionarySwitch() const { return m_dictSwitch; }

    /* The input of a new file name; null until one was renamed. */
    MyEdit* renameEditor() const { return m_renameEdit; }
    CTTSThread* menuSpeech() const { return m_menuSpeech.get(); }
    bool keepRunning() const { return m_keepRunning; }

    /* Whether a dictionary is being opened or closed in the background. */
    bool isOpeningDictionary() const { return m_dictJob.has_value(); }

    /* Whether the user waits for that, with the busy sign. */
    bool awaitsDictionary() const { return m_dictIsAwaited; }

    /* Whether a dictionary was changed since a word was looked up. */
    bool dictionaryChanged() const { return m_dictChanged; }

    /* What a switch shows for its values 0 and 1. */
    static QStringList switchTexts();

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

    /* Speaks a message that is on the screen: to its end unless a key cuts it short, whatever is to
     * be spoken next. Of several none is left out. */
    void announceMessage(const QString& text);

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

    /* The settings menus and pages. Over the editor, Enter on a value leads back into it; else
     * everything leads back to the screen from which it was opened. */
    void newSet();
    void newLanguage();
    void newTTS();
    void delaySet();
    void newTTSSet();
    void newDic();
    void newDicQuick();
    void newOtherReadingSet();

    /* The menu that the editor opens with F12. */
    void quickSet();
    void quickEsc(int index, const QString& text);

    /* Items of the quick menu: back to the editor, and there once the menu's voice has ended. */
    void soundAgainFun();
    void gotoBeginningFun();

    /* Translates the word at the editor's cursor: dictionary mode begins. Without a word, or
     * without a dictionary that can be opened, a message says so and the editor stays. While the
     * dictionary is being opened the keys rest, and it goes on by itself. */
    void transWordFun();

    /* The translate screen is being left; it begins to read, has ended; its menu is asked for. */
    void backFromTransEdit();
    void TTSPlayInTransSlot();
    void TTSPlayEndInTransSlot();
    void quickSetSlotForDict(bool on);
    void quickSetForDict();

    /* Shows the selection screen. */
    void selectDicFun();

    /* A dictionary was chosen: its language pair, its place in it, and a number that is kept only.
     * It is opened in the background. */
    void changeDict(int pair, int dict, int flag);

    /* The selection screen was left; nothing is to be done. */
    void escTriggerSlot();
    void okTriggerSlot();

    /* Speaks what the selection screen shows. The arguments are not used. */
    void dictSelctShowSlot(int index, const QString& text, int last);

    /* More of the dictionary mode: the settings of reading translations, the new-word book, the
     * current dictionary. */
    void newReadTrans();
    void newWords();
    void aboutDictionaries();

    /* A menu of values is left with the value at `index`; the text is not used. The one that is
     * stored already changes nothing. */
    void scanLanChange(int index, const QString& text);
    void delayChange(int index, const QString& text);
    void scanTTSChange(int index, const QString& text);
    void readTransChange(int index, const QString& text);
    void scanDirectChange(int index, const QString& text);
    /* As above; the scan engine starts anew with the direction. */
    void scanDirectChangeQuick(int index, const QString& text);

    /* A row of a settings page shows the value at `index` now. */
    void readChange(int index, const QString& text);
    void speedChange(int index, const QString& text);
    void wordPauseChange(int index, const QString& text);
    void puncPauseChange(int index, const QString& text);
    void volumChange(int index, const QString& text);
    void readChangeForDict(int index, const QString& text);
    void speedChangeForDict(int index, const QString& text);
    void volumChangeForDict(int index, const QString& text);

    /* Enter has led from a menu or page back into the editor: what was open between them ends. */
    void setBiState(int index, const QString& text);
    /* As above, from a page: scanning is allowed again. */
    void setBiStateFlag(int index, const QString& text);
    /* A page was left: it ends. */
    void escFromVolumeSetSlot();

    /* Keys that every screen has: more settings (F9), where one is (F10), what was said last
     * (Space). */
    void moreSettings();
    void sayPlace();
    void sayAgain();

    /* Speaks what the editor tells the user. */
    void hintSlot(const QString& text);

signals:
    void signalEdit(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void sortDictLoad();

    using MenuSlot = void (MainWindow::*)(int index, const QString& text, int last);
    using ItemSlot = void (MainWindow::*)();
    using ChangeSlot = void (MainWindow::*)(int index, const QString& text);

    /* A menu of which one value is to be chosen. */
    struct Choice
    {
        QString title;
        QStringList values;
        int current; // place of the value that is in force
        ChangeSlot change;
    };

    void setupUi();
    void silence();
    void stopAndFreeze();
    void hushMenu();
    bool editorIsUsable() const;
    void speak(const QString& text, const QString& instruction);
    void speakSoon();
    /* Has `text` spoken in front of what is spoken next. */
    void confirm(const QString& text);
    void soundAgainAfterTalkingMenu();
    void gotoBeginAfterTalkingMenu();
    void carryOutRequests();

    /* Creates the busy indicator and runs `work` once it is painted; does nothing while there is
     * one already. */
    void startBusy(void (MainWindow::*work)());
    void showSandGlass();
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

    /* A message that fills the screen for two seconds; the focus goes back to the screen below.
     * None once the launcher has ended the application. */
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
    bool entryCanBeRenamed() const;
    void beginRename(const QString& proposal);
    void showRenameInput(const QString& proposal);
    void ensureRenameEdit();
    QString refusalOf(const QString& name) const;
    void carryOutRename(const QString& name);
    void returnToOpenList();
    /* The editor that forwarded keys go to. */
    MyEdit* forwardedEditor() const;
    void connectMenu(MySubMenu* menu, MenuSlot onShow = &MainWindow::menuShowSlot);

    /* A menu with these items; openMenu() shows it, and it ends when it is left with Escape. */
    MySubMenu* newMenu(const QString& title, const QVector<std::pair<QString, ItemSlot>>& items);
    void openMenu(MySubMenu* menu);
    void openPage(TTSConfig* page);
    void addRow(TTSConfig* page, SpinItems* row, ChangeSlot change);
    void openChoice(const Choice& choice);
    void openDirections(ChangeSlot change);
    void openFlowScreen(QWidget* screen);
    void endFlowScreen(QWidget* screen);
    void endFlowScreens();
    bool chooseDirection(int index);

    /* Whether a file is open in the editor; a menu that is shown then lies over it. */
    bool editorIsBelow() const;
    void returnToEditor();
    QString getWordFromCursor() const;

    QVector<ScanLanInfoForSort> scanLanguages() const;
    int scanLanguageRow() const;
    void applyScanLanguage();
    QString placeInEditor() const;
    void endSetUpSign();
    void tellSetUp(const QString& what);
    bool isReadingAloud() const;

    // Opening dictionaries: one job of the worker at a time.
    enum class DictJob { Change, Open, Close };
    void runDictJob(DictJob job);
    void openDictionary();
    void closeDictionary();
    void showDictBusy();
    /* Translates `word` once the dictionary is open. */
    void awaitDictionary(const QString& word);
    void dictionaryIsThere(DictJob job);
    bool hasDictionaries() const;
    /* Whether the dictionary of the settings is open and nothing is under way. */
    bool dictionaryIsReady() const;
    QString dictionaryName() const;
    void tellNoDictionary();

    void ensureTransEdit();
    bool beginTranslation();
    QString textToTranslate(const QString& word) const;
    void translate(const QString& word);
    void tellNoWord();
    void countTranslation(const QString& word) const;
    void rememberWord(const QString& word, const QString& translation);
    void leaveTranslation();
    void resumeTranslation();
    void beginTransScan();
    void takeTransScan(const QString& text);
    void showTransScan(const QString& text);
    void showNewWord(const WordItem& item);
    /* Whether keys of that screen rest while a dictionary is being opened. */
    bool keysAreHeld(const QObject* screen) const;
    QWidget* workScreen() const;

    MyEdit* m_editor = nullptr;
    DictScanEdit* m_transEdit = nullptr;
    DictSwitch* m_dictSwitch = nullptr;
    MySubMenu* m_dictMenu = nullptr;
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
    int m_chosenFile = -1;           // display index of the file chosen in the open list
    QVector<QWidget*> m_flowScreens; // settings menus and pages that are open, lowest first
    QPointer<MySubMenu> m_moreMenu;  // open while it is among those
    int m_wantedLanguage = -1;       // row that is being set up, -1 for none
    int m_languageInSetUp = -1;      // row that the worker was given last

    QVector<_stTransLan> m_dictionaries;
    std::array<int, 3> m_chosenDict = {};
    bool m_dictChanged = false;
    std::optional<DictJob> m_dictJob; // that the worker has
    std::optional<DictJob> m_nextDictJob;
    bool m_dictIsAwaited = false; // the busy sign tells of it
    QString m_wordInWait;         // for the dictionary
    QStringList m_waitingScans;   // of the translate screen, for the dictionary
    bool m_storedIsShown = false; // the translate screen shows a remembered word
    bool m_editorHintHeld = false;

    bool m_editorWasOpen = false;
    int m_stopsRunning = 0;     // calls of StopAll() that have not returned
    bool m_usbHasEnded = false; // since the last of them began
    bool m_keepRunning = true;
    bool m_utterancePending = false;
    bool m_readAgainPending = false;
    bool m_gotoBeginPending = false;
    enum class Voice { Menu, Editor, Translation };
    Voice m_lastVoice = Voice::Menu;
    QString m_confirmation;
    QString m_saidText; // what was said last, if it was not the editor
    QString m_saidInstruction;
    bool m_messageIsSpoken = false;
    QStringList m_messages; // that wait for the voice
    QString m_pendingText;
    QString m_pendingInstruction;
};

#endif
