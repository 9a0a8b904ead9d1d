#ifndef DESKTEXTS_H
#define DESKTEXTS_H

#include "desk/swipereport.h"

#include <QString>

/* Longer texts of the desk's window. */
namespace desktexts {

/* Keys and hints. */
QString help();

/* What became of a swipe, and what to do about it. */
QString swipe(const SwipeReport& report);

} // namespace desktexts

#endif
