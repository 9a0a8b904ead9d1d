#include "open/tts/pacelimit.h"

#include "open/tts/samplequeue.h"

#include <algorithm>

namespace tts {

PaceLimit::Clock::time_point PaceLimit::next(std::size_t samples, Clock::time_point now)
{
    constexpr std::chrono::milliseconds MostAhead(500);
    constexpr double FastestClock = 1.02;
    const std::chrono::duration<double> length(static_cast<double>(samples)
                                               / (SampleRate * FastestClock));
    const Clock::time_point at = std::max(now, m_heard - MostAhead);
    m_heard = std::max(m_heard, now) + std::chrono::duration_cast<Clock::duration>(length);
    return at;
}

} // namespace tts
