#ifndef MOTIONTRACKER_H
#define MOTIONTRACKER_H

#include "open/iap/registration.h"

#include <cstdint>
#include <memory>
#include <optional>

/*
 * Follows the pen over the paper: tells for each frame where it lies in the plane of the first
 * frame with print. A frame is registered against a key frame, which is replaced only when little
 * of it is left in view, so that errors add up per key and not per frame.
 */
class MotionTracker
{
public:
    struct Counts
    {
        int tracked = 0; // frames with a place
        int blank = 0;   // frames without print
        int lost = 0;    // frames with print that fit nowhere
        int jumps = 0;   // places guessed from the speed, with print between that was not seen
    };

    /* The place of the frame whose ink map this is; nothing when it has no print or fits nowhere.
     * Times grow from frame to frame. */
    std::optional<Shift> track(const cv::Mat& ink, std::int64_t timeUs);

    const Counts& counts() const { return m_counts; }

private:
    struct Placed
    {
        std::shared_ptr<const FramePyramid> frame;
        Shift place;
    };

    /* Where the pen should be: moved on at its last speed since the last print was seen, but two
     * and a half frame widths at most. */
    Shift predicted(std::int64_t timeUs) const;
    std::optional<Shift> placeAgainst(const Placed& known, const FramePyramid& frame,
                                      const Shift& expected, std::int64_t timeUs) const;
    bool isWithinReach(const Shift& place, std::int64_t timeUs) const;
    void accept(const Shift& place, std::int64_t timeUs);
    bool isOutOfView(const Shift& place) const;
    bool hasCrossedBlank(const Shift& expected) const;
    Shift beyondView(Shift place) const;
    Shift leapTo(const Shift& expected, std::int64_t timeUs);

    std::optional<Placed> m_key;
    std::optional<Placed> m_latest;
    Shift m_place; // of the last frame, or where it should have been
    std::int64_t m_timeUs = 0;
    double m_speedX = 0.0; // pixels a microsecond
    double m_speedY = 0.0;
    std::int64_t m_trackedUs = 0; // when m_tracked was seen
    Shift m_tracked;
    int m_lostSince = 0;  // since the last tracked frame: frames with print that fit nowhere
    int m_blankSince = 0; // and frames without print
    Counts m_counts;
};

#endif
