#ifndef OPEN_DIC_ROWS_H
#define OPEN_DIC_ROWS_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace dic {

/* One row of a dictionary's index, whatever its format. The text is valid during the call that
 * hands it over only. */
struct Row
{
    std::string_view head;  // UTF-8, what is looked up; never empty
    std::string_view title; // what the entry is called where that is another word, else empty
    std::uint64_t offset = 0;
    std::uint32_t size = 0;
};

using RowSink = std::function<void(const Row&)>;

/* Longer heads are damage, not words. */
inline constexpr std::size_t LongestHead = 1000;

/* Larger index files are not read. */
inline constexpr std::size_t LargestIndex = 256U << 20;

/* What became of an index. */
struct IndexReport
{
    std::size_t rows = 0;    // handed over
    std::size_t damaged = 0; // left out
};

} // namespace dic

#endif
