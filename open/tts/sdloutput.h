#ifndef OPEN_TTS_SDLOUTPUT_H
#define OPEN_TTS_SDLOUTPUT_H

#include "open/tts/audiooutput.h"
#include "open/tts/samplequeue.h"

#include <cstdint>
#include <memory>

namespace tts {

/* The loudspeaker, through SDL; the device stays open. A machine without one is given SDL's dummy
 * driver, which takes samples at the same pace. */
class SdlOutput : public AudioOutput
{
public:
    /* Null when not even the dummy driver works. The queue outlives the output. */
    static std::unique_ptr<SdlOutput> open(SampleQueue& queue);
    ~SdlOutput() override;

private:
    explicit SdlOutput(std::uint32_t device) : m_device(device) {}

    const std::uint32_t m_device;
};

} // namespace tts

#endif
