#ifndef PENCHECK_H
#define PENCHECK_H

#include <QString>
#include <QStringList>

/* What the pen needs beside its program. */
namespace pencheck {

/* Where espeak-ng looks for its voices on this machine, beside the run root. */
QStringList voiceFolders();

/* What is missing below a run root and on this machine, a sentence for each thing: what does not
 * work without it, and how to get it. The pen starts all the same. `voices`: folders of which one
 * has the voices. */
QStringList missing(const QString& root, const QStringList& voices = voiceFolders());

} // namespace pencheck

#endif
