#ifndef DICHOST_H
#define DICHOST_H

/* Installs what dictionaries the surroundings of an engine can: two language pairs with the word
 * "house", or none. Returns whether there are any. */
namespace dichost {

bool installDictionaries();

} // namespace dichost

#endif
