#include "open/iap/stitcher.h"

#include "open/iap/inkmap.h"
#include "open/iap/linecutter.h"

#include <cmath>

namespace {

constexpr double PathStep = 4.0; // pixels
constexpr double MostLost = 0.2; // part of the frames with print

SwipePicture failed(SwipePicture::Failure failure, std::string reason)
{
    SwipePicture picture;
    picture.failure = failure;
    picture.reason = std::move(reason);
    return picture;
}

std::string told(const MotionTracker::Counts& counts)
{
    return std::to_string(counts.tracked) + " frames tracked, " + std::to_string(counts.lost)
           + " lost, " + std::to_string(counts.blank) + " blank, " + std::to_string(counts.jumps)
           + " jumps";
}

} // namespace

Stitcher::Stitcher(const ScanSettings& settings) : m_settings(settings) {}

bool Stitcher::fitsIn(const Frame& frame) const
{
    return isValidFrame(frame)
           && (m_dpi == 0 || (frame.dpi == m_dpi && m_size == cv::Size(frame.width, frame.height)));
}

void Stitcher::remember(const Shift& place)
{
    if (m_path.empty()
        || std::hypot(place.x - m_path.back().x, place.y - m_path.back().y) >= PathStep)
        m_path.emplace_back(place.x, place.y);
}

void Stitcher::feed(const Frame& frame)
{
    ++m_fed;
    if (!fitsIn(frame)) {
        ++m_oddFrames;
        return;
    }
    if (m_full)
        return;
    if (m_dpi == 0) {
        m_dpi = frame.dpi;
        m_size = cv::Size(frame.width, frame.height);
        m_panorama.emplace(m_size);
    }
    cv::Mat grey(frame.height, frame.width, CV_8U, const_cast<std::uint8_t*>(frame.pixels.data()));
    if (m_settings.leftHand) {
        cv::Mat upright;
        cv::rotate(grey, upright, cv::ROTATE_180);
        grey = upright;
    }
    if (m_tone)
        place(grey, frame.timeUs);
    else
        look(grey, frame.timeUs);
}

void Stitcher::look(const cv::Mat& grey, std::int64_t timeUs)
{
    if (!m_toneFinder.look(grey)) {
        ++m_blankBefore;
        return;
    }
    m_waiting.push_back({grey.clone(), timeUs});
    if (m_toneFinder.isCertain())
        settleTone();
}

void Stitcher::settleTone()
{
    m_tone = m_toneFinder.tone();
    for (const Waiting& frame : m_waiting)
        place(frame.grey, frame.timeUs);
    m_waiting.clear();
}

void Stitcher::place(const cv::Mat& grey, std::int64_t timeUs)
{
    const cv::Mat ink = tonedInk(grey, *m_tone);
    const std::optional<Shift> place = m_tracker.track(ink, timeUs);
    if (!place)
        return;
    m_full = !m_panorama->add(ink, *place);
    remember(*place);
}

SwipePicture Stitcher::finish()
{
    if (!m_tone)
        settleTone();
    MotionTracker::Counts counts = m_tracker.counts();
    counts.blank += m_blankBefore;
    SwipePicture picture;
    if (counts.tracked == 0) {
        picture =
            failed(SwipePicture::Failure::NoPrint, "no print under the pen (" + told(counts) + ")");
    } else if (counts.lost > MostLost * (counts.tracked + counts.lost)
               || counts.jumps > 0) { // something of the line is missing
        picture = failed(SwipePicture::Failure::BadMotion,
                         "the frames do not join (" + told(counts) + ")");
    } else {
        LineStrip strip;
        const cv::Rect area = m_panorama->bounds();
        strip.ink = m_panorama->picture(area, &strip.seen);
        for (const cv::Point2d& point : m_path)
            strip.path.emplace_back(point.x - area.x, point.y - area.y);
        const cv::Mat line = cutLine(strip, {m_dpi, m_settings.han, m_settings.vertical});
        if (line.empty()) {
            picture = failed(SwipePicture::Failure::NoPrint, "no line of print on the pen's way");
        } else {
            picture.width = line.cols;
            picture.height = line.rows;
            picture.pixels.assign(line.datastart, line.dataend);
            picture.reason = told(counts);
        }
    }
    picture.framesFed = m_fed;
    picture.framesUsed = counts.tracked;
    if (m_full)
        picture.reason += ", the rest is left out: longer than any line";
    if (m_oddFrames > 0)
        picture.reason += ", " + std::to_string(m_oddFrames) + " unfit frames left out";
    return picture;
}
