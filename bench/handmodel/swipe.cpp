#include "bench/handmodel/swipe.h"

#include <algorithm>
#include <utility>

Frame frameOf(const QImage& picture, std::int64_t timeUs, int dpi)
{
    Frame frame;
    frame.timeUs = timeUs;
    frame.width = picture.width();
    frame.height = picture.height();
    frame.dpi = dpi;
    for (int y = 0; y < picture.height(); ++y)
        frame.pixels.insert(frame.pixels.end(), picture.constScanLine(y),
                            picture.constScanLine(y) + picture.width());
    return frame;
}

std::vector<Frame> swipeFrames(const PrintSheet& page, int line, const Swipe& swipe)
{
    const QRectF ink = page.lines().at(static_cast<std::size_t>(line)).inkMm;
    QPointF start;
    QPointF end;
    if (swipe.camera.mount.vertical) {
        const double x = ink.center().x() + swipe.aimMm;
        start = {x, ink.top() - swipe.beyondMm};
        end = {x + swipe.driftMm, ink.bottom() + swipe.beyondMm};
    } else {
        const double y = ink.center().y() + swipe.aimMm;
        start = {ink.left() - swipe.beyondMm, y};
        end = {ink.right() + swipe.beyondMm, y + swipe.driftMm};
    }
    if (swipe.backwards)
        std::swap(start, end);

    const PenCamera camera(page.picture(), page.dpi(), swipe.camera);
    const HandPath path = HandPath::sampled(start, end, swipe.hand);
    std::vector<Frame> frames;
    std::uint32_t index = 0;
    for (double t = 0.0; t < path.duration(); t = index / swipe.camera.framesPerSecond) {
        frames.push_back(frameOf(camera.frameAt(path.poseAt(t), index),
                                 static_cast<std::int64_t>(t * 1e6), swipe.camera.dpi));
        ++index;
    }
    return frames;
}
