#include "tests/unit/open/fakecamera.h"

#include <algorithm>
#include <cerrno>

#include <sys/eventfd.h>
#include <unistd.h>

FakeCamera::FakeCamera() : m_ready(::eventfd(0, EFD_CLOEXEC | EFD_SEMAPHORE | EFD_NONBLOCK)) {}

FakeCamera::~FakeCamera()
{
    ::close(m_ready);
}

unsigned FakeCamera::rowLength() const
{
    const bool isMixed = m_form == V4L2_PIX_FMT_YUYV || m_form == V4L2_PIX_FMT_UYVY;
    return width * (isMixed ? 2 : 1) + rowBytes;
}

bool FakeCamera::isClosed() const
{
    const std::lock_guard lock(m_mutex);
    return !m_isOpen && m_mapped == 0;
}

void FakeCamera::expose(const std::vector<std::uint8_t>& bytes, unsigned flags)
{
    const std::lock_guard lock(m_mutex);
    if (m_empty.empty())
        return;
    const unsigned index = m_empty.front();
    m_empty.pop_front();
    std::vector<std::uint8_t>& memory = m_memory.at(index);
    const std::size_t count = std::min(bytes.size(), memory.size());
    std::copy_n(bytes.begin(), count, memory.begin());
    tell({0, index, unsigned(count), flags});
}

void FakeCamera::failNext(int error)
{
    const std::lock_guard lock(m_mutex);
    tell({error, 0, 0, 0});
}

void FakeCamera::unplug()
{
    const std::lock_guard lock(m_mutex);
    m_isUnplugged = true;
    tell({ENODEV, 0, 0, 0});
}

void FakeCamera::tell(const Done& done)
{
    m_done.push_back(done);
    const std::uint64_t one = 1;
    if (::write(m_ready, &one, sizeof one) < 0)
        std::abort();
}

int FakeCamera::open(const char*)
{
    const std::lock_guard lock(m_mutex);
    if (openFails) {
        errno = EBUSY;
        return -1;
    }
    m_isOpen = true;
    return m_ready;
}

int FakeCamera::close(int)
{
    const std::lock_guard lock(m_mutex);
    m_isOpen = false;
    return 0;
}

void* FakeCamera::map(std::size_t length, int, unsigned long offset)
{
    const std::lock_guard lock(m_mutex);
    if (mapFails || offset >= m_memory.size() || m_memory[offset].size() != length) {
        errno = ENOMEM;
        return nullptr;
    }
    ++m_mapped;
    return m_memory[offset].data();
}

void FakeCamera::unmap(void*, std::size_t)
{
    const std::lock_guard lock(m_mutex);
    --m_mapped;
}

int FakeCamera::control(int, unsigned long request, void* argument)
{
    const std::lock_guard lock(m_mutex);
    const int error = m_isUnplugged                 ? ENODEV
                      : refused.count(request) != 0 ? EINVAL
                                                    : answer(request, argument);
    errno = error;
    return error == 0 ? 0 : -1;
}

int FakeCamera::answer(unsigned long request, void* argument)
{
    auto& buffer = *static_cast<v4l2_buffer*>(argument);
    switch (request) {
    case VIDIOC_QUERYCAP: {
        auto& able = *static_cast<v4l2_capability*>(argument);
        able.capabilities = capabilities | V4L2_CAP_DEVICE_CAPS;
        able.device_caps = capabilities;
        return 0;
    }
    case VIDIOC_S_FMT:
        setForm(*static_cast<v4l2_format*>(argument));
        return 0;
    case VIDIOC_REQBUFS: {
        auto& wanted = *static_cast<v4l2_requestbuffers*>(argument);
        wanted.count = buffers;
        const unsigned bytes = bufferBytes != 0 ? bufferBytes : rowLength() * height;
        m_memory.assign(buffers, std::vector<std::uint8_t>(bytes));
        return 0;
    }
    case VIDIOC_QUERYBUF:
        buffer.length = unsigned(m_memory.at(buffer.index).size());
        buffer.m.offset = buffer.index;
        return 0;
    case VIDIOC_QBUF:
        m_empty.push_back(buffer.index);
        return 0;
    case VIDIOC_DQBUF:
        return fetch(buffer);
    case VIDIOC_S_PARM:
    case VIDIOC_STREAMON:
    case VIDIOC_STREAMOFF:
        return 0;
    default:
        return ENOTTY;
    }
}

void FakeCamera::setForm(v4l2_format& format)
{
    v4l2_pix_format& pix = format.fmt.pix;
    const bool isOffered = std::count(forms.begin(), forms.end(), pix.pixelformat) != 0;
    m_form = isOffered ? pix.pixelformat : forms.front();
    pix.pixelformat = m_form;
    pix.width = width;
    pix.height = height;
    pix.bytesperline = rowLength();
}

int FakeCamera::fetch(v4l2_buffer& buffer)
{
    std::uint64_t one = 0;
    if (m_done.empty() || ::read(m_ready, &one, sizeof one) < 0)
        return EAGAIN;
    const Done done = m_done.front();
    m_done.pop_front();
    if (done.error != 0)
        return done.error;
    buffer.index = done.index;
    buffer.bytesused = done.bytes;
    buffer.flags = done.flags;
    m_timeUs += 5000;
    buffer.timestamp.tv_sec = m_timeUs / 1'000'000;
    buffer.timestamp.tv_usec = m_timeUs % 1'000'000;
    return 0;
}
