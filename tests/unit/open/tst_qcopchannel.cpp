#include "open/qcop/qcopfolder.h"
#include "open/qcop/qcopmessage.h"
#include "platform/qcopchannel.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <array>
#include <cstring>
#include <optional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

QByteArray payloadAt(const QSignalSpy& spy, int i)
{
    return spy.at(i).at(1).toByteArray();
}

// A process of the helper program, ready when constructed.
class Peer
{
public:
    explicit Peer(const QStringList& words)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(qEnvironmentVariable("QCOP_PEER"), words);
        m_ready = m_process.waitForReadyRead(30000) && m_process.readLine() == "ready\n";
    }
    ~Peer()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.closeWriteChannel();
            if (!m_process.waitForFinished(1000)) {
                m_process.kill();
                m_process.waitForFinished();
            }
        }
    }
    bool isReady() const { return m_ready; }
    QProcess& process() { return m_process; }

private:
    QProcess m_process;
    bool m_ready = false;
};

// Runs the event loop until `enough`; false when nothing at all happens for a long time. (QTRY_
// macros pause between turns, which is slow for thousands of messages.)
template <typename Enough> bool untilEnough(Enough enough)
{
    while (!enough()) {
        QTimer guard;
        guard.setSingleShot(true);
        guard.start(30000);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (!guard.isActive())
            return false;
    }
    return true;
}

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

class TestQCopChannel : public QObject
{
    Q_OBJECT

private slots:
    void init();
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
    void staleSocketOfACrashIsReplaced();
    void strangeFileInPlaceOfTheSocketIsReplaced();
    void speaksWithAnotherProcess();
    void listenerInAnotherProcessIsNeverReplaced();
    void hungReceiverIsSkippedUntilItReadsAgain();
    void hungReceiverDoesNotStopOthers();
    void threadsSendInOrder();
    void processesSendInOrder();
    void channelMayBeDeletedByItsHandler();
    void nestedLoopGoesOnDelivering();

private:
    std::optional<QTemporaryDir> m_dir;
};

void TestQCopChannel::init()
{
    m_dir.emplace();
    QVERIFY(m_dir->isValid());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_dir->path()));
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_dir->filePath(QStringLiteral("root"))));
}

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

void TestQCopChannel::staleSocketOfACrashIsReplaced()
{
    Peer peer({QStringLiteral("crash"), QStringLiteral("c")});
    QVERIFY(peer.isReady());
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("die")));
    QVERIFY(peer.process().waitForFinished());
    QCOMPARE(peer.process().exitStatus(), QProcess::CrashExit);
    QVERIFY(QFileInfo::exists(qcop::folderPath() + QStringLiteral("/c.sock")));
    QVERIFY(!QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));

    QCopChannel channel(QStringLiteral("c"));
    QVERIFY(channel.isListening());
    QSignalSpy spy(&channel, &QCopChannel::received);
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    QVERIFY(spy.wait());
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

void TestQCopChannel::speaksWithAnotherProcess()
{
    QCopChannel replies(QStringLiteral("mainprocess"));
    QSignalSpy spy(&replies, &QCopChannel::received);
    Peer peer({QStringLiteral("echo"), QStringLiteral("scanprocess"), replies.channel()});
    QVERIFY(peer.isReady());
    for (int i = 0; i < 20; ++i) {
        QVERIFY(QCopChannel::send(QStringLiteral("scanprocess"), QStringLiteral("execute(QString)"),
                                  QByteArray::number(i)));
        QTRY_COMPARE(spy.size(), i + 1);
        QCOMPARE(payloadAt(spy, i).toInt(), i);
    }
    QVERIFY(QCopChannel::send(QStringLiteral("scanprocess"), QStringLiteral("quit")));
    QVERIFY(peer.process().waitForFinished());
    QCOMPARE(peer.process().exitCode(), 0);
    QVERIFY(!QFileInfo::exists(qcop::folderPath() + QStringLiteral("/scanprocess.sock")));
}

void TestQCopChannel::listenerInAnotherProcessIsNeverReplaced()
{
    QCopChannel replies(QStringLiteral("mainprocess"));
    QSignalSpy spy(&replies, &QCopChannel::received);
    Peer peer({QStringLiteral("echo"), QStringLiteral("c"), replies.channel()});
    QVERIFY(peer.isReady());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("cannot listen on c")));
    const QCopChannel intruder(QStringLiteral("c"));
    QVERIFY(!intruder.isListening());
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m")));
    QVERIFY(spy.wait());
}

void TestQCopChannel::hungReceiverIsSkippedUntilItReadsAgain()
{
    // A receiver whose event loop does not run hangs as a stopped process does.
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    int taken = 0;
    while (QCopChannel::send(QStringLiteral("c"), QStringLiteral("m"), QByteArray::number(taken)))
        ++taken;
    QVERIFY(taken > 0);
    // The queue is full, the one wait is over: from here on sending returns at once. A thousand
    // waits would not fit into the time that a test may take.
    for (int i = 0; i < 1000; ++i)
        QVERIFY(!QCopChannel::send(QStringLiteral("c"), QStringLiteral("lost")));
    QTRY_COMPARE(spy.size(), taken);
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("again")));
    QTRY_COMPARE(spy.size(), taken + 1);
    QCOMPARE(spy.last().at(0).toString(), QStringLiteral("again"));
}

void TestQCopChannel::hungReceiverDoesNotStopOthers()
{
    Peer peer({QStringLiteral("hang"), QStringLiteral("hung")});
    QVERIFY(peer.isReady());
    while (QCopChannel::send(QStringLiteral("hung"), QStringLiteral("m"), QByteArray(32768, 'x'))) {
    }
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    QVERIFY(QCopChannel::send(QStringLiteral("c"), QStringLiteral("m"), QByteArray(32768, 'x')));
    QVERIFY(spy.wait());
}

void TestQCopChannel::threadsSendInOrder()
{
    constexpr int Threads = 4;
    constexpr int Messages = 500;
    QCopChannel channel(QStringLiteral("c"));
    std::array<int, Threads> next = {};
    bool inOrder = true;
    int total = 0;
    connect(&channel, &QCopChannel::received, this,
            [&](const QString& message, const QByteArray& payload) {
                const auto thread = size_t(message.toInt());
                inOrder = inOrder && payload.toInt() == next.at(thread);
                ++next.at(thread);
                ++total;
            });
    std::vector<std::thread> threads;
    threads.reserve(Threads);
    for (int t = 0; t < Threads; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < Messages; ++i)
                while (!QCopChannel::send(QStringLiteral("c"), QString::number(t),
                                          QByteArray::number(i)))
                    std::this_thread::yield();
        });
    }
    const bool all = untilEnough([&] { return total >= Threads * Messages; });
    for (std::thread& thread : threads)
        thread.join();
    QVERIFY(all);
    QVERIFY(inOrder);
}

void TestQCopChannel::processesSendInOrder()
{
    QCopChannel channel(QStringLiteral("c"));
    QSignalSpy spy(&channel, &QCopChannel::received);
    QProcess flood;
    flood.start(qEnvironmentVariable("QCOP_PEER"),
                {QStringLiteral("flood"), QStringLiteral("c"), QStringLiteral("500")});
    QVERIFY(untilEnough([&] { return spy.size() >= 500; }));
    QTRY_COMPARE(flood.state(), QProcess::NotRunning);
    QCOMPARE(flood.exitCode(), 0);
    for (int i = 0; i < 500; ++i)
        QCOMPARE(payloadAt(spy, i).toInt(), i);
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
