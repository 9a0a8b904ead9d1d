#ifndef OPEN_TTS_OUTPUTCHOICE_H
#define OPEN_TTS_OUTPUTCHOICE_H

#include "open/tts/audiooutput.h"

#include <memory>

namespace tts {

/* The output that the environment asks for: the WAV file that SWIPELINE_WAV names, at
 * SWIPELINE_WAV_SPEED times the pace of speech, else the loudspeaker, or silence in its place. Null
 * when the file cannot be written. */
std::unique_ptr<AudioOutput> openChosenOutput(SampleQueue& queue);

} // namespace tts

#endif
