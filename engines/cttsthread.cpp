#include "engines/cttsthread.h"

#include "engines/flags.h"
#include "engines/menuvoice.h"
#include "engines/ttsplayer.h"
#include "platform/devicepaths.h"
#include "store/configreader.h"
#include "store/engineunits.h"
#include "store/languagemanager.h"

#include <QSettings>

namespace {

// The settings file itself is asked, not the cached settings: it holds what the launcher wrote.
TTSPlayer::Voice voiceOfMenus()
{
    const QSettings settings(devicePath(QStringLiteral("/apps/config/config.ini")),
                             QSettings::IniFormat);
    const auto read = [&settings](const char* key, int fallback) {
        return settings.value(QLatin1String(key), fallback).toInt();
    };
    TTSPlayer::Voice voice;
    voice.language =
        menuVoice(LanguageManager::Instance()->getLanIntByID(read("SystemSet/Lan", 0)),
                  read("SystemSet/TTS", 0), ConfigReader::Instance()->getSpanishInfo());
    voice.volume = engineunits::volume(read("SystemSet/Volum", 4));
    voice.speed = engineunits::speed(read("SystemSet/Speed", 6));
    return voice;
}

} // namespace

CTTSThread::CTTSThread()
{
    connect(this, &QThread::finished, this, &CTTSThread::resume);
}

CTTSThread::~CTTSThread()
{
    m_instructions.close();
    finish(m_contents);
}

void CTTSThread::setContent(const QString& text)
{
    {
        const std::lock_guard lock(m_mutex);
        m_content = text;
    }
    m_contents.add(text);
}

void CTTSThread::setInstructStr(const QString& text)
{
    m_instructions.add(text);
}

void CTTSThread::clearContent()
{
    const std::lock_guard lock(m_mutex);
    m_content.clear();
}

void CTTSThread::clearInstruct()
{
    m_instructions.clear();
}

void CTTSThread::forgetQueued()
{
    m_contents.clear();
    m_instructions.clear();
}

void CTTSThread::run()
{
    const auto muted = [] { return ConfigReader::Instance()->getTalkingMenuInfo() == 1; };
    const MenuSpeechEnd end = speakMenus(m_contents, m_instructions, g_KeyFlag,
                                         &TTSPlayer::beginRequest, muted, &CTTSThread::speak);
    m_ranDry = end == MenuSpeechEnd::QueuesEmpty;
}

void CTTSThread::speak(const QString& text)
{
    TTSPlayer::Instance()->play(text, voiceOfMenus());
}

// A text that was queued between the thread's last look and its end, when the owner still saw it
// running, is spoken after all. What a key left behind stays unspoken.
void CTTSThread::resume()
{
    if (m_ranDry && !(m_contents.isEmpty() && m_instructions.isEmpty()))
        start();
}
