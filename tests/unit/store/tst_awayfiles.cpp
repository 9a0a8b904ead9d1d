// A card that is out, and back again.
#include "store/awayfiles.h"
#include "store/cardstate.h"
#include "tests/unit/store/storefixture.h"

#include <QTest>

#include <optional>

class TestAwayFiles : public QObject
{
    Q_OBJECT

private slots:
    void init() { f.emplace(); }
    void cleanup() { f.reset(); }
    void comeBackBeforeTheYoungerOnes();
    void comeBackOneByOne();
    void currentComesBack();
    void bytesAndBack();
    void missingFolderKeepsWhatIsKnown();
    void knownSurvivesAListThatIsWritten();
    void emptyCardIsEmpty();
    void textThatWaitsCanBeOpened();
    void mountPoints();

private:
    QString folder() const { return f->root().path(QStringLiteral("/mnt/mmc/e_ScanFile")); }
    void takeCardOut() const { QVERIFY(QDir().rename(folder(), folder() + u'x')); }
    void putCardBack() const { QVERIFY(QDir().rename(folder() + u'x', folder())); }
    void restart() const
    {
        FileManager::quitFun();
        QCOMPARE(f->manager().init(), 0);
    }
    std::optional<StoreFixture> f;
};

namespace {

FileInfo entry(const char* name, int id = 0)
{
    return {QString::fromLatin1(name), QStringLiteral("brief"), QStringLiteral("20121105"), 0, id};
}

QStringList namesOf(const QVector<FileInfo>& files)
{
    QStringList names;
    for (const FileInfo& info : files)
        names.append(info.name);
    return names;
}

bool always(const FileInfo&)
{
    return true;
}

} // namespace

void TestAwayFiles::comeBackBeforeTheYoungerOnes()
{
    AwayFiles away;
    QVERIFY(away.isEmpty());
    away.add(entry("a"), false);
    away.add(entry("b"), false);
    QVector<FileInfo> files{entry("c")};
    int current = 0;
    away.bringBack(files, current, always);
    QCOMPARE(namesOf(files), words("a b c"));
    QCOMPARE(files.at(2).id, 2);
    QCOMPARE(current, 2);
    QVERIFY(away.isEmpty());
}

void TestAwayFiles::comeBackOneByOne()
{
    AwayFiles away;
    for (const char* name : {"a", "b", "c"})
        away.add(entry(name), false);
    QVector<FileInfo> files{entry("c")}; // listed meanwhile
    int current = 0;
    away.bringBack(files, current, [](const FileInfo& info) { return info.name == u"b"; });
    QCOMPARE(namesOf(files), words("b c"));
    QVERIFY(!away.isEmpty());
    away.bringBack(files, current, always);
    QCOMPARE(namesOf(files), words("a b c"));
}

void TestAwayFiles::currentComesBack()
{
    AwayFiles away;
    away.add(entry("a"), false);
    away.add(entry("b"), true);
    QVector<FileInfo> files{entry("c")};
    int current = 0;
    away.bringBack(files, current, always);
    QCOMPARE(current, 1);
}

void TestAwayFiles::bytesAndBack()
{
    QVERIFY(AwayFiles().save().isEmpty());
    AwayFiles away;
    away.add(entry("a"), false);
    away.add(entry("b"), true);
    AwayFiles again;
    again.restore(away.save());
    again.restore(away.save()); // each once
    again.restore({});
    QVector<FileInfo> files;
    int current = 7;
    again.bringBack(files, current, always);
    QCOMPARE(namesOf(files), words("a b"));
    QCOMPARE(files.at(0).brief, QStringLiteral("brief"));
    QCOMPARE(current, 1);
}

void TestAwayFiles::missingFolderKeepsWhatIsKnown()
{
    f->load(words("a b"), 1);
    takeCardOut();
    restart();
    QCOMPARE(f->manager().getFileNum(), 0); // none can be opened
    putCardBack();
    QCOMPARE(f->manager().getFileList(), 0);
    QCOMPARE(f->names(), words("a b"));
    QCOMPARE(f->entry(0).brief, QStringLiteral("brief"));
    QCOMPARE(f->manager().getCurFileIndex(), 0);
}

void TestAwayFiles::knownSurvivesAListThatIsWritten()
{
    f->load(words("a b"), 1);
    takeCardOut();
    restart();
    QCOMPARE(f->manager().flush(), 0);
    QVERIFY(!f->list().contains(u'a'));
    restart();
    QCOMPARE(f->manager().flush(), 0);
    putCardBack();
    restart();
    QCOMPARE(f->names(), words("a b"));
    QCOMPARE(f->entry(1).date, QStringLiteral("20121105"));
    QCOMPARE(f->manager().getCurFileIndex(), 0);
    QCOMPARE(f->manager().flush(), 0);
    QCOMPARE(f->root().read(QStringLiteral("/apps/config/store.jnl")), QByteArray());
    QVERIFY(QFile::remove(f->root().path(f->scanPlace(QStringLiteral("a")))));
    restart();
    QCOMPARE(f->names(), words("b"));
}

void TestAwayFiles::emptyCardIsEmpty()
{
    f->load(words("a b"));
    takeCardOut();
    QVERIFY(QDir().mkpath(folder()));
    restart();
    QCOMPARE(f->manager().getFileNum(), 0);
    QCOMPARE(f->manager().flush(), 0);
    QVERIFY(QDir().rmdir(folder()));
    putCardBack();
    QCOMPARE(f->manager().getFileList(), 0);
    QCOMPARE(f->entry(0).brief, QStringLiteral("Import"));
}

void TestAwayFiles::textThatWaitsCanBeOpened()
{
    f->load(words("a b"));
    const FileInfo info = f->entry(1);
    QCOMPARE(f->manager().readFile(info), QStringLiteral("a"));
    QVERIFY(f->manager().noteScan(info, 1, QStringLiteral(" scan"), 1));
    takeCardOut();
    restart();
    QCOMPARE(f->names(), words("a"));
    QVERIFY(f->manager().readFile(f->entry(0)).contains(QStringLiteral("scan")));
    putCardBack();
    restart();
    QCOMPARE(f->names(), words("a b"));
    QCOMPARE(f->manager().readFile(f->entry(1)), QStringLiteral("a scan"));
    QCOMPARE(f->entry(1).brief, QStringLiteral("a scan").remove(u' ').right(6));
}

void TestAwayFiles::mountPoints()
{
    QVERIFY(cardstate::isMountPoint(QStringLiteral("/")));
    QVERIFY(cardstate::isMountPoint(QStringLiteral("/proc")));
    QVERIFY(!cardstate::isMountPoint(f->root().path(QStringLiteral("/mnt/mmc"))));
    QVERIFY(!cardstate::isMountPoint(QStringLiteral("/nowhere")));
    QVERIFY(cardstate::isCardThere());
    takeCardOut();
    QVERIFY(!cardstate::isCardThere());
}

QTEST_GUILESS_MAIN(TestAwayFiles)
#include "tst_awayfiles.moc"
