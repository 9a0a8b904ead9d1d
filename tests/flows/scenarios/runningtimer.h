#ifndef RUNNINGTIMER_H
#define RUNNINGTIMER_H

#include <QObject>
#include <QPointer>
#include <QString>

/* A timer of the application on stage. A timer event with its id, sent to its owner, lets it run
 * out. */
struct RunningTimer
{
    QPointer<QObject> owner; // null: no such timer runs
    int id = 0;
};

/* Finds a timer by the name that scenarios have for it: "message", "autosave", "delay", or the
 * object name of a QTimer. Interface thread, while there is a main window. */
RunningTimer findTimer(const QString& name);

#endif
