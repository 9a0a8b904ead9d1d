#include "open/iap/videostream.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace {

constexpr double SlowestRate = 1.0;
constexpr double FastestRate = 1000.0;

std::int64_t nowUs()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

} // namespace

std::string VideoStream::open()
{
    m_file = ::open(m_path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat status = {};
    if (m_file < 0 || ::fstat(m_file, &status) != 0)
        return std::strerror(errno);
    return S_ISREG(status.st_mode) ? startPlaying() : std::string();
}

void VideoStream::close()
{
    for (int* fd : {&m_file, &m_timer}) {
        if (*fd >= 0)
            ::close(*fd);
        *fd = -1;
    }
}

std::string VideoStream::startPlaying()
{
    while (!m_parser.hasHead()) {
        const bool isRead = readMore() == More::Yes;
        // The first picture stays with the parser; only the head is wanted here.
        if (m_parser.peekHead() == Y4mParser::Found::Rubbish)
            return m_parser.problem();
        if (!isRead && !m_parser.hasHead())
            return "the video ends before its first picture";
    }
    const double rate = m_parser.picturesPerSecond();
    if (!(rate >= SlowestRate && rate <= FastestRate))
        return "the video's head does not tell its pictures per second (1 to 1000)";
    m_timer = ::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    itimerspec times = {};
    const auto period = std::llround(1e9 / rate);
    times.it_interval.tv_sec = period / 1'000'000'000;
    times.it_interval.tv_nsec = period % 1'000'000'000;
    times.it_value = times.it_interval;
    if (m_timer < 0 || ::timerfd_settime(m_timer, 0, &times, nullptr) != 0)
        return std::strerror(errno);
    return {};
}

PictureStream::Taken VideoStream::take(const User& use)
{
    return m_timer >= 0 ? play(use) : pass(use);
}

PictureStream::Taken VideoStream::play(const User& use)
{
    std::uint64_t due = 0;
    if (::read(m_timer, &due, sizeof due) != ssize_t(sizeof due))
        return Taken::Ok;
    while (due > 0) {
        const Y4mParser::Found found = m_parser.next();
        if (found == Y4mParser::Found::Rubbish)
            return gone(m_parser.problem());
        if (found == Y4mParser::Found::Nothing) {
            if (readMore() != More::Yes)
                return ended();
            continue;
        }
        CameraPicture picture = m_parser.picture();
        picture.timeUs = std::llround(1e6 * double(m_played++) / m_parser.picturesPerSecond());
        use(picture);
        --due;
    }
    return Taken::Ok;
}

PictureStream::Taken VideoStream::pass(const User& use)
{
    const More more = readMore();
    while (true) {
        const Y4mParser::Found found = m_parser.next();
        if (found == Y4mParser::Found::Rubbish)
            return gone(m_parser.problem());
        if (found == Y4mParser::Found::Nothing)
            break;
        CameraPicture picture = m_parser.picture();
        picture.timeUs = nowUs();
        use(picture);
    }
    return more == More::No ? gone("whoever wrote the video has gone") : Taken::Ok;
}

VideoStream::More VideoStream::readMore()
{
    std::array<std::uint8_t, 65536> bytes; // NOLINT(cppcoreguidelines-pro-type-member-init)
    const ssize_t count = ::read(m_file, bytes.data(), bytes.size());
    if (count > 0) {
        m_parser.add(bytes.data(), std::size_t(count));
        return More::Yes;
    }
    return count < 0 && (errno == EAGAIN || errno == EINTR) ? More::NotYet : More::No;
}

PictureStream::Taken VideoStream::ended()
{
    m_reason = "the video is over after " + std::to_string(m_played) + " pictures";
    if (m_parser.isInPicture())
        m_reason += ", in the middle of one";
    return Taken::End;
}

PictureStream::Taken VideoStream::gone(const std::string& reason)
{
    m_reason = reason;
    return Taken::Gone;
}
