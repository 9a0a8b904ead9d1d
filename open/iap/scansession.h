#ifndef SCANSESSION_H
#define SCANSESSION_H

#include "open/iap/framesource.h"
#include "open/iap/scancontrol.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <variant>

/*
 * The engine between its start and its stop: a frame source, whose thread only queues what
 * happens, and a worker that stitches and delivers.
 */
class ScanSession : public FrameListener, public std::enable_shared_from_this<ScanSession>
{
public:
    /* Switches the source on; null when it has no camera. `control` outlives the session. */
    static std::shared_ptr<ScanSession> start(std::unique_ptr<FrameSource> source,
                                              ScanControl& control);
    ~ScanSession() override = default;

    /* Switches the source off and ends the worker. Waits for a callback that runs, unless the call
     * comes from inside one. */
    void stop();

    /* From the press of the tip until the callback has returned. */
    bool isBusy() const { return m_openSwipes > 0; }
    bool isAlive() const { return m_source->isAlive(); }
    /* Whether this thread is inside a callback of some session. */
    static bool isInCallback();

    void tipDown() override;
    void frame(Frame frame) override;
    void tipUp() override;
    void sourceLost() override;

private:
    struct Press
    {
        ScanControl::Permit permit;
    };
    struct Lift
    {
    };
    struct Loss
    {
    };
    using Event = std::variant<Press, Frame, Lift, Loss>;
    struct Swipe
    {
        ScanControl::Permit permit;
        Stitcher stitcher;
    };

    ScanSession(std::unique_ptr<FrameSource> source, ScanControl& control);

    void push(Event event);
    bool pop(Event& event);
    void work();
    void handle(const Event& event);
    void finish(Swipe& swipe);
    SwipeReport deliver(const Swipe& swipe, SwipePicture& picture);

    std::unique_ptr<FrameSource> m_source;
    ScanControl& m_control;
    std::thread m_worker;
    std::atomic<bool> m_stopping = false;
    std::atomic<int> m_openSwipes = 0;
    bool m_isPressed = false;     // source's thread
    std::optional<Swipe> m_swipe; // worker's thread

    std::mutex m_queueMutex;
    std::condition_variable m_queueFilled;
    std::deque<Event> m_queue;
};

#endif
