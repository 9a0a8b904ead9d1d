#include "open/iap/foldersource.h"
#include "open/iap/scansession.h"
#include "tests/unit/open/framerecorder.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <future>
#include <stdexcept>

namespace {

constexpr int UsualSide = 16;

Frame whiteFrame(int side)
{
    return {0, side, side, 300,
            std::vector<std::uint8_t>(std::size_t(side) * std::size_t(side), 250)};
}

/* A source that does what a test says, on a thread of its own. */
class ScriptedSource : public FrameSource
{
public:
    using Script = std::function<void(FrameListener&)>;

    explicit ScriptedSource(Script script) : m_script(std::move(script)) {}
    ~ScriptedSource() override { stop(); }
    ScriptedSource(const ScriptedSource&) = delete;
    ScriptedSource& operator=(const ScriptedSource&) = delete;

    bool start(FrameListener& listener) override
    {
        m_thread = std::thread([this, &listener] { m_script(listener); });
        return true;
    }
    void stop() override
    {
        if (m_thread.joinable())
            m_thread.join();
    }
    bool isAlive() const override { return true; }
    void report(const SwipeReport& report) override { s_reports.push_back(report); }

    static inline std::vector<SwipeReport> s_reports; // of the worker's thread

private:
    Script m_script;
    std::thread m_thread;
};

std::shared_ptr<ScanSession> begun(ScanControl& control, ScriptedSource::Script script)
{
    return ScanSession::start(std::make_unique<ScriptedSource>(std::move(script)), control);
}

std::promise<void>* s_entered = nullptr;
std::shared_future<void> s_gate;

/* Holds the worker until the gate is open. */
int holdingReceiver(void*, unsigned char*, int, int, unsigned char, char*)
{
    if (s_entered)
        std::exchange(s_entered, nullptr)->set_value();
    s_gate.wait();
    return 0;
}

void swipeOf(FrameListener& listener, int frames, int side, bool waits)
{
    listener.tipDown();
    for (int i = 0; i < frames; ++i) {
        if (waits)
            listener.awaitRoom();
        listener.frame(whiteFrame(side));
    }
    listener.tipUp();
}

} // namespace

/* What lies between a source of frames and the work on them. */
class TestIapSession : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aSourceThatWaitsLosesNoFrame();
    void framesThatComeTooFastAreBounded_data();
    void framesThatComeTooFastAreBounded();
    void stopWakesASourceThatWaits();
    void folderWaitsBeforeEachPicture();
    void sourceThatThrowsIsNone();

private:
    ScanControl m_control;
    std::promise<void> m_entered;
    std::promise<void> m_open;
};

void TestIapSession::init()
{
    ScriptedSource::s_reports.clear();
    m_entered = std::promise<void>();
    m_open = std::promise<void>();
    s_entered = &m_entered;
    s_gate = m_open.get_future().share();
    m_control.setReceiver(&holdingReceiver);
}

void TestIapSession::aSourceThatWaitsLosesNoFrame()
{
    constexpr int frames = int(ScanSession::MostQueued) + 500;
    std::promise<void> filled;
    const auto session = begun(m_control, [&](FrameListener& listener) {
        swipeOf(listener, 1, UsualSide, true);
        m_entered.get_future().wait(); // from here on the queue is not drained
        listener.tipDown();
        for (int i = 0; i < frames; ++i) {
            if (i == int(ScanSession::MostQueued) - 1) // the press is queued as well
                filled.set_value();
            listener.awaitRoom();
            listener.frame(whiteFrame(UsualSide));
        }
        listener.tipUp();
    });
    QVERIFY(session);
    filled.get_future().wait();
    m_open.set_value();
    QTRY_VERIFY_WITH_TIMEOUT(!session->isBusy(), 60000);
    session->stop();
    QCOMPARE(ScriptedSource::s_reports.size(), std::size_t(2));
    QCOMPARE(ScriptedSource::s_reports[1].frames, frames);
}

void TestIapSession::framesThatComeTooFastAreBounded_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("most");
    QTest::newRow("small") << UsualSide << int(ScanSession::MostQueued);
    QTest::newRow("the largest") << MaxFrameSide
                                 << int(ScanSession::MostQueuedBytes)
                                            / (MaxFrameSide * MaxFrameSide)
                                        + 1;
}

void TestIapSession::framesThatComeTooFastAreBounded()
{
    QFETCH(int, side);
    QFETCH(int, most);
    std::promise<void> told;
    const auto session = begun(m_control, [&](FrameListener& listener) {
        swipeOf(listener, 1, UsualSide, false);
        m_entered.get_future().wait();
        swipeOf(listener, most + 200, side, false);
        told.set_value();
    });
    QVERIFY(session);
    told.get_future().wait();
    m_open.set_value();
    QTRY_VERIFY_WITH_TIMEOUT(!session->isBusy(), 60000);
    session->stop();
    QCOMPARE(ScriptedSource::s_reports.size(), std::size_t(2));
    const int frames = ScriptedSource::s_reports[1].frames;
    QVERIFY2(frames >= most - 1 && frames <= most, qPrintable(QString::number(frames)));
}

void TestIapSession::stopWakesASourceThatWaits()
{
    std::promise<void> filled;
    std::promise<void> woken;
    const auto session = begun(m_control, [&](FrameListener& listener) {
        swipeOf(listener, 1, UsualSide, false);
        m_entered.get_future().wait();
        swipeOf(listener, int(ScanSession::MostQueued), UsualSide, false);
        filled.set_value();
        listener.awaitRoom();
        woken.set_value();
    });
    QVERIFY(session);
    filled.get_future().wait();
    std::thread stopper([&] { session->stop(); });
    const auto woke = woken.get_future().wait_for(std::chrono::seconds(60));
    m_open.set_value(); // the stop waits for the callback as well
    stopper.join();
    QCOMPARE(woke, std::future_status::ready);
    QCOMPARE(ScriptedSource::s_reports.size(), std::size_t(1));
}

void TestIapSession::folderWaitsBeforeEachPicture()
{
    QTemporaryDir folder;
    for (int i = 0; i < 5; ++i) {
        QFile file(folder.filePath(QString("%1.pgm").arg(i)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("P5\n16 16\n255\n" + QByteArray(256, '\xf0'));
    }
    FrameRecorder recorder;
    FolderSource source(folder.path().toStdString());
    QVERIFY(source.start(recorder));
    QVERIFY(recorder.waitFor('u'));
    source.stop();
    QCOMPARE(recorder.told(), std::string("dfffffu"));
    QCOMPARE(recorder.awaited(), std::size_t(5));
}

void TestIapSession::sourceThatThrowsIsNone()
{
    class Throwing : public ScriptedSource
    {
    public:
        using ScriptedSource::ScriptedSource;
        bool start(FrameListener& listener) override
        {
            ScriptedSource::start(listener);
            throw std::runtime_error("no more threads");
        }
    };
    const auto presses = [](FrameListener& listener) { listener.tipDown(); };
    QVERIFY(!ScanSession::start(std::make_unique<Throwing>(presses), m_control));
}

QTEST_APPLESS_MAIN(TestIapSession)
#include "tst_iap_session.moc"
