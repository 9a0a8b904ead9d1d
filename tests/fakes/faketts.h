#ifndef FAKETTS_H
#define FAKETTS_H

#include <string>
#include <vector>

/*
 * Control of the scripted speech engine behind platform/zembra_tts.h.
 *
 * ZEMBRA_TTS_Play blocks its caller until the text is "spoken"; highlight reports come from a
 * thread of the engine's. Any thread.
 */
class FakeTts
{
public:
    enum class Pace {
        Automatic, // a text runs through its words and ends by itself
        Held       // a text waits for speakWord() and finish()
    };

    struct Report
    {
        int offset;
        int length;
        int kind;
    };

    static void reset();
    static void setPace(Pace pace);

    /* Reports made for each text from now on, instead of one for each of its words. */
    static void setReports(std::vector<Report> reports);

    /* Results of the next calls; 0 and -2 are the defaults: success, and as the contract says. */
    static void setInitializeResult(int result);
    static void setPlayResult(int result);

    /* The next `number` stops have no effect, as if they had come just before ZEMBRA_TTS_Play. */
    static void missStops(int number);

    /* Waits until a text is being spoken, or until none is. */
    static bool waitUntilSpeaking();
    static bool waitUntilSilent();

    /* Pace::Held: makes the engine report the next word, and returns when the report's receiver
     * has returned. False when there is no further word, nothing is spoken or it was stopped. */
    static bool speakWord();

    /* Pace::Held: lets the text that is being spoken run to its end, and waits for that. */
    static bool finish();

    static bool isSpeaking();
    static bool isStarted();
    static bool hasReceiver();
    static int language();
    static int speed();
    static int volume();
    static int volumeLevel();

    /* The texts that were handed over to be spoken, oldest first. */
    static std::vector<std::u16string> texts();
};

#endif
