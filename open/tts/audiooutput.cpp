#include "open/tts/audiooutput.h"

#include <algorithm>

namespace tts {

void AudioOutput::connect()
{
    const std::lock_guard lock(m_mutex);
    m_connected = true;
}

void AudioOutput::disconnect()
{
    const std::lock_guard lock(m_mutex);
    m_connected = false;
}

std::size_t AudioOutput::take(std::span<std::int16_t> block)
{
    const std::lock_guard lock(m_mutex);
    if (m_connected)
        return m_queue.fill(block);
    std::fill(block.begin(), block.end(), std::int16_t(0));
    return 0;
}

} // namespace tts
