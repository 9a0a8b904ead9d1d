#ifndef DICMUTATOR_H
#define DICMUTATOR_H

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

/* What stands at a place of a file system. */
struct MutatedFile
{
    enum class Kind { Plain, Pipe, Link, Folder };

    Kind kind = Kind::Plain;
    std::string content; // of a plain file; of a link where it leads
};

/* The files of a dictionary, by what follows its name (".index", ".dict.dz"). */
using DictionaryFiles = std::map<std::string, MutatedFile>;

/*
 * Small dictionaries that look like real ones, and everything that can happen to their files. The
 * same seed makes the same files everywhere.
 */
class DicMutator
{
public:
    /* `folder` is one that may be filled: the whole dictionaries are made there. */
    explicit DicMutator(const std::string& folder);

    /* The whole dictionaries. */
    const std::vector<DictionaryFiles>& whole() const { return m_whole; }

    /* Damages one to three things; what it did is appended to `done`. */
    void mutate(DictionaryFiles& files, std::uint64_t seed, std::string& done);

    /* Any bytes changed, cut, doubled or put in; never the same. */
    static std::string damaged(const std::string& content, std::mt19937_64& random,
                               std::string& done);

private:
    std::vector<DictionaryFiles> m_whole;
};

#endif
