#ifndef OPEN_TTS_OUTPUTCHOICE_H
#define OPEN_TTS_OUTPUTCHOICE_H

#include "open/tts/audiooutput.h"
#include "open/tts/samplequeue.h"

#include <memory>

namespace tts {

/* The output that the environment asks for: the WAV file that SWIPELINE_WAV names, at
 * SWIPELINE_WAV_SPEED times the pace of speech, else the loudspeaker. Null when it does not open.
 */
std::unique_ptr<AudioOutput> openChosenOutput(SampleQueue& queue);

} // namespace tts

#endif
