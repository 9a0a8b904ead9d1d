#include "open/iap/motiontracker.h"

#include <algorithm>
#include <cmath>

namespace {

// Of frames of the same place 19 in 20 score more than 0.8, of frames of other print less than
// 0.76.
constexpr double GoodScore = 0.6;    // near the expected place
constexpr double SureScore = 0.77;   // anywhere
constexpr double BestScore = 0.9;    // even if the hand can hardly be there
constexpr double NearExpected = 0.1; // of the frame's width
constexpr double KeyPart = 0.45;   // of the frame's width: farther from its key a frame becomes one
constexpr double ReachPart = 0.75; // farther than this no overlap can be trusted
constexpr double BlankPart = 0.9;  // of the frame's width: a blank that leaves nothing in view
constexpr double CrossedPart = 0.4;
constexpr double MostUnseen = 2.5;  // frame widths: a hand that shows no print may also rest
constexpr double MostJerk = 2.2e-9; // frame widths a square microsecond: 30 m/s^2
constexpr double SpeedShare = 0.6;  // of the newest measurement in the speed

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
    const double wayX = m_place.x + m_speedX * elapsed - m_tracked.x;
    const double wayY = m_place.y + m_speedY * elapsed - m_tracked.y;
    // A pen that rests on blank paper looks like one that moves on: the way is not believed for
    // long.
    const double most = m_key->frame->size().width * MostUnseen;
    const double part = most / std::max(most, std::hypot(wayX, wayY));
    return {m_tracked.x + part * wayX, m_tracked.y + part * wayY, m_place.angle};
}

std::optional<Shift> MotionTracker::placeAgainst(const Placed& known, const FramePyramid& frame,
                                                 const Shift& expected, std::int64_t timeUs) const
{
    const Shift wanted = relativeTo(known.place, expected);
    const Registration found = registerFrame(*known.frame, frame, wanted);
    const bool isNear = std::hypot(found.shift.x - wanted.x, found.shift.y - wanted.y)
                        < NearExpected * frame.size().width;
    const Shift place = composed(known.place, found.shift);
    const double least = isNear ? GoodScore : isWithinReach(place, timeUs) ? SureScore : BestScore;
    if (found.score < least)
        return std::nullopt;
    return place;
}

/* Whether a hand can be there by now: it does not jerk without limit. */
bool MotionTracker::isWithinReach(const Shift& place, std::int64_t timeUs) const
{
    const auto elapsed = static_cast<double>(timeUs - m_trackedUs);
    if (m_counts.tracked < 3 || elapsed <= 0.0)
        return true;
    const double changeX = (place.x - m_tracked.x) / elapsed - m_speedX;
    const double changeY = (place.y - m_tracked.y) / elapsed - m_speedY;
    return std::hypot(changeX, changeY) < MostJerk * m_key->frame->size().width * elapsed;
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
    m_lostSince = 0;
    m_blankSince = 0;
    ++m_counts.tracked;
}

bool MotionTracker::isOutOfView(const Shift& place) const
{
    const Shift fromKey = relativeTo(m_key->place, place);
    const cv::Size size = m_key->frame->size();
    return std::abs(fromKey.x) > size.width * ReachPart
           || std::abs(fromKey.y) > size.height * ReachPart;
}

/* Whether the pen may have come over a blank wider than a frame: it saw no print for a while, and
 * moved on. Its speed may have changed meanwhile. */
bool MotionTracker::hasCrossedBlank(const Shift& expected) const
{
    return m_blankSince > 0
           && std::abs(expected.x - m_tracked.x) > m_key->frame->size().width * CrossedPart;
}

/* The place moved on along the pen's way until nothing that is known is in view. Over a blank the
 * hand keeps to the direction of the whole swipe; that of its last moment is half tremble. */
Shift MotionTracker::beyondView(Shift place) const
{
    const double way = place.x - m_tracked.x;
    const double least = m_key->frame->size().width * BlankPart;
    if (std::abs(way) < least)
        place.x = m_tracked.x + std::copysign(least, m_speedX);
    if (std::abs(m_tracked.x) > least)
        place.y = m_tracked.y + (place.x - m_tracked.x) * m_tracked.y / m_tracked.x;
    return place;
}

// Nothing that is known is in view any more: the pen goes on from where it should be.
Shift MotionTracker::leapTo(const Shift& expected, std::int64_t timeUs)
{
    m_counts.jumps += m_lostSince > m_blankSince || m_blankSince == 0 ? 1 : 0;
    m_place = m_tracked = m_blankSince > 0 ? beyondView(expected) : expected;
    m_timeUs = m_trackedUs = timeUs;
    m_lostSince = 0;
    m_blankSince = 0;
    return m_place;
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
        ++m_blankSince;
        m_place = expected;
        m_timeUs = timeUs;
        return std::nullopt;
    }
    std::optional<Shift> place = placeAgainst(*m_key, *frame, expected, timeUs);
    if (!place && m_latest->frame != m_key->frame)
        place = placeAgainst(*m_latest, *frame, expected, timeUs);
    if (place) {
        accept(*place, timeUs);
    } else if (hasCrossedBlank(expected) || isOutOfView(expected)) {
        place = leapTo(expected, timeUs);
    } else {
        ++m_counts.lost;
        ++m_lostSince;
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
