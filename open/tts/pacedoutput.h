#ifndef OPEN_TTS_PACEDOUTPUT_H
#define OPEN_TTS_PACEDOUTPUT_H

#include "open/tts/audiooutput.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <thread>

namespace tts {

/* Takes what has been heard. */
class SampleSink
{
public:
    SampleSink() = default;
    virtual ~SampleSink() = default;
    SampleSink(const SampleSink&) = delete;
    SampleSink& operator=(const SampleSink&) = delete;

    virtual void write(std::span<const std::int16_t> samples) = 0;
};

/*
 * An output without a device: a thread of its own takes samples at the pace at which they would be
 * heard and hands them to a sink: text after text, without the silence between them.
 *
 * Without a sink it stands in for a loudspeaker that is not there: nothing sounds, and words are
 * reported as if it did.
 */
class PacedOutput : public AudioOutput
{
public:
    /* `pace` times as fast as speech. The sink may be null. */
    PacedOutput(SampleQueue& queue, double pace, std::unique_ptr<SampleSink> sink);
    ~PacedOutput() override;

    void connect() override; // once
    void disconnect() override;
    bool isLost() const override { return !m_sink; }

private:
    void work();

    const double m_pace;
    const std::unique_ptr<SampleSink> m_sink;
    std::atomic<bool> m_closing = false;
    std::thread m_thread;
};

} // namespace tts

#endif
