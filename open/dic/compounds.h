#ifndef OPEN_DIC_COMPOUNDS_H
#define OPEN_DIC_COMPOUNDS_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace dic {

/* The parts of a compound in reading order: as few as possible, then with the longest last part,
 * which says what the thing is. Empty when it is none, or the language builds none (others than
 * German, Dutch, Swedish, Danish and Norwegian). `key` is folded; `has` tells whether the
 * dictionary has a key. */
std::vector<std::string> partsOfCompound(std::string_view key, int language,
                                         const std::function<bool(const std::string&)>& has);

} // namespace dic

#endif
