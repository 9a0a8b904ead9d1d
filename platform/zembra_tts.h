/* SPDX-License-Identifier: 0BSD */
/*
 * The speech engine: text becomes sound, and while it sounds the engine tells which word is heard.
 *
 * Threads: every function may be called from any thread. ZEMBRA_TTS_Play blocks its caller; two
 * calls at a time are served one after the other. Highlight reports come from a thread of the
 * engine's choice, never after the ZEMBRA_TTS_Play that they belong to has returned.
 *
 * Errors: every function may also return -1 when the system gives it no memory or no thread; the
 * engine stays as it was and may be used on.
 */
#ifndef ZEMBRA_TTS_H
#define ZEMBRA_TTS_H

#ifdef __cplusplus
extern "C" {
#endif

/* Kinds of highlight report. */
enum { ZEMBRA_TTS_WORD = 0 };

/*
 * One highlight report: the stretch that begins to be heard now.
 *
 * offset  of its first code unit in the text as it was passed to ZEMBRA_TTS_Play, mark-up
 *         included, counted in UTF-16 code units from 0.
 * length  in UTF-16 code units, 1 or more; the stretch lies inside the text and never inside
 *         mark-up.
 * kind    ZEMBRA_TTS_WORD. Receivers ignore kinds that they do not know.
 *
 * Reports of one text come in the order of the text, each word once. The return value is ignored.
 */
typedef int (*ZEMBRA_TTS_HighlightCallback)(int offset, int length, int kind);

/*
 * Starts the engine; opens the sound output. May be called again at any time: the settings and
 * the callback stay as they are, and nothing is interrupted.
 *
 * dirs   `count` folders (paths in the file system's encoding): voice data, language data.
 *        Read during the call only. A folder that is missing is no error if the engine has data
 *        of its own.
 * value  sample buffer of the output, in milliseconds: 80 asks for the usual one. An engine may
 *        choose a smaller one.
 * Returns 0 on success, -1 when the engine cannot speak: no voice, nothing to play on. Speaking
 * then returns -1. An engine may let silence stand in for a sound output that is missing or gets
 * lost: it then counts as started, a text takes its time and has its reports, and nothing is heard.
 */
int ZEMBRA_TTS_Initialize(const char* dirs[], int count, int value);

/*
 * Chooses the voice for texts played after the call: a language code (1 Chinese, 2 Chinese in
 * traditional characters, 101 English, 103 French, 104 German, 105 Spanish, 106 Italian,
 * 107 Swedish, 108 Danish, 109 Norwegian, 110 Dutch, 111 Portuguese, 151 Russian, 152 Arabic) or
 * a voice code (200 to 206 except 202: English voices; 202 Spanish of Latin America; 211, 212
 * Chinese voices). 0 and codes the engine does not know keep the voice. Returns 0, -1 for an
 * unknown code.
 */
int ZEMBRA_TTS_SetLang(int language);

/* Sets the receiver of highlight reports, null for none, for texts played after the call.
 * Returns 0. */
int ZEMBRA_TTS_SetHighlight_CallBack(ZEMBRA_TTS_HighlightCallback callback);

/*
 * Speaks a text; returns when the last sample has been heard or speech was stopped.
 *
 * text   UTF-16 in native byte order, no terminator needed; read during the call only.
 *        The one mark-up is the pause tag <vtml_pause time="N"/>, N milliseconds of silence
 *        (0 to 65535) in addition to the pause that the punctuation before it makes by nature;
 *        after a word without punctuation there is no other, and the silence is N long.
 *        Everything else is text, whatever it looks like. Lone surrogates and control
 *        characters are treated as blanks.
 * bytes  length of the text in bytes, two for a code unit; 0 or less: nothing to speak.
 * flag   0.
 * Returns 0 when all was spoken, 1 when speech was stopped, -1 on failure (engine not started,
 * null text with bytes above 0).
 */
int ZEMBRA_TTS_Play(const unsigned short* text, int bytes, int flag);

/* Silences the engine at once. Every ZEMBRA_TTS_Play that was entered before this call returns
 * soon; one entered later is not affected. Does not wait. Returns 0. */
int ZEMBRA_TTS_Stop(void);

/* Speed of texts played after the call, in steps from 0 (slow); 48 is normal speech (about 175
 * words a minute in English), 96 twice as fast. For the voice 202 normal is 90. Out-of-range
 * values are clamped. Returns 0. */
int ZEMBRA_TTS_SetSpeed(int speed);

/* Volume in per cent, 0 (silent) to 100; acts at once. Out-of-range values are clamped.
 * Returns 0. */
int ZEMBRA_TTS_SetVolume(int volume);

/* Loudness boost on top of the volume, 0 (none) to 1000 (+9 dB), without clipping; acts at once.
 * Out-of-range values are clamped. May be called before ZEMBRA_TTS_Initialize. Returns 0. */
int ZEMBRA_TTS_SetVolumeLevel(int level);

/* Stops speech, waits until every ZEMBRA_TTS_Play has returned, closes the sound output. Must not
 * be called from a highlight report. Returns 0, -1 when the engine was not started. */
int ZEMBRA_TTS_Uninitialize(void);

#ifdef __cplusplus
}
#endif
#endif
