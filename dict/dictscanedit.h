#ifndef DICTSCANEDIT_H
#define DICTSCANEDIT_H

#include "dict/enterdebounce.h"
#include "dict/transtext.h"
#include "dict/transwords.h"
#include "engines/speechtext.h"
#include "engines/ttsplayer.h"

#include <QMutex>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QVector>
#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>

class CSoundSrcThread;
class CSoundTransThread;
class CTTSThread;
class HintLine;
class QFrame;
class QPainter;
class QTextEdit;

/*
 * The translate screen: a line of text in the upper pane, of which one word is selected, and what
 * the dictionary says about that word in the lower one.
 *
 * Looking up. A text from the editor or a scan selects its first word; Left and Right go on from
 * word to word (see dict/transwords.h). Every word that becomes selected is looked up at once, in
 * the dictionary that is open. A scan that ends with a hyphen is joined with the next one.
 *
 * Results. The lower pane shows every entry that was found; one is current and has the speaker
 * mark. F7 and F8 (F5 and F6) make another one current. Down below the last line of text gives the
 * whole screen to the current entry, Up and Down move in it, Escape gives the text its place back.
 *
 * Reading. A word is read after its look-up when "Reading" of the dictionary's settings is on, in
 * the voice of its language; then the current entry, in the voice of its own. Enter reads in any
 * case. Any key ends a reading and does no more, but Up and Down while an entry is read do nothing.
 *
 * Interface thread only, but for the functions that say otherwise.
 */
class DictScanEdit : public QWidget
{
    Q_OBJECT

public:
    explicit DictScanEdit(QWidget* parent = nullptr, bool scan = false);

    /* Silences the player and waits for its workers. */
    ~DictScanEdit() override;

    /* The language pair and its dictionary, as settings count them. The dictionary is opened
     * unless it is open already: that takes long for one that was never opened. */
    void setTransLan(int pair, int dict);

    /* The language pair alone: what is shown is read in its languages, whatever is open. */
    void setPair(int pair);

    /* The worker that speaks menus and messages; not owned, null for none. A key first ends what it
     * speaks, and what is read by itself waits for its end. */
    void setSpeechWorker(CTTSThread* worker);

    /* Shows a text, in place of what is shown or as a further line, and looks its first word up. */
    void setScanText(const QString& text, bool replace);

    /* Looks up a word of the editor's, which is shown already, as a whole: also "well-known", which
     * the screen would cut into pieces. The number of entries, negative when there are none. */
    int transWordForEdit(const QString& word);

    /* Adds a line to the text; nothing is looked up. */
    void appendText(const QString& text);

    /* A line was recognised while the screen is shown: it takes the place of the text, and its
     * first word is looked up. Nothing happens when there is nothing in it. */
    void takeScan(const QString& text);

    /* Cuts the text anew after a scan: joins it with the piece that the scan before ended with, and
     * selects and looks up the word that the dictionary finds first. */
    void researchScanText();

    /* Looks the selected word up again. The number of entries, negative when there are none. */
    int researchWords();

    /* Shows a remembered word with its translation, without looking it up. False, and nothing
     * changes, when one of them is empty. */
    bool showStored(const QString& word, const QString& translation);

    /* A swipe begins: reading ends, and the launcher is told. The text stays until the scan has
     * been recognised. */
    void beginScan();

    /* As above, and both panes are emptied. */
    void clearEditText();

    /* Tells the launcher that a scan begins. */
    void sendTriggleToMain();

    /* Selects the next word, the one before; 0 when there is none: the selection stays. Nothing is
     * looked up. */
    int MoveNext();
    int MovePrev();

    /* To the first word of the next line, of the one before, which is looked up. Below the last
     * line the current entry takes the whole screen and moves in it. */
    void MoveDown();
    void MoveUp();

    /* Where the next word begins and ends, counted from the selection; the word before. In the
     * single-character mode words of one character. 0 when there is none. */
    int GetNextWod(int& start, int& end) const;
    int GetPrevWod(int& start, int& end) const;

    /* Looks the selected word up and shows what was found. The number of entries, negative when
     * there are none. */
    int changeTras();

    /* Makes another entry current, as far as there are any, and shows it. The new index. */
    int moveNextResult();
    int movePrevResult();
    void setCurIndex(int index);
    int getCurIndex() const { return m_curResult; }
    int resultCount() const { return static_cast<int>(m_contents.size()); }

    /* Stores the text of the scan pane. */
    void saveContent();
    QString savedContent() const { return m_savedContent; }

    /* They do nothing. */
    void setScanTextFirst(const QString& text, bool first, bool replace);
    void savetoFile();
    void readFormFile();

    /* Whether the screen was entered from a scan. */
    void setScan(bool on) { m_scan = on; }
    bool getmbScan() const { return m_scan; }

    /* Other than 0 while the current entry has the whole screen. */
    void setcurRowonly(int only);
    int getcurRowonly() const { return m_curRowOnly; }

    void setPrevWidget(QWidget* widget) { m_previous = widget; }
    QWidget* getPrevWidget() const { return m_previous; }

    /* While set, Enter reads nothing. */
    void setMSoundTrans(bool on) { m_soundTrans = on; }
    bool getMSoundTrans() const { return m_soundTrans; }

    /* Whether the entry is read once the word has been; set when a reading begins. */
    void setOKSoundFlagForTalk(bool on) { m_okSound = on; }
    bool getOkSoundFlagForTalk() const { return m_okSound; }

    /* Words of one character. */
    void setInputMode(bool on) { m_inputMode = on; }

    /* For the flows; the screen keeps them only. */
    void setSelectFlag(bool on) { m_select = on ? 1 : 0; }
    int getSelectFlag() const { return m_select; }
    void setChangeTransFlag(bool on) { m_changeTrans = on; }
    bool getChangeTransFlag() const { return m_changeTrans; }

    /* Gives the panes their places and the screen's font. */
    void resumeeditformat();

    /* Reads the selected word, then the current entry; the current entry alone. */
    void soundOnlySrcForTrans();
    void soundWordByTypeTrans();

    /* Ends what is read and what waits to be read. */
    void stopReading();

    /* From the beginning of a reading until its end has been heard. What waits for the menus' voice
     * or for the screen to be shown has not begun. */
    bool isReading() const;

    /* Forgets the translation that is queued to be read, for those who stop the player themselves.
     */
    void clearTransContent();

    CSoundTransThread* transThread() const { return m_transThread.get(); }
    CSoundSrcThread* srcThread() const { return m_srcThread.get(); }

    /* Where the user is, to be spoken: the selected word and the place among its entries. */
    QString placeText() const;

    /* The selected word; the current entry's headword and its text, as the dictionary has them. */
    QString selectedWord() const;
    QString currentHeadword() const;
    QString currentTranslation() const;

    /* Shows something over the bottom of the screen for a while, and has it spoken by signalHint().
     */
    void tellHint(const QString& text);

    /* What the lower pane says, the speaker mark left out. */
    QString shownTranslation() const;

    /* Microseconds that grow with time, for the debounce of Enter; null for the machine's own. */
    void setClock(std::function<qint64()> clock);

    /* A word begins to be heard. Called on the speech engine's thread; only emits
     * signalTTShignlight. */
    void tirggleTTShignlight(int offset, int length, int kind);

    /* Speaks an entry's text; on CSoundTransThread, returns when it was spoken or stopped. */
    void Sound(QString& text);

    /* Speaks the selected word; on CSoundSrcThread. The argument is not used. */
    void SoundSrc(QString& unused);

public slots:
    void finishTransSound();
    void finishTransSrc();
    /* Marks the word that is heard; the values are those of the engine's report. */
    void TTShignlightFun(int offset, int length, int kind);

signals:
    /* The screen is left. */
    void escPressed();

    /* A reading is cut short by a key or a scan. */
    void recfinished();

    void signalTTShignlight(int offset, int length, int kind);

    /* The screen begins to read, and has ended. */
    void signalOKInTrans();
    void signalTTSendInTrans();

    /* The quick menu is asked for; nothing is read then. */
    void signalQuickset(bool on);

    /* A key came while the worker of setSpeechWorker() speaks: it is to stop. */
    void signalKeyPress();

    /* Something to be told, in words that are on the screen. Comes when the screen is silent. */
    void signalHint(const QString& text);

    /* A word that is worth remembering was found: one that was brought here, or one on the way that
     * the user had read. Once for each look-up. */
    void lookedUp(const QString& word, const QString& translation);

    /* Internal: an entry is about to be heard. Reaches the interface thread before the first of its
     * highlight reports. */
    void readingPrepared(const QString& source, const std::shared_ptr<const SpeechText>& prepared);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintTransMarks(QPainter& painter) const;
    void paintScanMarks(QPainter& painter) const;
    void setupUi();
    void layPanes();
    void setLanguage();
    void openDictionary(int pair, int dict);

    // Words.
    transwords::Cut cut() const;
    QString scanText() const;
    void showScanText(const QString& text);
    void select(const transwords::Span& word);
    void putCursor(qsizetype position);
    void scrollToSelection();
    transwords::Span selection() const;
    bool moveLine(bool down);

    // Scans.
    bool findFirst(const QString& text, int& position);
    void takeFragment(const QString& text);
    bool joinFragment();
    qsizetype joinedLength() const;
    bool selectJoined();
    qsizetype firstPlace(int position) const;
    void selectFrom(qsizetype position);
    void selectCharacterBefore(int position);

    // Results.
    int lookUp(const QString& word);
    QStringList candidates() const;
    void forgetResults();
    void showResults();
    void leaveWholeView();
    void moveResult(bool forward);
    void placeMark();
    int shownEntry() const;
    int placeOf(qsizetype shown) const;
    void scrollTo(int position, bool atTop);
    void scrollToResult();
    int lineHeight() const;
    bool scrollTrans(int lines);
    QString noResultMessage() const;
    void showAnew();
    void remember();

    // Reading.
    struct SourceJob
    {
        QString text;
        std::optional<TTSPlayer::Voice> voice;
    };
    void requestReading();
    void readIfWanted();
    bool menuSpeaks() const;
    QString sourceToRead() const;
    void tellMessage();
    void startSource();
    void soundTrans(const SpokenText& spoken);
    void endReading();
    void setPreparedReading(const QString& source,
                            const std::shared_ptr<const SpeechText>& prepared);
    void highlight(int start, int length);
    void unmark();
    void endMarking();
    void dropReports();

    // Keys.
    bool silenceByKey(int key);
    bool carryOut(int key);
    void pressEscape();
    void pressEnter();
    void step(bool forward);
    void leave();

    QTextEdit* m_transPane = nullptr;
    QTextEdit* m_scanPane = nullptr;
    QFrame* m_line = nullptr;
    HintLine* m_hint = nullptr;

    QPointer<QWidget> m_previous;
    QPointer<CTTSThread> m_menuSpeech;
    bool m_scan = false;
    int m_curRowOnly = 0;
    bool m_soundTrans = false;
    bool m_inputMode = false;
    int m_select = 0;
    bool m_changeTrans = false;

    int m_pair = 0;           // row of the table of language pairs
    int m_language = -1;      // of the words, -1 without a pair
    transwords::Span m_whole; // a stretch that is one word, whatever is in it
    QString m_joinedRest;     // the rest of a joined word, which may be a word of its own
    QString m_previousFragment;
    QString m_pendingFragment;
    QString m_savedContent;

    QVector<_stScanContent> m_contents; // the entries that were found
    QString m_foundAs;                  // what the dictionary was asked then
    int m_curResult = 0;
    TransText m_layout; // what the lower pane shows
    QString m_message;  // shown instead of entries
    bool m_toRemember = false;
    int m_markAt = -1; // place of the speaker mark in the lower pane

    EnterDebounce m_enter;
    std::function<qint64()> m_clock;

    std::unique_ptr<CSoundTransThread> m_transThread;
    std::unique_ptr<CSoundSrcThread> m_srcThread;

    QTimer m_readSoon{this};
    bool m_readWanted = false; // the reading that follows a look-up is due
    bool m_srcReading = false; // the source-reading flag
    bool m_srcAgain = false;   // another one is due once the worker has ended
    bool m_transReading = false;
    bool m_interrupted = false; // a translation was stopped with Enter
    bool m_okSound = false;
    std::atomic<bool> m_stoppedByKey{false};

    QMutex m_jobMutex; // guards what the workers read
    SourceJob m_sourceJob;
    TTSPlayer::Voice m_transVoice;

    // The entry on its way to the voice, as it stands in the lower pane.
    struct Reading
    {
        QString source;
        SpokenText spoken;
        std::shared_ptr<const SpeechText> prepared;
    };
    QVector<Reading> m_requested;
    Reading m_current;
};

#endif
