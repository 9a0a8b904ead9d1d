#include "open/tts/speechreports.h"

#include <algorithm>
#include <chrono>
#include <span>

namespace tts {

namespace {

std::int64_t nowUs()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

} // namespace

void SpeechReports::begin(std::u16string_view text, const Settings& settings)
{
    constexpr std::size_t MostUnits =
        (desklink::MaxPacketBytes - sizeof(desklink::Header) - sizeof(desklink::SpeechBeginHead))
        / sizeof(char16_t);
    ++m_utterance;
    if (!m_link.connectToDesk())
        return;
    const desklink::SpeechBeginHead head = {nowUs(), m_utterance, settings.language, settings.speed,
                                            settings.volume};
    const auto units = text.substr(0, std::min(text.size(), MostUnits));
    m_link.send(desklink::Kind::SpeechBegin, LinkClient::bytesOf(head),
                std::as_bytes(std::span(units.data(), units.size())));
}

void SpeechReports::word(int offset, int length)
{
    const desklink::SpeechWordBody body = {nowUs(), m_utterance, offset, length, 0};
    m_link.send(desklink::Kind::SpeechWord, LinkClient::bytesOf(body));
}

void SpeechReports::end(bool stopped)
{
    const desklink::SpeechEndBody body = {nowUs(), m_utterance, stopped ? 1u : 0u};
    m_link.send(desklink::Kind::SpeechEnd, LinkClient::bytesOf(body));
}

} // namespace tts
