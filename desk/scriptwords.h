#ifndef SCRIPTWORDS_H
#define SCRIPTWORDS_H

#include <QPointF>
#include <QString>
#include <QStringList>

/* Lines of scripts as words: the desk's scripts and the scenarios of the tests are written alike.
 */
namespace scriptwords {

/* The words of a line: separated by blanks; "..." holds blanks, \" and \\ and \n; # begins a
 * comment. False when a quote is not closed. */
bool split(const QString& line, QStringList& words);

/* A place "X,Y". False when the word is none. */
bool readPoint(const QString& word, QPointF& point);

/* A word as it stands in a script: quoted when it has to be. */
QString quoted(const QString& word);

} // namespace scriptwords

#endif
