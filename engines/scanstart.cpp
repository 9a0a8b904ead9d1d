#include "engines/scanstart.h"

#include "store/configreader.h"
#include "store/languagemanager.h"

namespace scanstart {

int startEngine(int direction, ZEMBRA_IAP_PanoImageCallback callback)
{
    ConfigReader* const config = ConfigReader::Instance();
    const int hand = config->getHandLR() == 0 ? ZEMBRA_IAP_RIGHT_HAND : ZEMBRA_IAP_LEFT_HAND;
    const int result = ZEMBRA_IAP_Initialize(hand, direction, 0, 0);
    applyLanguage();
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, callback);
    return result;
}

void applyLanguage()
{
    const int row = ConfigReader::Instance()->getLanInfo();
    const int language = LanguageManager::Instance()->getIntByID(row);
    ZEMBRA_IAP_SetLangPara(language == 1 ? ZEMBRA_IAP_SCRIPT_HAN : ZEMBRA_IAP_SCRIPT_ALPHA);
}

} // namespace scanstart
