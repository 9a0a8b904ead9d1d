#ifndef OPEN_TTS_PIECER_H
#define OPEN_TTS_PIECER_H

#include "open/tts/textreader.h"
#include "open/tts/voices.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tts {

/* One word to report: where it stands in the text, and in the piece that speaks it. */
struct Word
{
    int offset;        // UTF-16 units into the text
    int length;        // UTF-16 units
    std::size_t begin; // characters into Piece::text
    std::size_t end;   // past the last
};

/* What the synthesizer gets at a time. */
struct Piece
{
    Script script = Script::Latin;
    std::u32string text; // empty when nothing is to be spoken
    std::vector<Word> words;
    bool endPause = true;     // the pause that the last punctuation makes by nature
    int pauseMs = 0;          // silence to add after it
    bool hasPhonemes = false; // some of the text is phonemes in double brackets
};

/*
 * Cuts a text into pieces: at pause tags and paragraph ends, where the script changes, and where a
 * clause grows so long that the synthesizer would lose its end. No piece holds letters of two
 * scripts. `script` speaks what belongs to none.
 *
 * The words of all the pieces, in order, are the words of the text, each once: what stands between
 * blanks, without the punctuation around it; Chinese characters one by one.
 *
 * Text is read as pieces are taken, so that the first costs as little of a long text as of a short
 * one. The text outlives the piecer.
 */
class Piecer
{
public:
    Piecer(std::u16string_view text, Script script) : m_reader(text), m_script(script) {}

    /* No piece is left. */
    bool atEnd();
    /* Not at the end. */
    Piece next();

private:
    TextReader m_reader;
    const Script m_script;
    std::vector<Piece> m_pieces; // of one stretch
    std::size_t m_next = 0;      // of them
};

} // namespace tts

#endif
