#include "open/tts/bell.h"

#include <ctime>

namespace tts {

Bell::Bell()
{
    ::sem_init(&m_rings, 0, 0);
}

Bell::~Bell()
{
    ::sem_destroy(&m_rings);
}

void Bell::ring()
{
    if (!m_rung.exchange(true))
        ::sem_post(&m_rings);
}

void Bell::wait()
{
    if (::sem_wait(&m_rings) == 0)
        m_rung.exchange(false); // sees whatever was done before the ring
}

void Bell::waitUntil(Clock::time_point time)
{
    using namespace std::chrono;
    const auto whole = time_point_cast<seconds>(time);
    const timespec limit = {whole.time_since_epoch().count(),
                            duration_cast<nanoseconds>(time - whole).count()};
    if (::sem_clockwait(&m_rings, CLOCK_MONOTONIC, &limit) == 0)
        m_rung.exchange(false);
}

} // namespace tts
