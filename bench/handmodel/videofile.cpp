#include "bench/handmodel/videofile.h"

#include <algorithm>
#include <cmath>

QByteArray videoOf(const std::vector<Frame>& frames, int framesPerSecond)
{
    if (frames.empty())
        return {};
    const Frame& first = frames.front();
    QByteArray video = "YUV4MPEG2 W" + QByteArray::number(first.width) + " H"
                       + QByteArray::number(first.height) + " F"
                       + QByteArray::number(framesPerSecond)
                       + ":1 Ip A1:1 Cmono XDPI=" + QByteArray::number(first.dpi) + '\n';
    for (const Frame& frame : frames) {
        video += "FRAME\n";
        video.append(reinterpret_cast<const char*>(frame.pixels.data()),
                     qsizetype(frame.pixels.size()));
    }
    return video;
}

int frameRate(const std::vector<Frame>& frames)
{
    if (frames.size() < 2)
        return 1;
    const double us = double(frames.back().timeUs - frames.front().timeUs);
    return std::max(1, int(std::lround(double(frames.size() - 1) * 1e6 / std::max(1.0, us))));
}
