#ifndef OPEN_DIC_SIDECAR_H
#define OPEN_DIC_SIDECAR_H

#include "open/dic/plainfile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dic {

/* A row that was found by its key. */
struct FoundRow
{
    std::string head;
    std::string title; // empty when it is the head
    std::uint64_t offset = 0;
    std::uint32_t size = 0;
};

/*
 * The engine's own index of one dictionary: rows sorted by folded key, in blocks of about 2 KB of
 * which only the first keys are kept in memory. docs/formats.md describes the file. Damage is
 * found by check sums and never trusted. One thread at a time.
 */
class Sidecar
{
public:
    /* At most this many rows are returned for a key. */
    static constexpr std::size_t MostRows = 64;

    /* Null when the file is none, is damaged, or was made from another state of the dictionary
     * than `fingerprint` tells. */
    static std::unique_ptr<Sidecar> open(PlainFile file, std::string_view fingerprint);

    /* The rows with exactly this key, in the dictionary's order. A block that cannot be read or is
     * damaged ends them; failed() then tells so. */
    std::vector<FoundRow> find(std::string_view key);

    bool failed() const { return m_failed; }
    std::uint32_t rows() const { return m_rows; }

private:
    struct Block
    {
        std::uint64_t offset = 0;
        std::uint32_t length = 0;
        std::uint32_t sum = 0;
        std::uint32_t keyStart = 0;
        std::uint32_t keyLength = 0;
    };

    explicit Sidecar(PlainFile file);
    bool readDirectory(std::string_view fingerprint);
    bool parseDirectory(std::uint32_t blocks);
    std::string_view firstKey(const Block& block) const;
    bool readBlock(std::size_t number);

    PlainFile m_file;
    std::uint32_t m_rows = 0;
    std::string m_directory;
    std::vector<Block> m_blocks;
    std::string m_block; // the one that was read last
    std::size_t m_blockNumber = 0;
    bool m_failed = false;
};

/* What keys without accents begin with in a sidecar: no folded key does. */
inline constexpr char AccentFreeMark = '\x01';

} // namespace dic

#endif
