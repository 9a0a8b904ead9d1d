#ifndef DICFILES_H
#define DICFILES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/* Makes small dictionaries in all shapes for the tests of the dictionary engine. */
namespace dicfiles {

struct Entry
{
    std::string head; // UTF-8, as an index has it
    std::string text;
};

void write(const std::string& path, const std::string& content);
std::string read(const std::string& path);

/* The content of a gzip file, in one piece or in chunks of that many bytes. */
std::string gzip(const std::string& text);
std::string dictzip(const std::string& text, std::size_t chunkLength);

/* A number as DICT indices write it. */
std::string base64(std::uint64_t number);

/* A number of that many bytes, the highest first. */
std::string bigEndian(std::uint64_t number, int bytes);

/* NAME.index and NAME.dict, or NAME.dict.dz. */
void writeDict(const std::string& stem, const std::vector<Entry>& entries, bool compressed = false,
               const std::string& title = {});

struct StarDict
{
    std::vector<Entry> entries;
    std::vector<std::pair<std::string, std::uint32_t>> synonyms = {}; // word, entry's number
    std::string type = "m";
    std::string title = "A Title";
    int offsetBits = 32;
    bool compressed = false;
};

/* NAME.ifo, NAME.idx or NAME.idx.gz, NAME.dict or NAME.dict.dz, and NAME.syn if need be. */
void writeStarDict(const std::string& stem, const StarDict& content);

} // namespace dicfiles

#endif
