#ifndef DICHOST_H
#define DICHOST_H

#include <string>
#include <vector>

/* Installs two language pairs. The first dictionary of the first has the word "house", the name
 * "Clef \U0001D11E" and an origin of two lines; the first one of the second pair is away. Returns
 * the folders, as the engine takes them. */
namespace dichost {

std::vector<std::string> installDictionaries();

} // namespace dichost

#endif
