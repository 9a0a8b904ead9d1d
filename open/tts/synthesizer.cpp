#include "open/tts/synthesizer.h"

#include "open/tts/samplequeue.h"

#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include <espeak-ng/speak_lib.h>

namespace tts {

namespace {

bool s_started = false;
std::string s_voiceFile; // in force
SynthesisReceiver* s_receiver = nullptr;
std::exception_ptr s_failure; // what the receiver has thrown

int pass(short* wave, int count, espeak_EVENT* events)
{
    for (; events->type != espeakEVENT_LIST_TERMINATED; ++events)
        if (events->type == espeakEVENT_WORD && events->text_position > 0)
            s_receiver->wordEvent(static_cast<std::size_t>(events->text_position) - 1,
                                  events->sample);
    if (!wave || count <= 0)
        return 0;
    return s_receiver->samples({wave, static_cast<std::size_t>(count)}) ? 0 : 1;
}

/* Nothing is thrown through the library, which knows no exceptions. */
int receive(short* wave, int count, espeak_EVENT* events)
{
    if (s_failure)
        return 1;
    try {
        return pass(wave, count, events);
    } catch (...) {
        s_failure = std::current_exception();
        return 1;
    }
}

const char* dataFolder(const std::vector<std::string>& folders)
{
    for (const std::string& folder : folders) {
        std::error_code error;
        if (std::filesystem::exists(std::filesystem::path(folder) / "espeak-ng-data" / "phontab",
                                    error))
            return folder.c_str();
    }
    return nullptr;
}

bool useVoice(const char* file)
{
    // Setting a voice again costs a load of its dictionary.
    if (s_voiceFile == file)
        return true;
    s_voiceFile.clear();
    if (espeak_SetVoiceByName(file) != EE_OK)
        return false;
    s_voiceFile = file;
    return true;
}

} // namespace

bool Synthesizer::start(const std::vector<std::string>& folders)
{
    constexpr int BufferMs = 50;
    if (!s_started) {
        const int rate = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, BufferMs, dataFolder(folders),
                                           espeakINITIALIZE_DONT_EXIT);
        s_started = rate == SampleRate;
        if (s_started)
            espeak_SetSynthCallback(receive);
    }
    return s_started;
}

bool Synthesizer::speak(const Piece& piece, const char* voiceFile, int rate,
                        SynthesisReceiver& receiver)
{
    if (!useVoice(voiceFile))
        return false;
    espeak_SetParameter(espeakRATE, rate, 0);
    s_receiver = &receiver;
    // Its 16-bit form speaks nothing: 32-bit characters it is.
    static_assert(sizeof(wchar_t) == sizeof(char32_t));
    const unsigned flags = espeakCHARS_WCHAR | (piece.endPause ? espeakENDPAUSE : 0)
                           | (piece.hasPhonemes ? espeakPHONEMES : 0);
    const espeak_ERROR error =
        espeak_Synth(piece.text.c_str(), (piece.text.size() + 1) * sizeof(char32_t), 0,
                     POS_CHARACTER, 0, flags, nullptr, nullptr);
    s_receiver = nullptr;
    if (s_failure)
        std::rethrow_exception(std::exchange(s_failure, nullptr));
    return error == EE_OK;
}

} // namespace tts
