#include "open/tts/outputchoice.h"

#include "open/tts/pacedoutput.h"
#include "open/tts/sdloutput.h"
#include "open/tts/wavfile.h"

#include "desk/desklink.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

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
    if (file && *file) {
        auto wav = WavFile::open(file);
        return wav ? std::make_unique<PacedOutput>(queue, wavPace(), std::move(wav)) : nullptr;
    }
    std::unique_ptr<AudioOutput> loudspeaker = SdlOutput::open(queue);
    return loudspeaker ? std::move(loudspeaker) : std::make_unique<PacedOutput>(queue, 1, nullptr);
}

} // namespace tts
