#ifndef DICTVOICE_H
#define DICTVOICE_H

#include "engines/ttsplayer.h"

#include <optional>

/* The voice for texts of the dictionary in a language (as the pen codes it), in the volume and
 * speed of the dictionary's settings. `highlights`: its words are reported. None when there is no
 * voice for that language. */
std::optional<TTSPlayer::Voice> dictionaryVoice(int language, bool highlights);

#endif
