#ifndef OPEN_DIC_SIDECARBUILDER_H
#define OPEN_DIC_SIDECARBUILDER_H

#include "open/dic/rows.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dic {

/* Collects the rows of a dictionary, sorts them by folded key and writes the sidecar. */
class SidecarBuilder
{
public:
    void add(const Row& row);

    std::size_t rows() const { return m_items.size(); }

    /* Writes everything to an open, empty file. False when that fails or `stop` was set. */
    bool write(int descriptor, std::string_view fingerprint, const std::atomic<bool>& stop);

private:
    struct Item
    {
        std::uint64_t offset;
        std::uint64_t text; // where key, head and title begin in m_text
        std::uint32_t size;
        std::uint16_t keyLength;
        std::uint16_t headLength;
        std::uint16_t titleLength;
    };

    void addKey(std::string_view key, const Row& row);
    std::string_view keyOf(const Item& item) const;
    void appendRow(const Item& item, std::string& block) const;

    std::string m_text;
    std::vector<Item> m_items;
};

} // namespace dic

#endif
