#ifndef OPEN_TTS_WORDQUEUE_H
#define OPEN_TTS_WORDQUEUE_H

#include "open/tts/wordclock.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace tts {

/* How many samples of silence come first. */
std::size_t silenceBefore(std::span<const std::int16_t> samples);

/*
 * Words on their way to being reported, in order. A word that begins with closed lips (p, t, k) is
 * silent for some fifty milliseconds: it moves to where its sound sets in.
 */
class WordQueue
{
public:
    /* `pushed`: samples that have gone before; a word in them stays where it is. */
    void add(const std::vector<TimedWord>& words, std::int64_t pushed);
    /* The samples from `start` on, to be called before any of them is heard. */
    void findOnsets(std::int64_t start, std::span<const std::int16_t> samples);

    bool isEmpty() const { return m_words.empty(); }
    const TimedWord& front() const { return m_words.front().word; }
    void pop() { m_words.pop_front(); }

private:
    struct Entry
    {
        TimedWord word;
        std::int64_t latest; // its sound is not looked for further on
        bool placed;
    };

    static void place(Entry& entry, std::int64_t start, std::span<const std::int16_t> samples);

    std::deque<Entry> m_words;
};

} // namespace tts

#endif
