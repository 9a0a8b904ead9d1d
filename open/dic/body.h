#ifndef OPEN_DIC_BODY_H
#define OPEN_DIC_BODY_H

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace dic {

/* The texts of a dictionary: one long run of bytes in which entries have a place and a length. One
 * thread at a time. */
class Body
{
public:
    virtual ~Body() = default;

    virtual std::uint64_t size() const = 0;

    /* Exactly `length` bytes from `offset`; false when they are not there or cannot be read. */
    virtual bool read(std::uint64_t offset, std::size_t length, std::string& out) = 0;

    /* Reads everything once and compares it with the check sum, if there is one. Ends early,
     * with false, once `stop` is set. */
    virtual bool verify(const std::atomic<bool>& stop) = 0;
};

/* Opens NAME.dict or NAME.dict.dz; null with the reason in `why`. */
std::unique_ptr<Body> openBody(const std::string& path, std::string& why);

} // namespace dic

#endif
