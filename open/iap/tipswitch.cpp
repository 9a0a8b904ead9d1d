#include "open/iap/tipswitch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

std::string TipSwitch::open(const std::string& path, int key)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return std::strerror(errno);
    const bool isPipe = S_ISFIFO(status.st_mode);
    if (!isPipe && !S_ISCHR(status.st_mode))
        return "no input device";
    // A pipe opened for writing, too, never ends: its writers may come and go.
    m_fd = ::open(path.c_str(), (isPipe ? O_RDWR : O_RDONLY) | O_NONBLOCK | O_CLOEXEC);
    m_key = key;
    return m_fd < 0 ? std::strerror(errno) : std::string();
}

void TipSwitch::close()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
    m_bytes.clear();
}

bool TipSwitch::read(const std::function<void(bool)>& told)
{
    while (true) {
        std::array<std::uint8_t, 64 * sizeof(input_event)> bytes = {};
        const ssize_t count = ::read(m_fd, bytes.data(), bytes.size());
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return true;
        if (count <= 0)
            return false;
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.begin() + count);
        take(told);
    }
}

void TipSwitch::take(const std::function<void(bool)>& told)
{
    std::size_t at = 0;
    for (; at + sizeof(input_event) <= m_bytes.size(); at += sizeof(input_event)) {
        input_event event = {};
        std::memcpy(&event, m_bytes.data() + at, sizeof event);
        bool isDown = false;
        if (event.type == EV_KEY && event.code == m_key && (event.value == 0 || event.value == 1))
            told(event.value == 1); // 2 is a key's repetition
        else if (event.type == EV_SYN && event.code == SYN_DROPPED && askState(isDown))
            told(isDown); // the kernel had no room for all that happened
    }
    m_bytes.erase(m_bytes.begin(), m_bytes.begin() + std::ptrdiff_t(at));
}

bool TipSwitch::askState(bool& isDown) const
{
    std::array<std::uint8_t, KEY_MAX / 8 + 1> keys = {};
    if (::ioctl(m_fd, EVIOCGKEY(keys.size()), keys.data()) < 0)
        return false;
    isDown = (keys.at(std::size_t(m_key) / 8) >> (m_key % 8) & 1) != 0;
    return true;
}

std::string TipTimes::read(const std::string& path)
{
    constexpr std::int64_t latestMs = 24LL * 3600 * 1000;
    std::ifstream file(path);
    if (!file)
        return {};
    m_isAlways = false;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::int64_t press = 0;
        std::int64_t release = 0;
        std::string more;
        if (!(words >> more))
            continue;
        words.clear();
        words.seekg(0);
        const bool isWhole = words >> press >> release && !(words >> more);
        const std::int64_t before = m_presses.empty() ? -1 : m_presses.back().second / 1000;
        if (!isWhole || press <= before || release <= press || release > latestMs)
            return path + ", line " + std::to_string(number)
                   + ": no two times in milliseconds, in order";
        m_presses.emplace_back(press * 1000, release * 1000);
    }
    return {};
}

bool TipTimes::isDown(std::int64_t timeUs) const
{
    return m_isAlways
           || std::any_of(m_presses.begin(), m_presses.end(), [timeUs](const auto& press) {
                  return timeUs >= press.first && timeUs < press.second;
              });
}
