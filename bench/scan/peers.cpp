#include "bench/scan/peers.h"

#include "open/iap/inkmap.h"
#include "open/iap/linecutter.h"
#include "open/iap/panorama.h"

#include <opencv2/imgproc.hpp>
#ifdef SWIPELINE_HAS_STITCHING
#include <opencv2/stitching.hpp>
#endif

namespace {

/* Frames as the engine sees them: upright. */
cv::Mat greyOf(const Frame& frame, bool leftHand)
{
    cv::Mat grey(frame.height, frame.width, CV_8U, const_cast<std::uint8_t*>(frame.pixels.data()));
    if (leftHand)
        cv::rotate(grey, grey, cv::ROTATE_180);
    return leftHand ? grey : grey.clone();
}

void cutInto(LineResult& result, const LineStrip& strip, const SwipeCase& swiped, bool han)
{
    const cv::Mat line = cutLine(strip, {swiped.swipe.camera.dpi, han, swiped.print.vertical});
    result.picture.width = line.cols;
    result.picture.height = line.rows;
    if (!line.empty())
        result.picture.pixels.assign(line.datastart, line.dataend);
}

} // namespace

LineResult phaseCorrelationResult(const SwipeCase& swiped, bool han,
                                  const std::vector<Frame>& frames)
{
    LineResult result;
    const double start = cpuSeconds();
    cv::Mat window;
    cv::Mat before;
    cv::Point2d place;
    LineStrip strip;
    std::optional<Panorama> panorama;
    for (const Frame& frame : frames) {
        const cv::Mat ink = inkMap(greyOf(frame, swiped.swipe.camera.mount.leftHand));
        cv::Mat now;
        ink.convertTo(now, CV_32F);
        if (!panorama) {
            cv::createHanningWindow(window, now.size(), CV_32F);
            panorama.emplace(ink.size());
        } else {
            place -= cv::phaseCorrelate(before, now, window);
        }
        panorama->add(ink, {place.x, place.y, 0.0});
        strip.path.push_back(place);
        before = now;
    }
    const double fed = cpuSeconds();
    const cv::Rect area = panorama->bounds();
    strip.ink = panorama->picture(area, &strip.seen);
    for (cv::Point2d& point : strip.path)
        point -= cv::Point2d(area.tl());
    cutInto(result, strip, swiped, han);
    result.picture.framesFed = int(frames.size());
    result.feedSeconds = fed - start;
    result.finishSeconds = cpuSeconds() - fed;
    return result;
}

#ifdef SWIPELINE_HAS_STITCHING

bool hasScansStitcher()
{
    return true;
}

LineResult scansStitcherResult(const SwipeCase& swiped, bool han, const std::vector<Frame>& frames)
{
    constexpr double wantedStepMm = 4.5;
    const double stepMm = swiped.swipe.hand.speedMmPerS / swiped.swipe.camera.framesPerSecond;
    const auto step = std::max<std::size_t>(1, std::size_t(wantedStepMm / stepMm));
    std::vector<cv::Mat> pictures;
    for (std::size_t i = 0; i < frames.size(); i += step) {
        cv::Mat colour;
        cv::cvtColor(greyOf(frames[i], swiped.swipe.camera.mount.leftHand), colour,
                     cv::COLOR_GRAY2BGR);
        pictures.push_back(colour);
    }
    LineResult result;
    const double start = cpuSeconds();
    cv::Mat joined;
    const auto stitcher = cv::Stitcher::create(cv::Stitcher::SCANS);
    cv::Stitcher::Status status = cv::Stitcher::ERR_NEED_MORE_IMGS;
    try {
        status = stitcher->stitch(pictures, joined);
    } catch (const cv::Exception&) {
        joined.release();
    }
    if (status == cv::Stitcher::OK && !joined.empty()) {
        cv::Mat grey;
        cv::cvtColor(joined, grey, cv::COLOR_BGR2GRAY);
        LineStrip strip;
        strip.seen = grey > 0;
        grey.setTo(255, grey == 0);
        strip.ink = inkMap(grey);
        strip.path = {{0.0, grey.rows / 2.0}, {double(grey.cols), grey.rows / 2.0}};
        cutInto(result, strip, swiped, han);
    }
    result.picture.framesFed = int(frames.size());
    result.finishSeconds = cpuSeconds() - start;
    return result;
}

#else

bool hasScansStitcher()
{
    return false;
}

LineResult scansStitcherResult(const SwipeCase&, bool, const std::vector<Frame>&)
{
    return {};
}

#endif
