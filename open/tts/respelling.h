#ifndef OPEN_TTS_RESPELLING_H
#define OPEN_TTS_RESPELLING_H

#include "open/tts/piecer.h"

#include <cstddef>
#include <string_view>

namespace tts {

/* Writes another text in place of a word's; the words behind it move along. */
void respellWord(Piece& piece, std::size_t word, std::u32string_view text);

/*
 * What the synthesizer says wrongly in the language of a voice file, written so that it says it
 * rightly: figures, signs, abbreviations, words with a wrong stress. The words of the piece are
 * reported as before. Nothing changes for a null file.
 */
void respell(Piece& piece, const char* voiceFile);

} // namespace tts

#endif
