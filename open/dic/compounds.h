#ifndef OPEN_DIC_COMPOUNDS_H
#define OPEN_DIC_COMPOUNDS_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace dic {

/* What is asked about parts; keys are folded. */
struct PartWords
{
    std::function<bool(const std::string&)> has; // whether the dictionary has a key
    // The key of the word that the last part is a form of, empty when there is none.
    std::function<std::string(const std::string&)> inflected = {};
};

/* The parts of a compound in reading order: as few as possible, then with the longest last part,
 * which says what the thing is. Where it cannot be parted into words of the dictionary, the last
 * part may be inflected, and the word it is a form of is given. Empty when it is no compound, or
 * the language builds none (others than German, Dutch, Swedish, Danish and Norwegian). */
std::vector<std::string> partsOfCompound(std::string_view key, int language,
                                         const PartWords& words);

} // namespace dic

#endif
