#ifndef FRAMESOURCE_H
#define FRAMESOURCE_H

#include "open/iap/frame.h"
#include "open/iap/swipereport.h"

#include <cstdint>
#include <memory>

/* Who is told what the camera and the tip do. All calls of a source come from one thread of the
 * source's own, between FrameSource::start() and the return of stop(). */
class FrameListener
{
public:
    virtual ~FrameListener() = default;
    virtual void tipDown() = 0;
    virtual void frame(Frame frame) = 0; // also while the tip is up: a camera is always running
    virtual void tipUp() = 0;
    virtual void sourceLost() = 0; // the last call: the camera has gone
    /* For a source that can wait, before a frame: returns as soon as there is room for one, or the
     * source is to stop. Frames for which there is no room are left out. */
    virtual void awaitRoom() {}
};

/* Where camera frames come from. */
class FrameSource
{
public:
    virtual ~FrameSource() = default;

    /* Switches the camera on; calls of the listener begin. False when there is no camera. */
    virtual bool start(FrameListener& listener) = 0;
    /* Switches it off; after the return no call of the listener runs. Not to be called from a call
     * of the listener. */
    virtual void stop() = 0;
    /* False when the camera has gone since start(). Any thread. */
    virtual bool isAlive() const = 0;
    /* Tells who watches the pen what became of a swipe. Any thread between start() and stop(). */
    virtual void report(const SwipeReport& report) = 0;
};

/* The source that the environment names: a folder of pictures (SWIPELINE_FRAMES), a camera
 * (SWIPELINE_CAMERA), else the desk. */
std::unique_ptr<FrameSource> makeFrameSource();

#endif
