#include "desk/swipereport.h"

using desklink::SwipeOutcome;

QStringList SwipeReport::outcomeNames()
{
    QStringList names;
    for (const SwipeOutcome each : {SwipeOutcome::Delivered, SwipeOutcome::NoPrint,
                                    SwipeOutcome::BadMotion, SwipeOutcome::Stopped})
        names.append(SwipeReport{each, 0, {}, {}}.outcomeName());
    return names;
}

QString SwipeReport::outcomeName() const
{
    switch (outcome) {
    case SwipeOutcome::Delivered:
        return QStringLiteral("delivered");
    case SwipeOutcome::NoPrint:
        return QStringLiteral("no-print");
    case SwipeOutcome::BadMotion:
        return QStringLiteral("bad-motion");
    case SwipeOutcome::Stopped:
        break;
    }
    return QStringLiteral("stopped");
}

QString SwipeReport::told() const
{
    return outcomeName()
           + QStringLiteral(", %1 frames, picture %2 x %3 ")
                 .arg(frames)
                 .arg(panorama.width())
                 .arg(panorama.height())
           + reason;
}
