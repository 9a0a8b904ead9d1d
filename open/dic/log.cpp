#include "open/dic/log.h"

#include <cstdio>

void dic::note(const std::string& path, const std::string& what)
{
    std::string line = "dictionary: " + path + ": " + what;
    for (char& c : line) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f)
            c = '?';
    }
    std::fprintf(stderr, "%s\n", line.c_str());
}
