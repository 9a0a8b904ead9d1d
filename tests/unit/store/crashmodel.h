#ifndef CRASHMODEL_H
#define CRASHMODEL_H

#include "store/fileoperations.h"

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>

#include <random>

/*
 * What a storage may hold after a cut of power: the file operations of this machine, recorded, and
 * played again up to any of them with what was not flushed lost or kept piece by piece.
 *
 * The calls are in use as long as the object lives. The files below the folder given are on the
 * storage at the beginning. Nothing is really flushed.
 */
class CrashModel : public FileOperations
{
public:
    enum class Kind {
        Killed, // only the program is gone: everything done is there, the last write perhaps half
        Ext4,   // names and sizes reach the storage in order, sectors of data in any
        Fat     // every sector, size and name reaches the storage on its own, or does not; what is
                // inside a size but was not written is anything
    };

    /* Contents by path below the folder. */
    using State = QMap<QByteArray, QByteArray>;

    explicit CrashModel(const QString& folder);
    ~CrashModel() override;

    int events() const { return int(m_events.size()); }

    /* States that the storage may be in when the power goes after that many events: all of them
     * when they are few, else a choice that is the same each time. */
    QVector<State> statesAfter(int events, Kind kind) const;

    int open(const QByteArray& path, int flags) override;
    qint64 write(int file, const char* data, qint64 length, qint64 offset) override;
    int truncate(int file, qint64 size) override;
    int flush(int file) override;
    int flushData(int file) override { return flush(file); }
    int close(int file) override;
    int remove(const QByteArray& path) override;
    int renameToNew(const QByteArray& from, const QByteArray& to) override;
    int renameOver(const QByteArray& from, const QByteArray& to) override;
    int flushFolder(const QByteArray& path) override;

private:
    static constexpr int Sector = 512;
    static constexpr int None = -1;

    struct Event
    {
        enum Type { Name, Write, Size, Flush, FlushFolder } type;
        int file = None; // Name: what the path leads to then
        QByteArray path;
        qint64 number = 0; // offset or size
        QByteArray data;
        bool withNext = false; // one step of an ordered storage: a renaming
    };
    struct Name
    {
        QByteArray path;
        int file;
        bool withNext;
        void applyTo(QMap<QByteArray, int>& names) const;
    };
    struct Change // of name or size, in the order of the calls
    {
        bool isName;
        Name name;
        int file;
        qint64 size;
    };
    struct File
    {
        QByteArray stored;
        QByteArray seen; // by the program
        QSet<qint64> dirty;
        bool operator==(const File&) const = default;
    };
    struct Storage
    {
        QVector<File> files;
        QMap<QByteArray, int> names;
        QVector<Change> changes;
    };
    struct Piece // what is lost or kept on its own
    {
        int file;      // None: of a name
        qint64 sector; // None: the size
        QByteArray path;
    };

    QByteArray below(const QByteArray& path) const;
    void add(Event::Type type, int file, const QByteArray& path, qint64 number = 0,
             const QByteArray& data = {}, bool withNext = false);
    int renamed(const QByteArray& from, const QByteArray& to, int result);
    Storage play(int events, Kind kind) const;
    static void play(Storage& storage, const Event& event, Kind kind);
    static void writeInto(File& file, const Event& event);
    static void settleFile(Storage& storage, int file, Kind kind);
    static void settleFolder(Storage& storage, const QByteArray& folder);
    static QVector<Piece> piecesOf(const Storage& storage, Kind kind);
    static State stateWith(const Storage& storage, const QVector<Piece>& pieces,
                           const QVector<bool>& kept, qsizetype changes, Kind kind);
    static void addChoices(QVector<State>& states, const Storage& storage, Kind kind,
                           qsizetype changes);
    static State seen(const Storage& storage);

    QByteArray m_folder;
    Storage m_first;
    QVector<Event> m_events;
    QMap<QByteArray, int> m_names;
    QHash<int, int> m_open; // descriptor -> file
    int m_files = 0;
};

#endif
