#include "open/tts/pausetag.h"

namespace tts {

std::optional<PauseTag> readPauseTag(std::u16string_view text)
{
    constexpr std::u16string_view Head = u"<vtml_pause time=\"";
    constexpr std::u16string_view Tail = u"\"/>";
    constexpr int LongestPause = 65535;
    if (!text.starts_with(Head))
        return std::nullopt;
    std::size_t at = Head.size();
    int value = 0;
    while (at < text.size() && text[at] >= u'0' && text[at] <= u'9') {
        value = value * 10 + (text[at] - u'0');
        if (value > LongestPause)
            return std::nullopt;
        ++at;
    }
    if (at == Head.size() || !text.substr(at).starts_with(Tail))
        return std::nullopt;
    return PauseTag{value, at + Tail.size()};
}

} // namespace tts
