#include "desk/handmodel.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double DegPerWobbleMm = 4.0; // a hand that sways by 0.15 mm turns by 0.6 degrees

constexpr auto Traits = std::to_array<HandModel::Trait>({
    {"speed", QT_TRANSLATE_NOOP("HandModel", "Speed"), QT_TRANSLATE_NOOP("HandModel", " mm/s"),
     QT_TRANSLATE_NOOP("HandModel", "How fast the desk swipes: double click, Return, scripts. "
                                    "A drag with the mouse has your own pace."),
     20.0, 800.0, 10.0, 0, &HandModel::speedMmPerS},
    {"wobble", QT_TRANSLATE_NOOP("HandModel", "Wobble"), QT_TRANSLATE_NOOP("HandModel", " mm"),
     QT_TRANSLATE_NOOP("HandModel", "How far the hand sways off its way, and turns the pen; "
                                    "in a drag with the mouse, too"),
     0.0, 1.0, 0.05, 2, &HandModel::wobbleMm},
    {"tilt", QT_TRANSLATE_NOOP("HandModel", "Tilt"), "°",
     QT_TRANSLATE_NOOP("HandModel", "How far the pen is turned on the paper, clockwise"), -20.0,
     20.0, 1.0, 0, &HandModel::tiltDeg},
    {"shade", QT_TRANSLATE_NOOP("HandModel", "Shade"), QT_TRANSLATE_NOOP("HandModel", " %"),
     QT_TRANSLATE_NOOP("HandModel", "How much darker one end of the camera's picture is"), 0.0,
     90.0, 5.0, 0, &HandModel::shadePercent},
    {"noise", QT_TRANSLATE_NOOP("HandModel", "Noise"), "",
     QT_TRANSLATE_NOOP("HandModel", "Noise of the camera, in grey levels of 256"), 0.0, 20.0, 1.0,
     0, &HandModel::noiseLevels},
    {"blur", QT_TRANSLATE_NOOP("HandModel", "Blur"), QT_TRANSLATE_NOOP("HandModel", " px"),
     QT_TRANSLATE_NOOP("HandModel", "Blur of the lens, in pixels of the camera"), 0.0, 2.5, 0.1, 1,
     &HandModel::blurPx},
});

} // namespace

std::span<const HandModel::Trait> HandModel::traits()
{
    return Traits;
}

const HandModel::Trait* HandModel::trait(const QString& name)
{
    const auto* const found = std::ranges::find_if(
        Traits, [&name](const Trait& each) { return name == QLatin1String(each.name); });
    return found == Traits.end() ? nullptr : found;
}

QStringList HandModel::traitNames()
{
    QStringList names;
    for (const Trait& each : Traits)
        names.append(QLatin1String(each.name));
    return names;
}

void HandModel::set(const Trait& trait, double value)
{
    this->*trait.value = std::isfinite(value) ? std::clamp(value, trait.least, trait.most)
                                              : HandModel().*trait.value;
}

HandSettings HandModel::motion(std::uint32_t seed) const
{
    HandSettings hand;
    hand.speedMmPerS = speedMmPerS;
    hand.wobbleMm = wobbleMm;
    hand.wobbleDeg = wobbleMm * DegPerWobbleMm;
    hand.seed = seed;
    return hand;
}

CameraSettings HandModel::seenBy(CameraSettings camera) const
{
    camera.rotationDeg = tiltDeg;
    camera.lightGradient = shadePercent / 100.0;
    camera.noise = noiseLevels;
    camera.blurPx = blurPx;
    camera.mount.leftHand = left;
    return camera;
}

QStringList HandModel::scriptLines(const HandModel& before) const
{
    QStringList lines;
    if (left != before.left)
        lines.append(left ? QStringLiteral("hand left") : QStringLiteral("hand right"));
    for (const Trait& each : Traits) {
        if (this->*each.value != before.*each.value)
            lines.append(QStringLiteral("hand %1 %2")
                             .arg(QLatin1String(each.name), QString::number(this->*each.value)));
    }
    return lines;
}
