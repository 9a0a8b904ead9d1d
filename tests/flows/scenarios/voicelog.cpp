#include "tests/flows/scenarios/voicelog.h"

#include <QRegularExpression>

namespace {

// The number in a call with one argument; false when it is another call.
bool argument(const std::string& call, const char* function, int& value)
{
    const std::string begin = std::string(function) + "(";
    if (!call.starts_with(begin))
        return false;
    value = std::atoi(call.c_str() + begin.size());
    return true;
}

} // namespace

QVector<Utterance> VoiceLog::heed(const std::vector<std::string>& calls)
{
    static const std::string begin = "ZEMBRA_TTS_Play(\"";
    static const QRegularExpression pause(QStringLiteral("<vtml_pause time=\"(\\d+)\"/>"));
    QVector<Utterance> spoken;
    for (const std::string& call : calls) {
        int language = 0;
        if (argument(call, "ZEMBRA_TTS_SetLang", language) && language != 0)
            m_voice.language = language;
        if (argument(call, "ZEMBRA_TTS_SetSpeed", m_voice.speed)
            || argument(call, "ZEMBRA_TTS_SetVolume", m_voice.volume) || !call.starts_with(begin))
            continue;
        const std::size_t end = call.rfind("\", ");
        Utterance utterance = m_voice;
        utterance.text = QString::fromStdString(call.substr(begin.size(), end - begin.size()));
        utterance.text.replace(pause, QStringLiteral("{\\1}"));
        spoken.append(utterance);
    }
    return spoken;
}
