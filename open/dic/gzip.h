#ifndef OPEN_DIC_GZIP_H
#define OPEN_DIC_GZIP_H

#include "open/dic/plainfile.h"

#include <cstdint>
#include <string>
#include <vector>
#include <zlib.h>

namespace dic {

/* The head of a gzip file. A chunked one ("dictzip") can be inflated from each chunk's start. */
struct GzipHead
{
    std::uint64_t dataOffset = 0;          // first compressed byte
    std::uint32_t chunkLength = 0;         // inflated bytes of a chunk, 0 when it has no chunks
    std::vector<std::uint64_t> chunkStart; // in the file; one more than there are chunks
};

/* Reads the head. False when it is no gzip file or its head is damaged. */
bool readGzipHead(const PlainFile& file, GzipHead& head);

/* Inflates a whole file into `out` and compares check sum and length. False on damage, or when
 * there are more than `limit` bytes. */
bool inflateFile(const PlainFile& file, std::size_t limit, std::string& out);

/* A zlib stream of raw deflate data that ends itself. */
class Inflater
{
public:
    Inflater();
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;
    ~Inflater();

    /* Inflates from the start of `data` up to `wanted` bytes into `out`; returns how many there
     * were, which is fewer than wanted when the data ends or is damaged. */
    std::size_t inflateFrom(const std::string& data, std::size_t wanted, std::string& out);

private:
    z_stream m_stream = {};
    bool m_usable = false;
};

} // namespace dic

#endif
