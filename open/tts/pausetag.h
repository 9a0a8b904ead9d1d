#ifndef OPEN_TTS_PAUSETAG_H
#define OPEN_TTS_PAUSETAG_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace tts {

/* The one mark-up that a text may hold: <vtml_pause time="N"/>, N from 0 to 65535. */
struct PauseTag
{
    int milliseconds;
    std::size_t units; // length of the tag
};

/* The tag that `text` begins with, if it does. Whatever differs from it by a character is none. */
std::optional<PauseTag> readPauseTag(std::u16string_view text);

} // namespace tts

#endif
