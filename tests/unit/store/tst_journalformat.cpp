// The journal's records as bytes and back.
#include "store/journalformat.h"

#include <QTest>

using journalformat::Kind;
using journalformat::Record;

namespace {

Record record(quint64 number, Kind kind, const QString& path = QStringLiteral("/a.txt"))
{
    Record record;
    record.number = number;
    record.kind = kind;
    record.path = path;
    return record;
}

QVector<quint64> numbers(const QVector<Record>& records)
{
    QVector<quint64> list;
    for (const Record& one : records)
        list.append(one.number);
    return list;
}

} // namespace

class TestJournalFormat : public QObject
{
    Q_OBJECT

private slots:
    void everyFieldComesBack();
    void nothingIsAnEmptyJournal();
    void everyCutLeavesTheRecordsBefore();
    void everyDamagedByteEndsTheJournal();
    void olderRecordsBehindNewerOnesMeanNothing();
    void unknownKindEndsTheJournal();
    void aWriteMakesEarlierTextsObsolete();
    void doneRecordsAreNotWaiting();
    void untouchedIsMarked();
    void onlyTheNewestOfWhatIsKnownCounts();
    void scanStandsWhereItWas();
    void scanOfAnEditedTextStandsAtTheEnd_data();
    void scanOfAnEditedTextStandsAtTheEnd();
    void printTellsContentsApart();
};

void TestJournalFormat::everyFieldComesBack()
{
    Record in = record(7, Kind::Write, QStringLiteral("/mnt/mmc/e_ScanFile/\u4f60 a.txt"));
    in.target = QString(QChar(0xD800)); // a lone surrogate
    in.content = QByteArray("\0\xff\xfe text", 8);
    in.before = journalformat::printOf("before");
    in.untouched = true;
    in.text = QStringLiteral("scan");
    in.position = 3;
    in.length = 9;
    in.numbers = {1, 2};
    const QByteArray bytes = journalformat::encode(in);
    const journalformat::Journal journal = journalformat::parse(bytes);
    QCOMPARE(journal.end, bytes.size());
    QCOMPARE(journal.records.size(), 1);
    const Record& out = journal.records.first();
    QCOMPARE(out.number, in.number);
    QVERIFY(out.kind == in.kind);
    QCOMPARE(out.path, in.path);
    QCOMPARE(out.target, in.target);
    QCOMPARE(out.content, in.content);
    QVERIFY(out.before == in.before);
    QVERIFY(out.untouched);
    QCOMPARE(out.text, in.text);
    QCOMPARE(out.position, 3);
    QCOMPARE(out.length, 9);
    QCOMPARE(out.numbers, in.numbers);
    in.before.reset();
    QVERIFY(!journalformat::parse(journalformat::encode(in)).records.first().before);
}

void TestJournalFormat::nothingIsAnEmptyJournal()
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("SJ01"), QByteArray(5000, '\0')}) {
        const journalformat::Journal journal = journalformat::parse(bytes);
        QVERIFY(journal.records.isEmpty());
        QCOMPARE(journal.end, 0);
    }
}

void TestJournalFormat::everyCutLeavesTheRecordsBefore()
{
    const QByteArray first = journalformat::encode(record(1, Kind::Write));
    const QByteArray both = first + journalformat::encode(record(2, Kind::Remove));
    for (qsizetype size = 0; size < both.size(); ++size) {
        const journalformat::Journal journal = journalformat::parse(both.first(size));
        QCOMPARE(journal.records.size(), size < first.size() ? 0 : 1);
        QCOMPARE(journal.end, size < first.size() ? 0 : first.size());
    }
    QCOMPARE(journalformat::parse(both + "behind").records.size(), 2);
}

void TestJournalFormat::everyDamagedByteEndsTheJournal()
{
    const QByteArray good = journalformat::encode(record(1, Kind::Write));
    for (qsizetype place = 0; place < good.size(); ++place) {
        QByteArray bad = good;
        bad[place] = static_cast<char>(bad.at(place) ^ 1);
        QVERIFY(journalformat::parse(bad).records.isEmpty());
        QCOMPARE(journalformat::parse(good + bad).records.size(), 1);
    }
}

// The file was emptied and used again, but the end of its earlier use is still behind.
void TestJournalFormat::olderRecordsBehindNewerOnesMeanNothing()
{
    const QByteArray bytes = journalformat::encode(record(3, Kind::Write))
                             + journalformat::encode(record(2, Kind::Write));
    QCOMPARE(numbers(journalformat::parse(bytes).records), QVector<quint64>{3});
    const QByteArray twice = journalformat::encode(record(3, Kind::Write));
    QCOMPARE(journalformat::parse(twice + twice).records.size(), 1);
}

void TestJournalFormat::unknownKindEndsTheJournal()
{
    for (const int kind : {0, 9, 255}) {
        const Record strange = record(1, static_cast<Kind>(kind));
        QVERIFY(journalformat::parse(journalformat::encode(strange)).records.isEmpty());
    }
}

void TestJournalFormat::aWriteMakesEarlierTextsObsolete()
{
    const QString other = QStringLiteral("/b.txt");
    QCOMPARE(numbers(journalformat::waiting({record(1, Kind::Write), record(2, Kind::Scan),
                                             record(3, Kind::Scan, other), record(4, Kind::Rename),
                                             record(5, Kind::Write), record(6, Kind::Scan)})),
             (QVector<quint64>{3, 4, 5, 6}));
}

void TestJournalFormat::doneRecordsAreNotWaiting()
{
    Record done = record(3, Kind::Done);
    done.numbers = {1, 9};
    QCOMPARE(
        numbers(journalformat::waiting({record(1, Kind::Create), record(2, Kind::Remove), done})),
        QVector<quint64>{2});
}

void TestJournalFormat::untouchedIsMarked()
{
    Record mark = record(3, Kind::Untouched);
    mark.numbers = {2};
    mark.untouched = true;
    QVector<Record> waiting = journalformat::waiting(
        {record(1, Kind::Write), record(2, Kind::Write, QStringLiteral("/b.txt")), mark});
    QCOMPARE(waiting.size(), 2);
    QVERIFY(!waiting.at(0).untouched);
    QVERIFY(waiting.at(1).untouched);
    mark.untouched = false;
    journalformat::add(waiting, mark);
    QVERIFY(!waiting.at(1).untouched);
}

void TestJournalFormat::onlyTheNewestOfWhatIsKnownCounts()
{
    QCOMPARE(numbers(journalformat::waiting(
                 {record(1, Kind::Known), record(2, Kind::Scan), record(3, Kind::Known)})),
             (QVector<quint64>{2, 3}));
}

void TestJournalFormat::scanStandsWhereItWas()
{
    Record scan = record(1, Kind::Scan);
    scan.text = QStringLiteral("two ");
    scan.position = 4;
    scan.length = 9;
    QCOMPARE(journalformat::withScan(QStringLiteral("one three"), scan),
             QStringLiteral("one two three"));
}

void TestJournalFormat::scanOfAnEditedTextStandsAtTheEnd_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("length");
    QTest::newRow("longer") << 0 << 2;
    QTest::newRow("shorter") << 0 << 4;
    QTest::newRow("behind the end") << 4 << 3;
    QTest::newRow("before the beginning") << -1 << 3;
}

void TestJournalFormat::scanOfAnEditedTextStandsAtTheEnd()
{
    QFETCH(const int, position);
    QFETCH(const int, length);
    Record scan = record(1, Kind::Scan);
    scan.text = QStringLiteral("x");
    scan.position = position;
    scan.length = length;
    QCOMPARE(journalformat::withScan(QStringLiteral("abc"), scan), QStringLiteral("abcx"));
}

void TestJournalFormat::printTellsContentsApart()
{
    QCOMPARE(journalformat::printOf("123456789").checksum, 0xCBF43926U);
    QVERIFY(journalformat::printOf("a") == journalformat::printOf("a"));
    QVERIFY(!(journalformat::printOf("a") == journalformat::printOf("b")));
    QVERIFY(!(journalformat::printOf({}) == journalformat::printOf(QByteArray(1, '\0'))));
}

QTEST_GUILESS_MAIN(TestJournalFormat)
#include "tst_journalformat.moc"
