/* Any bytes as the journal: what is read is whole, and is read again when it is written. */
#include "store/journalformat.h"
#include "tests/fuzz/require.h"

#include <QtEndian>

#include <cstdint>

namespace {

// The checksum would keep the fuzzer out of what it guards.
QByteArray asRecord(const QByteArray& body)
{
    QByteArray length(4, '\0');
    qToLittleEndian(static_cast<quint32>(body.size()), length.data());
    QByteArray sum(4, '\0');
    qToLittleEndian(journalformat::printOf(length + body).checksum, sum.data());
    return "SJ01" + length + sum + body;
}

void check(const QByteArray& bytes)
{
    const journalformat::Journal journal = journalformat::parse(bytes);
    REQUIRE(journal.end >= 0 && journal.end <= bytes.size());
    QByteArray written;
    quint64 last = 0;
    for (const journalformat::Record& record : journal.records) {
        REQUIRE(written.isEmpty() || record.number > last);
        last = record.number;
        written += journalformat::encode(record);
    }
    const journalformat::Journal again = journalformat::parse(written);
    REQUIRE(again.records.size() == journal.records.size());
    REQUIRE(again.end == written.size());
    QString text = QStringLiteral("a text");
    const QVector<journalformat::Record> waiting = journalformat::waiting(journal.records);
    REQUIRE(waiting.size() <= journal.records.size());
    for (const journalformat::Record& record : waiting) {
        const qsizetype before = text.size();
        text = journalformat::withScan(text, record);
        REQUIRE(text.size() == before + record.text.size());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    check(bytes);
    check(asRecord(bytes));
    return 0;
}
