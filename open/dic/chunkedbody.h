#ifndef OPEN_DIC_CHUNKEDBODY_H
#define OPEN_DIC_CHUNKEDBODY_H

#include "open/dic/body.h"
#include "open/dic/gzip.h"
#include "open/dic/plainfile.h"

#include <cstddef>
#include <vector>

namespace dic {

/*
 * A body compressed in chunks ("dictzip"). Inflates no more of a chunk than is asked for, and
 * keeps the chunks that were read last.
 */
class ChunkedBody : public Body
{
public:
    static constexpr std::size_t KeptChunks = 8;

    explicit ChunkedBody(PlainFile file);

    /* Why the file cannot be used; empty when it can. */
    const std::string& fault() const { return m_fault; }

    std::uint64_t size() const override { return m_size; }
    bool read(std::uint64_t offset, std::size_t length, std::string& out) override;
    bool verify(const std::atomic<bool>& stop) override;

    /* How often something was inflated since the start. */
    std::size_t inflations() const { return m_inflations; }

private:
    struct Chunk
    {
        std::size_t number = 0;
        std::string text;         // its first bytes
        std::size_t lastUsed = 0; // 0 when the place is free
    };

    std::size_t lengthOf(std::size_t number) const;
    const Chunk* chunk(std::size_t number, std::size_t length);
    bool inflateChunk(std::size_t number, std::size_t length, std::string& out);

    PlainFile m_file;
    GzipHead m_head;
    std::uint64_t m_size = 0;
    std::uint32_t m_sum = 0;
    std::string m_fault;
    std::string m_compressed;
    Inflater m_inflater;
    std::vector<Chunk> m_chunks;
    std::size_t m_uses = 0;
    std::size_t m_inflations = 0;
};

} // namespace dic

#endif
