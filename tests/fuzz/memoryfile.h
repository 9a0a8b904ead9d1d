#ifndef MEMORYFILE_H
#define MEMORYFILE_H

#include "open/dic/plainfile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

/* A file that is nowhere but in memory. */
inline dic::PlainFile memoryFile(const std::string& content)
{
    const int file = memfd_create("fuzz", MFD_CLOEXEC);
    if (file >= 0 && ::write(file, content.data(), content.size()) < 0)
        ftruncate(file, 0);
    return dic::PlainFile(file);
}

/* Changes a valid file where the fuzzer says: three bytes a change, place and value. Changes that
 * point behind the end cut the file. */
inline std::string changed(std::string file, const std::uint8_t* data, std::size_t size)
{
    for (std::size_t i = 0; i + 2 < size; i += 3) {
        const std::size_t at = data[i] | std::size_t(data[i + 1]) << 8;
        if (at < file.size())
            file[at] = static_cast<char>(data[i + 2]);
        else if (file.size() > data[i + 2])
            file.resize(file.size() - data[i + 2]);
    }
    return file;
}

#endif
