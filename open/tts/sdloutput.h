#ifndef OPEN_TTS_SDLOUTPUT_H
#define OPEN_TTS_SDLOUTPUT_H

#include "open/tts/audiooutput.h"
#include "open/tts/pacelimit.h"

#include <cstdint>
#include <memory>

namespace tts {

/* The loudspeaker, through SDL; the device stays open, and plays silence between texts. When its
 * device vanishes, SDL goes on taking samples at the same pace and drops them. One at a time. */
class SdlOutput : public AudioOutput
{
public:
    /* Null without a sound device. */
    static std::unique_ptr<SdlOutput> open(SampleQueue& queue);
    ~SdlOutput() override;

    void connect() override;
    bool isLost() const override;

private:
    explicit SdlOutput(SampleQueue& queue) : AudioOutput(queue) {}

    static void fill(void* output, std::uint8_t* bytes, int count);
    bool openDevice();

    std::uint32_t m_device = 0;
    bool m_hasPace = false; // the driver keeps one that it was told
    PaceLimit m_limit;      // of the thread that fills
};

} // namespace tts

#endif
