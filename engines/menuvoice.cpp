#include "engines/menuvoice.h"

#include "store/voicecodes.h"

int menuVoice(int languageNumber, int voiceChoice, int spanishSetting)
{
    using namespace voicecodes;
    if (languageNumber == English || languageNumber == FirstEnglishVoice)
        return englishVoice(voiceChoice, languageNumber);
    return languageNumber == SpanishLanguage && spanishSetting == 1 ? SpanishVariant
                                                                    : languageNumber;
}
