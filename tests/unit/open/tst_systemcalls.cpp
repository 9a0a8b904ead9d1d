#include "platform/systemcalls.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

class TestSystemCalls : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cacheDropIsRecordedBelowTheRunRoot();
    void cacheDropDoesNotCreateTheRunRootsFolderElsewhere();
    void syncNeedsNoRunRoot();
    void makesOneFolder();
    void folderNameReachesNoShell();
    void tellsFreeBytes();
    void freeBytesOfNothingIsUntouched();
    void sleepsAtLeastThatLong();

private:
    std::optional<QTemporaryDir> m_dir;
};

void TestSystemCalls::init()
{
    m_dir.emplace();
    QVERIFY(m_dir->isValid());
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_dir->path()));
}

void TestSystemCalls::cacheDropIsRecordedBelowTheRunRoot()
{
    systemcalls::dropPageCache();
    QFile file(m_dir->filePath(QStringLiteral("proc/sys/vm/drop_caches")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("3\n"));
}

void TestSystemCalls::cacheDropDoesNotCreateTheRunRootsFolderElsewhere()
{
    const QString file = m_dir->filePath(QStringLiteral("plain"));
    QFile plain(file);
    QVERIFY(plain.open(QIODevice::WriteOnly));
    plain.close();
    qputenv("SWIPELINE_ROOT", QFile::encodeName(file)); // no folder: nothing can be below it
    systemcalls::dropPageCache();
    QVERIFY(QFileInfo(file).isFile());
}

void TestSystemCalls::syncNeedsNoRunRoot()
{
    systemcalls::syncStorage();
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_dir->filePath(QStringLiteral("missing"))));
    systemcalls::syncStorage();
    QVERIFY(!QFileInfo::exists(m_dir->filePath(QStringLiteral("missing"))));
}

void TestSystemCalls::makesOneFolder()
{
    const QString path = m_dir->filePath(QStringLiteral("folder"));
    QVERIFY(systemcalls::makeDirectory(path));
    QVERIFY(QFileInfo(path).isDir());
    QVERIFY(!systemcalls::makeDirectory(path));
    QVERIFY(!systemcalls::makeDirectory(m_dir->filePath(QStringLiteral("a/b"))));
}

void TestSystemCalls::folderNameReachesNoShell()
{
    const QString name = QStringLiteral("a b; touch $(pwd)'\"`");
    QVERIFY(systemcalls::makeDirectory(m_dir->filePath(name)));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(name));
}

void TestSystemCalls::tellsFreeBytes()
{
    quint64 bytes = 0;
    QVERIFY(systemcalls::freeBytes(m_dir->path(), bytes));
    QVERIFY(bytes > 0);
}

void TestSystemCalls::freeBytesOfNothingIsUntouched()
{
    quint64 bytes = 7;
    QVERIFY(!systemcalls::freeBytes(m_dir->filePath(QStringLiteral("missing")), bytes));
    QCOMPARE(bytes, quint64(7));
}

void TestSystemCalls::sleepsAtLeastThatLong()
{
    QElapsedTimer timer;
    timer.start();
    systemcalls::sleepMicroseconds(2000);
    QVERIFY(timer.nsecsElapsed() >= 2000000);
}

QTEST_GUILESS_MAIN(TestSystemCalls)
#include "tst_systemcalls.moc"
