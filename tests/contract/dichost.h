#ifndef DICHOST_H
#define DICHOST_H

#include <string>
#include <vector>

/* Installs two language pairs; the first dictionary of the first has the word "house". Returns the
 * folders, as the engine takes them. */
namespace dichost {

std::vector<std::string> installDictionaries();

} // namespace dichost

#endif
