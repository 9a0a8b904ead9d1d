#ifndef OPEN_TTS_PACELIMIT_H
#define OPEN_TTS_PACELIMIT_H

#include <chrono>
#include <cstddef>

namespace tts {

/*
 * Holds a device to the pace of speech that has no clock of its own: ALSA's null device and the
 * like take an hour of samples in a moment. Real ones are not touched: they may take half a second
 * in advance, to fill their buffers, and go by a clock that is somewhat fast.
 */
class PaceLimit
{
public:
    using Clock = std::chrono::steady_clock;

    /* The device asks for so many samples now: when it may have them, which is mostly now. */
    Clock::time_point next(std::size_t samples, Clock::time_point now);

private:
    Clock::time_point m_heard; // when what it has had would have been heard
};

} // namespace tts

#endif
