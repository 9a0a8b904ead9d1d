#include "desk/camera/handpath.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace {

constexpr double NodeSeconds = 0.004;
constexpr double StartSeconds = 0.08; // from rest to full speed
constexpr double BrakeMm = 4.0;       // way in which the hand slows down at the end
constexpr double SwayMm = 60.0;       // way in which the hand sways to and fro
constexpr double TurnMm = 45.0;       // and turns to and fro

/* A slow irregular sway between about -1 and 1. */
class Sway
{
public:
    Sway(std::mt19937& random, double period)
    {
        std::uniform_real_distribution<double> phase(0.0, 2.0 * std::numbers::pi);
        std::uniform_real_distribution<double> stretch(0.8, 1.25);
        for (std::size_t i = 0; i < m_waves.size(); ++i)
            m_waves[i] = {2.0 * std::numbers::pi / (period * stretch(random) / double(i + 1)),
                          phase(random), 0.6 / double(i + 1)};
    }

    double at(double x) const
    {
        double sum = 0.0;
        for (const Wave& wave : m_waves)
            sum += wave.part * std::sin(wave.rate * x + wave.phase);
        return sum;
    }

private:
    struct Wave
    {
        double rate;
        double phase;
        double part;
    };
    std::array<Wave, 3> m_waves = {};
};

} // namespace

/* How a hand leaves its way after so many millimetres of it. */
class HandPath::Tremor
{
public:
    explicit Tremor(const HandSettings& settings) : Tremor(settings, std::mt19937(settings.seed)) {}

    void shake(PenPose& pose, double goneMm) const
    {
        pose.mm += m_mm * QPointF(m_swayX.at(goneMm), m_swayY.at(goneMm));
        pose.angleDeg += m_deg * m_turn.at(goneMm);
    }

private:
    Tremor(const HandSettings& settings, std::mt19937 random)
        : m_mm(settings.wobbleMm),
          m_deg(settings.wobbleDeg),
          m_swayX(random, SwayMm),
          m_swayY(random, SwayMm),
          m_turn(random, TurnMm)
    {
    }

    double m_mm;
    double m_deg;
    // Where a hand that is still moving goes is not known: it sways in every direction.
    Sway m_swayX;
    Sway m_swayY;
    Sway m_turn;
};

HandPath HandPath::sampled(QPointF startMm, QPointF endMm, const HandSettings& settings)
{
    std::mt19937 random(settings.seed);
    const Sway speedSway(random, 0.7);
    const Sway sideSway(random, SwayMm);
    const Sway angleSway(random, TurnMm);

    const QPointF way = endMm - startMm;
    const double length = std::hypot(way.x(), way.y());
    const QPointF along = length > 0.0 ? way / length : QPointF(1.0, 0.0);
    const QPointF aside(-along.y(), along.x());
    const double stopMm = settings.stopAt >= 0.0 ? settings.stopAt * length : -1.0;
    double restLeft = stopMm >= 0.0 ? settings.stopSeconds : 0.0;
    const double cruise = std::max(1.0, settings.speedMmPerS);

    HandPath path;
    double seconds = 0.0;
    double gone = 0.0;
    while (true) {
        path.m_points.push_back(
            {seconds, startMm + along * gone + aside * (settings.wobbleMm * sideSway.at(gone)),
             settings.wobbleDeg * angleSway.at(gone), gone});
        if (gone >= length)
            return path;
        seconds += NodeSeconds;
        if (restLeft > 0.0 && gone >= stopMm) {
            restLeft -= NodeSeconds;
            continue;
        }
        double speed = cruise * (1.0 + settings.speedVariation * speedSway.at(seconds));
        speed *= std::min(1.0, 0.2 + seconds / StartSeconds);
        speed *= std::min(1.0, 0.25 + (length - gone) / BrakeMm);
        gone = std::min(length, gone + std::max(speed, 1.0) * NodeSeconds);
    }
}

HandPath HandPath::through(const std::vector<PathPoint>& points)
{
    HandPath path;
    double gone = 0.0;
    for (const PathPoint& point : points) {
        const double seconds = point.seconds - points.front().seconds;
        if (!path.m_points.empty()) {
            if (seconds <= path.m_points.back().seconds)
                continue;
            const QPointF step = point.mm - path.m_points.back().mm;
            gone += std::hypot(step.x(), step.y());
        }
        path.m_points.push_back({seconds, point.mm, 0.0, gone});
    }
    return path;
}

HandPath HandPath::through(const std::vector<PathPoint>& points, const HandSettings& settings)
{
    HandPath path = through(points);
    path.m_tremor = std::make_shared<const Tremor>(settings);
    return path;
}

double HandPath::duration() const
{
    return m_points.empty() ? 0.0 : m_points.back().seconds;
}

PenPose HandPath::poseAt(double seconds) const
{
    if (m_points.empty())
        return {};
    double goneMm = 0.0;
    PenPose pose = steadyPoseAt(seconds, goneMm);
    if (m_tremor)
        m_tremor->shake(pose, goneMm);
    return pose;
}

PenPose HandPath::steadyPoseAt(double seconds, double& goneMm) const
{
    if (m_points.size() == 1 || seconds <= 0.0)
        return {m_points.front().mm, m_points.front().angleDeg, {}};
    if (seconds >= duration()) {
        goneMm = m_points.back().goneMm;
        return {m_points.back().mm, m_points.back().angleDeg, {}};
    }

    const auto next = std::upper_bound(m_points.begin(), m_points.end(), seconds,
                                       [](double s, const Node& n) { return s < n.seconds; });
    const auto index = static_cast<std::size_t>(next - m_points.begin());
    const Node& b = m_points[index];
    const Node& a = m_points[index - 1];
    const double span = b.seconds - a.seconds;
    const double t = (seconds - a.seconds) / span;

    // Cubic curve whose slope at a point is that of its two neighbours.
    const auto slope = [this](std::size_t i) {
        const Node& before = m_points[i == 0 ? 0 : i - 1];
        const Node& after = m_points[std::min(i + 1, m_points.size() - 1)];
        return (after.mm - before.mm) / (after.seconds - before.seconds);
    };
    const QPointF slopeA = slope(index - 1) * span;
    const QPointF slopeB = slope(index) * span;
    const double t2 = t * t;
    const double t3 = t2 * t;
    const QPointF mm = a.mm * (2 * t3 - 3 * t2 + 1) + slopeA * (t3 - 2 * t2 + t)
                       + b.mm * (-2 * t3 + 3 * t2) + slopeB * (t3 - t2);
    const QPointF change = a.mm * (6 * t2 - 6 * t) + slopeA * (3 * t2 - 4 * t + 1)
                           + b.mm * (-6 * t2 + 6 * t) + slopeB * (3 * t2 - 2 * t);
    goneMm = a.goneMm + (b.goneMm - a.goneMm) * t;
    return {mm, a.angleDeg + (b.angleDeg - a.angleDeg) * t, change / span};
}
