#ifndef TESTS_FRAMERECORDER_H
#define TESTS_FRAMERECORDER_H

#include "open/iap/framesource.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

/* Writes down what a source tells: "d" tip down, "f" a frame, "u" tip up, "l" lost; apart from
 * that, how many frames were preceded by a wait for room. */
class FrameRecorder : public FrameListener
{
public:
    void tipDown() override { add('d'); }
    void tipUp() override { add('u'); }
    void sourceLost() override { add('l'); }
    void awaitRoom() override
    {
        const std::lock_guard lock(m_mutex);
        m_isRoomAwaited = true;
    }
    void frame(Frame frame) override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_awaited += m_isRoomAwaited ? 1 : 0;
            m_isRoomAwaited = false;
            m_frames.push_back(std::move(frame));
        }
        add('f');
    }

    /* Waits until `last` was told `count` times. */
    bool waitFor(char last, int count = 1)
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(60), [&] {
            return std::count(m_told.begin(), m_told.end(), last) >= count;
        });
    }
    std::string told()
    {
        const std::lock_guard lock(m_mutex);
        return m_told;
    }
    std::size_t awaited()
    {
        const std::lock_guard lock(m_mutex);
        return m_awaited;
    }
    std::vector<Frame> frames()
    {
        const std::lock_guard lock(m_mutex);
        return m_frames;
    }

private:
    void add(char what)
    {
        const std::lock_guard lock(m_mutex);
        m_told += what;
        m_changed.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_told;
    std::vector<Frame> m_frames;
    bool m_isRoomAwaited = false;
    std::size_t m_awaited = 0;
};

#endif
