#include "open/tts/sdloutput.h"

#include <cstddef>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <thread>

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace tts {

namespace {

void tellOnce(const char* reason)
{
    static bool told = false;
    if (!told)
        std::fprintf(stderr, "speech: no sound device (%s), speaking without sound\n", reason);
    told = true;
}

/* Starts the driver that the environment names, or SDL's choice. It stays started: a device that
 * was lost is opened anew without starting the driver again, which would take another when a sound
 * server is away for a moment, and end the process when PulseAudio has no sink just then. */
bool startDriver()
{
    static std::string started;
    const char* variable = SDL_getenv("SDL_AUDIODRIVER");
    const std::string wanted = variable ? variable : "";
    if (SDL_GetCurrentAudioDriver() && started == wanted)
        return true;
    started = wanted;
    // Only the audio part of SDL: the rest would take the signals of the process.
    return SDL_AudioInit(wanted.empty() ? nullptr : wanted.c_str()) == 0;
}

} // namespace

std::unique_ptr<SdlOutput> SdlOutput::open(SampleQueue& queue)
{
    std::unique_ptr<SdlOutput> output(new SdlOutput(queue));
    if (!startDriver() || !output->openDevice()) {
        tellOnce(SDL_GetError());
        output.reset();
    }
    SDL_TLSCleanup(); // what SDL keeps for this thread, which ends soon
    return output;
}

SdlOutput::~SdlOutput()
{
    if (m_device != 0)
        SDL_CloseAudioDevice(m_device);
    SDL_TLSCleanup();
}

void SdlOutput::fill(void* output, std::uint8_t* bytes, int count)
{
    auto* self = static_cast<SdlOutput*>(output);
    auto* samples = reinterpret_cast<std::int16_t*>(bytes);
    const std::span block(samples, static_cast<std::size_t>(count) / sizeof *samples);
    if (!self->m_hasPace)
        std::this_thread::sleep_until(self->m_limit.next(block.size(), PaceLimit::Clock::now()));
    self->take(block);
}

bool SdlOutput::openDevice()
{
    // The disk driver's pace is the business of whoever sets SDL_DISKAUDIODELAY.
    m_hasPace = std::string_view(SDL_GetCurrentAudioDriver()) == "disk";
    SDL_AudioSpec wanted = {};
    wanted.freq = SampleRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = BlockSamples;
    wanted.callback = fill;
    wanted.userdata = this;
    m_device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (m_device != 0)
        SDL_PauseAudioDevice(m_device, 0);
    return m_device != 0;
}

void SdlOutput::connect()
{
    AudioOutput::connect();
    queue().setPace(1);
}

bool SdlOutput::isLost() const
{
    return SDL_GetAudioDeviceStatus(m_device) == SDL_AUDIO_STOPPED;
}

} // namespace tts
