#ifndef SCANSTART_H
#define SCANSTART_H

#include "platform/zembra_iap.h"

/* What the two users of the scan engine, RecChar and CharScanner, have in common. */
namespace scanstart {

/* Starts the engine for the hand and the scan language of the settings, in the given scan
 * direction, and registers `callback`. The result of the engine's start: 0 for success. */
int startEngine(int direction, ZEMBRA_IAP_PanoImageCallback callback);

/* Tells a running engine the scan language of the settings. */
void applyLanguage();

} // namespace scanstart

#endif
