#ifndef HANDPATH_H
#define HANDPATH_H

#include "desk/camera/pencamera.h"

#include <cstdint>
#include <memory>
#include <vector>

/* How a hand moves the pen. */
struct HandSettings
{
    double speedMmPerS = 150.0;
    double speedVariation = 0.15; // the speed sways by this part of itself
    double wobbleMm = 0.15;       // the pen leaves the straight line by about this much
    double wobbleDeg = 0.6;       // and turns by about this much
    double stopAt = -1.0; // the hand rests at this part of the way (0 to 1); negative: never
    double stopSeconds = 0.3;
    std::uint32_t seed = 1;
};

/* One point of a path that was recorded, for instance with a mouse. */
struct PathPoint
{
    double seconds; // growing along the path
    QPointF mm;     // on the page
};

/*
 * The way of the pen over the page during one swipe, from time 0 to duration().
 */
class HandPath
{
public:
    /* A hand that swipes from `startMm` to `endMm`: it gains speed, wobbles as the settings say,
     * and slows down. The same settings give the same path. */
    static HandPath sampled(QPointF startMm, QPointF endMm, const HandSettings& settings);

    /* The path through recorded points, interpolated smoothly. Points that do not grow in time
     * are left out. Without any point the path is empty. */
    static HandPath through(const std::vector<PathPoint>& points);

    /* The same with the wobble of the settings: the hand sways about the recorded way and turns the
     * pen. Where it is after a while does not depend on what comes later. */
    static HandPath through(const std::vector<PathPoint>& points, const HandSettings& settings);

    bool isEmpty() const { return m_points.empty(); }
    double duration() const; // seconds

    /* The pose at a time; before the start and after the end the pen rests. */
    PenPose poseAt(double seconds) const;

private:
    class Tremor;
    struct Node
    {
        double seconds;
        QPointF mm;
        double angleDeg;
        double goneMm; // way until here
    };

    PenPose steadyPoseAt(double seconds, double& goneMm) const;

    std::vector<Node> m_points;
    std::shared_ptr<const Tremor> m_tremor; // on top of them
};

#endif
