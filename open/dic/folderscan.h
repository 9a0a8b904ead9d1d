#ifndef OPEN_DIC_FOLDERSCAN_H
#define OPEN_DIC_FOLDERSCAN_H

#include "open/dic/source.h"

#include <string>
#include <vector>

namespace dic {

/* The dictionaries in the folders and one level of their sub-folders, in the order of the folders
 * and the names in them. Each file counts once, by whichever folder it is reached first. Links and
 * hidden names are passed over, and so is, with a line in the log, what is no dictionary after
 * all. */
std::vector<Source> scanFolders(const std::vector<std::string>& folders);

} // namespace dic

#endif
