#ifndef FAKECAMERA_H
#define FAKECAMERA_H

#include "open/iap/devicecalls.h"

#include <deque>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include <linux/videodev2.h>

/* A camera that answers the kernel's calls as a driver does, from any thread. */
class FakeCamera : public DeviceCalls
{
public:
    FakeCamera();
    ~FakeCamera() override;

    // What it is like; set before it is opened.
    unsigned capabilities = V4L2_CAP_VIDEO_CAPTURE | V4L2_CAP_STREAMING;
    std::vector<unsigned> forms = {V4L2_PIX_FMT_GREY}; // the first is its usual one
    unsigned width = 160;
    unsigned height = 104;
    unsigned rowBytes = 0; // beyond what a row needs
    unsigned buffers = 4;
    unsigned bufferBytes = 0;        // 0: as many as a picture needs
    std::set<unsigned long> refused; // requests that fail with EINVAL
    bool openFails = false;
    bool mapFails = false;

    /* Exposes a picture: bytes in its form. Left out when all memory is waiting to be fetched. */
    void expose(const std::vector<std::uint8_t>& bytes, unsigned flags = 0);
    /* The next fetching of a picture fails with that error, once or from then on. */
    void failNext(int error);
    void unplug();

    unsigned form() const { return m_form; }
    unsigned rowLength() const;
    bool isClosed() const; // and gave all memory back

    int open(const char* path) override;
    int close(int fd) override;
    int control(int fd, unsigned long request, void* argument) override;
    void* map(std::size_t length, int fd, unsigned long offset) override;
    void unmap(void* start, std::size_t length) override;

private:
    struct Done
    {
        int error = 0;
        unsigned index = 0;
        unsigned bytes = 0;
        unsigned flags = 0;
    };

    int answer(unsigned long request, void* argument);
    void setForm(v4l2_format& format);
    int fetch(v4l2_buffer& buffer);
    void tell(const Done& done);

    mutable std::mutex m_mutex;
    int m_ready = -1; // one count for each that can be fetched
    unsigned m_form = 0;
    std::vector<std::vector<std::uint8_t>> m_memory;
    std::deque<unsigned> m_empty; // given to us to fill
    std::deque<Done> m_done;
    bool m_isUnplugged = false;
    bool m_isOpen = false;
    int m_mapped = 0;
    long m_timeUs = 1'000'000;
};

#endif
