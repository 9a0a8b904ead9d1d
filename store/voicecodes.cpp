#include "store/voicecodes.h"

#include <array>

namespace voicecodes {

namespace {
constexpr std::array<int, 6> EnglishVoices = {FirstEnglishVoice, 201, 203, 206, 205, 206};

bool isVoice(int index)
{
    return index >= 0 && index < static_cast<int>(EnglishVoices.size());
}
} // namespace

int englishVoice(int index, int otherwise)
{
    return isVoice(index) ? EnglishVoices[static_cast<unsigned>(index)] : otherwise;
}

int engineKind(int language)
{
    if (language == Chinese)
        return 1;
    return language == Russian ? 3 : 2;
}

// Only voice 0 asks for the language: the others are English whatever is scanned.
int forScanVoice(int voice, int language)
{
    if (voice == 0)
        return language == English ? FirstEnglishVoice : language;
    return englishVoice(voice, 0);
}

int forScanLanguage(int voice, int language, bool spanishVariant)
{
    if (language == English)
        return englishVoice(voice, English);
    return language == SpanishLanguage && spanishVariant ? SpanishVariant : language;
}

int forDictVoice(int voice, int language, bool spanishVariant)
{
    if (!isVoice(voice))
        return 0;
    if (language == English || language == FirstEnglishVoice)
        return englishVoice(voice, 0);
    return language == SpanishLanguage && spanishVariant ? SpanishVariant : language;
}

} // namespace voicecodes
