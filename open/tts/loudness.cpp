#include "open/tts/loudness.h"

#include <algorithm>
#include <cmath>

namespace tts {

namespace {

/* Straight up to the knee, then bent so that full scale is never reached. */
float softened(float value)
{
    constexpr float Knee = 0.6f;
    constexpr float Top = 0.98f;
    const float size = std::abs(value);
    if (size <= Knee)
        return value;
    const float bent = Knee + (Top - Knee) * std::tanh((size - Knee) / (Top - Knee));
    return std::copysign(bent, value);
}

} // namespace

void Loudness::setVolume(int percent)
{
    m_volume = std::clamp(percent, 0, 100);
}

void Loudness::setBoost(int level)
{
    m_boost = std::clamp(level, 0, 1000);
}

void Loudness::apply(std::span<std::int16_t> samples)
{
    constexpr float FullScale = 32768;
    constexpr float MostBoostDb = 9;
    const int boost = m_boost;
    const float boostDb = MostBoostDb * static_cast<float>(boost) / 1000;
    const float gain = static_cast<float>(m_volume) / 100 * std::pow(10.0f, boostDb / 20);
    const float from = m_restart.exchange(false) ? gain : m_lastGain;
    const float step = samples.empty() ? 0 : (gain - from) / static_cast<float>(samples.size());
    float current = from;
    for (std::int16_t& sample : samples) {
        current += step;
        const float value = static_cast<float>(sample) / FullScale * current;
        const float heard = boost > 0 ? softened(value) : value;
        sample = static_cast<std::int16_t>(std::lround(heard * (FullScale - 1)));
    }
    m_lastGain = gain;
}

} // namespace tts
