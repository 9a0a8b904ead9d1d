#ifndef OPEN_DIC_SOURCE_H
#define OPEN_DIC_SOURCE_H

#include "open/dic/body.h"
#include "open/dic/languages.h"
#include "open/dic/sidecarbuilder.h"

#include <memory>
#include <string>

namespace dic {

/* The files of one dictionary, whatever its format. */
struct Source
{
    enum class Format { Dict, StarDict };

    Format format = Format::Dict;
    std::string stem;  // path without what distinguishes its files: "/folder/freedict-deu-eng"
    std::string place; // folder's number and path within it: "0/freedict-deu-eng"
    LanguagePair pair; // where it can be told
};

/* The file by which a dictionary is known: NAME.index or NAME.ifo. */
std::string mainFile(const Source& source);

/* Learns the pair: from NAME.about, else the file's name, else what the dictionary says about
 * itself. False with the reason in `why` when none tells it, or it cannot be a dictionary. */
bool learnPair(Source& source, std::string& why);

/* Tells the present state of the files; another text when one of them changed. */
std::string fingerprintOf(const Source& source);

/* Reads everything once, compares check sums, and hands the rows to the builder. False with the
 * reason in `why` when the dictionary cannot be used, or `stop` was set. */
bool readRows(const Source& source, SidecarBuilder& builder, const std::atomic<bool>& stop,
              std::string& why);

/* Null with the reason in `why`. */
std::unique_ptr<Body> openBodyOf(const Source& source, std::string& why);

/* The types of an entry's fields, for StarDict dictionaries that tell them once for all; "m" is
 * plain text, and what DICT dictionaries have. */
std::string fieldTypesOf(const Source& source);

} // namespace dic

#endif
