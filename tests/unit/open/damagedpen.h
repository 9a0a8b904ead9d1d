#ifndef DAMAGEDPEN_H
#define DAMAGEDPEN_H

#include "platform/zembra_dic.h"
#include "tests/unit/open/dicmutator.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>

/* Told by the process that works to the one that waits. */
struct DamagedPenProgress
{
    std::uint64_t seed = 0;
    std::uint64_t refused = 0;
    std::uint64_t opened = 0;
    std::uint64_t found = 0;
    char doing[1000] = {};

    void add(const DamagedPenProgress& other)
    {
        refused += other.refused;
        opened += other.opened;
        found += other.found;
    }
};

/*
 * A pen with a damaged dictionary beside a good one: its files, and everything that can be done
 * with its dictionaries. The standard error output is expected in the file "log" of its folder.
 * What is not as platform/zembra_dic.h promises ends the process.
 */
class DamagedPen
{
public:
    DamagedPen(std::filesystem::path root, DicMutator& mutator, std::uint64_t seed,
               DamagedPenProgress& progress)
        : m_root(std::move(root)), m_mutator(mutator), m_random(seed), m_progress(progress)
    {
    }

    /* Damages a dictionary as the seed says, and uses it. */
    void run(std::uint64_t seed);

    /* Uses these files; whether both dictionaries work. */
    bool opens(const DictionaryFiles& files);

private:
    std::size_t below(std::size_t limit) { return std::size_t(m_random() % limit); }
    void begin();
    void layOut(const DictionaryFiles& files);
    void put(const std::string& name, const MutatedFile& file);
    void spoilIndices(std::string& done);
    void use();
    void useDictionary(tagDictInfo* dictionary);
    void describe(const tagDictInfo* dictionary);
    void lookUp();
    void read(const tagResultNodeInfo* result, bool& isGood);
    void checkLog();

    std::filesystem::path m_root;
    DicMutator& m_mutator;
    std::mt19937_64 m_random;
    DamagedPenProgress& m_progress;
    std::string m_name = "victim-deu-eng";
    int m_listed = 0;
    int m_open = 0;
    int m_goodFound = 0;
};

#endif
