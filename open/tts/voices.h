#ifndef OPEN_TTS_VOICES_H
#define OPEN_TTS_VOICES_H

#include "open/tts/characters.h"

namespace tts {

struct Voice
{
    int code;            // as in ZEMBRA_TTS_SetLang
    Script script;       // of digits and signs, and of what else is spoken mostly
    const char* latin;   // voice file for words in Latin letters
    const char* chinese; // voice file for Chinese characters
    int normalSpeed;     // the speed setting that is normal speech

    /* The voice file for words of a script: each is spoken by a voice of its own language. Null
     * for a script without one. */
    const char* file(Script which) const;
};

/* The voice with that code, null for a code without one. */
const Voice* findVoice(int code);

/* The voice before any is chosen. */
const Voice& defaultVoice();

/* espeak's words a minute for a speed setting of 0 or more. */
int wordsPerMinute(const Voice& voice, int speed);

} // namespace tts

#endif
