#ifndef SESSIONSCRIPT_H
#define SESSIONSCRIPT_H

#include "desk/camera/handpath.h"

#include <QString>
#include <QStringList>
#include <vector>

/*
 * What was done on the desk, as a script that does it again (desk/README.md has the language).
 *
 * Between two actions stands what the user can have waited for: the swipe's outcome, the end of the
 * pen, the text spoken last and, where the pen had come to rest, "wait idle"; where it had not, the
 * time that the user took. So a replay goes on as soon as the pen has come as far, on a slower
 * machine as on a faster one.
 *
 * Times are milliseconds of any clock that goes forward.
 */
class SessionScript
{
public:
    /* A comment and settings at the head of the script, before anything is done. */
    void begin(const QStringList& lines);

    /* Something was done to the pen; `atRest` when it had nothing more to say or to show. */
    void act(const QString& line, qint64 atMs, bool atRest);
    /* Something was changed on the desk of which the pen notices nothing. */
    void set(const QString& line);

    /* What the pen did. */
    void spoke(const QString& text, qint64 atMs);
    void swiped(const QString& outcome);
    void ended();

    bool isEmpty() const { return m_actions == 0; }

    /* The script so far, with the waits for what has happened since the last action. */
    QString text() const;

    /* "swipe path ...": the points that a hand cannot have meant are left out (those that lie
     * within a tenth of a millimetre of where the others lead). */
    static QString pathLine(const std::vector<PathPoint>& path);

    /* The first words of a spoken text that will be the same another day: at most six, none with a
     * digit in it. */
    static QString steadyWords(const QString& text);

private:
    QStringList waits() const;

    QStringList m_lines;
    int m_actions = 0;
    // Since the last action:
    QString m_spoken;
    QString m_outcome;
    bool m_ended = false;
    qint64 m_lastMs = 0; // the last action, or what was spoken after it
};

#endif
