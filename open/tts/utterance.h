#ifndef OPEN_TTS_UTTERANCE_H
#define OPEN_TTS_UTTERANCE_H

#include "open/tts/samplequeue.h"
#include "open/tts/speechreports.h"
#include "open/tts/synthesizer.h"
#include "open/tts/wordclock.h"
#include "open/tts/wordqueue.h"
#include "platform/zembra_tts.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tts {

/* One text being spoken: synthesis runs a few seconds ahead of what is heard, and words are
 * reported as they are heard, both on the thread that called `speak`. */
class Utterance final : private SynthesisReceiver
{
public:
    struct Manner
    {
        const Voice* voice;
        int speed;
        ZEMBRA_TTS_HighlightCallback callback; // may be null
    };
    enum class Outcome { Spoken, Stopped, Failed };

    Utterance(SampleQueue& queue, SpeechReports& reports, const Manner& manner);

    /* Speaks the pieces; returns when the last sample has been heard or the text was stopped. */
    Outcome speak(Piecer& pieces);

private:
    void wordEvent(std::size_t character, std::int64_t sample) override;
    bool samples(std::span<const std::int16_t> samples) override;

    bool speakPiece(const Piece& piece);
    bool isForeign(const Piece& piece) const;
    bool keepPace(std::int64_t ahead);
    void takeWords();
    std::span<const std::int16_t> withoutLead(std::span<const std::int16_t> samples);
    bool reportUntil(std::int64_t sample);
    void reportRest();
    void report(const TimedWord& word);

    SampleQueue& m_queue;
    SpeechReports& m_reports;
    const Manner m_manner;
    WordClock* m_clock = nullptr; // of the piece that is being synthesized
    WordQueue m_words;            // not yet reported
    std::int64_t m_left = 0;      // samples left out at the beginning of the piece
    bool m_stopped = false;
};

} // namespace tts

#endif
