#ifndef FILEMANAGER_H
#define FILEMANAGER_H

#include "store/fileinfo.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

/*
 * The files of scanned text and the list of them.
 *
 * Two orders of indices are in use. Stored order is the list file's, oldest first; display order
 * is its reverse, newest first. Each function says which one it speaks: the current file is set in
 * stored order and asked for in display order.
 *
 * Interface thread only.
 */
class FileManager
{
    Q_DECLARE_TR_FUNCTIONS(FileManager)

public:
    static FileManager* manager;

    /* The one instance, created on first use. */
    static FileManager* Instance();

    /* Deletes the instance, if there is one. Nothing is written: the list file is up to date
     * after each change. */
    static void quitFun();

    /* Reads "/apps/config/filelist.cfg" and drops the entries whose file is gone. A missing list
     * file is made, empty. 0, or -1 when it can be neither read nor made, or holds a malformed
     * line: the entries before it are kept. */
    int init();

    /* Adds the plain files of the scan folder that the list does not have. The list file is not
     * written. 0, or -1 when the folder cannot be opened. */
    int getFileList();

    int getFileNum() const;

    /* True while a new file may be made (fewer than 1000 are listed). */
    bool exceedMaxNum() const;

    /* Appends all entries in display order. */
    void getInfoList(QVector<FileInfo>& list) const;

    /* Copies an entry; false, and `info` is untouched, when there is none. */
    bool getInfoByID(int displayIndex, FileInfo& info) const;
    bool getCurInfo(FileInfo& info) const;
    bool getLatestFile(FileInfo& info) const;

    /* The newest entry's name; empty when there is none. */
    QString getLatestFile() const;

    /* Sets the current file; a stored index outside the list is ignored. */
    void setCurFileIndex(int storedIndex);

    /* The current file's display index; outside the list when there is none. */
    int getCurFileIndex() const;

    /* The name that the next new file will get, as far as the list knows. */
    QString newFileName() const;

    /* Whether no file of the scan folder has this name. The number is not used. Prints the path. */
    bool judgeSameName(int unused, QString name) const;

    /* Renames a file of the scan folder; the list is left to saveCfg(). False when there is no
     * such file, the name is taken or impossible, or the storage refuses. */
    bool renameFile(QString oldName, QString newName);

    /* Sets an entry's name and writes the list. False when the index is outside the list (nothing
     * is done) or the list cannot be written (the entry has the name all the same, as its file
     * has). */
    bool saveCfg(int displayIndex, QString name);

    /* Deletes a file and its entry. 0, or -1 when it is not listed or cannot be deleted. */
    int removeAt(int displayIndex);

    /* The text of a file; empty when it cannot be read. Sets getReturnSize(), except when there is
     * no such file. A file far over what the editor takes, or one that breaks off while it is
     * read, gives an empty text and a size over the editor's limit, so that nobody takes it for an
     * empty file. */
    QString readFile(const FileInfo& info);

    /* Bytes that the text last read takes in a saved file, without the byte-order mark. */
    int getReturnSize() const;

    /* Makes a new file of the scan folder and its entry; returns its name. On failure a message is
     * shown for two seconds, nothing has changed, and the name is empty. An existing file is never
     * touched: when the name is taken on the card, the next free number is used. When only the
     * list cannot be written, the message is shown and the name returned: the text is safe, and
     * the next start finds the file. */
    QString saveFile(const QString& text);

    /* Overwrites the file of an entry; returns its name. On failure a message is shown for two
     * seconds, the file is what it was, and the name is empty; it is empty, too, when info.id is
     * outside the list. */
    QString saveFile(const FileInfo& info, const QString& text);

    /* Writes the list file. 0, or -1 when that fails. */
    int flush();

private:
    FileManager() = default;

    bool isListed(int storedIndex) const;
    bool copyEntry(int storedIndex, FileInfo& info) const;
    int storedIndexOf(int displayIndex) const;
    void dropVanished();
    void renumberFrom(int storedIndex);
    QString createFile(const QByteArray& content);
    void showDamaged() const;
    void settle(bool listWritten) const;

    int m_readSize = 0;
    int m_current = 0; // stored order
    QVector<FileInfo> m_files;
};

#endif
