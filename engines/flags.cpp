#include "engines/flags.h"

std::atomic<bool> g_KeyFlag{false};
std::atomic<bool> g_InDict{false};
