#ifndef OPEN_TTS_AUDIOOUTPUT_H
#define OPEN_TTS_AUDIOOUTPUT_H

#include "open/tts/samplequeue.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <span>

namespace tts {

/* Takes samples from a SampleQueue, block by block at the pace of speech, while it is connected. */
class AudioOutput
{
public:
    /* The queue outlives the output. */
    explicit AudioOutput(SampleQueue& queue) : m_queue(queue) {}
    virtual ~AudioOutput() = default;
    AudioOutput(const AudioOutput&) = delete;
    AudioOutput& operator=(const AudioOutput&) = delete;

    /* One output is connected at a time. Once disconnected it only gets silence; it may hang in
     * its device all the while, as nobody waits for it here. */
    virtual void connect();
    virtual void disconnect();

    /* The device has vanished, or there never was one: worth being opened anew. */
    virtual bool isLost() const = 0;

protected:
    SampleQueue& queue() { return m_queue; }
    /* Fills the block as SampleQueue::fill does. */
    std::size_t take(std::span<std::int16_t> block);

private:
    SampleQueue& m_queue;
    std::mutex m_mutex;
    bool m_connected = false;
};

} // namespace tts

#endif
