#ifndef OPEN_TTS_RESPELLINGS_H
#define OPEN_TTS_RESPELLINGS_H

#include <span>
#include <string_view>

namespace tts {

/* A word, sign or abbreviation that the synthesizer says wrongly in a language. */
struct Respelling
{
    std::string_view language;   // as voice files begin: "de"
    std::u32string_view written; // with a stop at its end: only where one follows; "1 km": behind 1
    std::u32string_view said;    // in double brackets: the synthesizer's phonemes
    bool mayEndSentence = false; // else its stop makes no pause; titles stand before capitals
};

std::span<const Respelling> respellings();

} // namespace tts

#endif
