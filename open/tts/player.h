#ifndef OPEN_TTS_PLAYER_H
#define OPEN_TTS_PLAYER_H

#include "open/tts/outputkeeper.h"
#include "open/tts/samplequeue.h"
#include "open/tts/speechreports.h"
#include "open/tts/utterance.h"
#include "open/tts/voices.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace tts {

/*
 * The engine behind platform/zembra_tts.h: settings, one text at a time, stop from anywhere.
 *
 * Stopping is a count: `play` reads it as the first thing it does, `stop` increments it, and a text
 * whose count is not the current one is over. So no stop is lost, however early it comes, and none
 * hits a text that was begun after it.
 */
class Player
{
public:
    explicit Player(OutputKeeper::Factory openOutput, const OutputKeeper::Patience& patience = {});

    bool start(const std::vector<std::string>& folders);
    bool close(); // false when not started

    /* What is thrown on the way (no memory, no thread to be had) leaves the player as it was before
     * the call. The same goes for start and close. */
    enum class Outcome { Spoken, Stopped, Failed };
    Outcome play(std::u16string_view text);
    void stop();

    bool setVoice(int code);
    void setSpeed(int speed);
    void setVolume(int percent) { m_queue.loudness().setVolume(percent); }
    void setBoost(int level) { m_queue.loudness().setBoost(level); }
    void setCallback(ZEMBRA_TTS_HighlightCallback callback);

private:
    bool isStarted();
    bool enter(Utterance::Manner& manner);
    void leave();
    Outcome speak(std::u16string_view text, const Utterance::Manner& manner,
                  std::uint64_t generation);

    Generation m_generation = 0;
    SampleQueue m_queue{m_generation};
    OutputKeeper m_output;

    std::mutex m_startMutex; // starting and closing, one at a time
    std::mutex m_stateMutex;
    std::condition_variable m_left;
    bool m_started = false;
    int m_playing = 0; // calls of play() that have not returned
    Utterance::Manner m_manner = {&defaultVoice(), defaultVoice().normalSpeed, nullptr};

    std::mutex m_speakMutex; // the text that is spoken; guards synthesizer and reports
    SpeechReports m_reports;
};

} // namespace tts

#endif
