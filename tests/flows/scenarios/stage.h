#ifndef STAGE_H
#define STAGE_H

#include "tests/flows/scenarios/launcherear.h"
#include "tests/flows/scenarios/voicelog.h"
#include "tests/shared/applicationstate.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

class MainWindow;
class QCopChannel;

/*
 * Runs the whole application, from its start to its end, on the caller's thread and over the
 * scripted engines, and gives the word to a prompter whenever it has come to rest.
 *
 * The application is at rest when no worker is at work (one that the test holds back counts as
 * resting), no busy sign is shown, the front window is active, and some turns of the event loop
 * have brought nothing new. What the prompter asks for is done after it has returned, so that a
 * dialog that runs its own event loop does not stop the play.
 *
 * One stage at a time.
 */
class Stage : public QObject
{
public:
    /* What came since the last rest. */
    struct News
    {
        QVector<Utterance> spoken;
        QStringList sent;    // without the words of the next
        QStringList sounds;  // "soundyes", "soundno"
        QStringList engines; // every call
    };

    /* At rest; the application goes on when it returns. Without a new action it is called no
     * more, and the application is ended as the launcher does it. */
    using Prompter = std::function<void(const News& news)>;

    Stage();
    ~Stage() override;

    ApplicationState& state() const { return *m_state; }

    /* Runs the application until it ends; its result. A problem ends it too. What came after the
     * last rest is in `last`. */
    int run(const Prompter& prompter, News& last);

    /* What went wrong with the play itself: no rest within the deadline, an end that does not
     * come, words to the launcher that belie the voice, engines that were misused. */
    QString problem() const { return m_problem; }

    /* Widgets that outlived the window of the last run, by class. */
    QStringList widgetsLeft() const { return m_widgetsLeft; }

    /* Null before the window is made and when it is gone. */
    static MainWindow* window();

    /* The following are for the prompter. */
    void press(int key);
    void release(int key);
    void send(const QString& message, const QByteArray& payload);
    void act(std::function<void()> action);

    /* Puts the pen's tip down; false when the pen takes no swipe now. */
    bool tipDown();
    /* Lifts it over a line that reads so; an empty line is no line at all. */
    void tipUp(const QString& text);

    void holdRecognition(bool hold);
    /* Releases it from another thread once the application waits for it, or once what was asked
     * for is done without that. */
    void releaseRecognitionSoon();
    void holdVoice(bool hold);
    void holdDictionary(bool hold);

    /* Nothing is held any more, and the tip is up. */
    void letGo();

    /* Lets a timer run out: "message", "autosave", "delay", or the object name of a QTimer. False
     * when it does not run. */
    bool endTimer(const QString& name);

private:
    void takeDeviceTable(const QString& penPath);
    void applicationMade();
    void tick();
    void later(int milliseconds);
    /* Why the application is not at rest; empty when it is. */
    QString unrest();
    bool frontWindowIsActive();
    bool somethingNew();
    void gather();
    void rest();
    void end();
    void checkSounds();
    void checkEngines();
    void giveUp(const QString& problem);
    void watchWindow(MainWindow* main);
    void joinReleaser();

    std::unique_ptr<ApplicationState> m_state;
    std::unique_ptr<LauncherEar> m_ear;
    Prompter m_prompter;
    News m_news;
    VoiceLog m_voice;
    QString m_problem;
    QElapsedTimer m_sinceUnrest;
    int m_calmTurns = 0;
    int m_waitingActions = 0; // asked for and not begun
    int m_actions = 0;
    int m_awaitedMarks = 0; // messages sent to the application that it has not got yet
    QPointer<QCopChannel> m_channel;
    int m_swipes = 0;
    bool m_recognitionHeld = false;
    bool m_voiceHeld = false;
    bool m_dictionaryHeld = false;
    bool m_tipIsDown = false;
    bool m_ending = false;
    bool m_windowSeen = false;
    QString m_lastSound;
    QStringList m_widgetsLeft;
    std::thread m_releaser;
    std::atomic<bool> m_turnIsDue{false}; // since releaseRecognitionSoon()
};

#endif
