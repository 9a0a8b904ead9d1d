#include "widgets/scanbusy.h"

#include "platform/zembra_iap.h"

bool scanEngineIsBusy()
{
    int state = ZEMBRA_IAP_IDLE;
    ZEMBRA_IAP_GetWorkState(&state);
    return state == ZEMBRA_IAP_BUSY;
}
