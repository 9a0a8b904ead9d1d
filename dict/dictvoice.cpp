#include "dict/dictvoice.h"

#include "store/configreader.h"
#include "store/engineunits.h"
#include "store/voicecodes.h"

namespace {

constexpr int LanguageWithoutSpeech = 3;

} // namespace

std::optional<TTSPlayer::Voice> dictionaryVoice(int language, bool highlights)
{
    if (language <= 0 || language == LanguageWithoutSpeech)
        return std::nullopt;
    const ConfigReader* config = ConfigReader::Instance();
    const int code =
        voicecodes::forDictVoice(config->getTTSDict(), language, config->getSpanishInfo() == 1);
    TTSPlayer::Voice voice;
    voice.language = code == 0 ? language : code; // a damaged choice of voice is none
    voice.volume = engineunits::volume(config->getVolumDict());
    voice.speed = engineunits::speed(config->getReadSpeedInfoForDict());
    voice.highlights = highlights;
    return voice;
}
