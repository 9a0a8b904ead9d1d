#ifndef OPEN_TTS_LOUDNESS_H
#define OPEN_TTS_LOUDNESS_H

#include <atomic>
#include <cstdint>
#include <span>

namespace tts {

/* Volume and boost, applied as sound leaves for the loudspeaker, so that a change is heard at once.
 * The setters may be called from any thread, `apply` from one at a time. */
class Loudness
{
public:
    void setVolume(int percent); // 0 to 100, clamped
    void setBoost(int level);    // 0 to 1000 for 0 to +9 dB, clamped
    int volume() const { return m_volume; }

    /* What is applied next begins at its volume, whatever came before. */
    void restart() { m_restart = true; }

    /* Scales the samples in place, without clipping; a change of volume spreads over them. */
    void apply(std::span<std::int16_t> samples);

private:
    std::atomic<int> m_volume = 100;
    std::atomic<int> m_boost = 0;
    std::atomic<bool> m_restart = true;
    float m_lastGain = 0;
};

} // namespace tts

#endif
