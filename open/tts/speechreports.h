#ifndef OPEN_TTS_SPEECHREPORTS_H
#define OPEN_TTS_SPEECHREPORTS_H

#include "open/link/linkclient.h"

#include <cstdint>
#include <string_view>

namespace tts {

/* Tells the desk, if there is one, what is being spoken (desk/desklink.h). One thread at a time. */
class SpeechReports
{
public:
    struct Settings
    {
        int language;
        int speed;
        int volume;
    };

    void begin(std::u16string_view text, const Settings& settings);
    void word(int offset, int length);
    void end(bool stopped);

private:
    LinkClient m_link{desklink::Role::Speech};
    std::uint32_t m_utterance = 0;
};

} // namespace tts

#endif
