#include "store/configreader.h"

#include "engines/ocrpen.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "platform/devicepaths.h"
#include "platform/zembra_tts.h"
#include "store/engineunits.h"
#include "store/languagemanager.h"
#include "store/voicecodes.h"

#include <QSettings>
#include <QThread>

using settings::Slot;

namespace {

constexpr int FullBoost = 1000;

QString fileName()
{
    return devicePath(QStringLiteral("/apps/config/config.ini"));
}

} // namespace

ConfigReader* ConfigReader::reader = nullptr;

ConfigReader* ConfigReader::Instance()
{
    if (reader == nullptr)
        reader = new ConfigReader;
    return reader;
}

void ConfigReader::quitFun()
{
    delete reader;
}

ConfigReader::ConfigReader()
    : m_settings(std::make_unique<QSettings>(fileName(), QSettings::IniFormat))
{
    init();
}

ConfigReader::~ConfigReader() = default;

void ConfigReader::init()
{
    for (const settings::Row& row : settings::Table)
        if (row.use == settings::Use::Cached)
            m_values[static_cast<size_t>(row.slot)] =
                m_settings->value(row.key, row.preset).toInt();
    const bool full = readFresh(Slot::Boost) != 0;
    ZEMBRA_TTS_SetVolumeLevel(full ? FullBoost : readFresh(Slot::BoostLevel));
    // These two keys are in the file from the first start on.
    setLanDictInfo(getLanDictInfo());
    setStatisInfo(getStatisInfo());
}

int ConfigReader::value(Slot slot) const
{
    return m_values[static_cast<size_t>(slot)];
}

// A settings object of its own looks at the file anew, on whichever thread, and knows what was
// set here but not yet written.
int ConfigReader::readFresh(Slot slot) const
{
    const settings::Row& row = settings::rowOf(slot);
    return QSettings(fileName(), QSettings::IniFormat).value(row.key, row.preset).toInt();
}

void ConfigReader::store(Slot slot, int v)
{
    m_values[static_cast<size_t>(slot)] = v;
    // A settings object is its own thread's; a worker's object shares the file's state with it.
    if (QThread::currentThread() == m_settings->thread())
        m_settings->setValue(settings::rowOf(slot).key, v);
    else
        QSettings(fileName(), QSettings::IniFormat).setValue(settings::rowOf(slot).key, v);
}

int ConfigReader::getHandLR()
{
    const int hand = readFresh(Slot::HandLR);
    m_values[static_cast<size_t>(Slot::HandLR)] = hand;
    return hand;
}

int ConfigReader::getCurLanDict() const
{
    return Translater::Instance()->getLanID(getLanDict());
}

int ConfigReader::getEngineID(int language) const
{
    return voicecodes::engineKind(language);
}

// The code of the chosen scan language, 0 for a row that the table does not have.
int ConfigReader::scanLanguage() const
{
    return LanguageManager::Instance()->getIntByID(getLanInfo());
}

void ConfigReader::applyVolume() const
{
    TTSPlayer::Instance()->setVolume(engineunits::volume(readFresh(Slot::Volume)));
}

void ConfigReader::setVolumInfo(int v)
{
    store(Slot::Volume, v);
    TTSPlayer::Instance()->setVolume(engineunits::volume(v));
}

void ConfigReader::setSpanishInfo(int v)
{
    store(Slot::Spanish, v);
    applyVolume();
}

void ConfigReader::setTTSInfo(int v)
{
    store(Slot::Voice, v);
    TTSPlayer::Instance()->setLan(voicecodes::forScanVoice(v, scanLanguage()));
    applyVolume();
}

void ConfigReader::setTTSDict(int v)
{
    store(Slot::VoiceDict, v);
    TTSPlayer::Instance()->setLan(
        voicecodes::forDictVoice(v, getCurLanDict(), getSpanishInfo() == 1));
    applyVolume();
}

void ConfigReader::setReadSpeedInfo(int v)
{
    store(Slot::Speed, v);
    const bool variant =
        readFresh(Slot::Spanish) == 1 && scanLanguage() == voicecodes::SpanishLanguage;
    TTSPlayer::Instance()->setSpeed(variant ? engineunits::spanishVariantSpeed(v)
                                            : engineunits::speed(v));
}

void ConfigReader::setLanInfo(int v)
{
    store(Slot::ScanLan, v);
    const int language = scanLanguage();
    int recognition[] = {voicecodes::engineKind(language), -1};
    OCRPen::Instance()->setLan(recognition);
    TTSPlayer* const player = TTSPlayer::Instance();
    player->setLan(voicecodes::forScanLanguage(getTTSInfo(), language, getSpanishInfo() == 1));
    // The faster step of the Spanish variant is for the speed setting alone.
    player->setSpeed(engineunits::speed(readFresh(Slot::Speed)));
    applyVolume();
}
