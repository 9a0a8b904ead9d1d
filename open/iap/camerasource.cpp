#include "open/iap/camerasource.h"

#include "open/iap/scanlog.h"
#include "open/iap/v4l2stream.h"
#include "open/iap/videostream.h"

#include <cerrno>
#include <cstring>

#include <sys/stat.h>

namespace {

constexpr double UsualDpi = 300.0; // of pictures that are as small as frames
constexpr int SilenceMs = 3000;    // of a camera, before that is told

enum Polled { Wake, Tip, Pictures };

} // namespace

CameraSource::~CameraSource()
{
    stop();
}

bool CameraSource::start(FrameListener& listener)
{
    std::string why;
    const std::optional<CameraOptions> options = CameraOptions::fromEnvironment(why);
    if (options) {
        m_options = *options;
        why = open();
    }
    if (!why.empty()) {
        scanError(why);
        m_stream.reset();
        m_tip.close();
        return false;
    }
    m_wake.emplace();
    if (m_wake->fd() < 0) {
        scanError(std::string("cannot be woken: ") + std::strerror(errno));
        return false;
    }
    m_isAlive = true;
    m_thread = std::thread([this, &listener] { run(listener); });
    return true;
}

std::string CameraSource::open()
{
    struct stat status = {};
    if (::stat(m_options.camera.c_str(), &status) != 0)
        return m_options.camera + ": " + std::strerror(errno);
    m_isFile = S_ISREG(status.st_mode);
    if (S_ISCHR(status.st_mode))
        m_stream = std::make_unique<V4l2Stream>(m_options, m_calls);
    else if (m_isFile || S_ISFIFO(status.st_mode))
        m_stream = std::make_unique<VideoStream>(m_options.camera);
    else
        return m_options.camera + ": neither a camera nor a video";
    std::string why = openTip(m_isFile);
    if (!why.empty())
        return why;
    why = m_stream->open();
    if (why.empty() && m_stream->shape().width > 0)
        why = makeWindow(m_stream->shape());
    return why.empty() ? why : m_options.camera + ": " + why;
}

std::string CameraSource::openTip(bool isFile)
{
    if (isFile)
        return m_times.read(m_options.camera + ".tip");
    if (m_options.tip.empty())
        return "a camera needs a tip switch: SWIPELINE_TIP names its input device";
    const std::string why = m_tip.open(m_options.tip, m_options.tipKey);
    return why.empty() ? why : m_options.tip + ": " + why;
}

void CameraSource::stop()
{
    if (!m_thread.joinable())
        return;
    m_wake->raise();
    m_thread.join();
    m_stream.reset();
    m_tip.close();
    m_wake.reset();
}

void CameraSource::run(FrameListener& listener)
{
    while (true) {
        const int pictures = m_isOver ? -1 : m_stream->pollFd();
        std::array<pollfd, 3> polled = {
            {{m_wake->fd(), POLLIN, 0}, {m_tip.pollFd(), POLLIN, 0}, {pictures, POLLIN, 0}}};
        const int ready = ::poll(polled.data(), polled.size(), m_isDown ? SilenceMs : -1);
        if (ready < 0 && errno != EINTR)
            return lose(listener, std::strerror(errno));
        if (ready == 0)
            scanError(m_options.camera + ": no picture for three seconds");
        if (ready <= 0)
            continue;
        if (polled[Wake].revents != 0)
            return;
        if (polled[Tip].revents != 0 && !m_tip.read([&](bool isDown) { setTip(listener, isDown); }))
            return lose(listener, m_options.tip + ": the tip switch has gone");
        if (polled[Pictures].revents != 0 && !takePictures(listener, polled[Pictures]))
            return;
    }
}

bool CameraSource::takePictures(FrameListener& listener, const pollfd& polled)
{
    bool hasCome = false;
    const PictureStream::Taken taken = m_stream->take([&](const CameraPicture& picture) {
        hasCome = true;
        show(listener, picture);
    });
    if (!m_trouble.empty()) {
        lose(listener, m_options.camera + ": " + m_trouble);
        return false;
    }
    if (taken == PictureStream::Taken::End) {
        scanLog(m_options.camera + ": " + m_stream->reason());
        setTip(listener, false);
        m_isOver = true;
        return true;
    }
    // An error that goes on would be reported at once, again and again.
    const bool isStuck = !hasCome && (polled.revents & POLLIN) == 0;
    if (taken == PictureStream::Taken::Ok && !isStuck)
        return true;
    const std::string& why = m_stream->reason();
    lose(listener, m_options.camera + ": " + (why.empty() ? "the camera has gone" : why));
    return false;
}

void CameraSource::show(FrameListener& listener, const CameraPicture& picture)
{
    if (!m_window && m_trouble.empty())
        m_trouble = makeWindow(picture);
    if (!m_window || !m_window->fits(picture))
        return;
    if (m_isFile)
        setTip(listener, m_times.isDown(picture.timeUs));
    listener.frame(m_window->frameOf(picture));
}

/* Empty, or why there cannot be one. */
std::string CameraSource::makeWindow(const CameraPicture& picture)
{
    double dpi = m_stream->dpi();
    if (m_options.widthMm > 0.0)
        dpi = picture.width * MmPerInch / m_options.widthMm;
    else if (dpi == 0.0 && picture.width <= MaxFrameSide && picture.height <= MaxFrameSide)
        dpi = UsualDpi;
    if (dpi == 0.0)
        return "how many mm of paper are the width of a picture? SWIPELINE_CAMERA_MM tells";
    std::string why;
    m_window = CameraWindow::of(picture.width, picture.height, dpi, m_options.turn, why);
    return why;
}

void CameraSource::setTip(FrameListener& listener, bool isDown)
{
    if (isDown != m_isDown)
        isDown ? listener.tipDown() : listener.tipUp();
    m_isDown = isDown;
}

void CameraSource::lose(FrameListener& listener, const std::string& why)
{
    scanError(why);
    m_isAlive = false;
    listener.sourceLost();
}
