#include "store/journalfile.h"

#include "platform/devicepaths.h"
#include "store/filewriter.h"
#include "store/plainfile.h"

using journalformat::Kind;
using journalformat::Record;

namespace {

constexpr qint64 MaxBytes = 64 * 1024 * 1024;
// Up to here the journal may hold what is outdated, on behalf of something that waits.
constexpr qint64 RoomyBytes = 1024 * 1024;

QString journalPath()
{
    return devicePath(QStringLiteral("/apps/config/store.jnl"));
}

qint64 contentBytes(const QVector<Record>& records)
{
    qint64 bytes = 0;
    for (const Record& record : records)
        bytes += record.content.size() + 2 * record.text.size();
    return bytes;
}

} // namespace

void JournalFile::load()
{
    if (std::exchange(m_loaded, true))
        return;
    QByteArray bytes;
    const plainfile::Result result = plainfile::read(journalPath(), MaxBytes, bytes);
    m_readable = result == plainfile::Result::Done || result == plainfile::Result::Missing;
    const journalformat::Journal journal = journalformat::parse(bytes);
    m_end = journal.end;
    m_waiting = journalformat::waiting(journal.records);
    if (!journal.records.isEmpty())
        m_next = journal.records.last().number + 1;
    // The numbers begin anew with an empty file: nothing older may come to light behind them.
    if (m_waiting.isEmpty() && m_readable
        && FileWriter().clear(journalPath(), true) == FileWriter::Result::Done)
        m_end = 0;
}

const QVector<Record>& JournalFile::waiting()
{
    load();
    return m_waiting;
}

bool JournalFile::append(const Record& record)
{
    const QByteArray bytes = journalformat::encode(record);
    if (FileWriter().log(journalPath(), m_end, bytes) != FileWriter::Result::Done)
        return false;
    m_end += bytes.size();
    return true;
}

// The whole file with what waits, and this record. The flash keeps the old one or the new one.
bool JournalFile::writeAnew(const Record& record)
{
    QVector<Record> records = m_waiting;
    journalformat::add(records, record);
    QByteArray bytes;
    for (const Record& one : std::as_const(records))
        bytes += journalformat::encode(one);
    if (FileWriter().replace(journalPath(), bytes) != FileWriter::Result::Done)
        return false;
    m_end = bytes.size();
    return true;
}

quint64 JournalFile::commit(Record record)
{
    load();
    if (!m_readable)
        return 0;
    record.number = m_next;
    // A file that somebody has taken away is made again from what is known here.
    const bool gone = m_end > 0 && !plainfile::isPlainFile(journalPath());
    const bool roomy = m_end > RoomyBytes && m_end > 2 * contentBytes(m_waiting);
    if (gone || roomy ? !writeAnew(record) : !append(record))
        return 0;
    ++m_next;
    journalformat::add(m_waiting, record);
    return record.number;
}

void JournalFile::forget(const QVector<quint64>& numbers, bool atOnce)
{
    if (numbers.isEmpty())
        return;
    Record done;
    done.kind = Kind::Done;
    done.numbers = numbers;
    journalformat::add(m_waiting, done);
    if (!m_waiting.isEmpty()) {
        commit(done);
    } else if (FileWriter().clear(journalPath(), atOnce) == FileWriter::Result::Done) {
        m_end = 0;
    }
}
