#ifndef DESKSCRIPT_H
#define DESKSCRIPT_H

#include <QByteArray>
#include <QPointF>
#include <QString>
#include <QVector>

/* One line of a script that drives the desk; desk/README.md describes the language. */
struct DeskCommand
{
    enum class Verb {
        Key,          // key
        Hold,         // key, number: milliseconds
        SwipeLine,    // number: line from 1; speed
        SwipePath,    // from, to, speed
        Send,         // message, payload
        Usb,          // number: 1 plug, 0 delete
        Power,        //
        Hand,         // number: 1 left, 0 right
        Page,         // text: sample or file
        Text,         // text: file to be set in type; name: language
        Start,        // start the pen again
        Screenshot,   // name
        DeskShot,     // name
        TimeOut,      // number: milliseconds
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

    int line = 0;   // of the script, from 1
    QString source; // the line as it is written
    Verb verb = Verb::Quit;
    Qt::Key key = Qt::Key_unknown;
    int number = 0;
    QPointF from; // millimetres
    QPointF to;
    double speed = 0.0; // mm a second; 0: the usual one
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

    static DeskScript parse(const QString& text);
};

#endif
