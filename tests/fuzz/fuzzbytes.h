#ifndef FUZZBYTES_H
#define FUZZBYTES_H

#include <cstddef>
#include <cstdint>

/* What the fuzzer made, byte by byte; zeros after the last. */
class Bytes
{
public:
    Bytes(const std::uint8_t* data, std::size_t size) : m_data(data), m_left(size) {}
    bool isEmpty() const { return m_left == 0; }
    int next()
    {
        if (m_left == 0)
            return 0;
        --m_left;
        return *m_data++;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_left;
};

#endif
