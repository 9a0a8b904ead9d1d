#include "open/tts/samplequeue.h"

#include <algorithm>
#include <utility>

namespace tts {

namespace {

constexpr int FadeSamples = SampleRate / 200; // 5 ms

std::int16_t sum(std::int16_t a, std::int16_t b)
{
    return static_cast<std::int16_t>(std::clamp(a + b, -32768, 32767));
}

} // namespace

SampleQueue::SampleQueue(const Generation& generation) : m_generation(generation) {}

void SampleQueue::setPace(double pace)
{
    const std::lock_guard lock(m_mutex);
    m_pace = pace;
}

void SampleQueue::begin(std::uint64_t generation)
{
    const std::lock_guard lock(m_mutex);
    cutLocked();
    if (m_tail.empty())
        m_loudness.restart();
    m_textGeneration = generation;
    m_active = true;
    m_pushed = 0;
    m_taken = 0;
    m_lastBlock = 0;
}

void SampleQueue::push(std::span<const std::int16_t> samples)
{
    std::vector<std::int16_t> copy(samples.begin(), samples.end());
    const std::lock_guard lock(m_mutex);
    m_samples.add(std::move(copy));
    m_pushed += static_cast<std::int64_t>(samples.size());
    m_output.ring();
}

void SampleQueue::pushSilence(std::int64_t samples)
{
    const std::lock_guard lock(m_mutex);
    m_samples.addSilence(samples);
    m_pushed += samples;
    m_output.ring();
}

void SampleQueue::end()
{
    const std::lock_guard lock(m_mutex);
    cutLocked();
    m_output.ring();
}

/* Keeps of what is not yet taken only as much as it takes to fade out without a click. */
void SampleQueue::cutLocked()
{
    if (!m_active)
        return;
    m_active = false;
    m_tail.resize(FadeSamples);
    m_tail.resize(m_samples.take(m_tail));
    int left = FadeSamples;
    for (std::int16_t& sample : m_tail)
        sample = static_cast<std::int16_t>(sample * left-- / FadeSamples);
    m_samples.clear();
}

std::int64_t SampleQueue::pushed() const
{
    const std::lock_guard lock(m_mutex);
    return m_pushed;
}

std::int64_t SampleQueue::heard() const
{
    const std::lock_guard lock(m_mutex);
    return heardLocked();
}

std::int64_t SampleQueue::heardLocked() const
{
    const std::chrono::duration<double> since = Clock::now() - m_takenAt;
    const auto inBlock = static_cast<std::int64_t>(since.count() * SampleRate * m_pace);
    return m_taken - m_lastBlock + std::min(inBlock, m_lastBlock);
}

/* When a sample that was taken is heard. */
SampleQueue::Clock::time_point SampleQueue::timeOf(std::int64_t sample) const
{
    const auto inBlock = static_cast<double>(sample - (m_taken - m_lastBlock));
    const std::chrono::duration<double> after((inBlock + 1) / (SampleRate * m_pace));
    return m_takenAt + std::chrono::duration_cast<Clock::duration>(after);
}

bool SampleQueue::waitUntilHeard(std::int64_t sample)
{
    Clock::time_point since = Clock::now();
    while (!isStopped()) {
        Clock::time_point limit;
        bool waitsForOutput = false;
        {
            const std::lock_guard lock(m_mutex);
            if (heardLocked() >= sample)
                return true;
            waitsForOutput = sample > m_taken;
            limit = waitsForOutput ? std::max(since, m_filledAt) + LongestGap : timeOf(sample);
        }
        if (waitsForOutput && limit <= Clock::now()) {
            since = Clock::now();
            if (m_onStall)
                m_onStall();
        } else {
            m_speaker.waitUntil(limit);
        }
    }
    return false;
}

std::size_t SampleQueue::fill(std::span<std::int16_t> block)
{
    std::fill(block.begin(), block.end(), std::int16_t(0));
    std::size_t used = 0;
    {
        const std::lock_guard lock(m_mutex);
        const Clock::time_point now = Clock::now();
        if (m_active && isStopped())
            cutLocked();
        if (m_active) {
            used = m_samples.take(block);
            m_taken += static_cast<std::int64_t>(used);
            m_lastBlock = static_cast<std::int64_t>(used);
            m_takenAt = now;
        }
        m_filledAt = now;
        used = std::max(used, addTail(block));
        m_speaker.ring();
    }
    m_loudness.apply(block);
    return used;
}

std::size_t SampleQueue::addTail(std::span<std::int16_t> block)
{
    const std::size_t count = std::min(block.size(), m_tail.size());
    for (std::size_t i = 0; i < count; ++i)
        block[i] = sum(block[i], m_tail[i]);
    m_tail.erase(m_tail.begin(), m_tail.begin() + static_cast<std::ptrdiff_t>(count));
    return count;
}

void SampleQueue::waitForSamples(const std::atomic<bool>& closing)
{
    while (!closing && !hasSomethingToTake())
        m_output.wait();
}

bool SampleQueue::hasSomethingToTake() const
{
    const std::lock_guard lock(m_mutex);
    return !m_tail.empty() || (m_active && (!m_samples.isEmpty() || isStopped()));
}

void SampleQueue::wake()
{
    m_speaker.ring();
    m_output.ring();
}

} // namespace tts
