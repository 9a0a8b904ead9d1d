#include "open/tts/utterance.h"

#include "open/tts/respelling.h"

#include <algorithm>

namespace tts {

namespace {

/* So much is synthesized before it is heard: enough for any delay, little enough for the memory. */
constexpr std::int64_t MostAhead = 4 * SampleRate;

std::int64_t samplesOf(int milliseconds)
{
    return static_cast<std::int64_t>(milliseconds) * SampleRate / 1000;
}

} // namespace

Utterance::Utterance(SampleQueue& queue, SpeechReports& reports, const Manner& manner)
    : m_queue(queue), m_reports(reports), m_manner(manner)
{
}

Utterance::Outcome Utterance::speak(Piecer& pieces)
{
    bool failed = false;
    while (!pieces.atEnd()) {
        Piece piece = pieces.next();
        respell(piece, m_manner.voice->file(piece.script));
        failed = !piece.text.empty() && !speakPiece(piece);
        if (failed || m_stopped)
            break;
        m_queue.pushSilence(samplesOf(piece.pauseMs));
        if (!keepPace(MostAhead))
            break;
    }
    if (!m_stopped && !failed && keepPace(0))
        reportRest();
    if (m_stopped)
        return Outcome::Stopped;
    return failed ? Outcome::Failed : Outcome::Spoken;
}

bool Utterance::speakPiece(const Piece& piece)
{
    const std::int64_t start = m_queue.pushed();
    WordClock clock(piece, start);
    m_clock = &clock;
    m_left = 0;
    const int rate = wordsPerMinute(*m_manner.voice, m_manner.speed);
    // Without a voice its words are reported all the same.
    const char* file = m_manner.voice->file(piece.script);
    const bool spoken = !file || Synthesizer::speak(piece, file, rate, *this) || isForeign(piece);
    clock.finish(m_queue.pushed() - start + m_left);
    takeWords();
    m_clock = nullptr;
    return spoken || m_stopped;
}

/* Of a script that the voice need not know, and that data for a few languages lack. */
bool Utterance::isForeign(const Piece& piece) const
{
    return piece.script != m_manner.voice->script && piece.script != Script::Latin
           && piece.script != Script::Chinese;
}

void Utterance::wordEvent(std::size_t character, std::int64_t sample)
{
    m_clock->addEvent(character, sample);
}

bool Utterance::samples(std::span<const std::int16_t> samples)
{
    const std::span<const std::int16_t> rest = withoutLead(samples);
    takeWords();
    m_words.findOnsets(m_queue.pushed(), rest);
    m_queue.push(rest);
    return keepPace(MostAhead);
}

/* A text begins with its first sound: the silence before it would only make the listener wait. */
std::span<const std::int16_t> Utterance::withoutLead(std::span<const std::int16_t> samples)
{
    constexpr std::int64_t MostLeft = SampleRate / 5;
    if (m_queue.pushed() > 0 || m_left >= MostLeft)
        return samples;
    const std::size_t silence = silenceBefore(samples);
    m_left += static_cast<std::int64_t>(silence);
    return samples.subspan(silence);
}

void Utterance::takeWords()
{
    const std::int64_t pushed = m_queue.pushed();
    std::vector<TimedWord> words = m_clock->take();
    for (TimedWord& word : words)
        word.sample = std::max<std::int64_t>(word.sample - m_left, 0);
    m_words.add(words, pushed);
}

/* Reports what is heard; waits until no more than `ahead` samples are still to be heard. False
 * when the text was stopped. */
bool Utterance::keepPace(std::int64_t ahead)
{
    const std::int64_t target = std::max<std::int64_t>(m_queue.pushed() - ahead, 0);
    m_stopped = m_stopped || !reportUntil(std::max(target, m_queue.heard()));
    return !m_stopped;
}

/* Waits until the sample is heard and reports the words that begin before it, each in its time. */
bool Utterance::reportUntil(std::int64_t sample)
{
    while (!m_words.isEmpty() && m_words.front().sample < sample) {
        if (!m_queue.waitUntilHeard(m_words.front().sample + 1))
            return false;
        report(m_words.front());
        m_words.pop();
    }
    return m_queue.waitUntilHeard(sample);
}

/* Words that turned out to have no sound, at the end of the text. */
void Utterance::reportRest()
{
    for (; !m_words.isEmpty() && !m_stopped; m_words.pop()) {
        report(m_words.front());
        m_stopped = !m_queue.waitUntilHeard(0);
    }
}

void Utterance::report(const TimedWord& word)
{
    m_reports.word(word.offset, word.length);
    if (m_manner.callback)
        m_manner.callback(word.offset, word.length, ZEMBRA_TTS_WORD);
}

} // namespace tts
