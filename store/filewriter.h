#ifndef FILEWRITER_H
#define FILEWRITER_H

#include "store/fileoperations.h"

#include <QByteArray>
#include <QString>

/*
 * The one way by which files of the user's, and the tables about them, are written.
 *
 * Each operation is whole or undone as far as the storage lets it: when it reports a failure, the
 * file is what it was before (when only the very last step failed, closing it, it is complete).
 * Every write, truncation, flush and close is checked, and the data has been handed to the storage
 * before success is reported.
 *
 * Only plain files are written: a folder, device, pipe or link in place of the file is a failure;
 * it is not waited for and not written through. Paths are places on this machine (devicePath()).
 *
 * A writer is made where it is needed, and holds nothing. One thread at a time.
 */
class FileWriter
{
public:
    enum class Result {
        Done,
        Exists, // create() and rename(): something has the name already; it is untouched
        Failed
    };

    /* Makes a new file with this content. Never touches what exists. */
    Result create(const QString& path, const QByteArray& content);

    /* Gives the file this content, and makes it when it is missing. The file is written in place:
     * it grows first (so that a full storage is noticed before anything is lost), is overwritten
     * then, and shrinks last. Fails for a file of more than 16 MB: that is no text of ours. */
    Result overwrite(const QString& path, const QByteArray& content);

    /* Adds to the end of the file, and makes it when it is missing. */
    Result append(const QString& path, const QByteArray& content);

    /* Writes into the file from `end` on, and makes the file when it is missing and `end` is 0.
     * What stood behind `end` is gone then; on a failure nothing is behind it, as far as the
     * storage lets that be. For the journal: only the data is flushed. */
    Result log(const QString& path, qint64 end, const QByteArray& content);

    /* Empties a file; `flushed`: on the storage, too. Done when there is no such file. */
    Result clear(const QString& path, bool flushed);

    /* Replaces a table of ours: writes "PATH.new" and renames it over the file (over a link
     * itself). Not for the folders of the user's files, where a crash would leave the new file. */
    Result replace(const QString& path, const QByteArray& content);

    /* Deletes a file (of a link, the link). */
    Result remove(const QString& path);

    /* Gives a plain file another name in the same file system. */
    Result rename(const QString& from, const QString& to);

private:
    class OpenFile;

    bool write(OpenFile& file, const QByteArray& content, qint64 from, qint64 offset);
    bool grow(OpenFile& file, const QByteArray& tail);
    bool readOld(OpenFile& file, QByteArray& old);
    bool rewrite(OpenFile& file, const QByteArray& content);
    bool fill(OpenFile& file, const QByteArray& content);
    Result update(const QString& path, const QByteArray& content,
                  bool (FileWriter::*change)(OpenFile&, const QByteArray&));

    FileOperations& m_operations = FileOperations::current();
};

#endif
