#include "open/tts/wordqueue.h"

#include "open/tts/samplequeue.h"

#include <algorithm>
#include <cstdlib>

namespace tts {

namespace {

constexpr std::int64_t LongestOnset = SampleRate / 10;

bool isAudible(std::int16_t sample)
{
    constexpr int Level = 30; // of 32768; the synthesizer has no noise
    return std::abs(sample) > Level;
}

} // namespace

std::size_t silenceBefore(std::span<const std::int16_t> samples)
{
    const auto first = std::find_if(samples.begin(), samples.end(), isAudible);
    return static_cast<std::size_t>(first - samples.begin());
}

void WordQueue::add(const std::vector<TimedWord>& words, std::int64_t pushed)
{
    for (const TimedWord& word : words)
        m_words.push_back({word, word.sample + LongestOnset, word.sample < pushed});
}

void WordQueue::findOnsets(std::int64_t start, std::span<const std::int16_t> samples)
{
    for (Entry& entry : m_words)
        if (!entry.placed)
            place(entry, start, samples);
}

void WordQueue::place(Entry& entry, std::int64_t start, std::span<const std::int16_t> samples)
{
    const std::int64_t end = start + std::ssize(samples);
    const std::int64_t from = std::max(entry.word.sample, start);
    const std::int64_t limit = std::min(entry.latest, end);
    if (from < limit) {
        const auto part = samples.subspan(static_cast<std::size_t>(from - start),
                                          static_cast<std::size_t>(limit - from));
        const auto onset = from + static_cast<std::int64_t>(silenceBefore(part));
        if (onset < limit) {
            entry.word.sample = onset;
            entry.placed = true;
        }
    }
    entry.placed = entry.placed || entry.latest <= end;
}

} // namespace tts
