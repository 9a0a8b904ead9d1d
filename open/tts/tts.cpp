/*
 * Speech with espeak-ng: the functions of platform/zembra_tts.h.
 */
#include "platform/zembra_tts.h"

#include "open/tts/outputchoice.h"
#include "open/tts/player.h"

#include <string>
#include <string_view>
#include <vector>

namespace {

/* Lives to the end of the process: another thread may still be speaking while it exits. */
tts::Player& player()
{
    static tts::Player& instance = *new tts::Player(tts::openChosenOutput);
    return instance;
}

} // namespace

int ZEMBRA_TTS_Initialize(const char* dirs[], int count, int)
{
    std::vector<std::string> folders;
    for (int i = 0; dirs && i < count; ++i)
        if (dirs[i])
            folders.emplace_back(dirs[i]);
    return player().start(folders) ? 0 : -1;
}

int ZEMBRA_TTS_SetLang(int language)
{
    return player().setVoice(language) ? 0 : -1;
}

int ZEMBRA_TTS_SetHighlight_CallBack(ZEMBRA_TTS_HighlightCallback callback)
{
    player().setCallback(callback);
    return 0;
}

int ZEMBRA_TTS_Play(const unsigned short* text, int bytes, int)
{
    if (!text && bytes > 0)
        return -1;
    const auto units = bytes > 0 ? static_cast<std::size_t>(bytes) / 2 : 0;
    switch (player().play({reinterpret_cast<const char16_t*>(text), units})) {
    case tts::Player::Outcome::Spoken:
        return 0;
    case tts::Player::Outcome::Stopped:
        return 1;
    case tts::Player::Outcome::Failed:
        break;
    }
    return -1;
}

int ZEMBRA_TTS_Stop(void)
{
    player().stop();
    return 0;
}

int ZEMBRA_TTS_SetSpeed(int speed)
{
    player().setSpeed(speed);
    return 0;
}

int ZEMBRA_TTS_SetVolume(int volume)
{
    player().setVolume(volume);
    return 0;
}

int ZEMBRA_TTS_SetVolumeLevel(int level)
{
    player().setBoost(level);
    return 0;
}

int ZEMBRA_TTS_Uninitialize(void)
{
    return player().close() ? 0 : -1;
}
