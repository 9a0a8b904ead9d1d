#include "open/iap/scansession.h"

#include "open/iap/scanlog.h"

#include <opencv2/core.hpp>

namespace {

// A receiver that takes its time must not let memory run full: some 20 seconds of frames.
constexpr std::size_t MostQueued = 3000;

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

} // namespace

ScanSession::ScanSession(std::unique_ptr<FrameSource> source, ScanControl& control)
    : m_source(std::move(source)), m_control(control)
{
}

std::shared_ptr<ScanSession> ScanSession::start(std::unique_ptr<FrameSource> source,
                                                ScanControl& control)
{
    cv::setNumThreads(1);
    const std::shared_ptr<ScanSession> session(new ScanSession(std::move(source), control));
    if (!session->m_source->start(*session))
        return nullptr;
    // The worker keeps its session: it may outlive stop() when that is called by its callback.
    session->m_worker = std::thread([session] { session->work(); });
    return session;
}

bool ScanSession::isInCallback()
{
    return t_inCallback;
}

void ScanSession::stop()
{
    m_source->stop();
    {
        const std::lock_guard lock(m_queueMutex);
        m_stopping = true;
    }
    m_queueFilled.notify_all();
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

void ScanSession::push(Event event)
{
    {
        const std::lock_guard lock(m_queueMutex);
        if (m_queue.size() >= MostQueued && std::holds_alternative<Frame>(event)) {
            scanLog("a frame is left out, the receiver of the last picture still works");
            return;
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
        m_swipe->stitcher.feed(*frame);
    } else {
        if (std::holds_alternative<Lift>(event))
            finish(*m_swipe);
        else
            scanLog("the camera has gone during a swipe");
        m_swipe.reset();
        --m_openSwipes;
    }
}

void ScanSession::finish(Swipe& swipe)
{
    SwipePicture picture = swipe.stitcher.finish();
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
    unsigned char* image = picture.width > 0 ? picture.pixels.data() : nullptr;
    const unsigned char flag =
        swipe.permit.settings.han ? ZEMBRA_IAP_SCRIPT_HAN : ZEMBRA_IAP_SCRIPT_ALPHA;
    t_inCallback = true;
    receiver(nullptr, image, picture.width, picture.height, flag, nullptr);
    t_inCallback = false;
    return report;
}
