#ifndef STOREJOURNAL_H
#define STOREJOURNAL_H

#include "store/journalfile.h"
#include "store/plainfile.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

/*
 * Changes of the user's files that survive a cut of power at any moment.
 *
 * A change is first committed to the journal on the internal flash, then made; what was cut off is
 * made again at the next start. A text that its file cannot take (the card is out, full or
 * damaged) waits in the journal until it can. When the flash refuses the record, the change is
 * made without: FileWriter does what is possible then.
 *
 * Paths are places on the pen. What is waiting is never written over something that it does not
 * know: when another file stands there meanwhile, the text gets a file of its own beside it.
 *
 * Interface thread only.
 */
class StoreJournal
{
public:
    enum class Result {
        Done,
        Exists, // create() and rename(): something has the name already; it is untouched
        Kept,   // write(): the file could not be written, but the content is safe and waits
        Failed  // nothing has changed
    };

    /* Makes what was begun before the last start, and everything that waits. Paths written. */
    QStringList recover();

    /* Brings what waits to its files, as far as they are there again. Scans of the file that is
     * being worked on are left alone: its next save has them. Paths written. */
    QStringList retry();

    Result write(const QString& path, const QByteArray& content);
    Result create(const QString& path, const QByteArray& content);
    Result remove(const QString& path);
    Result rename(const QString& from, const QString& to);

    /* Tells what was read from a file, so that what will be written is known to replace it;
     * nothing when there was no file. */
    void noteRead(const QString& path, const std::optional<QByteArray>& content);

    /* Logs a text that was inserted at `position` of the text of a file, `length` code units long
     * before. False when the flash refuses it. */
    bool noteScan(const QString& path, int position, const QString& inserted, int length);

    /* No file is being worked on: the scans logged until now were not saved and will not be, so
     * that they belong to what waits. */
    void leave() { m_openPath.clear(); }

    /* The newest text of a file when it waits here. */
    std::optional<QString> waitingText(const QString& path);

    /* Bytes kept for whoever asks, under a name of theirs; empty ones are forgotten. */
    void setKnown(const QByteArray& content);
    QByteArray known();

private:
    using Record = journalformat::Record;

    static plainfile::Result readFile(const QString& path, QByteArray& content);
    static bool isMissing(const QString& path);
    static bool isScanFile(const QString& path);

    QVector<quint64> numbersOf(const QString& path);
    const Record* waitingWrite(const QString& path);
    std::optional<journalformat::Print> lastSeen(const QString& path);
    bool changedUnseen(const QString& path) const;
    bool isUntouched(const Record& record) const;
    bool overwrite(const QString& path, const QByteArray& content);
    bool mark(quint64 number, bool untouched);
    bool isWaiting(quint64 number);

    void work(bool start, QStringList& written);
    bool redo(const Record& record, QStringList& written);
    bool redoWrite(const Record& record);
    bool redoScans(const QString& path);
    bool redoCreate(const Record& record);
    bool redoRename(const Record& record);
    bool writeBeside(const QString& path, const QByteArray& content);

    JournalFile m_journal;
    QString m_openPath; // of the file that is being worked on
    // Content last seen; none: there was no such file.
    QHash<QString, std::optional<journalformat::Print>> m_seen;
};

#endif
