#include "engines/menuvoice.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr int English = 101;
constexpr int EnglishVoice = 200;
constexpr int Spanish = 105;
constexpr int SpanishOfLatinAmerica = 202;
constexpr std::array<int, 6> EnglishVoices = {200, 201, 203, 206, 205, 206};

int scaled(int setting, int step)
{
    using Limits = std::numeric_limits<int>;
    const long long value = static_cast<long long>(setting) * step;
    return static_cast<int>(std::clamp<long long>(value, Limits::min(), Limits::max()));
}

} // namespace

int menuVoice(int languageNumber, int voiceChoice, int spanishSetting)
{
    if (languageNumber == English || languageNumber == EnglishVoice) {
        const bool known = voiceChoice >= 0 && voiceChoice < int(EnglishVoices.size());
        return known ? EnglishVoices[static_cast<std::size_t>(voiceChoice)] : languageNumber;
    }
    if (languageNumber == Spanish && spanishSetting == 1)
        return SpanishOfLatinAmerica;
    return languageNumber;
}

int engineVolume(int setting)
{
    return scaled(setting, 20);
}

int engineSpeed(int setting)
{
    return scaled(setting, 8);
}
