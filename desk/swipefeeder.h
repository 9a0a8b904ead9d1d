#ifndef SWIPEFEEDER_H
#define SWIPEFEEDER_H

#include "desk/camera/handpath.h"
#include "desk/camera/pencamera.h"

#include <QObject>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

class LinkServer;

/*
 * Moves the pen's camera along a path and feeds the scan engine what it sees, at the hand's own
 * pace. Frames are cut and sent on a thread of its own; the functions are for the interface
 * thread and return at once. One swipe at a time: what is asked for during a swipe is refused.
 */
class SwipeFeeder : public QObject
{
    Q_OBJECT

public:
    using Camera = std::shared_ptr<const PenCamera>;

    /* `link` must outlive this object. */
    explicit SwipeFeeder(LinkServer& link, QObject* parent = nullptr);
    ~SwipeFeeder() override;

    bool isSwiping() const;

    /* Swipes along a path known beforehand. */
    bool swipe(Camera camera, HandPath path);

    /* Swipes along with a hand that is on its way: begin, then move for every position heard of,
     * lift at the end. Time is taken at the call. While the hand rests, move() with the same
     * position keeps the camera going. The hand wobbles as `hand` says; its pace is its own. */
    bool begin(Camera camera, QPointF mm, const HandSettings& hand);
    void move(QPointF mm);
    void lift(QPointF mm);

signals:
    /* The tip was pressed, the camera looks at a place, the tip was lifted (after `frames` frames
     * of which `lost` did not reach the engine). */
    void tipDown();
    void looksAt(QPointF mm, double angleDeg);
    void tipUp(int frames, int lost);

private:
    using Clock = std::chrono::steady_clock; // CLOCK_MONOTONIC

    bool start(Camera camera, const HandSettings& hand, std::vector<PathPoint> points,
               HandPath path, bool complete);
    void addPoint(QPointF mm, bool last);
    void run();
    void feed(std::unique_lock<std::mutex>& lock);
    bool sendFrame(const PenPose& pose, quint32 index, Clock::time_point when);

    LinkServer& m_link;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_quit = false;
    bool m_active = false;
    bool m_complete = false; // the path is known to its end
    Camera m_camera;
    HandSettings m_hand;
    std::vector<PathPoint> m_points;
    HandPath m_path;
    Clock::time_point m_start;
    std::thread m_thread;
};

#endif
