#ifndef MYEDIT_H
#define MYEDIT_H

#include "editor/quickseek.h"
#include "editor/wordwalk.h"
#include "engines/speechtext.h"
#include "engines/stimg.h"
#include "store/fileinfo.h"

#include <QMutex>
#include <QPointer>
#include <QStringList>
#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>
#include <atomic>
#include <memory>

class CRecThread;
class CSoundThread;
class HintLine;
class RecChar;
class SandGlass;

/*
 * The screen of the Scan-to-file mode: the text of one scan file. It takes every scan, appends
 * the text that is recognised, reads it aloud with the spoken word marked, and saves the text back
 * into the scan-file store.
 *
 * Reading. A scan is read after the delay of the settings, when reading is switched on; of several
 * that wait the newest, and none while the next is being swiped or recognised. OK reads from the
 * word at the cursor to the end, from the beginning when the cursor is at the end. The cursor goes
 * along with the word that is heard and stays there. Any key and any swipe end what is read, any
 * key also what waits; OK that ends a reading does no more.
 *
 * Walking. Left and Right go word by word and speak the word; Up and Down go line by line,
 * silently: OK reads from there. F7 and F8 seek while held and speak the word that they come to. A
 * scan that arrives while the user walks is appended all the same and takes the cursor with it:
 * what was scanned last is what is seen and read.
 *
 * Dictionary mode. The editor takes the scans of the translate screen, too, and hands their text on
 * (signalTransText). A scan goes where it was begun; one whose translate screen has been left
 * meanwhile is appended, so that it is not lost.
 *
 * Interface thread only, but for the functions that say otherwise. All access to the document
 * happens there; the workers get copies.
 */
class MyEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit MyEdit(QWidget* parent = nullptr);
    ~MyEdit() override;

    /* Binds the editor to a file: loads its text, starts the scan engine and the auto-save timer.
     * 0 on success; -1 when the file is over the size limit: a message is shown, the editor stays
     * empty and unbound, and nothing will be saved over the file. */
    int setFileInfo(const FileInfo& info);

    /* Whether a file is bound. */
    bool isBound() const { return m_bound; }

    /* Number of the timer that saves every five minutes; 0 while no file is bound. */
    int autoSaveTimer() const { return m_autoSaveTimer; }

    /* Appends one recognised scan at the end of the document within the size limit, and puts the
     * cursor where it begins. Logs it, so that a cut of power does not lose it. Stops speech. An
     * empty text is ignored; one that does not fit is dropped with a message. True when it was
     * appended. */
    bool appendText(const QString& text);
    bool appendScanText(QString text) { return appendText(text); }

    /* The whole text, line ends as "\n", every other character as it was scanned. */
    QString documentText() const;

    /* Saves without leaving. Does nothing when no file is bound, or when the file that was read
     * last was over the size limit. False when the store could not save. */
    bool SaveOnly();

    /* Saves, clears the editor, stops the scan engine and goes back to the previous screen; with no
     * file bound only emits signalEsc(). A scan that is being recognised is waited for and saved.
     * When the card does not take the text, the editor is left only if the store keeps it. */
    void SaveAndExit();

    /* Clears the text and stops the scan engine, without saving. */
    void StopOnly();

    /* Waits for a scan that is being recognised and appends it, so that nothing that follows loses
     * it. */
    void awaitScan();

    /* Silences the editor: what is spoken, prepared, queued, or waits for the delay or the menus'
     * voice. What is still on its way from the voice marks nothing. */
    void StopTTS();

    /* Stops the scan engine, for a start with another scan direction. */
    void switchScanRection();

    /* Starts the scan engine for this editor; 0, or -1 when it does not start (the editor stays
     * usable without). */
    int setScanInit();

    /* Puts the cursor at the start of the document. */
    void gotoBeginEdit();

    /* Passes the value on to the scan engine's stop signal. */
    void setStopFlag(bool stop);

    void setPrevWidget(QWidget* widget) { m_previous = widget; }
    QWidget* getPrevWidget() const { return m_previous; }
    RecChar* Getscanner() const { return m_scanner.get(); }

    /* Whether the editor has the voice for itself. False from the beginning to the end of what the
     * main window speaks: a text that becomes due meanwhile waits. */
    void setStopSoundFlag(bool on) { m_stopSound = on; }

    /* Whether a text waits for the menus' voice; false lets it go unread. It is the one that
     * soundAgain() reads. */
    void setFlagForTalk(bool on) { m_talk = on; }
    bool getFlagForTalk() const { return m_talk; }

    /* Whether a text was read that soundAgain() would read. */
    bool canSoundAgain() const { return !m_lastRead.text.isEmpty(); }

    /* The translate screen speaks, or has ended: the editor starts no reading meanwhile. */
    void setTTSFlagInTrans(bool on);

    /* For the flow that takes a word to the translate screen and back; the editor keeps it only. */
    void setChangeTransFlag(bool on) { m_changeTrans = on; }
    bool getChangeTransFlag() const { return m_changeTrans; }

    /* Whether a text of the editor's is with the voice. Setting false lets reports that are still
     * on their way mark nothing. */
    void setMpayingFlag(bool on);
    bool isPlaying() const { return m_playing; }

    /* Whether a pointer may place the cursor; false at first, as the pen has none. */
    void setmouseFlag(bool on) { m_mouse = on; }

    /* Applies the speed of the settings file, for the voice chosen there. The argument is not
     * used. */
    void setScanSpeedInfo(int unused);

    CSoundThread* soundThread() const { return m_soundThread.get(); }

    /* The place of the word being read or last read, in the document; -1 when there is none. */
    int getStartPosition() const { return m_wordStart; }
    int getEndPosition() const { return m_wordEnd; }
    int getCurPosition() const { return textCursor().position(); }
    /* The cursor's place as savePosition() stored it. */
    int getPosition() const { return m_savedPosition; }
    void savePosition() { m_savedPosition = textCursor().position(); }

    /* Asks that the next scan leaves the cursor where the user put it. */
    void setKeepPosition(bool keep) { m_keepPosition = keep; }

    /* The word at the cursor; empty between words. */
    QString getWordFromMyEdit() const;

    /* Rename mode: the editor is the one-line input of a new file name. No file is bound and
     * nothing is saved; a scan replaces the name; OK ends with signalConfirmRename(), Escape with
     * signalCancelRename(), both go back to the previous screen. Stays off while a file is bound.
     */
    void setRenameFlag(bool on);
    bool renameFlag() const { return m_rename; }

    /* Begins rename mode with a name to start from, and starts the scan engine. `longest` is how
     * many characters the user is told that a name may have. */
    void startRename(const QString& oldName, const QString& proposal, int longest);

    /* The word before the one at the cursor, and the one behind it; invalid at the ends. */
    WordSpan GetPrevWod() const;
    WordSpan GetNextWod() const;

    /* Puts the cursor on that word, silently. False when there is none. */
    bool MovePrevWord();
    bool MoveNextWord();

    /* Whether the cursor is seeking because a key is held. */
    bool isSeeking() const { return m_seek.isActive(); }

    /* A scan has arrived. Called on the scan engine's thread; takes the record over. */
    void tirggleEditSingal(_stImg* image);

    /* A word begins to be heard. Called on the speech engine's thread; only emits
     * signalTTShignlight. */
    void tirggleTTShignlight(int offset, int length, int kind);

    /* Recognises an image; called on CRecThread. Takes the record over. Returns the engine's
     * result, -1 for a record without an image, -2 when no text came out. */
    int RecThread(_stImg* image);

    /* Whether the last scan came while the editor was reading aloud. Any thread. */
    bool scannedWhileReading() const { return m_scannedWhileReading; }

    /* Whether the last recognition gave no text or was doubted by the engine. */
    bool recognitionFailed() const { return m_recognitionFailed; }

public slots:
    /* Starts recognition on CRecThread. Takes the record over. 0 when started, -1 when the image
     * was dropped: one is running already, or no file is bound (any more). */
    int Recognize(_stImg* image);

    /* Prepares a text for speech and speaks it; called on CSoundThread, returns when it has been
     * spoken or stopped. */
    void Sound(QString& text);

    /* Takes what was recognised: appends it, and reads it after the delay. */
    void FinishRec();
    void FinishSound();
    /* Marks the word that is heard; the values are those of the engine's report. */
    void TTShignlightFun(int offset, int length, int kind);
    /* Reads the newest scan, if reading is switched on. */
    void readDelaySlot();
    /* Reads the last text read once more; nothing when none was read yet. */
    void soundAgain();
    /* Reads the text that waits for the menus' voice, if one does and the voice is free. */
    void readAfterTalkingMenu();
    /* One tick of the seek; nothing while no key is held. */
    void quickSeek();

signals:
    void signalEdit(_stImg* image);
    /* The editor is being left, or was asked to while no file is bound. */
    void signalEsc();
    void singalSound(QString& text);
    /* The editor has been left. */
    void signalDelete();
    void signalTTShignlight(int offset, int length, int kind);
    void signalShow(int index, const QString& text);
    /* Rename mode: OK with this name, Escape, and a scan whose text will be the name. */
    void signalConfirmRename(const QString& name);
    void signalCancelRename();
    void signalNewInput();
    /* A key was pressed or a swipe came: whoever speaks over the editor is to stop. */
    void signalKeyPress();
    /* The quick menu is asked for; speech and scanning are stopped. */
    void signalQuickSet();
    /* Something to be told, in words that are on the screen. Comes when the editor is silent. */
    void signalHint(const QString& text);
    /* Dictionary mode: a scan is being recognised; it has its text, empty when nothing was
     * recognised. It is not appended. */
    void signalTransScan();
    void signalTransText(const QString& text);

    /* Internal: a reading is about to be heard. Reaches the interface thread before the first of
     * its highlight reports. */
    void readingPrepared(const QString& source, const std::shared_ptr<const SpeechText>& prepared);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void Init();
    void clearReading();
    void stopAutoSave();
    /* Takes a scan from those that arrive; whoever calls owns it then. */
    void forgetArrival(_stImg* image);
    void showBusy();
    void leaveEngine();
    bool saveDocument();

    void PressEnter();
    void MovePrev();
    void MoveNext();
    void MoveUp();
    void MoveDown();
    void moveTo(int position);
    bool moveLines(QuickSeek::Direction direction, int count);

    void startSeek(QuickSeek::Direction direction);
    void stopSeek();
    void endSeek();
    /* Ends the seek on a word, and speaks it. */
    void landSeek();

    void stopSpeech();
    void tellHint(const QString& text);
    void tellEnd(QuickSeek::Direction direction);
    bool hasWords() const;

    struct ScannedText
    {
        QString text;
        int start; // where it begins in the document
    };

    enum class Amount { Word, Passage };

    bool isReading() const;
    void readFromCursor();
    void readWordAtCursor();
    /* Reads the text read last, at once or when the voice is free. */
    void readLast();
    void beginReading(const ScannedText& text, Amount amount = Amount::Passage);
    void forgetTexts();
    void setPreparedReading(const QString& source,
                            const std::shared_ptr<const SpeechText>& prepared);
    bool hignFun(int offset, int length);
    void HignItem(int start, int length);
    void unmark();

    bool renameKey(int key);
    void leaveRename();
    void showName(const QString& name);
    bool takeScannedName(const QString& scan);
    void paintRename();

    FileInfo m_file;
    bool m_bound = false;
    bool m_rename = false;
    QString m_oldName;
    int m_longestName = 0;
    int m_autoSaveTimer = 0;
    QPointer<QWidget> m_previous;
    bool m_keepPosition = false;
    bool m_restorePosition = false;
    int m_savedPosition = 0;
    int m_wordStart = -1;
    int m_wordEnd = -1;

    std::unique_ptr<RecChar> m_scanner;
    std::unique_ptr<CRecThread> m_recThread;
    std::unique_ptr<CSoundThread> m_soundThread;
    QPointer<SandGlass> m_sandGlass;

    // Written by the recognition worker, read once it has ended.
    QString m_pendingText;
    bool m_recognising = false;    // from Recognize() until its result was taken
    bool m_scanIsForTrans = false; // the one that is being recognised
    std::atomic<bool> m_recognitionFailed = false;

    // Scans between the engine's thread and Recognize(): an event that is never delivered would
    // lose its record.
    QMutex m_arrivingMutex;
    QList<_stImg*> m_arriving;

    // From the start of a reading until its end has been heard; asked by the scan engine's thread,
    // which sets the other.
    std::atomic<bool> m_readingAloud = false;
    std::atomic<bool> m_scannedWhileReading = false;

    QMutex m_readQueueMutex;
    QList<ScannedText> m_readQueue;

    QMutex m_soundMutex; // one reading at a time
    bool m_stopSound = true;
    bool m_talk = false;
    bool m_ttsInTrans = false;
    bool m_changeTrans = false;
    bool m_mouse = false;
    std::atomic<bool> m_playing = false;

    QTimer m_readDelay{this};
    QTimer m_seekTimer{this};
    QuickSeek m_seek;
    int m_seekStart = 0; // where the cursor was
    HintLine* m_hint = nullptr;
    QString m_hintAfterReading;

    ScannedText m_lastRead = {QString(), 0};

    // A text on its way to the voice. The cursor marks where it begins in the document and follows
    // edits made meanwhile; `prepared` comes from the speech worker.
    struct Reading
    {
        QString source;
        QTextCursor start;
        std::shared_ptr<const SpeechText> prepared;
    };
    QList<Reading> m_requested;
    Reading m_current;                 // the one that is heard now
    Amount m_amount = Amount::Passage; // of what was begun last
};

#endif
