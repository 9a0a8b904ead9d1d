#include "tests/shared/testobjects.h"
#include "tests/unit/store/faultyoperations.h"
#include "tests/unit/store/journalfixture.h"

#include <QTest>
#include <cerrno>
#include <string>

/* What the journal does when it fails itself, or is not as it left it. */
class TestStoreJournalFaults : public JournalFixture
{
    Q_OBJECT

private slots:
    void tornTailIsIgnored();
    void journalThatIsNoFileIsNoHindrance_data();
    void journalThatIsNoFileIsNoHindrance();
    void halfWrittenFileIsCompleted();
    void interruptedCreationNeverTouchesAnotherFile();
    void doneThingsAreNotDoneAgain();
    void takenAwayJournalIsMadeAgain();
    void longFileIsRenamed();
    void everyFaultOfACreation();
    void everyFaultOfARenaming();
    void everyFaultOfARemoval();
    void everyFaultOfALog();
};

void TestStoreJournalFaults::tornTailIsIgnored()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("er"), 3));
    const QByteArray whole = logged();
    QVERIFY(journal->noteScan(path("a"), 5, QStringLiteral("!"), 5));
    f->root().write(QStringLiteral("/apps/config/store.jnl"), logged().chopped(3));
    restart();
    QVERIFY(journal->noteScan(path("a"), 5, QStringLiteral("?"), 5)); // over the torn one
    QVERIFY(logged().startsWith(whole));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral("older?"));
}

void TestStoreJournalFaults::journalThatIsNoFileIsNoHindrance_data()
{
    QTest::addColumn<bool>("isLink");
    QTest::newRow("folder") << false;
    QTest::newRow("link") << true;
}

void TestStoreJournalFaults::journalThatIsNoFileIsNoHindrance()
{
    QFETCH(const bool, isLink);
    const QString place = f->root().path(QStringLiteral("/apps/config/store.jnl"));
    f->root().write(QStringLiteral("/tmp/target"), "target");
    if (isLink)
        QVERIFY(QFile::link(f->root().path(QStringLiteral("/tmp/target")), place));
    else
        QVERIFY(QDir().mkpath(place));
    QCOMPARE(journal->write(path("a"), New), Result::Done);
    QCOMPARE(text("a"), QStringLiteral("new"));
    QVERIFY(!journal->noteScan(path("a"), 0, QStringLiteral("x"), 3));
    QCOMPARE(journal->rename(path("a"), path("b")), Result::Done);
    QCOMPARE(journal->remove(path("b")), Result::Done);
    QCOMPARE(f->root().read(QStringLiteral("/tmp/target")), QByteArray("target"));
}

// A card that fails for good while it is written to, so that not even the old text can be put back:
// what is there later is ours.
void TestStoreJournalFaults::halfWrittenFileIsCompleted()
{
    const QByteArray old = scantext::encode(QString(500, u'o'));
    const QByteArray fresh = scantext::encode(QString(500, u'n'));
    int torn = 0;
    bool faulted = true;
    for (int nth = 1; faulted; ++nth) {
        f.emplace();
        f->root().write(path("a"), old);
        restart();
        see("a");
        Result result = Result::Failed;
        {
            FaultyOperations operations;
            operations.setLargestTransfer(100);
            operations.failAtAny(nth, EIO, true);
            result = journal->write(path("a"), fresh);
            faulted = operations.hasFailed();
        }
        const QByteArray between = f->root().read(path("a"));
        torn += between != old && between != fresh ? 1 : 0;
        journal->retry();
        QCOMPARE(f->root().read(path("a")), result == Result::Failed ? old : fresh);
        QCOMPARE(f->filesOnCard(), QStringList(QStringLiteral("a.txt")));
    }
    QVERIFY(torn > 5);
}

// The power went between the record and the creation, and a PC has put a file there.
void TestStoreJournalFaults::interruptedCreationNeverTouchesAnotherFile()
{
    journalformat::Record record;
    record.number = 1;
    record.kind = journalformat::Kind::Create;
    record.path = path("b");
    record.content = New;
    f->root().write(QStringLiteral("/apps/config/store.jnl"), journalformat::encode(record));
    f->root().write(path("b"), scantext::encode(QStringLiteral("foreign")));
    journal->recover();
    QCOMPARE(text("b"), QStringLiteral("foreign"));
    QCOMPARE(text("b_1"), QStringLiteral("new"));
}

// While one text waits, others are saved, and edited on a PC afterwards.
void TestStoreJournalFaults::doneThingsAreNotDoneAgain()
{
    const QString second = f->secondPlace(QStringLiteral("s"));
    f->root().write(second, "x");
    see("a");
    takeCardOut();
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    QCOMPARE(journal->write(second, New), Result::Done);
    f->root().write(second, "edited");
    restart();
    journal->recover();
    QCOMPARE(f->root().read(second), QByteArray("edited"));
    QCOMPARE(journal->waitingText(path("a")), QStringLiteral("new"));
}

void TestStoreJournalFaults::takenAwayJournalIsMadeAgain()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("e"), 3));
    QVERIFY(QFile::remove(f->root().path(QStringLiteral("/apps/config/store.jnl"))));
    QVERIFY(journal->noteScan(path("a"), 4, QStringLiteral("r"), 4));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral("older"));
}

void TestStoreJournalFaults::longFileIsRenamed()
{
    const QByteArray book(2'000'000, 'x');
    f->root().write(path("book"), book);
    QCOMPARE(journal->rename(path("book"), path("b")), Result::Done);
    QCOMPARE(f->root().read(path("b")), book);
    QVERIFY(!f->root().exists(path("book")));
}

// Done: the file is there; else nothing is, now and after the next start.
void TestStoreJournalFaults::everyFaultOfACreation()
{
    bool faulted = true;
    int nth = 0;
    while (faulted) {
        const std::string where = std::to_string(++nth);
        f.emplace();
        restart();
        Result result = Result::Failed;
        {
            FaultyOperations operations;
            operations.failAtAny(nth, ENOSPC, false);
            result = journal->create(path("a"), New);
            faulted = operations.hasFailed();
            QCOMPARE(operations.openFiles(), 0);
        }
        QVERIFY2(faulted || result == Result::Done, where.c_str());
        for (int i = 0; i < 2; ++i) {
            QVERIFY2(f->root().exists(path("a")) == (result == Result::Done), where.c_str());
            QCOMPARE(f->root().read(path("a")), result == Result::Done ? New : QByteArray());
            restart();
            journal->recover();
        }
    }
    QVERIFY(nth > 8);
}

// Done: under the new name; else under the old one. Never under both, never under none.
void TestStoreJournalFaults::everyFaultOfARenaming()
{
    bool faulted = true;
    int nth = 0;
    while (faulted) {
        const std::string where = std::to_string(++nth);
        f.emplace();
        f->root().write(path("a"), New);
        restart();
        Result result = Result::Failed;
        {
            FaultyOperations operations;
            operations.failAtAny(nth, EIO, false);
            result = journal->rename(path("a"), path("b"));
            faulted = operations.hasFailed();
            QCOMPARE(operations.openFiles(), 0);
        }
        QVERIFY2(faulted || result == Result::Done, where.c_str());
        const char* const name = result == Result::Done ? "b" : "a";
        QVERIFY2(text(name) == QStringLiteral("new"), where.c_str());
        QCOMPARE(f->filesOnCard().size(), 1);
        restart();
        journal->recover();
        QCOMPARE(f->filesOnCard().size(), 1);
        QCOMPARE(f->root().read(f->scanPlace(f->filesOnCard().first().chopped(4))), New);
    }
    QVERIFY(nth > 10);
}

void TestStoreJournalFaults::everyFaultOfARemoval()
{
    bool faulted = true;
    int nth = 0;
    while (faulted) {
        ++nth;
        f.emplace();
        f->root().write(path("a"), New);
        restart();
        FaultyOperations operations;
        operations.failAtAny(nth, EIO, false);
        const Result result = journal->remove(path("a"));
        faulted = operations.hasFailed();
        QVERIFY(faulted || result == Result::Done);
        QCOMPARE(f->root().exists(path("a")), result != Result::Done);
        QCOMPARE(operations.openFiles(), 0);
    }
    QVERIFY(nth > 5);
}

// A scan that was reported as logged comes back; the file is as it was whatever happens.
void TestStoreJournalFaults::everyFaultOfALog()
{
    bool faulted = true;
    int nth = 0;
    while (faulted) {
        const std::string where = std::to_string(++nth);
        f.emplace();
        f->root().write(path("a"), scantext::encode(QStringLiteral("old")));
        restart();
        QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("e"), 3));
        bool noted = false;
        {
            FaultyOperations operations;
            operations.setLargestTransfer(50);
            operations.failAtAny(nth, ENOSPC, false);
            noted = journal->noteScan(path("a"), 4, QStringLiteral("r"), 4);
            faulted = operations.hasFailed();
        }
        QVERIFY2(faulted || noted, where.c_str());
        QCOMPARE(text("a"), QStringLiteral("old"));
        restart();
        journal->recover();
        QVERIFY2(text("a") == (noted ? QStringLiteral("older") : QStringLiteral("olde")),
                 where.c_str());
    }
    QVERIFY(nth > 4);
}

TEST_OBJECT(TestStoreJournalFaults)
#include "tst_storejournal_faults.moc"
