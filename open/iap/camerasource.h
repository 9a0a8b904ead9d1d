#ifndef CAMERASOURCE_H
#define CAMERASOURCE_H

#include "open/iap/cameraoptions.h"
#include "open/iap/camerawindow.h"
#include "open/iap/devicecalls.h"
#include "open/iap/framesource.h"
#include "open/iap/tipswitch.h"
#include "open/iap/wakesignal.h"

#include <array>
#include <atomic>
#include <thread>

#include <poll.h>

/*
 * A camera and a tip switch that the environment names (docs/porting.md tells how): a device of the
 * kernel's or a pipe with a video, each with a switch, or a video file, which is played once with
 * the tip down all the time or at the times of a file beside it. What is wrong is told in one line
 * on the standard error output.
 */
class CameraSource : public FrameSource
{
public:
    /* `calls` drive the camera and outlive the source. */
    explicit CameraSource(DeviceCalls& calls) : m_calls(calls) {}
    ~CameraSource() override;
    CameraSource(const CameraSource&) = delete;
    CameraSource& operator=(const CameraSource&) = delete;

    bool start(FrameListener& listener) override;
    void stop() override;
    bool isAlive() const override { return m_isAlive; }
    void report(const SwipeReport&) override {}

private:
    std::string open();
    std::string openTip(bool isFile);
    void run(FrameListener& listener);
    bool takePictures(FrameListener& listener, const pollfd& polled);
    void show(FrameListener& listener, const CameraPicture& picture);
    std::string makeWindow(const CameraPicture& picture);
    void setTip(FrameListener& listener, bool isDown);
    void lose(FrameListener& listener, const std::string& why);

    DeviceCalls& m_calls;
    CameraOptions m_options;
    std::unique_ptr<PictureStream> m_stream;
    TipSwitch m_tip;
    TipTimes m_times; // of a file, in place of the switch
    bool m_isFile = false;
    std::optional<WakeSignal> m_wake;
    std::atomic<bool> m_isAlive = false;
    std::thread m_thread;
    std::optional<CameraWindow> m_window; // once the pictures' size is known
    // of the thread
    bool m_isDown = false;
    bool m_isOver = false; // no more pictures
    std::string m_trouble; // with a picture
};

#endif
