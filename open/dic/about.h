#ifndef OPEN_DIC_ABOUT_H
#define OPEN_DIC_ABOUT_H

#include "open/dic/languages.h"

#include <string>

namespace dic {

/* What NAME.about says about the dictionary beside it; empty where it says nothing. */
struct About
{
    LanguagePair languages;
    std::string name;
    std::string source;  // several lines when the file has several
    std::string licence; // likewise
};

/* Reads the file; a missing one says nothing. */
About readAbout(const std::string& path);

} // namespace dic

#endif
