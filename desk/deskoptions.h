#ifndef DESKOPTIONS_H
#define DESKOPTIONS_H

#include "desk/pageloader.h"

#include <QString>
#include <QStringList>

/* The command line of the desk. */
struct DeskOptions
{
    QString root;   // run root, absolute
    QString pen;    // executable, absolute
    QString fonts;  // fontconfig file for the pen; empty: the machine's own
    QString script; // headless: the script's file
    QString out;    // headless: folder for pictures and sound
    QString wav;    // empty: the sound is heard
    QString deskShot;
    QString frames;           // headless: folder for a film of the desk; empty: none
    int framesMs = 100;       // a picture every so many milliseconds
    bool framesOfPen = false; // of the pen and what it says only
    QString language;         // of the pen's interface; empty: as its settings say
    QString record;           // the session is written there as a script; empty: it is not
    PageSource page;
    bool pageGiven = false; // the page was named, else it is the usual one
    bool forget = false;    // the desk neither recalls nor remembers anything
    bool helpWanted = false;
    QString help;  // the text of --help
    QString error; // empty when the desk can be opened

    bool isHeadless() const { return !script.isEmpty(); }

    /* Reads the arguments (the program's name first). `programDir` is where the pen's executable
     * is looked for without --pen: beside the desk's, or in ../app. */
    static DeskOptions parse(const QStringList& arguments, const QString& programDir);
};

#endif
