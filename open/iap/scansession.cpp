#include "open/iap/scansession.h"

#include "open/iap/scanlog.h"

#include <opencv2/core.hpp>

#include <exception>

namespace {

thread_local bool t_inCallback = false;

SwipeReport::Outcome outcomeOf(SwipePicture::Failure failure)
{
    switch (failure) {
    case SwipePicture::Failure::NoPrint:
        return SwipeReport::Outcome::NoPrint;
    case SwipePicture::Failure::BadMotion:
        return SwipeReport::Outcome::BadMotion;
    case SwipePicture::Failure::None:
        break;
    }
    return SwipeReport::Outcome::Delivered;
}

/* Takes a step; what went wrong in it, empty when nothing did. Memory may be short. */
template <typename Step> std::string troubleIn(const Step& step)
{
    try {
        step();
    } catch (const std::exception& trouble) {
        return std::string("cannot work the swipe up: ") + trouble.what();
    }
    return {};
}

} // namespace

ScanSession::ScanSession(std::unique_ptr<FrameSource> source, ScanControl& control)
    : m_control(control), m_source(std::move(source))
{
}

std::shared_ptr<ScanSession> ScanSession::start(std::unique_ptr<FrameSource> source,
                                                ScanControl& control)
{
    cv::setNumThreads(1);
    const std::shared_ptr<ScanSession> session(new ScanSession(std::move(source), control));
    try {
        // The worker keeps its session: it may outlive stop() when that is called by its callback.
        session->m_worker = std::thread([session] { session->work(); });
        if (session->m_source->start(*session))
            return session;
    } catch (const std::exception& trouble) {
        scanError(std::string("cannot start: ") + trouble.what());
    }
    session->stop();
    return nullptr;
}

bool ScanSession::isInCallback()
{
    return t_inCallback;
}

void ScanSession::stop()
{
    {
        const std::lock_guard lock(m_queueMutex);
        m_stopping = true;
    }
    m_queueFilled.notify_all();
    m_queueDrained.notify_all();
    m_source->stop();
    if (!m_worker.joinable()) // it could not be made
        return;
    if (t_inCallback)
        m_worker.detach();
    else
        m_worker.join();
}

void ScanSession::tipDown()
{
    if (m_isPressed)
        return;
    m_isPressed = true;
    ++m_openSwipes;
    push(Press{m_control.permit()});
}

void ScanSession::frame(Frame frame)
{
    if (m_isPressed)
        push(std::move(frame));
}

void ScanSession::tipUp()
{
    if (!m_isPressed)
        return;
    m_isPressed = false;
    push(Lift());
}

void ScanSession::sourceLost()
{
    if (m_isPressed)
        push(Loss());
    m_isPressed = false;
}

void ScanSession::awaitRoom()
{
    std::unique_lock lock(m_queueMutex);
    m_queueDrained.wait(lock, [this] { return m_stopping || hasRoom(); });
}

bool ScanSession::hasRoom() const
{
    return m_queue.size() < MostQueued && m_queuedBytes < MostQueuedBytes;
}

void ScanSession::push(Event event)
{
    {
        const std::lock_guard lock(m_queueMutex);
        if (const Frame* frame = std::get_if<Frame>(&event)) {
            if (!hasRoom()) {
                scanLog("a frame is left out: they come faster than they are worked off");
                return;
            }
            m_queuedBytes += frame->pixels.size();
        }
        m_queue.push_back(std::move(event));
    }
    m_queueFilled.notify_one();
}

bool ScanSession::pop(Event& event)
{
    std::unique_lock lock(m_queueMutex);
    m_queueFilled.wait(lock, [this] { return m_stopping || !m_queue.empty(); });
    if (m_stopping)
        return false;
    event = std::move(m_queue.front());
    m_queue.pop_front();
    if (const Frame* frame = std::get_if<Frame>(&event))
        m_queuedBytes -= frame->pixels.size();
    m_queueDrained.notify_one();
    return true;
}

void ScanSession::work()
{
    Event event;
    while (pop(event))
        handle(event);
}

void ScanSession::handle(const Event& event)
{
    if (const Press* press = std::get_if<Press>(&event)) {
        m_swipe.emplace(Swipe{press->permit, Stitcher(press->permit.settings)});
    } else if (const Frame* frame = std::get_if<Frame>(&event)) {
        m_swipe->note(*frame);
        if (m_swipe->trouble.empty())
            m_swipe->trouble = troubleIn([&] { m_swipe->stitcher.feed(*frame); });
    } else {
        if (std::holds_alternative<Loss>(event))
            m_swipe->trouble = "the camera has gone during the swipe";
        finish(*m_swipe);
        m_swipe.reset();
        --m_openSwipes;
    }
}

void ScanSession::Swipe::note(const Frame& frame)
{
    if (!beganUs)
        beganUs = frame.timeUs;
    lastedUs = frame.timeUs - *beganUs;
}

bool ScanSession::Swipe::isMeant() const
{
    return lastedUs >= ShortestSwipeUs || !trouble.empty();
}

SwipePicture ScanSession::pictureOf(Swipe& swipe)
{
    SwipePicture picture;
    if (swipe.trouble.empty())
        swipe.trouble = troubleIn([&] { picture = swipe.stitcher.finish(); });
    if (!swipe.trouble.empty()) {
        picture = SwipePicture();
        picture.failure = SwipePicture::Failure::BadMotion; // to the user: unreadable
        picture.reason = swipe.trouble;
    }
    return picture;
}

void ScanSession::finish(Swipe& swipe)
{
    SwipePicture picture = pictureOf(swipe);
    const SwipeReport report = deliver(swipe, picture);
    scanLog(report.reason + ", " + std::to_string(report.width) + " x "
            + std::to_string(report.height) + " pixels of " + std::to_string(report.frames)
            + " frames");
}

SwipeReport ScanSession::deliver(const Swipe& swipe, SwipePicture& picture)
{
    SwipeReport report = {outcomeOf(picture.failure), picture.framesFed, picture.width,
                          picture.height, picture.reason};
    const std::lock_guard delivery(m_control.deliveryMutex());
    const ZEMBRA_IAP_PanoImageCallback receiver = m_control.receiverFor(swipe.permit);
    if (!receiver || m_stopping) {
        report = {SwipeReport::Outcome::Stopped, picture.framesFed, 0, 0, "stopped"};
        m_source->report(report);
        return report;
    }
    // Before the callback, which may take long or stop the engine.
    m_source->report(report);
    unsigned char empty = 0; // what an empty picture points at
    unsigned char* image = picture.width > 0 ? picture.pixels.data()
                           : swipe.isMeant() ? &empty
                                             : nullptr;
    const unsigned char flag =
        swipe.permit.settings.han ? ZEMBRA_IAP_SCRIPT_HAN : ZEMBRA_IAP_SCRIPT_ALPHA;
    t_inCallback = true;
    receiver(nullptr, image, picture.width, picture.height, flag, nullptr);
    t_inCallback = false;
    return report;
}
