#ifndef OPEN_DIC_REGISTRY_H
#define OPEN_DIC_REGISTRY_H

#include "open/dic/source.h"

#include <optional>
#include <string>
#include <vector>

namespace dic {

/*
 * Which dictionary has which place in the lists. Settings store places, so what once had one keeps
 * it: new dictionaries and pairs come last, and one that is away leaves a gap, unless nothing
 * follows it. The places are kept in a file to which lines are only ever added.
 */
class Registry
{
public:
    struct Pair
    {
        LanguagePair languages;
        std::vector<std::optional<Source>> dictionaries; // without value where one is away
    };

    /* Puts the dictionaries that were found in their order. `file` may be missing, and cannot be
     * written on some media: then the order is that of `found` behind the known ones. */
    static std::vector<Pair> arrange(const std::vector<Source>& found, const std::string& file);
};

} // namespace dic

#endif
