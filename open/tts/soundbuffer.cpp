#include "open/tts/soundbuffer.h"

#include <algorithm>
#include <utility>

namespace tts {

void SoundBuffer::add(std::vector<std::int16_t> samples)
{
    const std::size_t count = samples.size();
    if (count > 0)
        m_parts.push_back({std::move(samples), count});
}

void SoundBuffer::addSilence(std::int64_t samples)
{
    if (samples > 0)
        m_parts.push_back({{}, static_cast<std::size_t>(samples)});
}

std::size_t SoundBuffer::take(std::span<std::int16_t> block)
{
    std::size_t taken = 0;
    while (taken < block.size() && !m_parts.empty()) {
        Part& part = m_parts.front();
        const std::size_t count = std::min(block.size() - taken, part.left);
        const auto to = block.begin() + static_cast<std::ptrdiff_t>(taken);
        if (part.samples.empty())
            std::fill_n(to, count, std::int16_t(0));
        else
            std::copy_n(part.samples.end() - static_cast<std::ptrdiff_t>(part.left), count, to);
        taken += count;
        part.left -= count;
        if (part.left == 0)
            m_parts.pop_front();
    }
    return taken;
}

void SoundBuffer::clear()
{
    m_parts.clear();
}

} // namespace tts
