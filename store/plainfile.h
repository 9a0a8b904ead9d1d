#ifndef PLAINFILE_H
#define PLAINFILE_H

#include <QByteArray>
#include <QString>

/* Reading of files that come from outside: what is no plain file (a folder, device, pipe or link)
 * is not waited for and not followed. Paths are places on this machine. Any thread. */
namespace plainfile {

enum class Result {
    Done,
    Missing,  // there is nothing of that name, or no plain file
    TooLarge, // larger than the limit; not read
    Failed    // the file is there but could not be read whole
};

/* Reads a file of at most `limit` bytes. Only Done touches `content`; `size`, when given, receives
 * the file's size in bytes (Done and TooLarge only). */
Result read(const QString& path, qint64 limit, QByteArray& content, qint64* size = nullptr);

/* Whether there is a plain file, or anything at all (a link that leads nowhere, too). */
bool isPlainFile(const QString& path);
bool isAnything(const QString& path);

} // namespace plainfile

#endif
