#include "open/tts/outputchoice.h"

#include "open/tts/sdloutput.h"
#include "open/tts/wavoutput.h"

#include "desk/desklink.h"

#include <algorithm>
#include <cstdlib>

namespace tts {

namespace {

constexpr const char* WavSpeedVariable = "SWIPELINE_WAV_SPEED";

double wavPace()
{
    const char* value = std::getenv(WavSpeedVariable);
    const double pace = value ? std::strtod(value, nullptr) : 1;
    return pace > 0 ? std::clamp(pace, 0.1, 10000.0) : 1;
}

} // namespace

std::unique_ptr<AudioOutput> openChosenOutput(SampleQueue& queue)
{
    const char* file = std::getenv(desklink::WavVariable);
    if (file && *file)
        return WavOutput::open(queue, file, wavPace());
    return SdlOutput::open(queue);
}

} // namespace tts
