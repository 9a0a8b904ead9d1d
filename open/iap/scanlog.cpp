#include "open/iap/scanlog.h"

#include <cstdio>
#include <cstdlib>

void scanLog(const std::string& line)
{
    static const bool wanted = std::getenv("SWIPELINE_LOG") != nullptr;
    if (wanted)
        scanError(line);
}

void scanError(const std::string& line)
{
    std::fprintf(stderr, "scan engine: %s\n", line.c_str());
}
