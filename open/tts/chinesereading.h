#ifndef OPEN_TTS_CHINESEREADING_H
#define OPEN_TTS_CHINESEREADING_H

#include "open/tts/piecer.h"
#include "open/tts/textreader.h"

#include <vector>

namespace tts {

/* Makes the ASCII stops beside Chinese characters full-width: without a blank behind them the
 * synthesizer would pass over them. */
void widenChineseStops(std::vector<Character>& text);

/* Writes the figures of a Chinese piece in characters, and characters that the synthesizer would
 * read wrongly as ones that sound as they should. The words of the piece are reported as before. */
void readChinese(Piece& piece);

} // namespace tts

#endif
