#ifndef TTSPLAYER_H
#define TTSPLAYER_H

#include "engines/receiver.h"

#include <QString>
#include <atomic>
#include <optional>

class DictScanEdit;
class MyEdit;

/*
 * The speech engine of the process, and the way of its highlight reports to the screen that reads.
 *
 * All operations may be called from any thread. Results are the engine's: 0 is success.
 */
class TTSPlayer
{
public:
    /* How a text is to sound; what is not given stays as it was set last. */
    struct Voice
    {
        std::optional<int> language; // as for setLan()
        std::optional<int> volume;   // as for setVolume()
        std::optional<int> speed;    // as for setSpeed()
        bool highlights = false;     // whether reports of this text reach the screen
    };

    static std::atomic<TTSPlayer*> player;

    /* Screens that receive highlight reports; not owned. A screen calls forget() before it dies. */
    static Receiver<MyEdit> editScan;
    static Receiver<DictScanEdit> editDict;

    /* 0 after setEdit(), 1 after setEditD(). */
    static std::atomic<int> m_EditId;

    /* While false, highlight reports are dropped. */
    static std::atomic<bool> scanPlayFlag;

    /* The one instance, created on first use on whichever thread comes first. */
    static TTSPlayer* Instance();

    /* Stops speech, shuts the engine down and deletes the instance, if there is one. */
    static void quitFun();

    /* Starts the engine again in the way the constructor did; the argument is not used. */
    int init(int unused);

    /* Chooses the voice: a language or voice code (see platform/zembra_tts.h). */
    int setLan(int language);

    /* Speaks a text with its pause tags and returns when it has been spoken or stopped: 0 when all
     * was spoken, 1 when stopped, -1 when the engine cannot speak. Not for the interface thread.
     * On a thread that called beginRequest(), a stop since then cancels the text. */
    int play(const QString& text);

    /* As play(), in a voice: what another thread plays neither gets this voice nor comes between
     * the voice and the text. A text that was cancelled leaves the voice as it is. */
    int play(const QString& text, const Voice& voice);

    /* Silences what is being spoken, and what workers have taken from their queues but not
     * begun to speak. */
    int stop();

    /* Called by a worker when it takes a text from its queue: a stop from now on cancels what the
     * thread plays, up to its next request. */
    static void beginRequest();

    /* Engine units: speed in steps from 0 (48 is normal), volume in per cent. */
    int setSpeed(int speed);
    int setVolume(int volume);

    /* Makes a screen the receiver of highlight reports. */
    void setEdit(MyEdit* edit);
    void setEditD(DictScanEdit* edit);

    /* A screen is about to be destroyed: on return no report reaches it any more. */
    static void forget(const MyEdit* edit);
    static void forget(const DictScanEdit* edit);

    /* Turns the routing of highlight reports on or off. */
    void setScanPlayFlag(bool on);

    /* The engine's callback: hands a report to the translate screen in dictionary mode, else to
     * the editor. -1 when reports are turned off, else 0. */
    static int ReceiveHighlight(int offset, int length, int kind);

private:
    TTSPlayer();
    ~TTSPlayer() = default;

    void take(const Voice& voice);
    int playAs(const QString& text, const Voice* voice);
};

#endif
