#include "editor/readingvoice.h"

#include "store/configreader.h"
#include "store/engineunits.h"
#include "store/languagemanager.h"
#include "store/voicecodes.h"

int voiceOfScanLanguage(int choice)
{
    const ConfigReader* config = ConfigReader::Instance();
    const int language = LanguageManager::Instance()->getIntByID(config->getLanInfo());
    return voicecodes::forScanLanguage(choice, language, config->getSpanishInfo() == 1);
}

TTSPlayer::Voice readingVoice()
{
    const ConfigReader* config = ConfigReader::Instance();
    const int code = voiceOfScanLanguage(config->getTTSInfo());
    TTSPlayer::Voice voice;
    voice.language = code;
    voice.volume = engineunits::volume(config->getVolumInfo());
    voice.speed = engineunits::readingSpeed(config->getReadSpeedInfo(), code);
    voice.highlights = true;
    return voice;
}
