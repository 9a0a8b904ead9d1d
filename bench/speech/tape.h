#ifndef BENCH_SPEECH_TAPE_H
#define BENCH_SPEECH_TAPE_H

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

using Clock = std::chrono::steady_clock;

constexpr int SampleRate = 22050;

double msBetween(Clock::time_point from, Clock::time_point to);
double msOf(std::size_t samples);

/* A stretch of sound, in samples since the tape was cleared. */
struct Stretch
{
    std::size_t begin;
    std::size_t end;
    std::size_t length() const { return end - begin; }
};

/*
 * Records what comes out of a file descriptor, 16-bit samples of 22,050 Hz, with the time at which
 * each block came. A sample is heard as far after its block's time as it stands in the block.
 */
class Tape
{
public:
    /* Takes blocks of at most so many samples from `fd`, which stays the caller's. */
    Tape(int fd, std::size_t blockSamples);
    ~Tape();
    Tape(const Tape&) = delete;
    Tape& operator=(const Tape&) = delete;

    void clear();
    std::vector<std::int16_t> samples() const;

    /* Waits until so many more samples have come. False when they do not come within seconds. */
    bool wait(std::size_t samples) const;

    /* The sounds that are parted by at least `silenceMs` of none. */
    std::vector<Stretch> sounds(double silenceMs) const;
    Clock::time_point timeOf(std::size_t sample) const;
    /* When each of the sounds begins. */
    std::vector<Clock::time_point> onsets(double silenceMs) const;
    /* The last audible sample; the clock's beginning without one. */
    Clock::time_point lastSound() const;

private:
    struct Block
    {
        std::size_t begin;
        Clock::time_point at;
    };

    void work(int fd);
    Clock::time_point timeOfLocked(std::size_t sample) const;

    const std::size_t m_blockSamples;
    mutable std::mutex m_mutex;
    std::vector<Block> m_blocks;
    std::vector<std::int16_t> m_samples;
    std::atomic<bool> m_closing = false;
    std::thread m_thread;
};

#endif
