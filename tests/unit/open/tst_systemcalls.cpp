#include "desk/desklink.h"
#include "platform/systemcalls.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

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
    void writesAtAPlaceInAFile();
    void nothingGrowsOnAFullCard();

private:
    QByteArray content(const QString& name) const;

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

namespace {

/* A new file below a folder, open for writing. */
int openFile(const QTemporaryDir& dir, const QString& name)
{
    const QString path = dir.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    return ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
}

} // namespace

QByteArray TestSystemCalls::content(const QString& name) const
{
    QFile file(m_dir->filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void TestSystemCalls::writesAtAPlaceInAFile()
{
    const int file = openFile(*m_dir, QStringLiteral("mnt/mmc/a.txt"));
    QCOMPARE(systemcalls::writeAt(file, "abcdef", 6, 0), 6);
    QCOMPARE(systemcalls::writeAt(file, "XYZ", 3, 5), 3);
    ::close(file);
    QCOMPARE(content(QStringLiteral("mnt/mmc/a.txt")), "abcdeXYZ");
    QCOMPARE(systemcalls::writeAt(file, "-", 1, 0), -1);
    QCOMPARE(errno, EBADF);
}

void TestSystemCalls::nothingGrowsOnAFullCard()
{
    const QString onCard = QStringLiteral("mnt/mmc/e_ScanFile/a.txt");
    const QString onFlash = QStringLiteral("apps/config/store.jnl");
    const int file = openFile(*m_dir, onCard);
    QCOMPARE(systemcalls::writeAt(file, "abcdef", 6, 0), 6);
    const int flash = openFile(*m_dir, onFlash);
    const QString marker = QLatin1String(desklink::FullMarker);
    ::close(openFile(*m_dir, marker));

    // What is there can be changed, as far as it goes.
    QCOMPARE(systemcalls::writeAt(file, "ABC", 3, 0), 3);
    QCOMPARE(systemcalls::writeAt(file, "EFG", 3, 4), 2);
    QCOMPARE(systemcalls::writeAt(file, "G", 1, 6), -1);
    QCOMPARE(errno, ENOSPC);
    QCOMPARE(systemcalls::writeAt(flash, "text", 4, 0), 4);
    QCOMPARE(content(onCard), "ABCdEF");

    QVERIFY(QFile::remove(m_dir->filePath(marker)));
    QCOMPARE(systemcalls::writeAt(file, "G", 1, 6), 1);
    QCOMPARE(content(onCard), "ABCdEFG");
    QCOMPARE(content(onFlash), "text");
    ::close(file);
    ::close(flash);
}

QTEST_GUILESS_MAIN(TestSystemCalls)
#include "tst_systemcalls.moc"
