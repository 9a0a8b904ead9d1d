#ifndef READINGVOICE_H
#define READINGVOICE_H

#include "engines/ttsplayer.h"

/* The code of the voice for the scan language, with the given choice of the user among several. */
int voiceOfScanLanguage(int choice);

/* The voice that reads scanned text: that of the scan language with the chosen English or Spanish
 * voice, in the speed and volume of the settings, its words reported. Any thread. */
TTSPlayer::Voice readingVoice();

#endif
