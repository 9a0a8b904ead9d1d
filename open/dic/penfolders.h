#ifndef OPEN_DIC_PENFOLDERS_H
#define OPEN_DIC_PENFOLDERS_H

#include <string>

/* Folders of the pen's data partition that are the engine's own, below the run root
 * (SWIPELINE_ROOT). */
namespace dic {

/* Where sidecars and the registry are kept; made if there is such a partition. Empty when there is
 * none or it cannot be written. */
std::string indexFolder();

/* Where the files are that know word forms: "deu.forms", "deu.aff", "deu.dic". */
std::string wordFormFolder();

} // namespace dic

#endif
