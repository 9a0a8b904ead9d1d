// The scan-file store: reading and saving texts, and what happens when the storage fails.
#include "tests/unit/store/dialogwatcher.h"
#include "tests/unit/store/faultyoperations.h"
#include "tests/unit/store/storefixture.h"

#include <QTest>

#include <cerrno>
#include <optional>
#include <string>
#include <sys/stat.h>

using Call = FaultyOperations::Call;

namespace {

const QString Damaged = QStringLiteral("File system is damaged, please connect to PC and repair.");
const QString Name = QStringLiteral("a");

QStringList systemCalls(const QStringList& names)
{
    QStringList calls;
    for (const QString& name : names)
        calls.append(name + QStringLiteral("()"));
    return calls << QStringLiteral("sleepMicroseconds(50000)");
}

} // namespace

class TestFileManagerTexts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void newFileIsWrittenAsGiven();
    void newFilesOfADay();
    void newFileOrderOfSystemCalls();
    void newFileNeverTouchesAnUnlistedOne();
    void newFileOfAnEmptyText();
    void newFileOnADamagedCard();
    void newFileWhenTheCardIsFull();
    void newFileWhenTheListCannotBeWritten();
    void savedFileHasCarriageReturns();
    void saveUpdatesTheEntry();
    void saveOrderOfSystemCalls();
    void saveOutsideTheList();
    void saveIntoTheSecondStorage();
    void saveMakesAVanishedFileAgain();
    void saveNeverWritesThroughStrangeThings_data();
    void saveNeverWritesThroughStrangeThings();
    void saveWhenTheCardIsFullKeepsTheOldText();
    void saveWhenTheListCannotBeWritten();
    void everyFaultKeepsOldOrNew();
    void shorterTextLeavesNoRemainder();
    void readsBothForms();
    void readsForeignEncodings();
    void sizeCountsLineEndsTwice();
    void sizeAtTheEditorsLimit_data();
    void sizeAtTheEditorsLimit();
    void fileFarOverTheLimitIsNotRead();
    void readingNothingKeepsTheSize();
    void readingStrangeThingsDoesNotBlock();
    void readErrorIsNoEmptyText();
    void nothingIsLeftInTheScanFolder();
    void removeWithoutAListIsToldAndDone();

private:
    FileInfo info(const QString& name, int id = 0, int storage = 0) const
    {
        return {name, {}, {}, storage, id};
    }
    std::optional<StoreFixture> f;
};

void TestFileManagerTexts::init()
{
    f.emplace();
}

void TestFileManagerTexts::cleanup()
{
    f.reset();
}

void TestFileManagerTexts::newFileIsWrittenAsGiven()
{
    f->load({Name});
    const QString text = QStringLiteral("Hello world \n");
    const QString name = f->manager().saveFile(text);
    QCOMPARE(name, f->today("yyMMdd"));
    QCOMPARE(f->root().read(f->scanPlace(name)), scantext::encode(text)); // the bare line feed
    const FileInfo entry = f->entry(0);
    QCOMPARE(entry.name, name);
    QCOMPARE(entry.brief, QStringLiteral("orld \n")); // exact in memory
    QCOMPARE(entry.date, f->today());
    QCOMPARE(entry.storage, 0);
    QCOMPARE(entry.id, 1);
    QCOMPARE(f->list(),
             QStringLiteral("0\na\tbrief\t20121105\t0\n%1\torld  \t%2\t0\n").arg(name, f->today()));
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->manager().getFileNum(), 2);
}

void TestFileManagerTexts::newFilesOfADay()
{
    const QString day = f->today("yyMMdd");
    QCOMPARE(f->manager().saveFile(QStringLiteral("1")), day);
    QCOMPARE(f->manager().saveFile(QStringLiteral("2")), day + QStringLiteral("_1"));
    QCOMPARE(f->manager().removeAt(1), 0);
    QCOMPARE(f->manager().saveFile(QStringLiteral("3")), day + QStringLiteral("_2"));
}

void TestFileManagerTexts::newFileOrderOfSystemCalls()
{
    f->manager().saveFile(QStringLiteral("x"));
    QCOMPARE(fakes::calls(),
             systemCalls({QStringLiteral("syncStorage"), QStringLiteral("syncStorage"),
                          QStringLiteral("dropPageCache")}));
}

void TestFileManagerTexts::newFileNeverTouchesAnUnlistedOne()
{
    const QString day = f->today("yyMMdd");
    f->root().write(f->scanPlace(day), "mine");
    QVERIFY(QDir().mkpath(f->root().path(f->scanPlace(day + QStringLiteral("_1")))));
    QVERIFY(QFile::link(QStringLiteral("/nowhere"),
                        f->root().path(f->scanPlace(day + QStringLiteral("_2")))));
    QCOMPARE(f->manager().newFileName(), day); // the list does not know
    QCOMPARE(f->manager().saveFile(QStringLiteral("new")), day + QStringLiteral("_3"));
    QCOMPARE(f->root().read(f->scanPlace(day)), QByteArray("mine"));
    QCOMPARE(f->names(), QStringList(day + QStringLiteral("_3")));
}

void TestFileManagerTexts::newFileOfAnEmptyText()
{
    const QString name = f->manager().saveFile(QString());
    QCOMPARE(f->root().read(f->scanPlace(name)), QByteArray("\xFF\xFE"));
    QVERIFY(f->entry(0).brief.isEmpty());
}

void TestFileManagerTexts::newFileOnADamagedCard()
{
    DialogWatcher dialogs;
    QVERIFY(QDir(f->root().path(QStringLiteral("/mnt/mmc/e_ScanFile"))).removeRecursively());
    const QString list = f->list();
    QVERIFY(f->manager().saveFile(QStringLiteral("x")).isEmpty());
    QCOMPARE(dialogs.texts(), QStringList(Damaged));
    QCOMPARE(f->manager().getFileNum(), 0);
    QCOMPARE(f->list(), list);
    QVERIFY(fakes::calls().isEmpty());
}

void TestFileManagerTexts::newFileWhenTheCardIsFull()
{
    DialogWatcher dialogs;
    FaultyOperations operations;
    operations.setStorageEnd(1000);
    QVERIFY(f->manager().saveFile(QString(5000, u'x')).isEmpty());
    QCOMPARE(dialogs.texts(), QStringList(Damaged));
    QVERIFY(f->filesOnCard().isEmpty());
    QCOMPARE(f->manager().getFileNum(), 0);
}

void TestFileManagerTexts::newFileWhenTheListCannotBeWritten()
{
    DialogWatcher dialogs;
    QVERIFY(QDir(f->root().path(QStringLiteral("/apps/config"))).removeRecursively());
    const QString name = f->manager().saveFile(QStringLiteral("text"));
    QCOMPARE(name, f->today("yyMMdd"));
    QCOMPARE(dialogs.texts(), QStringList(Damaged));
    QCOMPARE(f->root().read(f->scanPlace(name)), scantext::encode(QStringLiteral("text")));
    QCOMPARE(f->names(), QStringList(name));
}

void TestFileManagerTexts::savedFileHasCarriageReturns()
{
    f->load({Name});
    const QString text = QStringLiteral("Hello world \n");
    QCOMPARE(f->manager().saveFile(f->entry(0), text), Name);
    QCOMPARE(f->root().read(f->scanPlace(Name)),
             scantext::encode(QStringLiteral("Hello world \r\n")));
    QCOMPARE(f->entry(0).brief, QStringLiteral("oworld"));
    QCOMPARE(f->manager().readFile(f->entry(0)), text);
}

void TestFileManagerTexts::saveUpdatesTheEntry()
{
    f->load({Name, QStringLiteral("b")});
    QCOMPARE(f->manager().saveFile(f->entry(1), QStringLiteral("one two")), Name);
    QCOMPARE(f->list(),
             QStringLiteral("0\na\tonetwo\t%1\t0\nb\tbrief\t20121105\t0\n").arg(f->today()));
}

void TestFileManagerTexts::saveOrderOfSystemCalls()
{
    f->load({Name});
    f->manager().saveFile(f->entry(0), QStringLiteral("x"));
    QCOMPARE(fakes::calls(),
             systemCalls({QStringLiteral("syncStorage"), QStringLiteral("syncStorage"),
                          QStringLiteral("syncStorage"), QStringLiteral("dropPageCache")}));
}

void TestFileManagerTexts::saveOutsideTheList()
{
    DialogWatcher dialogs;
    f->load({Name});
    for (const int id : {-1, 1}) {
        QVERIFY(f->manager().saveFile(info(Name, id), QStringLiteral("new")).isEmpty());
        QCOMPARE(f->root().read(f->scanPlace(Name)), scantext::encode(Name));
    }
    QVERIFY(dialogs.texts().isEmpty());
}

void TestFileManagerTexts::saveIntoTheSecondStorage()
{
    f->root().write(f->secondPlace(Name), "old");
    f->writeList(0, {QStringLiteral("a 1")});
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->manager().saveFile(f->entry(0), QStringLiteral("new")), Name);
    QCOMPARE(f->root().read(f->secondPlace(Name)), scantext::encode(QStringLiteral("new")));
    QVERIFY(f->filesOnCard().isEmpty());
}

void TestFileManagerTexts::saveMakesAVanishedFileAgain()
{
    f->load({Name});
    QVERIFY(QFile::remove(f->root().path(f->scanPlace(Name))));
    QCOMPARE(f->manager().saveFile(f->entry(0), QStringLiteral("kept")), Name);
    QCOMPARE(f->manager().readFile(f->entry(0)), QStringLiteral("kept"));
}

void TestFileManagerTexts::saveNeverWritesThroughStrangeThings_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"folder", "fifo", "link"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestFileManagerTexts::saveNeverWritesThroughStrangeThings()
{
    QFETCH(const QString, kind);
    DialogWatcher dialogs;
    f->load({Name});
    const QString list = f->list();
    const QString path = f->root().path(f->scanPlace(Name));
    f->root().write(QStringLiteral("/tmp/target"), "target");
    QVERIFY(QFile::remove(path));
    if (kind == u"folder")
        QVERIFY(QDir().mkpath(path));
    else if (kind == u"fifo")
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    else
        QVERIFY(QFile::link(f->root().path(QStringLiteral("/tmp/target")), path));
    QVERIFY(f->manager().saveFile(f->entry(0), QStringLiteral("new")).isEmpty());
    QCOMPARE(dialogs.texts(), QStringList(Damaged));
    QCOMPARE(f->root().read(QStringLiteral("/tmp/target")), QByteArray("target"));
    QCOMPARE(f->list(), list);
    QCOMPARE(f->entry(0).brief, QStringLiteral("brief"));
}

void TestFileManagerTexts::saveWhenTheCardIsFullKeepsTheOldText()
{
    DialogWatcher dialogs;
    f->load({Name});
    FaultyOperations operations;
    operations.setStorageEnd(4096);
    QVERIFY(f->manager().saveFile(f->entry(0), QString(5000, u'x')).isEmpty());
    QCOMPARE(dialogs.texts(), QStringList(Damaged));
    QCOMPARE(f->manager().readFile(f->entry(0)), Name);
    QCOMPARE(f->entry(0).brief, QStringLiteral("brief"));
}

void TestFileManagerTexts::saveWhenTheListCannotBeWritten()
{
    DialogWatcher dialogs;
    f->load({Name});
    QVERIFY(QDir(f->root().path(QStringLiteral("/apps/config"))).removeRecursively());
    QCOMPARE(f->manager().saveFile(f->entry(0), QStringLiteral("new")), Name);
    QCOMPARE(dialogs.texts(), QStringList(Damaged));
    QCOMPARE(f->manager().readFile(f->entry(0)), QStringLiteral("new"));
}

// Each call of a save fails in turn: a name means that the new text is on the card, no name that
// the user was told and the old text or the kept new one comes with the next start; the list can
// always be read again, and it is old only when the user was told.
void TestFileManagerTexts::everyFaultKeepsOldOrNew()
{
    const QString text = QStringLiteral("a new and longer text\n");
    bool faulted = true;
    int nth = 0;
    while (faulted) {
        const std::string where = std::to_string(++nth);
        f.emplace();
        f->load({Name});
        DialogWatcher dialogs;
        QString name;
        {
            FaultyOperations operations;
            operations.setLargestTransfer(64);
            operations.failAtAny(nth, EIO, false);
            name = f->manager().saveFile(f->entry(0), text);
            faulted = operations.hasFailed();
        }
        const bool told = dialogs.texts() == QStringList(Damaged);
        QVERIFY2(told || f->list().contains(QStringLiteral("ertext")), where.c_str());
        if (!name.isEmpty())
            QCOMPARE(scantext::decode(f->root().read(f->scanPlace(Name))), text);
        else
            QVERIFY2(told, where.c_str());
        const bool isNew = !name.isEmpty() || f->manager().isKept(f->entry(0), text);
        FileManager::quitFun();
        QCOMPARE(f->manager().init(), 0);
        const QString now = f->manager().readFile(f->entry(0));
        QVERIFY2(now == text || (!isNew && now == Name), where.c_str());
        QCOMPARE(f->names(), QStringList(Name));
        QCOMPARE(f->filesOnCard(), QStringList(QStringLiteral("a.txt")));
    }
    QVERIFY(nth > 10);
}

void TestFileManagerTexts::shorterTextLeavesNoRemainder()
{
    f->load({Name});
    QCOMPARE(f->manager().saveFile(f->entry(0), QString(3000, u'x')), Name);
    QCOMPARE(f->manager().saveFile(f->entry(0), QStringLiteral("y")), Name);
    QCOMPARE(f->root().read(f->scanPlace(Name)), scantext::encode(QStringLiteral("y")));
}

void TestFileManagerTexts::readsBothForms()
{
    for (const QString& stored : {QStringLiteral("a\nb\n"), QStringLiteral("a\r\nb\r\n")}) {
        f->root().write(f->scanPlace(Name), scantext::encode(stored));
        QCOMPARE(f->manager().readFile(info(Name)), QStringLiteral("a\nb\n"));
        QCOMPARE(f->manager().getReturnSize(), 12);
    }
}

void TestFileManagerTexts::readsForeignEncodings()
{
    f->root().write(f->scanPlace(Name), "caf\xC3\xA9\r\n");
    QCOMPARE(f->manager().readFile(info(Name)), QStringLiteral("café\n"));
    QCOMPARE(f->manager().getReturnSize(), 12);
    f->root().write(f->scanPlace(Name), "\xC4\xE3\xBA\xC3");
    QCOMPARE(f->manager().readFile(info(Name)), QStringLiteral("你好"));
    f->root().write(f->scanPlace(Name), QByteArray("\xFF\xFE"
                                                   "A\0x",
                                                   5));
    QCOMPARE(f->manager().readFile(info(Name)), QStringLiteral("A"));
}

void TestFileManagerTexts::sizeCountsLineEndsTwice()
{
    f->root().write(f->scanPlace(Name), scantext::encode(QStringLiteral("ab\n")));
    f->manager().readFile(info(Name));
    QCOMPARE(f->manager().getReturnSize(), 8);
    f->root().write(f->scanPlace(Name), {});
    f->manager().readFile(info(Name));
    QCOMPARE(f->manager().getReturnSize(), 0);
}

void TestFileManagerTexts::sizeAtTheEditorsLimit_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("size");
    QTest::newRow("largest") << scantext::encode(QString(32768, u'x')) << 65536;
    QTest::newRow("one more") << scantext::encode(QString(32769, u'x')) << 65538;
    QTest::newRow("line feeds") << scantext::encode(QString(32768, u'\n')) << 131072;
    QTest::newRow("UTF-8 of three bytes")
        << QString(32768, QChar(0x4F60)).toUtf8() << 65536; // 98,304 bytes: read all the same
}

void TestFileManagerTexts::sizeAtTheEditorsLimit()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, size);
    f->root().write(f->scanPlace(Name), bytes);
    QVERIFY(!f->manager().readFile(info(Name)).isEmpty());
    QCOMPARE(f->manager().getReturnSize(), size);
}

void TestFileManagerTexts::fileFarOverTheLimitIsNotRead()
{
    f->root().write(f->scanPlace(Name), {});
    QFile file(f->root().path(f->scanPlace(Name)));
    for (const qint64 size : {qint64(262145), qint64(1) << 40}) {
        QVERIFY(file.resize(size));
        FaultyOperations operations;
        QVERIFY(f->manager().readFile(info(Name)).isEmpty());
        QVERIFY(f->manager().getReturnSize() > 65536);
        QCOMPARE(operations.calls(Call::Read), 0);
    }
}

void TestFileManagerTexts::readingNothingKeepsTheSize()
{
    f->root().write(f->scanPlace(Name), scantext::encode(QStringLiteral("ab")));
    f->manager().readFile(info(Name));
    for (const FileInfo& missing :
         {info(QStringLiteral("none")), info(Name, 0, 1), info(Name, 0, 5)}) {
        QVERIFY(f->manager().readFile(missing).isEmpty());
        QCOMPARE(f->manager().getReturnSize(), 4);
    }
}

void TestFileManagerTexts::readingStrangeThingsDoesNotBlock()
{
    const QString path = f->root().path(f->scanPlace(Name));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(f->manager().readFile(info(Name)).isEmpty());
    QVERIFY(QFile::remove(path));
    f->root().write(QStringLiteral("/tmp/target"), "secret");
    QVERIFY(QFile::link(f->root().path(QStringLiteral("/tmp/target")), path));
    QVERIFY(f->manager().readFile(info(Name)).isEmpty());
}

// Taken for an empty file it would be overwritten by the next save.
void TestFileManagerTexts::readErrorIsNoEmptyText()
{
    f->load({Name});
    FaultyOperations operations;
    operations.failAt(Call::Read, 1, EIO);
    QVERIFY(f->manager().readFile(f->entry(0)).isEmpty());
    QVERIFY(f->manager().getReturnSize() > 65536);
}

void TestFileManagerTexts::nothingIsLeftInTheScanFolder()
{
    f->load({Name});
    const QString name = f->manager().saveFile(QStringLiteral("x"));
    f->manager().saveFile(f->entry(0), QStringLiteral("y"));
    QStringList expected{QStringLiteral("a.txt"), name + QStringLiteral(".txt")};
    expected.sort();
    QStringList files = f->filesOnCard();
    files.sort();
    QCOMPARE(files, expected);
}

// The file is gone: the entry goes, too, and the next start drops it from the list.
void TestFileManagerTexts::removeWithoutAListIsToldAndDone()
{
    f->load(words("a b"));
    const DialogWatcher dialogs;
    const QString list = f->root().path(f->listPlace());
    QVERIFY(QFile::remove(list));
    QVERIFY(QDir().mkpath(list + QStringLiteral("/in the way")));
    QCOMPARE(f->manager().removeAt(0), 0);
    QCOMPARE(dialogs.texts(), QStringList(Damaged));
    QCOMPARE(f->names(), words("a"));
    QCOMPARE(f->filesOnCard(), words("a.txt"));
}

QTEST_MAIN(TestFileManagerTexts)
#include "tst_filemanager_texts.moc"
