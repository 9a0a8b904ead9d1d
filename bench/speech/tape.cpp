#include "bench/speech/tape.h"

#include <algorithm>
#include <cstdlib>

#include <poll.h>
#include <unistd.h>

namespace {

constexpr int AudibleLevel = 20; // of 32768; synthetic speech has no noise below it

} // namespace

double msBetween(Clock::time_point from, Clock::time_point to)
{
    return std::chrono::duration<double, std::milli>(to - from).count();
}

double msOf(std::size_t samples)
{
    return static_cast<double>(samples) * 1000 / SampleRate;
}

Tape::Tape(int fd, std::size_t blockSamples)
    : m_blockSamples(blockSamples), m_thread([this, fd] { work(fd); })
{
}

Tape::~Tape()
{
    m_closing = true;
    m_thread.join();
}

void Tape::work(int fd)
{
    std::vector<std::int16_t> block(m_blockSamples);
    while (!m_closing) {
        pollfd ready = {fd, POLLIN, 0};
        if (::poll(&ready, 1, 50) <= 0)
            continue;
        const ssize_t got = ::read(fd, block.data(), block.size() * sizeof block[0]);
        const Clock::time_point now = Clock::now();
        if (got <= 0)
            return;
        const std::lock_guard lock(m_mutex);
        m_blocks.push_back({m_samples.size(), now});
        m_samples.insert(m_samples.end(), block.begin(),
                         block.begin() + got / static_cast<ssize_t>(sizeof block[0]));
    }
}

void Tape::clear()
{
    const std::lock_guard lock(m_mutex);
    m_blocks.clear();
    m_samples.clear();
}

std::vector<std::int16_t> Tape::samples() const
{
    const std::lock_guard lock(m_mutex);
    return m_samples;
}

bool Tape::wait(std::size_t samples) const
{
    const auto count = [this] {
        const std::lock_guard lock(m_mutex);
        return m_samples.size();
    };
    const std::size_t wanted = count() + samples;
    const Clock::time_point limit = Clock::now() + std::chrono::seconds(5);
    while (count() < wanted && Clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return count() >= wanted;
}

std::vector<Stretch> Tape::sounds(double silenceMs) const
{
    const std::lock_guard lock(m_mutex);
    std::vector<Stretch> result;
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
        if (std::abs(m_samples[i]) <= AudibleLevel)
            continue;
        if (result.empty() || msOf(i - result.back().end) > silenceMs)
            result.push_back({i, i});
        result.back().end = i + 1;
    }
    return result;
}

Clock::time_point Tape::timeOf(std::size_t sample) const
{
    const std::lock_guard lock(m_mutex);
    return timeOfLocked(sample);
}

Clock::time_point Tape::timeOfLocked(std::size_t sample) const
{
    auto block = std::upper_bound(m_blocks.begin(), m_blocks.end(), sample,
                                  [](std::size_t at, const Block& b) { return at < b.begin; });
    if (block == m_blocks.begin())
        return {};
    --block;
    const std::chrono::duration<double, std::milli> after(msOf(sample - block->begin));
    return block->at + std::chrono::duration_cast<Clock::duration>(after);
}

std::vector<Clock::time_point> Tape::onsets(double silenceMs) const
{
    std::vector<Clock::time_point> result;
    for (const Stretch& sound : sounds(silenceMs))
        result.push_back(timeOf(sound.begin));
    return result;
}

Clock::time_point Tape::lastSound() const
{
    const std::vector<Stretch> all = sounds(0);
    return all.empty() ? Clock::time_point{} : timeOf(all.back().end - 1);
}
