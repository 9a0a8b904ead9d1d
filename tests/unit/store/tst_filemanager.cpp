// The scan-file store: its list, import, order.
#include "tests/unit/store/storefixture.h"

#include <QTest>

#include <optional>
#include <sys/stat.h>

class TestFileManager : public QObject
{
    Q_OBJECT

private slots:
    void init() { f.emplace(); }
    void cleanup() { f.reset(); }
    void oneInstance();
    void missingListIsMade();
    void listThatCannotBeMadeFails();
    void loadsAList();
    void malformedLineStopsTheLoad_data();
    void malformedLineStopsTheLoad();
    void flushAfterAMalformedLineDropsTheRest();
    void vanishedFilesAreDropped();
    void unknownStorageIsDropped();
    void currentFollowsItsEntryWhenOthersVanish();
    void bothStoragesAreLooked();
    void importsFromTheCard();
    void importsOddNames();
    void listedNamesAreNotImportedAgain();
    void importIsNotWritten();
    void importWithoutTheFolderFails();
    void strangeThingsAreNotImported();
    void importLeavesNoHandleOpen();
    void countsUpToTheMaximum();
    void displayOrderIsTheReverse();
    void outsideTheList();
    void currentIsSetInStoredOrder();
    void latestFile();

private:
    std::optional<StoreFixture> f;
};

void TestFileManager::oneInstance()
{
    FileManager* const manager = FileManager::Instance();
    QCOMPARE(FileManager::Instance(), manager);
    QCOMPARE(FileManager::manager, manager);
    FileManager::quitFun();
    QVERIFY(FileManager::manager == nullptr);
    FileManager::quitFun();
}

void TestFileManager::missingListIsMade()
{
    QVERIFY(QFile::remove(f->root().path(f->listPlace())));
    QCOMPARE(f->manager().init(), 0);
    QVERIFY(f->root().exists(f->listPlace()));
    QVERIFY(f->root().read(f->listPlace()).isEmpty());
    QCOMPARE(fakes::calls(), QStringList(QStringLiteral("syncStorage()")));
    QCOMPARE(f->manager().getFileNum(), 0);
    QCOMPARE(f->manager().getReturnSize(), 0);
}

void TestFileManager::listThatCannotBeMadeFails()
{
    QVERIFY(QFile::remove(f->root().path(f->listPlace())));
    QVERIFY(QDir().mkpath(f->root().path(f->listPlace())));
    QCOMPARE(f->manager().init(), -1);
    QVERIFY(QDir(f->root().path(QStringLiteral("/apps/config"))).removeRecursively());
    QCOMPARE(f->manager().init(), -1);
}

void TestFileManager::loadsAList()
{
    f->load(words("a b c"), 1);
    QCOMPARE(f->names(), words("a b c"));
    QCOMPARE(f->manager().getFileNum(), 3);
    FileInfo info;
    QVERIFY(f->manager().getCurInfo(info));
    QCOMPARE(info.name, QStringLiteral("b"));
    QCOMPARE(info.brief, QStringLiteral("brief"));
    QCOMPARE(info.date, QStringLiteral("20121105"));
    QCOMPARE(info.storage, 0);
    QCOMPARE(info.id, 1);
    QVERIFY(f->manager().init() == 0); // again
    QCOMPARE(f->manager().getFileNum(), 3);
}

void TestFileManager::malformedLineStopsTheLoad_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("three fields") << QStringLiteral("b\tbrief\t20121105");
    QTest::newRow("five fields") << QStringLiteral("b\tbrief\t20121105\t0\t");
    QTest::newRow("empty") << QString();
}

void TestFileManager::malformedLineStopsTheLoad()
{
    QFETCH(const QString, line);
    const QString text = QStringLiteral("0\na\tx\t1\t0\n%1\nc\tx\t1\t0\n").arg(line);
    f->root().write(f->listPlace(), scantext::encode(text));
    QCOMPARE(f->manager().init(), -1);
    QCOMPARE(f->names(), words("a")); // kept, although its file is not there
    QCOMPARE(f->list(), text);        // and the file is as it was
}

void TestFileManager::flushAfterAMalformedLineDropsTheRest()
{
    f->root().write(f->listPlace(),
                    scantext::encode(QStringLiteral("0\na\tx\t1\t0\nbad\nc\tx\t1\t0\n")));
    QCOMPARE(f->manager().init(), -1);
    QCOMPARE(f->manager().flush(), 0);
    QCOMPARE(f->list(), QStringLiteral("0\na\tx\t1\t0\n"));
}

void TestFileManager::vanishedFilesAreDropped()
{
    f->load(words("a b c d"));
    const QString before = f->list();
    QVERIFY(QFile::remove(f->root().path(f->scanPlace(QStringLiteral("a")))));
    QVERIFY(QFile::remove(f->root().path(f->scanPlace(QStringLiteral("c")))));
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->names(), words("b d"));
    QCOMPARE(f->entry(0).id, 1);
    QCOMPARE(f->entry(1).id, 0);
    QCOMPARE(f->list(), before); // not rewritten
}

void TestFileManager::unknownStorageIsDropped()
{
    f->root().write(f->scanPlace(QStringLiteral("a")), {});
    f->writeList(0, {QStringLiteral("a 2"), QStringLiteral("a -1"), QStringLiteral("a 0")});
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->manager().getFileNum(), 1);
}

void TestFileManager::currentFollowsItsEntryWhenOthersVanish()
{
    f->load(words("a b c d"), 2);
    QVERIFY(QFile::remove(f->root().path(f->scanPlace(QStringLiteral("a")))));
    QCOMPARE(f->manager().init(), 0);
    FileInfo info;
    QVERIFY(f->manager().getCurInfo(info));
    QCOMPARE(info.name, QStringLiteral("c"));
    QCOMPARE(f->manager().getCurFileIndex(), 1);
}

void TestFileManager::bothStoragesAreLooked()
{
    f->root().write(f->scanPlace(QStringLiteral("a")), {});
    f->root().write(f->secondPlace(QStringLiteral("b")), scantext::encode(QStringLiteral("two")));
    f->writeList(0, {QStringLiteral("a 1"), QStringLiteral("b 0"), QStringLiteral("a 0"),
                     QStringLiteral("b 1")});
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->names(), words("a b"));
    QCOMPARE(f->manager().readFile(f->entry(0)), QStringLiteral("two"));
}

void TestFileManager::importsFromTheCard()
{
    f->load(words("a"));
    f->root().write(f->scanPlace(QStringLiteral("notes")), "text");
    QCOMPARE(f->manager().getFileList(), 0);
    QCOMPARE(f->names(), words("a notes"));
    const FileInfo info = f->entry(0);
    QCOMPARE(info.name, QStringLiteral("notes"));
    QCOMPARE(info.brief, QStringLiteral("Import"));
    QCOMPARE(info.date, f->today());
    QCOMPARE(info.storage, 0);
    QCOMPARE(info.id, 1);
}

void TestFileManager::importsOddNames()
{
    for (const char* name : {"a.txt.bak", "b.TXT", "c.text", "d e.txt", ".f.txt", "ä你.txt"})
        f->root().write(QStringLiteral("/mnt/mmc/e_ScanFile/") + QString::fromUtf8(name), "x");
    QCOMPARE(f->manager().getFileList(), 0);
    QStringList names = f->names();
    names.sort();
    QCOMPARE(names, QStringList({QStringLiteral(".f"), QStringLiteral("a"), QStringLiteral("d e"),
                                 QStringLiteral("ä你")}));
}

void TestFileManager::listedNamesAreNotImportedAgain()
{
    f->root().write(f->secondPlace(QStringLiteral("a")), {});
    f->root().write(f->scanPlace(QStringLiteral("a")), {});
    f->root().write(f->scanPlace(QStringLiteral("b")), {});
    f->root().write(QStringLiteral("/mnt/mmc/e_ScanFile/b.txt.bak"), {});
    f->writeList(0, {QStringLiteral("a 1")});
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->manager().getFileList(), 0);
    QCOMPARE(f->manager().getFileList(), 0);
    QCOMPARE(f->names(), words("a b"));
}

void TestFileManager::importIsNotWritten()
{
    f->root().write(f->scanPlace(QStringLiteral("notes")), "text");
    QCOMPARE(f->manager().getFileList(), 0);
    QVERIFY(f->root().read(f->listPlace()).isEmpty());
    QCOMPARE(f->manager().flush(), 0);
    QCOMPARE(f->list(), QStringLiteral("0\nnotes\tImport\t%1\t0\n").arg(f->today()));
}

void TestFileManager::importWithoutTheFolderFails()
{
    f->load(words("a"));
    QVERIFY(QDir(f->root().path(QStringLiteral("/mnt/mmc/e_ScanFile"))).removeRecursively());
    QCOMPARE(f->manager().getFileList(), -1);
    QCOMPARE(f->names(), words("a"));
}

void TestFileManager::strangeThingsAreNotImported()
{
    const QString folder = f->root().path(QStringLiteral("/mnt/mmc/e_ScanFile/"));
    f->root().write(QStringLiteral("/tmp/target"), "secret");
    QVERIFY(QDir().mkpath(folder + QStringLiteral("folder.txt")));
    QVERIFY(QFile::link(f->root().path(QStringLiteral("/tmp/target")),
                        folder + QStringLiteral("link.txt")));
    QVERIFY(QFile::link(QStringLiteral("/nowhere"), folder + QStringLiteral("dangling.txt")));
    QCOMPARE(::mkfifo(QFile::encodeName(folder + QStringLiteral("fifo.txt")).constData(), 0600), 0);
    QCOMPARE(f->manager().getFileList(), 0);
    QVERIFY(f->names().isEmpty());

    // Neither do they count as the file of an entry.
    f->writeList(0, {QStringLiteral("folder 0"), QStringLiteral("link 0"), QStringLiteral("fifo 0"),
                     QStringLiteral("dangling 0")});
    QCOMPARE(f->manager().init(), 0);
    QVERIFY(f->names().isEmpty());
}

void TestFileManager::importLeavesNoHandleOpen()
{
    const auto openHandles = [] {
        return QDir(QStringLiteral("/proc/self/fd"))
            .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
            .size();
    };
    QCOMPARE(f->manager().getFileList(), 0);
    const auto before = openHandles();
    for (int i = 0; i < 20; ++i)
        QCOMPARE(f->manager().getFileList(), 0);
    QCOMPARE(openHandles(), before);
}

void TestFileManager::countsUpToTheMaximum()
{
    for (int i = 0; i < 999; ++i)
        f->root().write(f->scanPlace(QString::number(i)), {});
    QCOMPARE(f->manager().getFileList(), 0);
    QCOMPARE(f->manager().getFileNum(), 999);
    QVERIFY(f->manager().exceedMaxNum()); // the name reads the other way round
    f->root().write(f->scanPlace(QStringLiteral("999")), {});
    QCOMPARE(f->manager().getFileList(), 0);
    QVERIFY(!f->manager().exceedMaxNum());
}

void TestFileManager::displayOrderIsTheReverse()
{
    f->load(words("oldest middle newest"));
    QVector<FileInfo> list(1); // what is there stays
    f->manager().getInfoList(list);
    QCOMPARE(list.size(), 4);
    QCOMPARE(list.at(1).name, QStringLiteral("newest"));
    QCOMPARE(list.at(3).name, QStringLiteral("oldest"));
    FileInfo info;
    QVERIFY(f->manager().getInfoByID(0, info));
    QCOMPARE(info.name, QStringLiteral("newest"));
    QCOMPARE(info.id, 2);
    QVERIFY(f->manager().getInfoByID(2, info));
    QCOMPARE(info.name, QStringLiteral("oldest"));
}

void TestFileManager::outsideTheList()
{
    f->load(words("a"));
    FileInfo info;
    info.name = QStringLiteral("untouched");
    QVERIFY(!f->manager().getInfoByID(-1, info));
    QVERIFY(!f->manager().getInfoByID(1, info));
    QCOMPARE(info.name, QStringLiteral("untouched"));
    f->load({}, 3);
    QVERIFY(!f->manager().getCurInfo(info));
    QVERIFY(!f->manager().getLatestFile(info));
    QCOMPARE(info.name, QStringLiteral("untouched"));
    QVERIFY(f->manager().getLatestFile().isEmpty());
}

void TestFileManager::currentIsSetInStoredOrder()
{
    f->load(words("a b c"));
    QCOMPARE(f->manager().getCurFileIndex(), 2);
    f->manager().setCurFileIndex(2);
    QCOMPARE(f->manager().getCurFileIndex(), 0);
    FileInfo info;
    QVERIFY(f->manager().getCurInfo(info));
    QCOMPARE(info.name, QStringLiteral("c"));
    f->manager().setCurFileIndex(3);
    f->manager().setCurFileIndex(-1);
    QCOMPARE(f->manager().getCurFileIndex(), 0);
}

void TestFileManager::latestFile()
{
    f->load(words("a b"));
    FileInfo info;
    QVERIFY(f->manager().getLatestFile(info));
    QCOMPARE(info.name, QStringLiteral("b"));
    QCOMPARE(f->manager().getLatestFile(), QStringLiteral("b"));
}

QTEST_GUILESS_MAIN(TestFileManager)
#include "tst_filemanager.moc"
