#ifndef OPEN_DIC_LOG_H
#define OPEN_DIC_LOG_H

#include <string>

namespace dic {

/* Writes one line about a file to the standard error output. Control characters of the path are
 * shown as question marks: names on a card are anybody's. Any thread. */
void note(const std::string& path, const std::string& what);

} // namespace dic

#endif
