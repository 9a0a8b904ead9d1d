#include "store/journalformat.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace journalformat {

namespace {

constexpr char Mark[] = {'S', 'J', '0', '1'};
constexpr qsizetype HeadBytes = 12; // mark, length of the body, checksum of both

constexpr std::array<quint32, 256> checksumTable()
{
    std::array<quint32, 256> table = {};
    for (quint32 i = 0; i < 256; ++i) {
        quint32 value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1) != 0 ? 0xEDB88320U ^ (value >> 1) : value >> 1;
        table.at(i) = value;
    }
    return table;
}

// CRC-32 as in IEEE 802.3.
quint32 checksum(const QByteArray& bytes)
{
    static constexpr std::array<quint32, 256> Table = checksumTable();
    quint32 value = 0xFFFFFFFFU;
    for (const char c : bytes)
        value = Table.at((value ^ static_cast<quint8>(c)) & 0xFFU) ^ (value >> 8);
    return ~value;
}

QByteArray littleEndian(quint32 value)
{
    QByteArray bytes(sizeof value, Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

quint32 numberAt(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

void setUp(QDataStream& stream)
{
    stream.setVersion(QDataStream::Qt_6_0);
    stream.setByteOrder(QDataStream::LittleEndian);
}

// Not by the stream's own function: that one makes room for as many as the bytes claim.
void readNumbers(QDataStream& stream, QVector<quint64>& numbers)
{
    quint32 count = 0;
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        quint64 number = 0;
        stream >> number;
        numbers.append(number);
    }
}

void writeNumbers(QDataStream& stream, const QVector<quint64>& numbers)
{
    stream << quint32(numbers.size());
    for (const quint64 number : numbers)
        stream << number;
}

bool readBody(const QByteArray& body, Record& record)
{
    QDataStream stream(body);
    setUp(stream);
    quint8 kind = 0;
    bool hasBefore = false;
    Print before;
    stream >> record.number >> kind >> record.path >> record.target >> record.content >> hasBefore
        >> before.size >> before.checksum >> record.untouched >> record.text >> record.position
        >> record.length;
    readNumbers(stream, record.numbers);
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || kind < quint8(Kind::Write)
        || kind > quint8(Kind::Done))
        return false;
    record.kind = static_cast<Kind>(kind);
    if (hasBefore)
        record.before = before;
    return true;
}

// The record that begins at `offset`; its size in bytes, 0 when there is no whole one.
qsizetype readRecord(const QByteArray& bytes, qsizetype offset, Record& record)
{
    if (bytes.size() - offset < HeadBytes
        || !std::equal(std::begin(Mark), std::end(Mark), bytes.constData() + offset))
        return 0;
    const qint64 length = numberAt(bytes, offset + 4);
    if (length > bytes.size() - offset - HeadBytes)
        return 0;
    const QByteArray body = bytes.mid(offset + HeadBytes, length);
    if (checksum(bytes.mid(offset + 4, 4) + body) != numberAt(bytes, offset + 8)
        || !readBody(body, record))
        return 0;
    return HeadBytes + body.size();
}

// Whether the content that `older` stands for is part of, or replaced by, a later Write.
bool isOutdatedBy(const Record& older, const Record& record)
{
    switch (record.kind) {
    case Kind::Write:
        return older.path == record.path
               && (older.kind == Kind::Write || older.kind == Kind::Create
                   || older.kind == Kind::Scan);
    case Kind::Known:
        return older.kind == Kind::Known;
    case Kind::Done:
        return record.numbers.contains(older.number);
    default:
        return false;
    }
}

} // namespace

Print printOf(const QByteArray& content)
{
    return {content.size(), checksum(content)};
}

QByteArray encode(const Record& record)
{
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    setUp(stream);
    const Print before = record.before.value_or(Print());
    stream << record.number << quint8(record.kind) << record.path << record.target << record.content
           << record.before.has_value() << before.size << before.checksum << record.untouched
           << record.text << record.position << record.length;
    writeNumbers(stream, record.numbers);
    const QByteArray length = littleEndian(static_cast<quint32>(body.size()));
    return QByteArray(Mark, sizeof Mark) + length + littleEndian(checksum(length + body)) + body;
}

Journal parse(const QByteArray& bytes)
{
    Journal journal;
    for (;;) {
        Record record;
        const qsizetype size = readRecord(bytes, journal.end, record);
        if (size == 0
            || (!journal.records.isEmpty() && record.number <= journal.records.last().number))
            return journal;
        journal.records.append(record);
        journal.end += size;
    }
}

void add(QVector<Record>& waiting, const Record& record)
{
    waiting.removeIf([&](const Record& older) { return isOutdatedBy(older, record); });
    if (record.kind == Kind::Untouched) {
        for (Record& older : waiting)
            if (record.numbers.contains(older.number))
                older.untouched = record.untouched;
    } else if (record.kind != Kind::Done) {
        waiting.append(record);
    }
}

QVector<Record> waiting(const QVector<Record>& records)
{
    QVector<Record> list;
    for (const Record& record : records)
        add(list, record);
    return list;
}

QString withScan(QString text, const Record& scan)
{
    const bool fits =
        text.size() == scan.length && scan.position >= 0 && scan.position <= text.size();
    return text.insert(fits ? scan.position : text.size(), scan.text);
}

} // namespace journalformat
