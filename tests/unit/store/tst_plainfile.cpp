#include "store/plainfile.h"
#include "tests/unit/store/faultyoperations.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

class TestPlainFile : public QObject
{
    Q_OBJECT

private slots:
    void readsWhole();
    void refusesByTheSizeUnread();
    void tellsWhatIsMissing();
    void strangeThingsAreNotRead_data();
    void strangeThingsAreNotRead();
    void unreadableBytesAreAFailure();
    void shortReadsAreContinued();

private:
    QString path(const char* name) const { return m_dir.filePath(QString::fromLatin1(name)); }
    void write(const QString& file, const QByteArray& bytes)
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        QCOMPARE(out.write(bytes), bytes.size());
    }

    QTemporaryDir m_dir;
};

void TestPlainFile::readsWhole()
{
    const QByteArray bytes = QByteArray("a\r\n\0\xff", 5) + QByteArray(100000, 'x');
    write(path("file"), bytes);
    QByteArray content;
    qint64 size = 0;
    QCOMPARE(plainfile::read(path("file"), bytes.size(), content, &size), plainfile::Result::Done);
    QCOMPARE(content, bytes);
    QCOMPARE(size, bytes.size());
    QVERIFY(plainfile::isPlainFile(path("file")));
    QVERIFY(plainfile::isAnything(path("file")));
}

void TestPlainFile::refusesByTheSizeUnread()
{
    write(path("file"), "12345");
    QFile sparse(path("sparse")); // larger than memory
    QVERIFY(sparse.open(QIODevice::WriteOnly));
    QVERIFY(sparse.resize(qint64(1) << 40));
    QByteArray content("untouched");
    qint64 size = 0;
    QCOMPARE(plainfile::read(path("file"), 4, content, &size), plainfile::Result::TooLarge);
    QCOMPARE(size, qint64(5));
    QCOMPARE(plainfile::read(path("sparse"), 1000, content, &size), plainfile::Result::TooLarge);
    QCOMPARE(size, qint64(1) << 40);
    QCOMPARE(content, QByteArray("untouched"));
}

void TestPlainFile::tellsWhatIsMissing()
{
    QByteArray content("untouched");
    QCOMPARE(plainfile::read(path("none"), 10, content), plainfile::Result::Missing);
    QCOMPARE(content, QByteArray("untouched"));
    QVERIFY(!plainfile::isPlainFile(path("none")));
    QVERIFY(!plainfile::isAnything(path("none")));
}

void TestPlainFile::strangeThingsAreNotRead_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"fifo", "folder", "link", "dangling"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestPlainFile::strangeThingsAreNotRead()
{
    QFETCH(const QString, kind);
    const QString thing = m_dir.filePath(kind);
    write(path("target"), "secret");
    if (kind == u"fifo")
        QCOMPARE(::mkfifo(QFile::encodeName(thing).constData(), 0600), 0);
    else if (kind == u"folder")
        QVERIFY(QDir().mkpath(thing));
    else
        QVERIFY(QFile::link(kind == u"link" ? path("target") : path("nowhere"), thing));
    QByteArray content("untouched");
    QCOMPARE(plainfile::read(thing, 100, content), plainfile::Result::Missing);
    QCOMPARE(content, QByteArray("untouched"));
    QVERIFY(!plainfile::isPlainFile(thing));
    QVERIFY(plainfile::isAnything(thing));
}

void TestPlainFile::unreadableBytesAreAFailure()
{
    write(path("file"), "12345");
    FaultyOperations operations;
    operations.failAt(FaultyOperations::Call::Read, 1, EIO);
    QByteArray content("untouched");
    QCOMPARE(plainfile::read(path("file"), 10, content), plainfile::Result::Failed);
    QCOMPARE(content, QByteArray("untouched"));
    QCOMPARE(operations.openFiles(), 0);
}

void TestPlainFile::shortReadsAreContinued()
{
    write(path("file"), "12345");
    FaultyOperations operations;
    operations.setLargestTransfer(2);
    QByteArray content;
    QCOMPARE(plainfile::read(path("file"), 10, content), plainfile::Result::Done);
    QCOMPARE(content, QByteArray("12345"));
}

QTEST_GUILESS_MAIN(TestPlainFile)
#include "tst_plainfile.moc"
