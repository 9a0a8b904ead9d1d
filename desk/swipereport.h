#ifndef DESK_SWIPEREPORT_H
#define DESK_SWIPEREPORT_H

#include "desk/desklink.h"

#include <QSize>
#include <QString>
#include <QStringList>

/* What became of a swipe, as the scan engine tells it. */
struct SwipeReport
{
    desklink::SwipeOutcome outcome = desklink::SwipeOutcome::Stopped;
    quint32 frames = 0;
    QSize panorama;
    QString reason;

    /* The outcomes as scripts name them. */
    static QStringList outcomeNames();
    QString outcomeName() const;

    /* All of it in one line. */
    QString told() const;
};

#endif
