#include "open/qcop/qcopfolder.h"
#include "platform/qcopchannel.h"
#include "tests/unit/open/qcopfixture.h"

#include <QEventLoop>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <array>
#include <thread>
#include <vector>

namespace {

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

} // namespace

/* Between processes and threads: order, crashes, receivers that hang. */
class TestQCopProcesses : public QCopFixture
{
    Q_OBJECT

private slots:
    void speaksWithAnotherProcess();
    void staleSocketOfACrashIsReplaced();
    void listenerInAnotherProcessIsNeverReplaced();
    void hungReceiverIsSkippedUntilItReadsAgain();
    void hungReceiverDoesNotStopOthers();
    void threadsSendInOrder();
    void processesSendInOrder();
};

void TestQCopProcesses::speaksWithAnotherProcess()
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

void TestQCopProcesses::staleSocketOfACrashIsReplaced()
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

void TestQCopProcesses::listenerInAnotherProcessIsNeverReplaced()
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

void TestQCopProcesses::hungReceiverIsSkippedUntilItReadsAgain()
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

void TestQCopProcesses::hungReceiverDoesNotStopOthers()
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

void TestQCopProcesses::threadsSendInOrder()
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

void TestQCopProcesses::processesSendInOrder()
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

QTEST_GUILESS_MAIN(TestQCopProcesses)
#include "tst_qcopprocesses.moc"
