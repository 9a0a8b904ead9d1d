#include "tests/shared/testobjects.h"
#include "tests/unit/store/faultyoperations.h"
#include "tests/unit/store/journalfixture.h"

#include <QTest>

/* Texts and scans that wait for their card. */
class TestStoreJournalWaiting : public JournalFixture
{
    Q_OBJECT

private slots:
    void nothingIsLeftAfterAChange();
    void textOfAMissingCardWaits();
    void waitingTextSurvivesARestart();
    void newestTextWaits();
    void anotherCardsFileIsNotOverwritten();
    void fileEditedMeanwhileIsNotOverwritten();
    void cardThatComesBackBeforeTheSaveKeepsItsText();
    void waitingTextIsNotRenamedAway();
    void removingAFileThatWaitsForgetsItUnlessTheCardIsOut();
    void nameOfAWaitingFileIsTaken();
    void scansAreAppendedToAnEditedFile();
    void scansOfAVanishedFileMakeIt();
    void scansThatDoNotFitGetAFileOfTheirOwn();
    void scansOfTheOpenFileAreLeftAlone();
    void journalStaysSmallWhileATextWaits();
};

void TestStoreJournalWaiting::nothingIsLeftAfterAChange()
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

void TestStoreJournalWaiting::textOfAMissingCardWaits()
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

void TestStoreJournalWaiting::waitingTextSurvivesARestart()
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

void TestStoreJournalWaiting::newestTextWaits()
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

void TestStoreJournalWaiting::anotherCardsFileIsNotOverwritten()
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

void TestStoreJournalWaiting::fileEditedMeanwhileIsNotOverwritten()
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
void TestStoreJournalWaiting::cardThatComesBackBeforeTheSaveKeepsItsText()
{
    journal->noteRead(path("a"), std::nullopt);
    QCOMPARE(journal->write(path("a"), New), Result::Kept);
    QCOMPARE(text("a"), QStringLiteral("old"));
    QCOMPARE(journal->retry(), QStringList(path("a")));
    QCOMPARE(text("a"), QStringLiteral("old"));
    QCOMPARE(text("a_1"), QStringLiteral("new"));
}

void TestStoreJournalWaiting::waitingTextIsNotRenamedAway()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("er"), 3));
    QCOMPARE(journal->rename(path("a"), path("b")), Result::Failed);
    QCOMPARE(text("a"), QStringLiteral("old"));
    journal->leave();
    journal->retry();
    QCOMPARE(journal->rename(path("a"), path("b")), Result::Done);
    QCOMPARE(text("b"), QStringLiteral("older"));
}

void TestStoreJournalWaiting::removingAFileThatWaitsForgetsItUnlessTheCardIsOut()
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

void TestStoreJournalWaiting::nameOfAWaitingFileIsTaken()
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

void TestStoreJournalWaiting::scansAreAppendedToAnEditedFile()
{
    QVERIFY(journal->noteScan(path("a"), 0, QStringLiteral("one "), 3));
    QVERIFY(journal->noteScan(path("a"), 4, QStringLiteral("two "), 7));
    f->root().write(path("a"), scantext::encode(QStringLiteral("edited ")));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral("edited one two "));
}

void TestStoreJournalWaiting::scansOfAVanishedFileMakeIt()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral(" one "), 3));
    QVERIFY(QFile::remove(f->root().path(path("a"))));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QStringLiteral(" one "));
}

void TestStoreJournalWaiting::scansThatDoNotFitGetAFileOfTheirOwn()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("one "), 3));
    f->root().write(path("a"), scantext::encode(QString(32768, u'x')));
    restart();
    journal->recover();
    QCOMPARE(text("a"), QString(32768, u'x'));
    QCOMPARE(text("a_1"), QStringLiteral("one "));
    QCOMPARE(logged(), QByteArray());
}

void TestStoreJournalWaiting::scansOfTheOpenFileAreLeftAlone()
{
    QVERIFY(journal->noteScan(path("a"), 3, QStringLiteral("er"), 3));
    QVERIFY(journal->retry().isEmpty());
    QCOMPARE(text("a"), QStringLiteral("old"));
    journal->leave();
    QCOMPARE(journal->retry(), QStringList(path("a")));
    QCOMPARE(text("a"), QStringLiteral("older"));
}

void TestStoreJournalWaiting::journalStaysSmallWhileATextWaits()
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

TEST_OBJECT(TestStoreJournalWaiting)
#include "tst_storejournal_waiting.moc"
