#ifndef OPEN_TTS_BELL_H
#define OPEN_TTS_BELL_H

#include <atomic>
#include <chrono>

#include <semaphore.h>

namespace tts {

/* Wakes the one thread that waits at it. Ringing takes no lock, so that whoever rings is never held
 * up by a thread that is not running. A ring while nobody waits is kept for the next who does. */
class Bell
{
public:
    using Clock = std::chrono::steady_clock;

    Bell();
    ~Bell();
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    void ring();
    /* Waits for a ring; several count as one. May return without one when a signal interrupts
     * the wait, so callers look again at what they wait for. */
    void wait();
    void waitUntil(Clock::time_point time);

private:
    std::atomic<bool> m_rung = false;
    sem_t m_rings; // 1 when it was rung, else 0
};

} // namespace tts

#endif
