#include "open/tts/speechreports.h"

#include <algorithm>
#include <span>

namespace tts {

void SpeechReports::begin(std::u16string_view text, const Settings& settings)
{
    constexpr std::size_t MostUnits =
        (desklink::MaxPacketBytes - sizeof(desklink::Header) - sizeof(desklink::SpeechBeginHead))
        / sizeof(char16_t);
    ++m_utterance;
    if (!m_link.connectToDesk())
        return;
    const desklink::SpeechBeginHead head = {desklink::nowUs(), m_utterance, settings.language,
                                            settings.speed, settings.volume};
    const auto units = text.substr(0, std::min(text.size(), MostUnits));
    m_link.send(desklink::Kind::SpeechBegin, desklink::bytesOf(head),
                std::as_bytes(std::span(units.data(), units.size())));
}

void SpeechReports::word(int offset, int length)
{
    const desklink::SpeechWordBody body = {desklink::nowUs(), m_utterance, offset, length, 0};
    m_link.send(desklink::Kind::SpeechWord, desklink::bytesOf(body));
}

void SpeechReports::end(bool stopped)
{
    const desklink::SpeechEndBody body = {desklink::nowUs(), m_utterance, stopped ? 1u : 0u};
    m_link.send(desklink::Kind::SpeechEnd, desklink::bytesOf(body));
}

} // namespace tts
