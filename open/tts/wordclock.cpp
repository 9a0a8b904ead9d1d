#include "open/tts/wordclock.h"

#include <algorithm>
#include <utility>

namespace tts {

WordClock::WordClock(const Piece& piece, std::int64_t start) : m_piece(piece), m_start(start) {}

void WordClock::addEvent(std::size_t character, std::int64_t sample)
{
    // Events come up to two characters early where punctuation stands before the word.
    constexpr std::size_t Slip = 2;
    const auto& words = m_piece.words;
    // Another event of a word that has its time, such as a figure said in several words.
    if (m_next > 0 && words[m_next - 1].begin < character && character < words[m_next - 1].end)
        return;
    for (std::size_t i = m_next; i < words.size() && words[i].begin <= character + Slip; ++i) {
        if (character >= words[i].end)
            continue;
        resolve(i + 1 - m_next, words[i].begin, std::max(sample, m_lastSample));
        return;
    }
}

void WordClock::finish(std::int64_t samples)
{
    resolve(m_piece.words.size() - m_next, m_piece.text.size(), std::max(samples, m_lastSample));
}

/* Gives `count` words times up to `sample`, which belongs to `character`. */
void WordClock::resolve(std::size_t count, std::size_t character, std::int64_t sample)
{
    const auto span = static_cast<std::int64_t>(character - m_lastCharacter);
    for (; count > 0; --count, ++m_next) {
        const Word& word = m_piece.words[m_next];
        const auto part = static_cast<std::int64_t>(word.begin - m_lastCharacter);
        const std::int64_t time =
            span == 0 ? sample : m_lastSample + (sample - m_lastSample) * part / span;
        m_timed.push_back({word.offset, word.length, m_start + time});
    }
    m_lastCharacter = character;
    m_lastSample = sample;
}

std::vector<TimedWord> WordClock::take()
{
    return std::exchange(m_timed, {});
}

} // namespace tts
