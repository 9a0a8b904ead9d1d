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
#include <string>
#include <thread>
#include <variant>

/*
 * The engine between its start and its stop: a frame source, whose thread only queues what
 * happens, and a worker that stitches and delivers. A swipe that cannot be worked up, whatever the
 * reason, is delivered as an unreadable one: as an empty picture, so that the user is told, unless
 * the tip only touched the paper.
 */
class ScanSession : public FrameListener, public std::enable_shared_from_this<ScanSession>
{
public:
    /* Switches the source on; null when it has no camera or there can be no thread. `control`
     * outlives the session. */
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
    void awaitRoom() override;

    /* Of its frames; a shorter one is a touch of the tip, which asks for no answer. */
    static constexpr std::int64_t ShortestSwipeUs = 200'000;

    /* What the queue holds at most, 20 seconds of usual frames; then frames are left out. */
    static constexpr std::size_t MostQueued = 3000;
    static constexpr std::size_t MostQueuedBytes = 64 << 20;

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
        std::string trouble = {};                           // why it can give no picture any more
        std::optional<std::int64_t> beganUs = std::nullopt; // its first frame's time
        std::int64_t lastedUs = 0;

        void note(const Frame& frame);
        /* Whether the user waits for something to come of it. */
        bool isMeant() const;
    };

    ScanSession(std::unique_ptr<FrameSource> source, ScanControl& control);

    bool hasRoom() const; // with the queue's mutex held
    void push(Event event);
    bool pop(Event& event);
    void work();
    void handle(const Event& event);
    SwipePicture pictureOf(Swipe& swipe);
    void finish(Swipe& swipe);
    SwipeReport deliver(const Swipe& swipe, SwipePicture& picture);

    ScanControl& m_control;
    std::thread m_worker;
    std::atomic<bool> m_stopping = false;
    std::atomic<int> m_openSwipes = 0;
    bool m_isPressed = false;     // source's thread
    std::optional<Swipe> m_swipe; // worker's thread

    std::mutex m_queueMutex;
    std::condition_variable m_queueFilled;
    std::condition_variable m_queueDrained;
    std::deque<Event> m_queue;
    std::size_t m_queuedBytes = 0; // of frames

    std::unique_ptr<FrameSource> m_source; // the first to go: its thread uses the rest
};

#endif
