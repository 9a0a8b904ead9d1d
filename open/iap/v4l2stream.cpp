#include "open/iap/v4l2stream.h"

#include "open/iap/scanlog.h"

#include <cerrno>
#include <chrono>
#include <cstring>

#include <linux/videodev2.h>

namespace {

constexpr unsigned WantedBuffers = 4;
constexpr unsigned FewestBuffers = 2;
constexpr unsigned MostBuffers = 32;
constexpr int MostBadInARow = 100; // pictures: then the camera is taken for gone
constexpr double SlowestRate = 30.0;

/* A form of picture: where its brightness lies. */
struct Form
{
    unsigned name;
    int pixelBytes;
    int brightness; // which byte of a pixel
};

constexpr std::array<Form, 5> Forms = {{{V4L2_PIX_FMT_GREY, 1, 0},
                                        {V4L2_PIX_FMT_YUYV, 2, 0},
                                        {V4L2_PIX_FMT_UYVY, 2, 1},
                                        {V4L2_PIX_FMT_NV12, 1, 0},
                                        {V4L2_PIX_FMT_YUV420, 1, 0}}};

std::int64_t timeOf(const v4l2_buffer& buffer)
{
    const std::int64_t us = buffer.timestamp.tv_sec * 1'000'000LL + buffer.timestamp.tv_usec;
    if (us != 0)
        return us;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

v4l2_buffer bufferNumber(unsigned index)
{
    v4l2_buffer buffer = {};
    buffer.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    buffer.memory = V4L2_MEMORY_MMAP;
    buffer.index = index;
    return buffer;
}

bool isSide(unsigned pixels)
{
    return pixels >= unsigned(SmallestPictureSide) && pixels <= unsigned(LargestPictureSide);
}

} // namespace

std::string V4l2Stream::failed(const std::string& what) const
{
    return what + ": " + std::strerror(errno);
}

std::string V4l2Stream::open()
{
    std::string why = openDevice();
    if (why.empty())
        why = choosePictures();
    if (!why.empty())
        return why;
    chooseRate();
    why = shareBuffers(WantedBuffers);
    if (!why.empty())
        return why;
    int type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    if (m_calls.control(m_fd, VIDIOC_STREAMON, &type) != 0)
        return failed("the camera does not begin");
    m_isStreaming = true;
    return {};
}

std::string V4l2Stream::openDevice()
{
    m_fd = m_calls.open(m_options.camera.c_str());
    if (m_fd < 0)
        return std::strerror(errno);
    v4l2_capability able = {};
    if (m_calls.control(m_fd, VIDIOC_QUERYCAP, &able) != 0)
        return "this is no camera";
    const unsigned can =
        (able.capabilities & V4L2_CAP_DEVICE_CAPS) != 0 ? able.device_caps : able.capabilities;
    if ((can & V4L2_CAP_VIDEO_CAPTURE) == 0 || (can & V4L2_CAP_STREAMING) == 0)
        return "this device takes no pictures, or does not share memory";
    return {};
}

/* Whether the camera gives that form of pictures, in a size near to what is wanted. */
bool V4l2Stream::offers(unsigned pixelFormat, v4l2_format& format)
{
    format = {};
    format.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    format.fmt.pix.width = unsigned(m_options.width);
    format.fmt.pix.height = unsigned(m_options.height);
    format.fmt.pix.pixelformat = pixelFormat;
    format.fmt.pix.field = V4L2_FIELD_NONE;
    // A driver puts what it has in the place of what it has not.
    return m_calls.control(m_fd, VIDIOC_S_FMT, &format) == 0
           && format.fmt.pix.pixelformat == pixelFormat;
}

std::string V4l2Stream::choosePictures()
{
    for (const Form& form : Forms) {
        v4l2_format format = {};
        if (!offers(form.name, format))
            continue;
        m_shape.pixelBytes = form.pixelBytes;
        m_shape.brightness = form.brightness;
        return adopt(format);
    }
    return "the camera gives none of the forms GREY, YUYV, UYVY, NV12, YU12";
}

std::string V4l2Stream::adopt(const v4l2_format& format)
{
    const v4l2_pix_format& pix = format.fmt.pix;
    if (!isSide(pix.width) || !isSide(pix.height))
        return "the camera's pictures have no usable size";
    m_shape.width = int(pix.width);
    m_shape.height = int(pix.height);
    const std::size_t row = std::size_t(pix.width) * std::size_t(m_shape.pixelBytes);
    // Old drivers leave it 0.
    m_shape.rowBytes = pix.bytesperline == 0 ? row : pix.bytesperline;
    if (m_shape.rowBytes < row)
        return "the camera's rows are shorter than its pictures";
    m_usedBytes = m_shape.rowBytes * (pix.height - 1) + row;
    return {};
}

void V4l2Stream::chooseRate()
{
    v4l2_streamparm rate = {};
    rate.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    v4l2_fract& period = rate.parm.capture.timeperframe;
    period.numerator = 1;
    period.denominator = unsigned(m_options.rate);
    if (m_calls.control(m_fd, VIDIOC_S_PARM, &rate) != 0 || period.numerator == 0)
        return; // it has one rate only, and does not tell
    const double perSecond = double(period.denominator) / period.numerator;
    if (perSecond < SlowestRate)
        scanError(m_options.camera + " gives " + std::to_string(int(perSecond))
                  + " pictures per second; below 30 only a slow hand can be followed");
}

std::string V4l2Stream::shareBuffers(unsigned count)
{
    v4l2_requestbuffers request = {};
    request.count = count;
    request.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    request.memory = V4L2_MEMORY_MMAP;
    if (m_calls.control(m_fd, VIDIOC_REQBUFS, &request) != 0)
        return failed("the camera shares no memory");
    if (request.count < FewestBuffers || request.count > MostBuffers)
        return "the camera does not share enough memory";
    for (unsigned i = 0; i < request.count; ++i) {
        v4l2_buffer buffer = bufferNumber(i);
        if (m_calls.control(m_fd, VIDIOC_QUERYBUF, &buffer) != 0)
            return failed("the camera's memory cannot be asked for");
        if (buffer.length < m_usedBytes)
            return "the camera's memory is too small for its pictures";
        void* start = m_calls.map(buffer.length, m_fd, buffer.m.offset);
        if (!start)
            return failed("the camera's memory cannot be had");
        m_buffers.push_back({start, buffer.length});
        if (!queue(i))
            return failed("the camera does not take its memory");
    }
    return {};
}

bool V4l2Stream::queue(unsigned index)
{
    v4l2_buffer buffer = bufferNumber(index);
    return m_calls.control(m_fd, VIDIOC_QBUF, &buffer) == 0;
}

void V4l2Stream::closeDevice()
{
    if (m_isStreaming) {
        int type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
        m_calls.control(m_fd, VIDIOC_STREAMOFF, &type);
    }
    m_isStreaming = false;
    for (const Buffer& buffer : m_buffers)
        m_calls.unmap(buffer.start, buffer.length);
    m_buffers.clear();
    if (m_fd >= 0)
        m_calls.close(m_fd);
    m_fd = -1;
}

PictureStream::Taken V4l2Stream::take(const User& use)
{
    v4l2_buffer buffer = bufferNumber(0);
    if (m_calls.control(m_fd, VIDIOC_DQBUF, &buffer) != 0) {
        if (errno == EAGAIN)
            return Taken::Ok;
        // A picture that was lost on its way; the next may be whole.
        if (errno == EIO && ++m_badInARow < MostBadInARow)
            return Taken::Ok;
        return gone(failed("the camera has gone"));
    }
    if (buffer.index >= m_buffers.size())
        return gone("the camera tells of memory that it does not have");
    hand(buffer, use);
    if (m_badInARow >= MostBadInARow)
        return gone("the camera gives nothing but damaged pictures");
    return queue(buffer.index) ? Taken::Ok : gone(failed("the camera has gone"));
}

void V4l2Stream::hand(const v4l2_buffer& buffer, const User& use)
{
    if ((buffer.flags & V4L2_BUF_FLAG_ERROR) != 0 || buffer.bytesused < m_usedBytes) {
        ++m_badInARow;
        scanLog("a damaged picture of the camera is left out");
        return;
    }
    m_badInARow = 0;
    CameraPicture picture = m_shape;
    picture.pixels = static_cast<const std::uint8_t*>(m_buffers[buffer.index].start);
    picture.timeUs = timeOf(buffer);
    use(picture);
}

PictureStream::Taken V4l2Stream::gone(const std::string& reason)
{
    m_reason = reason;
    return Taken::Gone;
}
