#ifndef BENCH_SPEECH_SUBJECTS_H
#define BENCH_SPEECH_SUBJECTS_H

/* What is measured; each prints its figures and checks its goals. `rounds` 0: the usual number. */

void measureTiming(int rounds);     // Play to sound, Stop to silence
void measureStops(int rounds);      // stops that are lost, and texts that an old stop hits
void measureHighlights(int rounds); // report against sound, word by word
void measureWords(int rounds);      // every word once, in thirteen languages
void measurePauses(int rounds);     // lengths of pauses
void measureStrings(int rounds);    // random texts, all voices
void measureRestarts(int rounds);   // closing and starting again
void measurePeers(int rounds);      // other programs and this engine on one sound server

#endif
