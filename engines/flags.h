#ifndef FLAGS_H
#define FLAGS_H

#include <atomic>

/* A key cut menu speech short: set by the interface thread, read and cleared by CTTSThread. */
extern std::atomic<bool> g_KeyFlag;

/* Dictionary mode is active: speech highlights go to the translate screen. Written by the
 * interface thread, read on the speech engine's thread. */
extern std::atomic<bool> g_InDict;

#endif
