#ifndef OPEN_TTS_SOUNDBUFFER_H
#define OPEN_TTS_SOUNDBUFFER_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace tts {

/* Samples that go out in the order in which they came in. Silence is kept as a count: a minute of
 * it costs no more than a millisecond. */
class SoundBuffer
{
public:
    void add(std::vector<std::int16_t> samples);
    void addSilence(std::int64_t samples);

    /* Moves the first samples into the block; returns how many there were. The rest of the block
     * stays as it is. */
    std::size_t take(std::span<std::int16_t> block);
    bool isEmpty() const { return m_parts.empty(); }
    void clear();

private:
    struct Part
    {
        std::vector<std::int16_t> samples; // empty for silence
        std::size_t left;                  // of its end, not yet taken
    };

    std::deque<Part> m_parts; // none is without samples
};

} // namespace tts

#endif
