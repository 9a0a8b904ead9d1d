/*
 * Speech with espeak-ng: the functions of platform/zembra_tts.h.
 */
#include "platform/zembra_tts.h"

#include "open/tts/outputchoice.h"
#include "open/tts/player.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/* Lives to the end of the process: another thread may still be speaking while it exits. */
tts::Player& player()
{
    static tts::Player& instance = *new tts::Player(tts::openChosenOutput);
    return instance;
}

/* The result of `call`; -1 when it throws, for nothing may be thrown at a caller in C. */
template <class Call> int guarded(Call&& call)
{
    try {
        return std::forward<Call>(call)();
    } catch (...) {
        return -1;
    }
}

int play(std::u16string_view text)
{
    switch (player().play(text)) {
    case tts::Player::Outcome::Spoken:
        return 0;
    case tts::Player::Outcome::Stopped:
        return 1;
    case tts::Player::Outcome::Failed:
        break;
    }
    return -1;
}

} // namespace

int ZEMBRA_TTS_Initialize(const char* dirs[], int count, int)
{
    return guarded([=] {
        std::vector<std::string> folders;
        for (int i = 0; dirs && i < count; ++i)
            if (dirs[i])
                folders.emplace_back(dirs[i]);
        return player().start(folders) ? 0 : -1;
    });
}

int ZEMBRA_TTS_SetLang(int language)
{
    return guarded([=] { return player().setVoice(language) ? 0 : -1; });
}

int ZEMBRA_TTS_SetHighlight_CallBack(ZEMBRA_TTS_HighlightCallback callback)
{
    return guarded([=] {
        player().setCallback(callback);
        return 0;
    });
}

int ZEMBRA_TTS_Play(const unsigned short* text, int bytes, int)
{
    if (!text && bytes > 0)
        return -1;
    const auto units = bytes > 0 ? static_cast<std::size_t>(bytes) / 2 : 0;
    return guarded([=] { return play({reinterpret_cast<const char16_t*>(text), units}); });
}

int ZEMBRA_TTS_Stop(void)
{
    return guarded([] {
        player().stop();
        return 0;
    });
}

int ZEMBRA_TTS_SetSpeed(int speed)
{
    return guarded([=] {
        player().setSpeed(speed);
        return 0;
    });
}

int ZEMBRA_TTS_SetVolume(int volume)
{
    return guarded([=] {
        player().setVolume(volume);
        return 0;
    });
}

int ZEMBRA_TTS_SetVolumeLevel(int level)
{
    return guarded([=] {
        player().setBoost(level);
        return 0;
    });
}

int ZEMBRA_TTS_Uninitialize(void)
{
    return guarded([] { return player().close() ? 0 : -1; });
}
