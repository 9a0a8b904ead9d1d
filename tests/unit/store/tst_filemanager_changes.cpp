// The scan-file store: new names, renaming, deletion.
#include "tests/unit/store/storefixture.h"

#include <QTest>

#include <optional>

class TestFileManagerChanges : public QObject
{
    Q_OBJECT

private slots:
    void init() { f.emplace(); }
    void cleanup() { f.reset(); }
    void newFileNames();
    void sameName();
    void renames();
    void renameFailures();
    void renameStaysInTheFolder();
    void saveCfgSetsTheName();
    void saveCfgOutsideDoesNothing();
    void separatorsInANameBecomeBlanksInTheListFile();
    void removes();
    void removesFromTheSecondStorage();
    void removeOutsideTheList();
    void removeOfAVanishedFileKeepsTheEntry();
    void removeMovesTheCurrent_data();
    void removeMovesTheCurrent();
    void removingTheOnlyEntry();
    void removeWritesTheList();
    void flushWritesEveryByte();
    void listSurvivesARestart();

private:
    std::optional<StoreFixture> f;
};

void TestFileManagerChanges::newFileNames()
{
    const QString day = f->today("yyMMdd");
    QCOMPARE(f->manager().newFileName(), day);
    f->load({day});
    QCOMPARE(f->manager().newFileName(), day + QStringLiteral("_1"));
    f->load({QStringLiteral("notes")});
    QCOMPARE(f->manager().newFileName(), day);
}

void TestFileManagerChanges::sameName()
{
    f->load(words("a"));
    QVERIFY(!f->manager().judgeSameName(0, QStringLiteral("a")));
    QVERIFY(f->manager().judgeSameName(7, QStringLiteral("b")));
    QVERIFY(
        QFile::link(QStringLiteral("/nowhere"), f->root().path(f->scanPlace(QStringLiteral("l")))));
    QVERIFY(!f->manager().judgeSameName(0, QStringLiteral("l")));
}

void TestFileManagerChanges::renames()
{
    f->load(words("a"));
    const QString list = f->list();
    QVERIFY(f->manager().renameFile(QStringLiteral("a"), QStringLiteral("new name")));
    QCOMPARE(f->filesOnCard(), QStringList(QStringLiteral("new name.txt")));
    QCOMPARE(f->names(), words("a")); // the list is the caller's next step
    QCOMPARE(f->list(), list);
}

void TestFileManagerChanges::renameFailures()
{
    f->load(words("a b"));
    QVERIFY(!f->manager().renameFile(QStringLiteral("none"), QStringLiteral("c")));
    QVERIFY(!f->manager().renameFile(QStringLiteral("a"), QStringLiteral("b")));
    QVERIFY(!f->manager().renameFile(QStringLiteral("a"), QString(300, u'x')));
    QVERIFY(!f->manager().renameFile(QStringLiteral("a"), QString()));
    QCOMPARE(f->filesOnCard(), words("a.txt b.txt"));
    QCOMPARE(f->root().read(f->scanPlace(QStringLiteral("b"))),
             scantext::encode(QStringLiteral("b")));
}

void TestFileManagerChanges::renameStaysInTheFolder()
{
    f->load(words("a"));
    QVERIFY(!f->manager().renameFile(QStringLiteral("a"), QStringLiteral("../a")));
    QVERIFY(!f->manager().renameFile(QStringLiteral("a"), QStringLiteral("and/or")));
    QVERIFY(!f->manager().renameFile(QStringLiteral("../e_ScanFile/a"), QStringLiteral("b")));
    QCOMPARE(f->filesOnCard(), words("a.txt"));
}

void TestFileManagerChanges::saveCfgSetsTheName()
{
    f->load(words("a b"), 1);
    QVERIFY(f->manager().saveCfg(1, QStringLiteral("new")));
    QCOMPARE(f->names(), words("new b"));
    QCOMPARE(f->list(), QStringLiteral("1\nnew\tbrief\t20121105\t0\nb\tbrief\t20121105\t0\n"));
}

void TestFileManagerChanges::saveCfgOutsideDoesNothing()
{
    f->load(words("a"));
    QVERIFY(!f->manager().saveCfg(1, QStringLiteral("x")));
    QVERIFY(!f->manager().saveCfg(-1, QStringLiteral("x")));
    QCOMPARE(f->names(), words("a"));
    QVERIFY(fakes::calls().isEmpty());
}

void TestFileManagerChanges::separatorsInANameBecomeBlanksInTheListFile()
{
    f->load(words("a"));
    QVERIFY(f->manager().saveCfg(0, QStringLiteral("one\ttwo\nthree")));
    QCOMPARE(f->names(), QStringList(QStringLiteral("one\ttwo\nthree")));
    QCOMPARE(f->list(), QStringLiteral("0\none two three\tbrief\t20121105\t0\n"));
    QCOMPARE(f->manager().init(), 0);
}

void TestFileManagerChanges::removes()
{
    f->load(words("a b c"));
    QCOMPARE(f->manager().removeAt(0), 0);
    QCOMPARE(f->names(), words("a b"));
    QCOMPARE(f->filesOnCard(), words("a.txt b.txt"));
    QCOMPARE(f->manager().removeAt(1), 0);
    QCOMPARE(f->names(), words("b"));
    QCOMPARE(f->entry(0).id, 0);
}

void TestFileManagerChanges::removesFromTheSecondStorage()
{
    f->root().write(f->secondPlace(QStringLiteral("a")), {});
    f->root().write(f->scanPlace(QStringLiteral("a")), {});
    f->writeList(0, {QStringLiteral("a 1")});
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->manager().removeAt(0), 0);
    QVERIFY(!f->root().exists(f->secondPlace(QStringLiteral("a"))));
    QVERIFY(f->root().exists(f->scanPlace(QStringLiteral("a"))));
}

void TestFileManagerChanges::removeOutsideTheList()
{
    f->load(words("a"));
    QCOMPARE(f->manager().removeAt(1), -1);
    QCOMPARE(f->manager().removeAt(-1), -1);
    QCOMPARE(f->filesOnCard(), words("a.txt"));
}

void TestFileManagerChanges::removeOfAVanishedFileKeepsTheEntry()
{
    f->load(words("a"));
    const QString list = f->list();
    QVERIFY(QFile::remove(f->root().path(f->scanPlace(QStringLiteral("a")))));
    QCOMPARE(f->manager().removeAt(0), -1);
    QCOMPARE(f->names(), words("a"));
    QCOMPARE(f->list(), list);
}

void TestFileManagerChanges::removeMovesTheCurrent_data()
{
    // The rule compares the current index after it moved: deleting the entry just before the
    // current one also leads to the newest.
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("removed"); // stored index of five
    QTest::addColumn<int>("expected");
    QTest::newRow("after the current") << 1 << 3 << 1;
    QTest::newRow("right after the current") << 1 << 2 << 1;
    QTest::newRow("the current") << 2 << 2 << 3;
    QTest::newRow("the current, last") << 4 << 4 << 3;
    QTest::newRow("the current, first") << 0 << 0 << 3;
    QTest::newRow("right before the current") << 2 << 1 << 3;
    QTest::newRow("before the current") << 3 << 1 << 2;
    QTest::newRow("long before the current") << 4 << 0 << 3;
}

void TestFileManagerChanges::removeMovesTheCurrent()
{
    QFETCH(const int, current);
    QFETCH(const int, removed);
    QFETCH(const int, expected);
    f->load(words("a b c d e"), current);
    QCOMPARE(f->manager().removeAt(4 - removed), 0);
    QCOMPARE(f->manager().getCurFileIndex(), 3 - expected);
    for (int display = 0; display < 4; ++display)
        QCOMPARE(f->entry(display).id, 3 - display);
}

void TestFileManagerChanges::removingTheOnlyEntry()
{
    f->load(words("a"));
    QCOMPARE(f->manager().removeAt(0), 0);
    QCOMPARE(f->list(), QStringLiteral("-1\n"));
    QCOMPARE(f->manager().getCurFileIndex(), 0); // 0 - (-1) - 1
    FileInfo info;
    QVERIFY(!f->manager().getCurInfo(info));
}

void TestFileManagerChanges::removeWritesTheList()
{
    f->load(words("a b"));
    QCOMPARE(f->manager().removeAt(0), 0);
    QCOMPARE(f->list(), QStringLiteral("0\na\tbrief\t20121105\t0\n"));
    QCOMPARE(fakes::calls(), QStringList(QStringLiteral("syncStorage()")));
}

void TestFileManagerChanges::flushWritesEveryByte()
{
    f->load(words("a"));
    QCOMPARE(f->manager().flush(), 0);
    QCOMPARE(f->root().read(f->listPlace()).toHex(' '),
             QByteArray("ff fe 30 00 0a 00 61 00 09 00 62 00 72 00 69 00 65 00 66 00 09 00 32 00 "
                        "30 00 31 00 32 00 31 00 31 00 30 00 35 00 09 00 30 00 0a 00"));
}

void TestFileManagerChanges::listSurvivesARestart()
{
    f->load(words("a b c"));
    f->manager().setCurFileIndex(1);
    QCOMPARE(f->manager().flush(), 0);
    FileManager::quitFun();
    QCOMPARE(f->manager().init(), 0);
    QCOMPARE(f->names(), words("a b c"));
    QCOMPARE(f->manager().getCurFileIndex(), 1);
}

QTEST_GUILESS_MAIN(TestFileManagerChanges)
#include "tst_filemanager_changes.moc"
