#include "open/tts/sdloutput.h"

#include <cstddef>
#include <cstdio>
#include <span>

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

} // namespace

std::unique_ptr<SdlOutput> SdlOutput::open(SampleQueue& queue)
{
    std::unique_ptr<SdlOutput> output(new SdlOutput(queue));
    // Only the audio part of SDL is started: the rest would take the signals of the process.
    if (SDL_AudioInit(SDL_getenv("SDL_AUDIODRIVER")) == 0 && output->openDevice())
        return output;
    tellOnce(SDL_GetError());
    return nullptr;
}

SdlOutput::~SdlOutput()
{
    if (m_device != 0)
        SDL_CloseAudioDevice(m_device);
    SDL_AudioQuit();
}

void SdlOutput::fill(void* output, std::uint8_t* bytes, int count)
{
    auto* samples = reinterpret_cast<std::int16_t*>(bytes);
    static_cast<SdlOutput*>(output)->take(
        std::span(samples, static_cast<std::size_t>(count) / sizeof *samples));
}

bool SdlOutput::openDevice()
{
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
