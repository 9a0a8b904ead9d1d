#ifndef OPEN_TTS_WORDCLOCK_H
#define OPEN_TTS_WORDCLOCK_H

#include "open/tts/piecer.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tts {

/* A word, and the sample at which it begins to be heard. */
struct TimedWord
{
    int offset;
    int length;
    std::int64_t sample;
};

/*
 * Tells when the words of a piece are heard. The synthesizer's own word events serve as times
 * only: it joins words ("of the"), repeats them ("3.14") and loses its place, so that every word of
 * ours takes the first event that fits it, and words without one share the time between.
 */
class WordClock
{
public:
    /* `start` is the sample at which the piece begins. The piece outlives the clock. */
    WordClock(const Piece& piece, std::int64_t start);

    /* An event at a character of the piece's text, `sample` from the piece's start. */
    void addEvent(std::size_t character, std::int64_t sample);

    /* The piece has ended: words still without a time get one. */
    void finish(std::int64_t samples);

    /* The words that have got their times since the last call, in order. */
    std::vector<TimedWord> take();

private:
    void resolve(std::size_t count, std::size_t character, std::int64_t sample);

    const Piece& m_piece;
    const std::int64_t m_start;
    std::size_t m_next = 0; // first word without a time
    std::size_t m_lastCharacter = 0;
    std::int64_t m_lastSample = 0;
    std::vector<TimedWord> m_timed;
};

} // namespace tts

#endif
