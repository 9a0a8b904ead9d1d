#ifndef OPEN_TTS_VOICES_H
#define OPEN_TTS_VOICES_H

namespace tts {

/* Which of a voice's two mouths speaks: Chinese characters need another than letters. */
enum class Script { Alphabetic, Chinese };

struct Voice
{
    int code;               // as in ZEMBRA_TTS_SetLang
    Script script;          // of digits and signs, and of what else is spoken mostly
    const char* alphabetic; // voice file for words in letters
    const char* chinese;    // voice file for Chinese characters
    int normalSpeed;        // the speed setting that is normal speech

    const char* file(Script which) const { return which == Script::Chinese ? chinese : alphabetic; }
};

/* The voice with that code, null for a code without one. */
const Voice* findVoice(int code);

/* The voice before any is chosen. */
const Voice& defaultVoice();

/* espeak's words a minute for a speed setting of 0 or more. */
int wordsPerMinute(const Voice& voice, int speed);

} // namespace tts

#endif
