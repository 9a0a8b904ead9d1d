#include "bench/stitchspeed.h"

#include "bench/handmodel/swipe.h"
#include "open/iap/inkmap.h"
#include "open/iap/stitcher.h"

#include <QTextStream>

#include <opencv2/imgproc.hpp>

#include <ctime>

namespace {

constexpr int Rounds = 5;

double cpuSeconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/* The peer: the window function once, then one transform pair a frame. */
double phaseCorrelationSeconds(const std::vector<Frame>& frames)
{
    cv::Mat window;
    cv::Mat before;
    const double start = cpuSeconds();
    for (const Frame& frame : frames) {
        const cv::Mat grey(frame.height, frame.width, CV_8U,
                           const_cast<std::uint8_t*>(frame.pixels.data()));
        cv::Mat now;
        inkMap(grey).convertTo(now, CV_32F);
        if (window.empty())
            cv::createHanningWindow(window, now.size(), CV_32F);
        if (!before.empty())
            cv::phaseCorrelate(before, now, window);
        before = now;
    }
    return cpuSeconds() - start;
}

} // namespace

void printStitchSpeed(QTextStream& out)
{
    const QStringList lines(3, QStringLiteral("Every page of the atlas smelled of warm paper."));
    const std::vector<Frame> frames = swipeFrames(PrintSheet(lines, {}), 1, {});
    double feeding = 0.0;
    double finishing = 0.0;
    double peer = 0.0;
    for (int round = 0; round < Rounds; ++round) {
        Stitcher stitcher({});
        const double start = cpuSeconds();
        for (const Frame& frame : frames)
            stitcher.feed(frame);
        const double fed = cpuSeconds();
        stitcher.finish();
        finishing += cpuSeconds() - fed;
        feeding += fed - start;
        peer += phaseCorrelationSeconds(frames);
    }
    const double count = double(frames.size()) * Rounds;
    out << "\nstitching, one core\n"
        << QString(70, '-') << '\n'
        << "frames of the swipe            " << frames.size() << '\n'
        << "frames a second                " << qRound(count / feeding) << '\n'
        << "CPU a frame                    " << 1000.0 * feeding / count << " ms\n"
        << "after the lift                 " << 1000.0 * finishing / Rounds << " ms\n"
        << "phase correlation, a frame     " << 1000.0 * peer / count << " ms\n"
        << "ratio to phase correlation     " << feeding / peer << Qt::endl;
}
