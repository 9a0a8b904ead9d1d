#ifndef DESKSCRIPT_H
#define DESKSCRIPT_H

#include "desk/camera/handpath.h"
#include "desk/pagesource.h"

#include <QByteArray>
#include <QPointF>
#include <QString>
#include <QVector>
#include <vector>

/* One line of a script that drives the desk; desk/README.md describes the language. */
struct DeskCommand
{
    enum class Verb {
        Key,          // key
        Hold,         // key, number: milliseconds
        SwipeLine,    // number: line from 1; speed
        SwipeWay,     // from, to, speed
        SwipePath,    // path
        Send,         // message, payload
        Usb,          // number: 1 plug, 0 delete
        Power,        //
        Card,         // number: 1 out, 0 in
        Storage,      // number: 1 full, 0 free
        Hand,         // name: left, right, usual or a trait; value: of the trait
        Page,         // page
        Language,     // name
        Start,        // start the pen again
        Screenshot,   // name
        DeskShot,     // name
        TimeOut,      // number: milliseconds
        Pause,        // number: milliseconds
        Frames,       // number: 1 on, 0 off
        Echo,         // text
        WaitScreen,   // the screen shows something else than at the last action
        WaitSpoken,   // text
        WaitHeard,    // text
        WaitSilence,  // nothing is being spoken
        WaitText,     // text, in any file of the scan folder
        WaitFile,     // name, text
        WaitMessage,  // name: channel; message, payload
        WaitCamera,   // number: 1 on, 0 off
        WaitSwipe,    // name: outcome; empty: any
        WaitIdle,     //
        WaitStill,    // the screen has not changed for a while
        WaitExit,     //
        ExpectSpoken, // as the waits, but at once
        ExpectHeard,
        ExpectText,
        ExpectFile,
        ExpectMessage,
        ExpectRunning,
        Quit
    };

    static constexpr int MaxMs = 600'000;

    int line = 0;   // of the script, from 1
    QString source; // the line as it is written
    Verb verb = Verb::Quit;
    Qt::Key key = Qt::Key_unknown;
    int number = 0;
    QPointF from; // millimetres
    QPointF to;
    double speed = 0.0; // mm a second; 0: the hand's own
    double value = 0.0;
    std::vector<PathPoint> path;
    PageSource page;
    QString text;
    QString name;
    QString message;
    QByteArray payload;
};

/* A script, read and checked as a whole before anything of it runs. */
struct DeskScript
{
    QVector<DeskCommand> commands;
    QString error; // empty when the script is sound; else "line 3: ..."

    /* Whether a film begins before the script does: not when the script begins with "frames off".
     */
    bool isFilmedFromTheStart() const;

    static DeskScript parse(const QString& text);
    /* The script in a file; the error names the file. */
    static DeskScript read(const QString& path);
};

#endif
