#include "desk/swipefeeder.h"

#include "desk/linkserver.h"

namespace {

qint64 microseconds(std::chrono::steady_clock::time_point when)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(when.time_since_epoch()).count();
}

std::chrono::steady_clock::duration fromSeconds(double seconds)
{
    return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
        std::chrono::duration<double>(seconds));
}

} // namespace

SwipeFeeder::SwipeFeeder(LinkServer& link, QObject* parent)
    : QObject(parent), m_link(link), m_thread([this] { run(); })
{
}

SwipeFeeder::~SwipeFeeder()
{
    {
        const std::lock_guard lock(m_mutex);
        m_quit = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

bool SwipeFeeder::isSwiping() const
{
    const std::lock_guard lock(m_mutex);
    return m_active;
}

bool SwipeFeeder::swipe(Camera camera, HandPath path)
{
    return !path.isEmpty() && start(std::move(camera), {}, {}, std::move(path), true);
}

bool SwipeFeeder::begin(Camera camera, QPointF mm, const HandSettings& hand)
{
    const std::vector<PathPoint> points = {{0.0, mm}};
    return start(std::move(camera), hand, points, HandPath::through(points, hand), false);
}

bool SwipeFeeder::start(Camera camera, const HandSettings& hand, std::vector<PathPoint> points,
                        HandPath path, bool complete)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_active || !camera)
            return false;
        m_active = true;
        m_complete = complete;
        m_camera = std::move(camera);
        m_hand = hand;
        m_points = std::move(points);
        m_path = std::move(path);
        m_start = Clock::now();
    }
    m_changed.notify_all();
    return true;
}

void SwipeFeeder::move(QPointF mm)
{
    addPoint(mm, false);
}

void SwipeFeeder::lift(QPointF mm)
{
    addPoint(mm, true);
}

void SwipeFeeder::addPoint(QPointF mm, bool last)
{
    {
        const std::lock_guard lock(m_mutex);
        if (!m_active || m_complete)
            return;
        const std::chrono::duration<double> since = Clock::now() - m_start;
        m_points.push_back({since.count(), mm});
        m_path = HandPath::through(m_points, m_hand);
        m_complete = last;
    }
    m_changed.notify_all();
}

void SwipeFeeder::run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_quit || m_active; });
        if (m_quit)
            return;
        feed(lock);
        m_active = false;
        m_camera.reset();
    }
}

void SwipeFeeder::feed(std::unique_lock<std::mutex>& lock)
{
    const double period = 1.0 / m_camera->settings().framesPerSecond;
    const Clock::time_point startTime = m_start;
    lock.unlock();
    m_link.sendTip(desklink::Kind::TipDown, microseconds(startTime));
    emit tipDown();
    lock.lock();

    quint32 index = 0;
    int lost = 0;
    while (!m_quit) {
        const double seconds = index * period;
        const Clock::time_point when = startTime + fromSeconds(seconds);
        m_changed.wait(
            lock, [this, seconds] { return m_quit || m_complete || seconds <= m_path.duration(); });
        // While the clock runs up to the frame, points that arrive may still bend the path.
        m_changed.wait_until(lock, when, [this] { return m_quit; });
        if (m_quit || (m_complete && seconds > m_path.duration()))
            break;
        const PenPose pose = m_path.poseAt(seconds);
        lock.unlock();
        if (!sendFrame(pose, index, when))
            ++lost;
        emit looksAt(pose.mm, pose.angleDeg);
        ++index;
        lock.lock();
    }
    lock.unlock();
    m_link.sendTip(desklink::Kind::TipUp, microseconds(Clock::now()));
    lock.lock();
    emit tipUp(int(index), lost);
}

bool SwipeFeeder::sendFrame(const PenPose& pose, quint32 index, Clock::time_point when)
{
    const QImage frame = m_camera->frameAt(pose, index);
    std::vector<std::byte> pixels;
    pixels.reserve(std::size_t(frame.width()) * std::size_t(frame.height()));
    for (int y = 0; y < frame.height(); ++y) {
        const auto* row = reinterpret_cast<const std::byte*>(frame.constScanLine(y));
        pixels.insert(pixels.end(), row, row + frame.width());
    }
    const desklink::FrameHead head = {microseconds(when), quint16(frame.width()),
                                      quint16(frame.height()), quint16(m_camera->settings().dpi),
                                      0};
    return m_link.sendFrame(head, pixels);
}
