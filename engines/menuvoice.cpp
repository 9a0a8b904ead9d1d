#include "engines/menuvoice.h"

#include "store/voicecodes.h"

#include <algorithm>
#include <limits>

namespace {

int scaled(int setting, int step)
{
    using Limits = std::numeric_limits<int>;
    const long long value = static_cast<long long>(setting) * step;
    return static_cast<int>(std::clamp<long long>(value, Limits::min(), Limits::max()));
}

} // namespace

int menuVoice(int languageNumber, int voiceChoice, int spanishSetting)
{
    using namespace voicecodes;
    if (languageNumber == English || languageNumber == FirstEnglishVoice)
        return englishVoice(voiceChoice, languageNumber);
    return languageNumber == SpanishLanguage && spanishSetting == 1 ? SpanishVariant
                                                                    : languageNumber;
}

int engineVolume(int setting)
{
    return scaled(setting, 20);
}

int engineSpeed(int setting)
{
    return scaled(setting, 8);
}
