#ifndef JOURNALFORMAT_H
#define JOURNALFORMAT_H

#include <QByteArray>
#include <QString>
#include <QVector>
#include <QtGlobal>

#include <optional>

/* The journal of the stores as bytes: records one behind the other, each with a length and a
 * checksum. No state, no files. */
namespace journalformat {

enum class Kind : quint8 {
    Write = 1, // the file gets this content, whatever it had
    Create,    // a new file
    Remove,
    Rename,    // `path` becomes `target`; the content is the file's
    Scan,      // a text was inserted into the text of the file
    Known,     // entries of files whose card is not there
    Untouched, // whether the files of earlier Writes are as they were before
    Done       // earlier records have had their effect, or have lost their meaning
};

/* What was in a file: enough to tell it from something else. */
struct Print
{
    qint64 size = 0;
    quint32 checksum = 0;
    bool operator==(const Print&) const = default;
};
Print printOf(const QByteArray& content);

struct Record
{
    quint64 number = 0; // grows from record to record
    Kind kind = Kind::Write;
    QString path;   // on the pen
    QString target; // Rename
    QByteArray content;
    std::optional<Print> before; // Write: what the text replaces, when that is known
    bool untouched = false;      // Write, Untouched: nothing of it has reached the file
    QString text;                // Scan
    qint32 position = 0;         // Scan: code units from the beginning of the text
    qint32 length = 0;           // Scan: length of the text before
    QVector<quint64> numbers;    // Untouched, Done: the records meant
};

/* One record's bytes. */
QByteArray encode(const Record& record);

struct Journal
{
    QVector<Record> records; // as they were written
    qint64 end = 0;          // bytes that they take; what is behind them means nothing
};

/* Reads records up to the first that is broken, unknown or out of turn: what a cut of power left
 * behind the last whole one, or what an earlier use of the file left there. */
Journal parse(const QByteArray& bytes);

/* The records that still wait for their effect, in their order: without those that a later one
 * has done away with. `untouched` is set where it was recorded. */
QVector<Record> waiting(const QVector<Record>& records);

/* Adds a record to those that wait. */
void add(QVector<Record>& waiting, const Record& record);

/* The text after a scan. When `text` is not the one that the scan was inserted into (somebody has
 * edited the file since), the scan stands at the end. */
QString withScan(QString text, const Record& scan);

} // namespace journalformat

#endif
