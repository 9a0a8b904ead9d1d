#include "open/tts/wavfile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <set>

#include <fcntl.h>
#include <unistd.h>

namespace tts {

namespace {

static_assert(std::endian::native == std::endian::little, "a WAV file is little-endian");

struct WavHeader
{
    std::array<char, 4> riff = {'R', 'I', 'F', 'F'};
    std::uint32_t riffBytes = 0;
    std::array<char, 8> waveFmt = {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '};
    std::uint32_t formatBytes = 16;
    std::uint16_t format = 1; // samples as they are
    std::uint16_t channels = 1;
    std::uint32_t rate = SampleRate;
    std::uint32_t bytesPerSecond = SampleRate * 2;
    std::uint16_t bytesPerFrame = 2;
    std::uint16_t bitsPerSample = 16;
    std::array<char, 4> data = {'d', 'a', 't', 'a'};
    std::uint32_t dataBytes = 0;
};
static_assert(sizeof(WavHeader) == 44);

constexpr std::uint32_t HeaderBytesInRiff = sizeof(WavHeader) - 8;
constexpr std::uint32_t MostBytes = (0xffffffff - HeaderBytesInRiff) / 2 * 2;

/* True for the first use of a file in this process. */
bool isNew(const std::string& file)
{
    static std::mutex mutex;
    static std::set<std::string> known;
    const std::lock_guard lock(mutex);
    return known.insert(file).second;
}

bool writeAt(int fd, const void* bytes, std::size_t count, off_t at)
{
    return ::pwrite(fd, bytes, count, at) == static_cast<ssize_t>(count);
}

} // namespace

std::size_t samplesThatFit(std::uint32_t bytes, std::size_t samples)
{
    return bytes >= MostBytes ? 0 : std::min<std::size_t>(samples, (MostBytes - bytes) / 2);
}

std::unique_ptr<WavFile> WavFile::open(const std::string& file)
{
    const int fresh = isNew(file) ? O_TRUNC : 0;
    const int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | fresh, 0666);
    if (fd < 0) {
        std::fprintf(stderr, "speech: cannot write %s: %s\n", file.c_str(), std::strerror(errno));
        return nullptr;
    }
    return std::unique_ptr<WavFile>(new WavFile(fd));
}

WavFile::WavFile(int fd) : m_fd(fd)
{
    WavHeader old;
    if (::pread(m_fd, &old, sizeof old, 0) == sizeof old)
        m_bytes = std::min(old.dataBytes, MostBytes);
    m_ended = !writeHeader();
}

WavFile::~WavFile()
{
    ::close(m_fd);
}

/* Samples first, then the sizes: the file is valid in between. */
void WavFile::write(std::span<const std::int16_t> samples)
{
    const auto fitting = samples.first(samplesThatFit(m_bytes, samples.size()));
    if (m_ended || samples.empty())
        return;
    if (fitting.size() < samples.size()) {
        m_ended = true;
        std::fprintf(stderr, "speech: the sound file is full\n");
    }
    const auto at = static_cast<off_t>(sizeof(WavHeader)) + m_bytes;
    bool written = writeAt(m_fd, fitting.data(), fitting.size_bytes(), at);
    if (written) {
        m_bytes += static_cast<std::uint32_t>(fitting.size_bytes());
        written = writeHeader();
    }
    if (!written) {
        m_ended = true;
        std::fprintf(stderr, "speech: cannot write the sound file: %s\n", std::strerror(errno));
    }
}

bool WavFile::writeHeader()
{
    WavHeader header;
    header.dataBytes = m_bytes;
    header.riffBytes = HeaderBytesInRiff + m_bytes;
    return writeAt(m_fd, &header, sizeof header, 0);
}

} // namespace tts
