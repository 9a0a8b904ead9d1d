#ifndef V4L2STREAM_H
#define V4L2STREAM_H

#include "open/iap/cameraoptions.h"
#include "open/iap/camerapicture.h"
#include "open/iap/devicecalls.h"

#include <array>
#include <span>
#include <vector>

struct v4l2_buffer;
struct v4l2_format;

/* A camera of the kernel's (Video4Linux), in memory that it shares with us: pictures of brightness
 * alone (GREY), or with colours beside it that are left out (YUYV, UYVY, NV12, YU12). */
class V4l2Stream : public PictureStream
{
public:
    /* `options` say which device, and what size and rate it is asked for. */
    V4l2Stream(const CameraOptions& options, DeviceCalls& calls)
        : m_options(options), m_calls(calls)
    {
    }
    ~V4l2Stream() override { closeDevice(); }

    std::string open() override;
    void close() override { closeDevice(); }
    int pollFd() const override { return m_fd; }
    Taken take(const User& use) override;
    std::string reason() const override { return m_reason; }
    CameraPicture shape() const override { return m_shape; }

private:
    struct Buffer
    {
        void* start = nullptr;
        std::size_t length = 0;
    };

    std::string openDevice();
    std::string choosePictures();
    bool offers(unsigned pixelFormat, v4l2_format& format);
    std::string adopt(const v4l2_format& format);
    void chooseRate();
    std::string shareBuffers(unsigned count);
    std::string failed(const std::string& what) const;
    void closeDevice();
    void hand(const v4l2_buffer& buffer, const User& use);
    bool queue(unsigned index);
    Taken gone(const std::string& reason);

    CameraOptions m_options;
    DeviceCalls& m_calls;
    int m_fd = -1;
    bool m_isStreaming = false;
    CameraPicture m_shape;       // what all pictures share
    std::size_t m_usedBytes = 0; // of a whole picture; colours of their own come behind them
    std::vector<Buffer> m_buffers;
    int m_badInARow = 0;
    std::string m_reason;
};

#endif
