#include "open/tts/pacedoutput.h"

#include <array>
#include <chrono>
#include <utility>

namespace tts {

PacedOutput::PacedOutput(SampleQueue& queue, double pace, std::unique_ptr<SampleSink> sink)
    : AudioOutput(queue), m_pace(pace), m_sink(std::move(sink))
{
}

PacedOutput::~PacedOutput()
{
    m_closing = true;
    queue().wake();
    if (m_thread.joinable())
        m_thread.join();
}

void PacedOutput::connect()
{
    AudioOutput::connect();
    queue().setPace(m_pace);
    m_thread = std::thread(&PacedOutput::work, this);
}

void PacedOutput::disconnect()
{
    AudioOutput::disconnect();
    m_closing = true;
    queue().wake();
}

void PacedOutput::work()
{
    using Clock = std::chrono::steady_clock;
    std::array<std::int16_t, BlockSamples> block;
    Clock::time_point next = Clock::now();
    while (!m_closing) {
        queue().waitForSamples(m_closing);
        const Clock::time_point now = Clock::now();
        if (next < now)
            next = now;
        const std::size_t used = take(block);
        if (m_sink)
            m_sink->write(std::span(block).first(used));
        const std::chrono::duration<double> length(static_cast<double>(used)
                                                   / (SampleRate * m_pace));
        next += std::chrono::duration_cast<Clock::duration>(length);
        std::this_thread::sleep_until(next);
    }
    // What woke it may have been meant for the output that has come in its place.
    queue().wake();
}

} // namespace tts
