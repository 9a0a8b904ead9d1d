#include "open/iap/motiontracker.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double GoodScore = 0.6;
constexpr double KeyPart = 0.45;   // of the frame's width: farther from its key a frame becomes one
constexpr double ReachPart = 0.75; // farther than this no overlap can be trusted
constexpr double SpeedShare = 0.6; // of the newest measurement in the speed

/* The place `place` as seen from `base`, which is how composed() is undone. */
Shift relativeTo(const Shift& base, const Shift& place)
{
    const double c = std::cos(base.angle);
    const double s = std::sin(base.angle);
    const double dx = place.x - base.x;
    const double dy = place.y - base.y;
    return {c * dx + s * dy, -s * dx + c * dy, place.angle - base.angle};
}

} // namespace

Shift MotionTracker::predicted(std::int64_t timeUs) const
{
    const auto elapsed = static_cast<double>(std::max<std::int64_t>(0, timeUs - m_timeUs));
    return {m_place.x + m_speedX * elapsed, m_place.y + m_speedY * elapsed, m_place.angle};
}

std::optional<Shift> MotionTracker::placeAgainst(const Placed& known, const FramePyramid& frame,
                                                 const Shift& expected) const
{
    const Registration found =
        registerFrame(*known.frame, frame, relativeTo(known.place, expected));
    if (found.score < GoodScore)
        return std::nullopt;
    return composed(known.place, found.shift);
}

void MotionTracker::accept(const Shift& place, std::int64_t timeUs)
{
    const auto elapsed = static_cast<double>(timeUs - m_trackedUs);
    if (m_counts.tracked > 0 && elapsed > 0.0) {
        const double share = m_counts.tracked == 1 ? 1.0 : SpeedShare;
        m_speedX += share * ((place.x - m_tracked.x) / elapsed - m_speedX);
        m_speedY += share * ((place.y - m_tracked.y) / elapsed - m_speedY);
    }
    m_tracked = place;
    m_trackedUs = timeUs;
    m_place = place;
    m_timeUs = timeUs;
    m_lostSince = false;
    ++m_counts.tracked;
}

bool MotionTracker::isOutOfView(const Shift& place) const
{
    const Shift fromKey = relativeTo(m_key->place, place);
    const cv::Size size = m_key->frame->size();
    return std::abs(fromKey.x) > size.width * ReachPart
           || std::abs(fromKey.y) > size.height * ReachPart;
}

std::optional<Shift> MotionTracker::track(const cv::Mat& ink, std::int64_t timeUs)
{
    const auto frame = std::make_shared<const FramePyramid>(ink);
    if (!m_key) {
        if (!frame->hasPrint()) {
            ++m_counts.blank;
            return std::nullopt;
        }
        m_key = m_latest = Placed{frame, {}};
        accept({}, timeUs);
        return Shift();
    }

    const Shift expected = predicted(timeUs);
    if (!frame->hasPrint()) {
        ++m_counts.blank;
        m_place = expected;
        m_timeUs = timeUs;
        return std::nullopt;
    }
    std::optional<Shift> place = placeAgainst(*m_key, *frame, expected);
    if (!place && m_latest->frame != m_key->frame)
        place = placeAgainst(*m_latest, *frame, expected);
    if (place) {
        accept(*place, timeUs);
    } else if (isOutOfView(expected)) {
        // Nothing that is known can be in view any more: go on from where the pen should be.
        m_counts.jumps += m_lostSince ? 1 : 0;
        place = expected;
        m_place = m_tracked = expected;
        m_timeUs = m_trackedUs = timeUs;
        m_lostSince = false;
    } else {
        ++m_counts.lost;
        m_lostSince = true;
        m_place = expected;
        m_timeUs = timeUs;
        return std::nullopt;
    }
    m_latest = Placed{frame, *place};
    const Shift fromKey = relativeTo(m_key->place, *place);
    if (std::abs(fromKey.x) > frame->size().width * KeyPart
        || std::abs(fromKey.y) > frame->size().height * KeyPart)
        m_key = m_latest;
    return place;
}
