#ifndef TIPSWITCH_H
#define TIPSWITCH_H

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/* The switch in the pen's tip, as a key of an input device of the kernel (evdev); a pipe that
 * brings the same records stands in for one. */
class TipSwitch
{
public:
    ~TipSwitch() { close(); }
    TipSwitch() = default;
    TipSwitch(const TipSwitch&) = delete;
    TipSwitch& operator=(const TipSwitch&) = delete;

    /* `key`: its code. Empty, or the reason in words why there is no such switch. */
    std::string open(const std::string& path, int key);
    void close();
    int pollFd() const { return m_fd; } // to be polled for reading

    /* Calls `told` for each press (true) and release. False when the switch has gone. Never
     * waits. */
    bool read(const std::function<void(bool isDown)>& told);

private:
    void take(const std::function<void(bool)>& told);
    bool askState(bool& isDown) const;

    int m_fd = -1;
    int m_key = 0;
    std::vector<std::uint8_t> m_bytes; // read; the last record may not be whole
};

/* When the tip is down in a video: from a text file of lines "PRESS RELEASE", milliseconds from its
 * beginning, in order; "#" begins a comment. */
class TipTimes
{
public:
    /* No such file: down all the time. Empty, or what is wrong. */
    std::string read(const std::string& path);
    bool isDown(std::int64_t timeUs) const;

private:
    bool m_isAlways = true;
    std::vector<std::pair<std::int64_t, std::int64_t>> m_presses; // from, up to; microseconds
};

#endif
