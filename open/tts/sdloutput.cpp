#include "open/tts/sdloutput.h"

#include <cstddef>
#include <cstdio>
#include <span>

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace tts {

namespace {

extern "C" void fillFromQueue(void* queue, Uint8* bytes, int count)
{
    auto* samples = reinterpret_cast<std::int16_t*>(bytes);
    static_cast<SampleQueue*>(queue)->fill(
        std::span(samples, static_cast<std::size_t>(count) / sizeof *samples));
}

SDL_AudioDeviceID openDevice(SampleQueue& queue)
{
    SDL_AudioSpec wanted = {};
    wanted.freq = SampleRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = BlockSamples;
    wanted.callback = fillFromQueue;
    wanted.userdata = &queue;
    return SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
}

/* Starts the driver (null: SDL's choice) and opens its device; 0 without success. */
SDL_AudioDeviceID startDriver(const char* driver, SampleQueue& queue)
{
    if (SDL_AudioInit(driver) != 0)
        return 0;
    const SDL_AudioDeviceID device = openDevice(queue);
    if (device == 0)
        SDL_AudioQuit();
    return device;
}

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
    // Only the audio part of SDL is started: the rest would take the signals of the process.
    SDL_AudioDeviceID device = startDriver(SDL_getenv("SDL_AUDIODRIVER"), queue);
    if (device == 0) {
        tellOnce(SDL_GetError());
        device = startDriver("dummy", queue);
    }
    if (device == 0)
        return nullptr;
    queue.setPace(1);
    SDL_PauseAudioDevice(device, 0);
    return std::unique_ptr<SdlOutput>(new SdlOutput(device));
}

SdlOutput::~SdlOutput()
{
    SDL_CloseAudioDevice(m_device);
    SDL_AudioQuit();
}

} // namespace tts
