#ifndef OPEN_TTS_SAMPLEQUEUE_H
#define OPEN_TTS_SAMPLEQUEUE_H

#include "open/tts/bell.h"
#include "open/tts/loudness.h"
#include "open/tts/soundbuffer.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <span>
#include <vector>

namespace tts {

constexpr int SampleRate = 22050;
constexpr int BlockSamples = 512;

/* Counts stop requests. A text belongs to the count at which it was begun; a later one ends it. */
using Generation = std::atomic<std::uint64_t>;

/*
 * Sound on its way from the synthesizer to the output, one text at a time. One thread speaks
 * (begin, push, end, waiting), one takes (fill); any may wake, which takes no lock.
 *
 * Positions are samples since the beginning of the text.
 */
class SampleQueue
{
public:
    explicit SampleQueue(const Generation& generation);

    Loudness& loudness() { return m_loudness; }

    /* How many times as fast as speech the output takes samples. */
    void setPace(double pace);
    /* What to do when nothing has been taken for longer than any output needs: called on the
     * speaking thread, which then waits on. Set before the first text. */
    void onStall(std::function<void()> action) { m_onStall = std::move(action); }
    static constexpr std::chrono::seconds LongestGap{2};

    // The speaking thread
    /* Begins a text of that generation; what is left of another fades out. */
    void begin(std::uint64_t generation);
    void push(std::span<const std::int16_t> samples);
    void pushSilence(std::int64_t samples);
    /* The text has been spoken to its end, or is given up. */
    void end();
    std::int64_t pushed() const;
    std::int64_t heard() const;
    /* Waits until the sample is heard. False as soon as the text has been stopped. */
    bool waitUntilHeard(std::int64_t sample);

    // The output
    /* Fills the block, with silence where there is nothing to say. Returns how many samples from
     * its start belong to a text. */
    std::size_t fill(std::span<std::int16_t> block);
    /* Waits until there is something to take or `closing`. */
    void waitForSamples(const std::atomic<bool>& closing);

    /* Makes waiting threads look again. */
    void wake();

private:
    using Clock = std::chrono::steady_clock;

    bool isStopped() const { return m_generation != m_textGeneration; }
    void cutLocked();
    std::int64_t heardLocked() const;
    Clock::time_point timeOf(std::int64_t sample) const;
    std::size_t addTail(std::span<std::int16_t> block);
    bool hasSomethingToTake() const;

    const Generation& m_generation;
    Loudness m_loudness;
    std::function<void()> m_onStall;
    Bell m_speaker; // rings for the speaking thread
    Bell m_output;  // and for the output
    mutable std::mutex m_mutex;
    SoundBuffer m_samples;
    std::vector<std::int16_t> m_tail; // the fading end of a text that was stopped
    std::uint64_t m_textGeneration = 0;
    bool m_active = false;
    double m_pace = 1;
    std::int64_t m_pushed = 0;
    std::int64_t m_taken = 0;     // samples taken by the output
    std::int64_t m_lastBlock = 0; // of these the last ones, taken at:
    Clock::time_point m_takenAt;
    Clock::time_point m_filledAt; // last call of fill, with or without a text
};

} // namespace tts

#endif
