#ifndef FILEMANAGER_H
#define FILEMANAGER_H

#include "store/awayfiles.h"
#include "store/fileinfo.h"
#include "store/storejournal.h"

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
 * Every change goes through a journal on the internal flash (store/storejournal.h): after a cut of
 * power each file is the old or the new one, and a text that the card does not take is kept in the
 * pen until the card does.
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

    /* Ends what a cut of power interrupted, reads "/apps/config/filelist.cfg" and drops the entries
     * whose file is gone; when the card itself is not there, what is known of its files is kept
     * aside until it is back. A missing list file is made, empty. 0, or -1 when it can be neither
     * read nor made, or holds a malformed line: the entries before it are kept. */
    int init();

    /* Adds the plain files of the scan folder that the list does not have; those known from before
     * the card was away come back as they were. The list file is not written. 0, or -1 when the
     * folder cannot be opened. */
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

    /* Deletes a file and its entry. 0, or -1 when it is not listed or cannot be deleted. When only
     * the list cannot be written, a message is shown and 0 returned: the next start misses the
     * file and drops the entry. */
    int removeAt(int displayIndex);

    /* The text of a file, the newest one when it still waits for its card; empty when it cannot be
     * read. Sets getReturnSize(), except when there is no such file. A file far over what the
     * editor takes, or one that breaks off while it is read, gives an empty text and a size over
     * the editor's limit, so that nobody takes it for an empty file. */
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
     * seconds, the file is what it was, and the name is empty (isKept() tells whether the text is
     * safe all the same); it is empty, too, when info.id is outside the list. */
    QString saveFile(const FileInfo& info, const QString& text);

    /* Whether this text of a file is safe in the pen although the card does not take it. It is
     * brought to the card as soon as that is possible. */
    bool isKept(const FileInfo& info, const QString& text);

    /* Logs what was inserted into the text of the file being edited, so that a cut of power does
     * not lose it before the next save: `inserted`, at `position` of the text, which was `length`
     * code units long. One flush of the internal flash. False when that fails. */
    bool noteScan(const FileInfo& info, int position, const QString& inserted, int length);

    /* Writes the list file. 0, or -1 when that fails. */
    int flush();

private:
    FileManager() = default;

    bool isListed(int storedIndex) const;
    bool copyEntry(int storedIndex, FileInfo& info) const;
    int storedIndexOf(int displayIndex) const;
    void dropVanished();
    void bringBack();
    void refresh(const QStringList& paths);
    void renumberFrom(int storedIndex);
    QString createFile(const QByteArray& content);
    QString takeText(const QByteArray& bytes);
    void showDamaged() const;
    void settle(bool listWritten) const;

    StoreJournal m_journal;
    AwayFiles m_away;
    int m_readSize = 0;
    int m_current = 0; // stored order
    QVector<FileInfo> m_files;
};

#endif
