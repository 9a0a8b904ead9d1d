#include "open/tts/wavoutput.h"

#include <array>
#include <bit>
#include <cerrno>
#include <chrono>
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

std::unique_ptr<WavOutput> WavOutput::open(SampleQueue& queue, const std::string& file, double pace)
{
    const int fresh = isNew(file) ? O_TRUNC : 0;
    const int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | fresh, 0666);
    if (fd < 0) {
        std::fprintf(stderr, "speech: cannot write %s: %s\n", file.c_str(), std::strerror(errno));
        return nullptr;
    }
    return std::unique_ptr<WavOutput>(new WavOutput(queue, fd, pace));
}

WavOutput::WavOutput(SampleQueue& queue, int fd, double pace)
    : m_queue(queue), m_fd(fd), m_pace(pace)
{
    WavHeader old;
    if (::pread(m_fd, &old, sizeof old, 0) == sizeof old)
        m_bytes = old.dataBytes;
    m_broken = !writeHeader();
    m_queue.setPace(m_pace);
    m_thread = std::thread(&WavOutput::work, this);
}

WavOutput::~WavOutput()
{
    m_closing = true;
    m_queue.wake();
    m_thread.join();
    ::close(m_fd);
}

void WavOutput::work()
{
    using Clock = std::chrono::steady_clock;
    std::array<std::int16_t, BlockSamples> block;
    Clock::time_point next = Clock::now();
    while (!m_closing) {
        m_queue.waitForSamples(m_closing);
        const Clock::time_point now = Clock::now();
        if (next < now)
            next = now;
        const std::size_t used = m_queue.fill(block);
        write(std::span(block).first(used));
        const std::chrono::duration<double> length(static_cast<double>(used)
                                                   / (SampleRate * m_pace));
        next += std::chrono::duration_cast<Clock::duration>(length);
        std::this_thread::sleep_until(next);
    }
}

/* Samples first, then the sizes: the file is valid in between. */
void WavOutput::write(std::span<const std::int16_t> samples)
{
    if (samples.empty() || m_broken)
        return;
    const auto at = static_cast<off_t>(sizeof(WavHeader)) + m_bytes;
    m_broken = !writeAt(m_fd, samples.data(), samples.size_bytes(), at);
    if (!m_broken) {
        m_bytes += static_cast<std::uint32_t>(samples.size_bytes());
        m_broken = !writeHeader();
    }
    if (m_broken)
        std::fprintf(stderr, "speech: cannot write the sound file: %s\n", std::strerror(errno));
}

bool WavOutput::writeHeader()
{
    WavHeader header;
    header.dataBytes = m_bytes;
    header.riffBytes = static_cast<std::uint32_t>(sizeof header) - 8 + m_bytes;
    return writeAt(m_fd, &header, sizeof header, 0);
}

} // namespace tts
