// Texts that wait for their card, and what the journal does when it fails itself.
#include "store/filelist.h"
#include "store/storejournal.h"
#include "tests/unit/store/faultyoperations.h"
#include "tests/unit/store/storefixture.h"

#include <QTest>

#include <cerrno>
#include <optional>
#include <string>

using Result = StoreJournal::Result;
using Call = FaultyOperations::Call;

class TestStoreJournal : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothingIsLeftAfterAChange();
    void textOfAMissingCardWaits();
    void waitingTextSurvivesARestart();
    void newestTextWaits();
    void tornTailIsIgnored();
    void journalThatIsNoFileIsNoHindrance_data();
    void journalThatIsNoFileIsNoHindrance();
    void anotherCardsFileIsNotOverwritten();
    void fileEditedMeanwhileIsNotOverwritten();
    void cardThatComesBackBeforeTheSaveKeepsItsText();
    void halfWrittenFileIsCompleted();
    void waitingTextIsNotRenamedAway();
    void removingAFileThatWaitsForgetsItUnlessTheCardIsOut();
    void nameOfAWaitingFileIsTaken();
    void scansAreAppendedToAnEditedFile();
    void scansOfAVanishedFileMakeIt();
    void scansThatDoNotFitGetAFileOfTheirOwn();
    void scansOfTheOpenFileAreLeftAlone();
    void interruptedCreationNeverTouchesAnotherFile();
    void doneThingsAreNotDoneAgain();
    void journalStaysSmallWhileATextWaits();
    void takenAwayJournalIsMadeAgain();
    void longFileIsRenamed();
    void everyFaultOfACreation();
    void everyFaultOfARenaming();
    void everyFaultOfARemoval();
    void everyFaultOfALog();

private:
    QString path(const char* name) const { return f->scanPlace(QString::fromLatin1(name)); }
    QString text(const char* name) const { return scantext::decode(f->root().read(path(name))); }
    QByteArray logged() const { return f->root().read(QStringLiteral("/apps/config/store.jnl")); }
    QString folder() const { return f->root().path(QStringLiteral("/mnt/mmc/e_ScanFile")); }
    void takeCardOut() const { QVERIFY(QDir().rename(folder(), folder() + u'x')); }
    void putCardBack() const { QVERIFY(QDir().rename(folder() + u'x', folder())); }
    void restart() { journal.emplace(); }
    void see(const char* name) { journal->noteRead(path(name), f->root().read(path(name))); }

    std::optional<StoreFixture> f;
    std::optional<StoreJournal> journal;
};

namespace {

const QByteArray New = scantext::encode(QStringLiteral("new"));

} // namespace

void TestStoreJournal::init()
{
    f.emplace();
    f->root().write(path("a"), scantext::encode(QStringLiteral("old")));
    journal.emplace();
}

void TestStoreJournal::cleanup()
{
    journal.reset();
    f.reset();
}

void TestStoreJournal::nothingIsLeftAfterAChange()
{
    QCOMPARE(journal->write(path("a"), New), Result::Done);
    QCOMPARE(logged(), QByteArray());
    QCOMPARE(journal->create(path("b"), New), Result::Done);
    QCOMPARE(journal->rename(path("b"), path("c")), Result::Done);
    QCOMPARE(journal->remove(path("c")), Result::Done);
    QCOMPARE(logged(), QByteArray());
    QCOMPARE(f->filesOnCard(), QStringList(QStringLiteral("a.txt")));
    QCOMPARE(text("a"), QStringLiteral("new"));
}

void TestStoreJournal::textOfAMissingCardWaits()
{
    see("a");
    takeCardOut();
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    QCOMPARE(journal->waitingText(path("a")), QStringLiteral("new"));
    QVERIFY(journal->retry().isEmpty());
    QVERIFY(!QDir(folder()).exists());
    putCardBack();
    QCOMPARE(journal->retry(), QStringList(path("a")));
    QCOMPARE(text("a"), QStringLiteral("new"));
    QVERIFY(!journal->waitingText(path("a")));
    QCOMPARE(logged(), QByteArray());
}

void TestStoreJournal::waitingTextSurvivesARestart()
{
    see("a");
    takeCardOut();
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    for (int i = 0; i < 2; ++i) {
        restart();
        QVERIFY(journal->recover().isEmpty());
        QCOMPARE(journal->waitingText(path("a")), QStringLiteral("new"));
    }
    putCardBack();
    restart();
    QCOMPARE(journal->recover(), QStringList(path("a")));
    QCOMPARE(text("a"), QStringLiteral("new"));
    QCOMPARE(f->filesOnCard(), QStringList(QStringLiteral("a.txt")));
    QCOMPARE(logged(), QByteArray());
}

void TestStoreJournal::newestTextWaits()
{
    see("a");
    takeCardOut();
    QCOMPARE(journal->write(path("a"), scantext::encode(QStringLiteral("first"))), Result::Kept);
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("er"), 3));
    QCOMPARE(journal->waitingText(path("a")), QStringLiteral("newer"));
    putCardBack();
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral("newer"));
    QCOMPARE(f->filesOnCard(), QStringList(QStringLiteral("a.txt")));
}

void TestStoreJournal::tornTailIsIgnored()
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

void TestStoreJournal::journalThatIsNoFileIsNoHindrance_data()
{
    QTest::addColumn<bool>("isLink");
    QTest::newRow("folder") << false;
    QTest::newRow("link") << true;
}

void TestStoreJournal::journalThatIsNoFileIsNoHindrance()
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

void TestStoreJournal::anotherCardsFileIsNotOverwritten()
{
    see("a");
    takeCardOut();
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    f->root().write(path("a"), scantext::encode(QStringLiteral("of another card")));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral("of another card"));
    QCOMPARE(text("a_1"), QStringLiteral("new"));
    QCOMPARE(logged(), QByteArray());
}

void TestStoreJournal::fileEditedMeanwhileIsNotOverwritten()
{
    see("a");
    takeCardOut();
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    putCardBack();
    f->root().write(path("a"), scantext::encode(QStringLiteral("from the PC")));
    journal->retry();
    QCOMPARE(text("a"), QStringLiteral("from the PC"));
    QCOMPARE(text("a_1"), QStringLiteral("new"));
}

// Opened while the card was out: the text on the screen does not have what is on the card.
void TestStoreJournal::cardThatComesBackBeforeTheSaveKeepsItsText()
{
    journal->noteRead(path("a"), std::nullopt);
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    QCOMPARE(text("a"), QStringLiteral("old"));
    QCOMPARE(journal->retry(), QStringList(path("a")));
    QCOMPARE(text("a"), QStringLiteral("old"));
    QCOMPARE(text("a_1"), QStringLiteral("new"));
}

// A card that fails for good while it is written to, so that not even the old text can be put back:
// what is there later is ours.
void TestStoreJournal::halfWrittenFileIsCompleted()
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

void TestStoreJournal::waitingTextIsNotRenamedAway()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("er"), 3));
    QCOMPARE(journal->rename(path("a"), path("b")), Result::Failed);
    QCOMPARE(text("a"), QStringLiteral("old"));
    journal->leave();
    journal->retry();
    QCOMPARE(journal->rename(path("a"), path("b")), Result::Done);
    QCOMPARE(text("b"), QStringLiteral("older"));
}

void TestStoreJournal::removingAFileThatWaitsForgetsItUnlessTheCardIsOut()
{
    see("a");
    takeCardOut();
    QCOMPARE(journal->remove(path("a")), Result::Failed);
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    QCOMPARE(journal->remove(path("a")), Result::Failed);
    QCOMPARE(journal->waitingText(path("a")), QStringLiteral("new"));
    putCardBack();
    QVERIFY(QFile::remove(f->root().path(path("a"))));
    QCOMPARE(journal->remove(path("a")), Result::Done);
    QVERIFY(!journal->waitingText(path("a")));
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("er"), 3));
    QCOMPARE(journal->remove(path("a")), Result::Done);
    restart();
    journal->recover();
    QVERIFY(f->filesOnCard().isEmpty());
}

void TestStoreJournal::nameOfAWaitingFileIsTaken()
{
    see("a");
    QVERIFY(QFile::remove(f->root().path(path("a"))));
    QVERIFY(QDir().mkpath(f->root().path(path("a"))));
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    QVERIFY(QDir(f->root().path(path("a"))).removeRecursively());
    QCOMPARE(journal->create(path("a"), {}), Result::Exists);
    journal->retry();
    QCOMPARE(text("a"), QStringLiteral("new"));
}

void TestStoreJournal::scansAreAppendedToAnEditedFile()
{
    QVERIFY(journal->noteScan(path("a"), 0, QStringLiteral("one "), 3));
    QVERIFY(journal->noteScan(path("a"), 4, QStringLiteral("two "), 7));
    f->root().write(path("a"), scantext::encode(QStringLiteral("edited ")));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral("edited one two "));
}

void TestStoreJournal::scansOfAVanishedFileMakeIt()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral(" one "), 3));
    QVERIFY(QFile::remove(f->root().path(path("a"))));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral(" one "));
}

void TestStoreJournal::scansThatDoNotFitGetAFileOfTheirOwn()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("one "), 3));
    f->root().write(path("a"), scantext::encode(QString(32768, u'x')));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QString(32768, u'x'));
    QCOMPARE(text("a_1"), QStringLiteral("one "));
    QCOMPARE(logged(), QByteArray());
}

void TestStoreJournal::scansOfTheOpenFileAreLeftAlone()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("er"), 3));
    QVERIFY(journal->retry().isEmpty());
    QCOMPARE(text("a"), QStringLiteral("old"));
    journal->leave();
    QCOMPARE(journal->retry(), QStringList(path("a")));
    QCOMPARE(text("a"), QStringLiteral("older"));
}

// The power went between the record and the creation, and a PC has put a file there.
void TestStoreJournal::interruptedCreationNeverTouchesAnotherFile()
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
void TestStoreJournal::doneThingsAreNotDoneAgain()
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

void TestStoreJournal::journalStaysSmallWhileATextWaits()
{
    const QString second = f->secondPlace(QStringLiteral("s"));
    f->root().write(second, "x");
    see("a");
    takeCardOut();
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    qsizetype largest = 0;
    for (int i = 0; i < 40; ++i) {
        QCOMPARE(journal->write(second, QByteArray(100'000, char('a' + i % 26))), Result::Done);
        largest = std::max(largest, logged().size());
    }
    QVERIFY(largest < 1'300'000);
    QVERIFY(logged().size() < largest);
    restart();
    journal->recover();
    QCOMPARE(journal->waitingText(path("a")), QStringLiteral("new"));
    putCardBack();
    restart();
    QCOMPARE(journal->recover(), QStringList(path("a")));
    QCOMPARE(f->filesOnCard(), QStringList(QStringLiteral("a.txt"))); // known to be untouched
}

void TestStoreJournal::takenAwayJournalIsMadeAgain()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("e"), 3));
    QVERIFY(QFile::remove(f->root().path(QStringLiteral("/apps/config/store.jnl"))));
    QVERIFY(journal->noteScan(path("a"), 4, QStringLiteral("r"), 4));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral("older"));
}

void TestStoreJournal::longFileIsRenamed()
{
    const QByteArray book(2'000'000, 'x');
    f->root().write(path("book"), book);
    QCOMPARE(journal->rename(path("book"), path("b")), Result::Done);
    QCOMPARE(f->root().read(path("b")), book);
    QVERIFY(!f->root().exists(path("book")));
}

// Done: the file is there; else nothing is, now and after the next start.
void TestStoreJournal::everyFaultOfACreation()
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
void TestStoreJournal::everyFaultOfARenaming()
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

void TestStoreJournal::everyFaultOfARemoval()
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
void TestStoreJournal::everyFaultOfALog()
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

QTEST_GUILESS_MAIN(TestStoreJournal)
#include "tst_storejournal.moc"
