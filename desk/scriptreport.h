#ifndef SCRIPTREPORT_H
#define SCRIPTREPORT_H

#include "desk/transcript.h"

#include <QElapsedTimer>
#include <QString>
#include <QVector>

class DeskSession;

/*
 * Tells on standard output what a script does and what came of it: one event a line, with the
 * seconds since the start in front.
 */
class ScriptReport
{
public:
    ScriptReport();

    /* An event. Control characters are shown as blanks: the terminal obeys the user only. */
    void event(const QString& text) const;

    /* A text that has been spoken to its end. */
    void spoken(const Transcript::Utterance& utterance) const;

    /* What is left behind: files on the pen, all that was spoken, where sound and pictures lie. */
    void summary(DeskSession& session, const QStringList& pictures) const;

    /* Why a script failed: what was last on the screen, spoken and sent. */
    void failure(DeskSession& session, const QString& reason, const QString& screenPicture) const;

private:
    void heading(const QString& text) const;
    void line(const QString& text) const;

    QElapsedTimer m_clock;
    qint64 m_startUs;
};

#endif
