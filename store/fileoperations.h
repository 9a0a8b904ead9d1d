#ifndef FILEOPERATIONS_H
#define FILEOPERATIONS_H

#include <QByteArray>
#include <QtGlobal>

/*
 * The system calls that reading and writing of files is made of, so that tests can let each of
 * them fail. Results are those of the calls: -1 and errno on failure. Paths are in the encoding of
 * the file system.
 */
class FileOperations
{
public:
    FileOperations() = default;
    FileOperations(const FileOperations&) = delete;
    FileOperations& operator=(const FileOperations&) = delete;
    virtual ~FileOperations() = default;

    /* Those in use: the calls of this machine, unless a test has put others in their place. Null
     * brings them back; the object is not owned. */
    static FileOperations& current();
    static void setCurrent(FileOperations* operations);

    virtual int open(const QByteArray& path, int flags);
    /* The size of an open plain file; -1 when it is none. */
    virtual qint64 plainFileSize(int file);
    virtual qint64 read(int file, char* data, qint64 length, qint64 offset);
    virtual qint64 write(int file, const char* data, qint64 length, qint64 offset);
    virtual int truncate(int file, qint64 size);
    virtual int flush(int file);
    /* As flush(), but of what is needed to read the data again only. */
    virtual int flushData(int file);
    virtual int close(int file);
    virtual int remove(const QByteArray& path);
    /* Never over an existing file. */
    virtual int renameToNew(const QByteArray& from, const QByteArray& to);
    /* Over an existing file. */
    virtual int renameOver(const QByteArray& from, const QByteArray& to);
    /* Hands a change of names in the folder that holds `path` to the storage. */
    virtual int flushFolder(const QByteArray& path);
};

#endif
