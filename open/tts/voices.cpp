#include "open/tts/voices.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tts {

namespace {

// Names of voice files, not of languages: "en-gb" and the like are not found, and the plain
// Chinese voices read pinyin as if it were English.
constexpr const char* English = "gmw/en";
constexpr const char* Chinese = "sit/cmn-Latn-pinyin";
constexpr int Normal = 48;

constexpr Voice Voices[] = {
    {1, Script::Chinese, English, Chinese, Normal},
    {2, Script::Chinese, English, Chinese, Normal},
    {101, Script::Latin, English, Chinese, Normal},
    {103, Script::Latin, "roa/fr", Chinese, Normal},
    {104, Script::Latin, "gmw/de", Chinese, Normal},
    {105, Script::Latin, "roa/es", Chinese, Normal},
    {106, Script::Latin, "roa/it", Chinese, Normal},
    {107, Script::Latin, "gmq/sv", Chinese, Normal},
    {108, Script::Latin, "gmq/da", Chinese, Normal},
    {109, Script::Latin, "gmq/nb", Chinese, Normal},
    {110, Script::Latin, "gmw/nl", Chinese, Normal},
    {111, Script::Latin, "roa/pt", Chinese, Normal},
    {151, Script::Cyrillic, English, Chinese, Normal},
    {152, Script::Arabic, English, Chinese, Normal},
    {200, Script::Latin, English, Chinese, Normal},
    {201, Script::Latin, "gmw/en-US", Chinese, Normal},
    {202, Script::Latin, "roa/es-419", Chinese, 90},
    {203, Script::Latin, "gmw/en+f3", "sit/cmn-Latn-pinyin+f3", Normal},
    {204, Script::Latin, "gmw/en-GB-scotland", Chinese, Normal},
    {205, Script::Latin, "gmw/en-US+f3", "sit/cmn-Latn-pinyin+f3", Normal},
    {206, Script::Latin, "gmw/en-GB-x-rp", Chinese, Normal},
    {211, Script::Chinese, "gmw/en+f3", "sit/cmn-Latn-pinyin+f3", Normal},
    {212, Script::Chinese, "gmw/en+m3", "sit/cmn-Latn-pinyin+m3", Normal},
};

constexpr int DefaultCode = 101;

} // namespace

/* The synthesizer changes its language within a text by itself, but where that happens inside a
 * word it goes on with a language that it has freed. So it never gets two scripts at a time. */
const char* Voice::file(Script which) const
{
    switch (which) {
    case Script::Latin:
        return latin;
    case Script::Chinese:
        return chinese;
    case Script::Cyrillic:
        return "zle/ru";
    case Script::Greek:
        return "grk/el";
    case Script::Arabic:
        return "sem/ar";
    case Script::Unknown:
        break;
    }
    return nullptr;
}

const Voice* findVoice(int code)
{
    const auto* found = std::find_if(std::begin(Voices), std::end(Voices),
                                     [code](const Voice& voice) { return voice.code == code; });
    return found == std::end(Voices) ? nullptr : found;
}

const Voice& defaultVoice()
{
    return *findVoice(DefaultCode);
}

int wordsPerMinute(const Voice& voice, int speed)
{
    // Beyond 440 espeak leaves out parts of pauses.
    constexpr int Slowest = 80;
    constexpr int NormalRate = 175;
    constexpr int Fastest = 440;
    const double share = static_cast<double>(speed) / voice.normalSpeed;
    const double rate =
        share <= 1 ? Slowest + (NormalRate - Slowest) * share : NormalRate + 200 * (share - 1);
    return std::clamp(static_cast<int>(std::lround(rate)), Slowest, Fastest);
}

} // namespace tts
