#ifndef OPEN_TTS_OUTPUTKEEPER_H
#define OPEN_TTS_OUTPUTKEEPER_H

#include "open/tts/audiooutput.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tts {

/*
 * Keeps an output open, and speech going on when there is none. A sound server may die and come
 * back, a device be unplugged, either may hang in any call: devices are opened and closed on a
 * thread of their own, and what lasts too long is no longer waited for. Meanwhile silence stands
 * in, at the pace of speech.
 *
 * One thread at a time; `prepare` and `giveUp` only between `open` and `close`.
 */
class OutputKeeper
{
public:
    /* Opens an output on a queue that outlives it; null when there is none. Called on a thread of
     * the keeper's, never twice at a time, with no other output open. */
    using Factory = std::function<std::unique_ptr<AudioOutput>(SampleQueue&)>;

    /* How long is waited for an output, and how soon a lost one is tried again. */
    struct Patience
    {
        std::chrono::milliseconds start{3000};
        std::chrono::milliseconds reopening{300}; // a text waits for it
        std::chrono::milliseconds closing{2000};
        std::chrono::milliseconds between{5000}; // two tries; longer with every failure
    };

    OutputKeeper(SampleQueue& queue, Factory open, const Patience& patience);
    ~OutputKeeper();
    OutputKeeper(const OutputKeeper&) = delete;
    OutputKeeper& operator=(const OutputKeeper&) = delete;

    /* False when there is no output. */
    bool open();
    void close();

    /* Before a text: opens a lost output anew. */
    void prepare();
    /* The output takes nothing: silence from now on, until it can be opened anew. */
    void giveUp();

private:
    using Clock = std::chrono::steady_clock;
    class Work;

    void work(bool opens);
    bool wait(std::chrono::milliseconds time);
    bool adopt();
    void standIn();

    SampleQueue& m_queue;
    const Factory m_open;
    const Patience m_patience;
    std::unique_ptr<AudioOutput> m_output; // connected; null when there is not even silence
    std::unique_ptr<Work> m_work;          // closing, opening, or both; null when done
    Clock::time_point m_nextTry;
    std::chrono::milliseconds m_between; // this try and the next
};

} // namespace tts

#endif
