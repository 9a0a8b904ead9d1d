#include "open/qcop/qcopfolder.h"
#include "open/qcop/qcopmessage.h"
#include "platform/qcopchannel.h"
#include "tests/unit/open/qcopfixture.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool sendRaw(const QByteArray& channel, const QByteArray& datagram)
{
    const qcop::Descriptor folder(qcop::openFolder(false));
    const qcop::Descriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const sockaddr_un address = qcop::addressIn(folder.get(), channel + ".sock");
    return ::sendto(socket.get(), datagram.constData(), size_t(datagram.size()), 0,
                    reinterpret_cast<const sockaddr*>(&address), sizeof address)
           == datagram.size();
}

} // namespace

/* Within one process: delivery, names, folder, limits, rubbish. */
class TestQCopChannel : public QCopFixture
{
    Q_OBJECT

private slots:
    void deliversNameAndPayload();
    void deliversInOrder();
    void deliversOneMessageATurn();
    void nobodyListensIsSilent();
    void folderIsOfThisUserOnly();
    void folderOfOthersIsRefused();
    void folderThatIsALinkIsRefused();
    void withoutRuntimeFolderTheRunRootServes();
    void worksBelowAVeryLongPath();
    void refusesNames_data();
    void refusesNames();
    void largestMessagePasses();
    void tooLargeMessagesAreDropped();
    void rubbishIsIgnored_data();
    void rubbishIsIgnored();
    void secondListenerIsRefusedAndFirstGoesOn();
    void nameIsFreeAfterTheListenerIsGone();
    void strangeFileInPlaceOfTheSocketIsReplaced();
    void channelMayBeDeletedByItsHandler();
    void nestedLoopGoesOnDelivering();
};

void TestQCopChannel::deliversNameAndPayload()
{
    QCopChannel channel(QStringLiteral("scanprocess"));
    QVERIFY(channel.isListening());
    QCOMPARE(channel.channel(), QStringLiteral("scanprocess"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    const QByteArray payload("a\0b\xff", 4);
    QVERIFY(QCopChannel::send(QStringLiteral("scanprocess"), QStringLiteral("naïve(QString)"),
                              payload));
    QVERIFY(spy.isEmpty()); // only by the event loop
    QVERIFY(spy.wait());
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("naïve(QString)"));
    QCOMPARE(payloadAt(spy, 0), payload);
}

void TestQCopChannel::deliversInOrder()
{
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    for (int i = 0; i < 8; ++i)
        QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m"), QByteArray::number(i)));
    QTRY_COMPARE(spy.size(), 8);
    for (int i = 0; i < 8; ++i)
        QCOMPARE(payloadAt(spy, i).toInt(), i);
}

void TestQCopChannel::deliversOneMessageATurn()
{
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    for (int i = 0; i < 5; ++i)
        QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    for (int turn = 0; turn < 50 && spy.size() < 5; ++turn) {
        const qsizetype before = spy.size();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QVERIFY(spy.size() <= before + 1);
    }
    QCOMPARE(spy.size(), 5);
}

void TestQCopChannel::nobodyListensIsSilent()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    QVERIFY(!QCopChannel::send(QStringLiteral("mainprocess"), QStringLiteral("Show(QString)")));
    { // also when the folder is there
        QCopChannel other(QStringLiteral("other"));
    }
    QVERIFY(!QCopChannel::send(QStringLiteral("mainprocess"), QStringLiteral("Show(QString)")));
    QVERIFY(!QCopChannel::send(QStringLiteral("other"), QStringLiteral("Show(QString)")));
}

void TestQCopChannel::folderIsOfThisUserOnly()
{
    QVERIFY(QDir().mkpath(qcop::folderPath()));
    const QByteArray path = QFile::encodeName(qcop::folderPath());
    QCOMPARE(::chmod(path.constData(), 0777), 0);
    QCopChannel channel(QStringLiteral("c"));
    QVERIFY(channel.isListening());
    struct stat info = {};
    QCOMPARE(::stat(path.constData(), &info), 0);
    QCOMPARE(info.st_mode & 0777, mode_t(0700));
    QCOMPARE(info.st_uid, ::geteuid());
}

void TestQCopChannel::folderOfOthersIsRefused()
{
    if (::geteuid() != 0)
        QSKIP("only root can make a folder of another user");
    QVERIFY(QDir().mkpath(qcop::folderPath()));
    QCOMPARE(::chown(QFile::encodeName(qcop::folderPath()).constData(), 12345, 12345), 0);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("cannot listen on c")));
    const QCopChannel channel(QStringLiteral("c"));
    QVERIFY(!channel.isListening());
    QVERIFY(!QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
}

void TestQCopChannel::folderThatIsALinkIsRefused()
{
    QVERIFY(QDir().mkpath(m_dir->filePath(QStringLiteral("elsewhere"))));
    QVERIFY(QFile::link(m_dir->filePath(QStringLiteral("elsewhere")), qcop::folderPath()));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("cannot listen on c")));
    const QCopChannel channel(QStringLiteral("c"));
    QVERIFY(!channel.isListening());
    QVERIFY(QDir(m_dir->filePath(QStringLiteral("elsewhere"))).isEmpty());
}

void TestQCopChannel::withoutRuntimeFolderTheRunRootServes()
{
    qunsetenv("XDG_RUNTIME_DIR");
    QVERIFY(qcop::folderPath().startsWith(m_dir->filePath(QStringLiteral("root/tmp/"))));
    QCopChannel channel(QStringLiteral("c"));
    QVERIFY(channel.isListening());
    QSignalSpy spy(&channel, &QCopChannel::received);
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    QVERIFY(spy.wait());
}

void TestQCopChannel::worksBelowAVeryLongPath()
{
    const QString path = m_dir->filePath(QString(200, u'x') + u'/' + QString(200, u'y'));
    QVERIFY(QDir().mkpath(path));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path));
    const QString longest(64, u'n');
    QCopChannel channel(longest);
    QVERIFY(channel.isListening());
    QSignalSpy spy(&channel, &QCopChannel::received);
    QVERIFY(QCopChannel::send(longest, QStringLiteral("m")));
    QVERIFY(spy.wait());
}

void TestQCopChannel::refusesNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("65 characters") << QString(65, u'n');
    QTest::newRow("path") << QStringLiteral("../etc/passwd");
    QTest::newRow("dot") << QStringLiteral("a.b");
    QTest::newRow("blank") << QStringLiteral("a b");
    QTest::newRow("accent") << QStringLiteral("é");
    QTest::newRow("zero") << QString(1, QChar(0));
}

void TestQCopChannel::refusesNames()
{
    QFETCH(const QString, name);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no channel can have")));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("outside the limits")));
    const QCopChannel channel(name);
    QVERIFY(!channel.isListening());
    QVERIFY(!QCopChannel::send(name, QStringLiteral("m")));
}

void TestQCopChannel::largestMessagePasses()
{
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    const QString name(255, u'm');
    const QByteArray payload(32768, 'p');
    QVERIFY(QCopChannel::send(QStringLiteral("c"), name, payload));
    QVERIFY(spy.wait());
    QCOMPARE(spy.at(0).at(0).toString(), name);
    QCOMPARE(payloadAt(spy, 0), payload);
}

void TestQCopChannel::tooLargeMessagesAreDropped()
{
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    for (int i = 0; i < 3; ++i)
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("outside the limits")));
    QVERIFY(!QCopChannel::send(QStringLiteral("c"), QString(256, u'm')));
    QVERIFY(!QCopChannel::send(QStringLiteral("c"), QString()));
    QVERIFY(!QCopChannel::send(QStringLiteral("c"), QStringLiteral("m"), QByteArray(32769, 'p')));
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("last")));
    QVERIFY(spy.wait());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("last"));
}

void TestQCopChannel::rubbishIsIgnored_data()
{
    QTest::addColumn<QByteArray>("datagram");
    const QByteArray good = qcop::pack(QStringLiteral("m"), "payload");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("short") << QByteArray("QC");
    QTest::newRow("no mark") << QByteArray("X" + good.mid(1));
    QTest::newRow("cut") << good.chopped(1);
    QTest::newRow("longer than it says") << QByteArray(good + "x");
    QTest::newRow("longer than a datagram may be") << QByteArray(qcop::MaxDatagramBytes + 1, 'x');
    QByteArray badName = good;
    badName[qcop::HeadBytes] = '\xff';
    QTest::newRow("name is no UTF-8") << badName;
    QByteArray noName = good;
    noName[4] = 0;
    QTest::newRow("no name") << noName;
    QByteArray hugeLength = good;
    std::memset(hugeLength.data() + 6, 0xff, 4);
    QTest::newRow("huge length") << hugeLength;
}

void TestQCopChannel::rubbishIsIgnored()
{
    QFETCH(const QByteArray, datagram);
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    QVERIFY(sendRaw("c", datagram));
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("after")));
    QVERIFY(spy.wait());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("after"));
}

void TestQCopChannel::secondListenerIsRefusedAndFirstGoesOn()
{
    QCopChannel first(QStringLiteral("c"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("cannot listen on c")));
    {
        QCopChannel second(QStringLiteral("c"));
        QVERIFY(!second.isListening());
    }
    QSignalSpy spy(&first, &QCopChannel::received);
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    QVERIFY(spy.wait());
}

void TestQCopChannel::nameIsFreeAfterTheListenerIsGone()
{
    for (int i = 0; i < 3; ++i) {
        QCopChannel channel(QStringLiteral("c"));
        QVERIFY(channel.isListening());
    }
}

void TestQCopChannel::strangeFileInPlaceOfTheSocketIsReplaced()
{
    QVERIFY(QDir().mkpath(qcop::folderPath()));
    QFile file(qcop::folderPath() + QStringLiteral("/c.sock"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(!QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    const QCopChannel channel(QStringLiteral("c"));
    QVERIFY(channel.isListening());
}

void TestQCopChannel::channelMayBeDeletedByItsHandler()
{
    auto channel = std::make_unique<QCopChannel>(QStringLiteral("c"));
    int count = 0;
    connect(channel.get(), &QCopChannel::received, this, [&] {
        ++count;
        channel.reset();
    });
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    QTRY_VERIFY(!channel);
    QCoreApplication::processEvents();
    QCOMPARE(count, 1);
    QVERIFY(!QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
}

void TestQCopChannel::nestedLoopGoesOnDelivering()
{
    QCopChannel channel(QStringLiteral("c"));
    QEventLoop nested;
    QStringList seen;
    connect(&channel, &QCopChannel::received, this, [&](const QString& message) {
        seen << message;
        if (message == u"open")
            nested.exec();
        else
            nested.quit();
    });
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("open")));
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("close")));
    QTRY_COMPARE(seen, QStringList({QStringLiteral("open"), QStringLiteral("close")}));
}

QTEST_GUILESS_MAIN(TestQCopChannel)
#include "tst_qcopchannel.moc"
