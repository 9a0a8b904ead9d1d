#ifndef OPEN_TTS_SYNTHESIZER_H
#define OPEN_TTS_SYNTHESIZER_H

#include "open/tts/piecer.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tts {

/* Takes what the synthesizer makes of a piece, on the thread that called `speak`. */
class SynthesisReceiver
{
public:
    /* A word event: character into the piece's text, sample from the piece's start. Comes before
     * the samples that it points to. */
    virtual void wordEvent(std::size_t character, std::int64_t sample) = 0;
    /* The next samples. False ends the synthesis. */
    virtual bool samples(std::span<const std::int16_t> samples) = 0;

protected:
    ~SynthesisReceiver() = default;
};

/*
 * espeak-ng, which exists once in a process. It is started once and never ended: starting it again
 * leaks a thread and loses the voice, ending it hangs after a few rounds. One thread at a time.
 */
class Synthesizer
{
public:
    /* Starts it with the data in the first of the folders that holds any, else its own. Does
     * nothing when it is started. False when there is no voice data. */
    static bool start(const std::vector<std::string>& folders);

    /* Speaks a piece with a voice file at a rate in words a minute; blocks until done. False on
     * failure. */
    static bool speak(const Piece& piece, const char* voiceFile, int rate,
                      SynthesisReceiver& receiver);
};

} // namespace tts

#endif
