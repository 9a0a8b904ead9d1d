#ifndef OPEN_DIC_SIDECARFORMAT_H
#define OPEN_DIC_SIDECARFORMAT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <zlib.h>

/* What reader and writer of a sidecar share: numbers in bytes, the lowest first. */
namespace dic::sidecarformat {

inline constexpr std::string_view Magic = "SwDict01";
inline constexpr std::size_t HeadLength = 48;
inline constexpr std::size_t BlockLength = 2048;
inline constexpr std::size_t LargestBlock = 16 * 1024;
inline constexpr std::size_t LargestDirectory = 64U << 20;

inline void appendNumber(std::string& out, std::uint64_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>(number >> (8 * i) & 0xff);
}

inline std::uint64_t numberAt(std::string_view text, std::size_t at, int bytes)
{
    std::uint64_t number = 0;
    for (int i = bytes - 1; i >= 0; --i)
        number = number << 8 | static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]);
    return number;
}

/* Seven bits a byte, the lowest first; the last byte has the eighth clear. */
inline void appendShort(std::string& out, std::uint64_t number)
{
    for (; number >= 0x80; number >>= 7)
        out += static_cast<char>(number | 0x80);
    out += static_cast<char>(number);
}

/* Takes what was appended from the beginning of `text`; false when it is not there. */
inline bool takeShort(std::string_view& text, std::uint64_t& number)
{
    number = 0;
    for (unsigned bits = 0; !text.empty() && bits < 64; bits += 7) {
        const auto byte = static_cast<unsigned char>(text.front());
        text.remove_prefix(1);
        number |= std::uint64_t(byte & 0x7f) << bits;
        if (byte < 0x80)
            return true;
    }
    return false;
}

inline bool takeText(std::string_view& text, std::string_view& part)
{
    std::uint64_t length = 0;
    if (!takeShort(text, length) || length > text.size())
        return false;
    part = text.substr(0, length);
    text.remove_prefix(length);
    return true;
}

inline std::uint32_t sumOf(std::string_view text)
{
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size())));
}

} // namespace dic::sidecarformat

#endif
