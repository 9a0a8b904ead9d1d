#include "bench/handmodel/videofile.h"
#include "tests/unit/open/iapfixture.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <cstring>
#include <thread>

/* Start and end, the source of frames, bad packets. */
class TestIapEngine : public IapFixture
{
    Q_OBJECT

private slots:
    void withoutAnySource();
    void notStarted();
    void greetsTheDeskAndSwitchesTheCamera();
    void secondInitializeAppliesNewArguments();
    void busyFromPressUntilAfterTheCallback();
    void uninitializeWaitsForTheCallback();
    void uninitializeInsideTheCallback();
    void restartInsideTheCallback();
    void badPacketsAreIgnored();
    void theLargestFrameArrives();
    void strayTipMessagesAreIgnored();
    void deskGoesDuringASwipe();
    void newDeskAfterTheOldOneHasGone();
    void folderOfPictures();
    void folderWithoutPictures();
    void video();
    void videoThatIsNone();

private:
    static void lineArrives();
};

/* The source that the environment names has one swipe over the line of these tests. */
void TestIapEngine::lineArrives()
{
    Receiver receiver;
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, Receiver::callback);
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QVERIFY(likeness(cleanLine(), delivery->image) > 0.85);
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
}

void TestIapEngine::withoutAnySource()
{
    m_desk.reset();
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
    qputenv(desklink::SocketVariable, "/nowhere/at/all");
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
    qputenv(desklink::SocketVariable, QByteArray(300, 'x'));
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
    QCOMPARE(workState(), -1);
}

void TestIapEngine::notStarted()
{
    int state = 42;
    QCOMPARE(ZEMBRA_IAP_GetWorkState(&state), -1);
    QCOMPARE(state, 42);
    QCOMPARE(ZEMBRA_IAP_SetLangPara(1), -1);
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), -1);
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    QCOMPARE(ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr), 0);
}

void TestIapEngine::greetsTheDeskAndSwitchesTheCamera()
{
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    QVERIFY(m_desk->accept());
    const auto hello = m_desk->receive();
    QVERIFY(hello && hello->kind == desklink::Kind::Hello);
    desklink::Hello body = {};
    QCOMPARE(hello->body.size(), qsizetype(sizeof body));
    std::memcpy(&body, hello->body.constData(), sizeof body);
    QCOMPARE(body.role, desklink::Role::Scan);
    QCOMPARE(m_desk->receive()->kind, desklink::Kind::CameraOn);
    QCOMPARE(workState(), int(ZEMBRA_IAP_IDLE));
    QCOMPARE(ZEMBRA_IAP_GetWorkState(nullptr), -1);
    QCOMPARE(ZEMBRA_IAP_SetLangPara(1), 0);
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), 0);
    QCOMPARE(m_desk->receive()->kind, desklink::Kind::CameraOff);
    QVERIFY(!m_desk->receive()); // hung up
    QCOMPARE(workState(), -1);
}

void TestIapEngine::secondInitializeAppliesNewArguments()
{
    Receiver receiver;
    start(ZEMBRA_IAP_LEFT_HAND);
    QCOMPARE(ZEMBRA_IAP_SetLangPara(ZEMBRA_IAP_SCRIPT_HAN), 0);
    QCOMPARE(ZEMBRA_IAP_Initialize(ZEMBRA_IAP_RIGHT_HAND, ZEMBRA_IAP_HORIZONTAL, 0, 0), 0);
    m_desk->swipe(lineFrames());
    const auto delivery = receiver.delivery(); // the receiver was kept
    QVERIFY(delivery && !delivery->isNull);
    QVERIFY(likeness(cleanLine(), delivery->image) > 0.8);
    QCOMPARE(delivery->flag, int(ZEMBRA_IAP_SCRIPT_HAN)); // and the script
}

void TestIapEngine::busyFromPressUntilAfterTheCallback()
{
    Gate gate;
    Receiver receiver;
    receiver.inside = [&] { gate.pass(); };
    start();
    QCOMPARE(workState(), int(ZEMBRA_IAP_IDLE));
    m_desk->press();
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_BUSY));
    m_desk->lift();
    const auto delivery = receiver.delivery();
    QVERIFY(delivery);
    QCOMPARE(delivery->stateInside, int(ZEMBRA_IAP_BUSY));
    QCOMPARE(workState(), int(ZEMBRA_IAP_BUSY)); // the callback is held
    gate.open();
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
}

void TestIapEngine::uninitializeWaitsForTheCallback()
{
    Gate gate;
    std::atomic<bool> left = false;
    Receiver receiver;
    receiver.inside = [&] {
        gate.pass();
        left = true;
    };
    start();
    m_desk->swipe({});
    QVERIFY(receiver.delivery());
    bool wasLeft = false;
    std::thread stopper([&] {
        ZEMBRA_IAP_Uninitialize();
        wasLeft = left;
    });
    // The state is to be had also while another thread waits.
    QTRY_COMPARE(workState(), -1);
    gate.open();
    stopper.join();
    QVERIFY(wasLeft);
}

void TestIapEngine::uninitializeInsideTheCallback()
{
    std::atomic<int> result = -2;
    Receiver receiver;
    receiver.inside = [&] { result = ZEMBRA_IAP_Uninitialize(); };
    start();
    m_desk->press();
    m_desk->lift();
    m_desk->swipe(lineFrames()); // comes too late
    QTRY_COMPARE(result.load(), 0);
    QCOMPARE(workState(), -1);
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), -1);
    while (m_desk->receive()) // until it has hung up
        ;
    QCOMPARE(receiver.count(), std::size_t(1));
}

void TestIapEngine::restartInsideTheCallback()
{
    std::atomic<int> result = -2;
    Receiver receiver;
    receiver.inside = [&] {
        if (receiver.count() == 1) {
            ZEMBRA_IAP_Uninitialize();
            result = ZEMBRA_IAP_Initialize(1, 0, 0, 0);
        }
    };
    start();
    m_desk->swipe({});
    QTRY_COMPARE(result.load(), 0);
    QVERIFY(m_desk->accept());
    m_desk->swipe(lineFrames());
    const auto second = receiver.delivery(2);
    QVERIFY(second && !second->isNull);
}

void TestIapEngine::badPacketsAreIgnored()
{
    Receiver receiver;
    start();
    m_desk->press();
    m_desk->sendRaw("x");
    m_desk->sendRaw(QByteArray(200, '\xff'));
    m_desk->send(desklink::Kind(999), "body");
    m_desk->send(desklink::Kind::Frame, {});
    m_desk->send(desklink::Kind::Frame, QByteArray(40, '\0'));
    desklink::Header lying = {desklink::Magic, desklink::Version, desklink::Kind::TipUp, 77};
    m_desk->sendRaw(QByteArray(reinterpret_cast<const char*>(&lying), sizeof lying));
    lying = {desklink::Magic, 9, desklink::Kind::TipUp, 0};
    m_desk->sendRaw(QByteArray(reinterpret_cast<const char*>(&lying), sizeof lying));
    Frame huge = {0, 60000, 60000, 300, std::vector<std::uint8_t>(100)};
    m_desk->sendFrame(huge);
    Frame odd = {0, 100, 80, 300, std::vector<std::uint8_t>(100 * 80 - 1)};
    m_desk->sendFrame(odd);
    Frame noDpi = lineFrames().front();
    noDpi.dpi = 0;
    m_desk->sendFrame(noDpi);
    for (const Frame& frame : lineFrames())
        m_desk->sendFrame(frame);
    m_desk->lift();
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QCOMPARE(nextResult().frames, std::uint32_t(lineFrames().size()));
}

void TestIapEngine::theLargestFrameArrives()
{
    Receiver receiver;
    start();
    const Frame white = {0, MaxFrameSide, MaxFrameSide, 300,
                         std::vector<std::uint8_t>(std::size_t(MaxFrameSide) * MaxFrameSide, 255)};
    m_desk->swipe({white});
    QCOMPARE(nextResult().frames, 1U);
}

void TestIapEngine::strayTipMessagesAreIgnored()
{
    Receiver receiver;
    start();
    m_desk->lift(); // of nothing
    m_desk->sendFrame(lineFrames().front());
    m_desk->press();
    m_desk->press(); // again
    for (const Frame& frame : lineFrames())
        m_desk->sendFrame(frame);
    m_desk->lift();
    m_desk->lift();
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QCOMPARE(nextResult().frames, std::uint32_t(lineFrames().size()));
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
    QCOMPARE(receiver.count(), std::size_t(1));
}

void TestIapEngine::deskGoesDuringASwipe()
{
    Receiver receiver;
    start();
    m_desk->press();
    m_desk->sendFrame(lineFrames().front());
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_BUSY));
    m_desk->hangUp();
    // Whoever waits for the line hears that there is none.
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QCOMPARE(delivery->width, 0);
    QCOMPARE(delivery->height, 0);
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
    QCOMPARE(receiver.count(), std::size_t(1));
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), 0);
}

void TestIapEngine::newDeskAfterTheOldOneHasGone()
{
    Receiver receiver;
    start();
    m_desk->press();
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_BUSY));
    m_desk->hangUp();
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
    restartDesk();
    start();
    m_desk->swipe(lineFrames());
    QVERIFY(receiver.delivery());
}

void TestIapEngine::folderOfPictures()
{
    QTemporaryDir folder;
    int number = 100;
    for (const Frame& frame : lineFrames()) {
        QFile file(folder.filePath(QString("%1.pgm").arg(number++)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QString("P5\n# dpi %1\n%2 %3\n255\n")
                       .arg(frame.dpi)
                       .arg(frame.width)
                       .arg(frame.height)
                       .toLatin1());
        file.write(reinterpret_cast<const char*>(frame.pixels.data()), qint64(frame.pixels.size()));
    }
    for (const QByteArray& bad : {QByteArray("P6\n10 10\n255\n"), QByteArray("P5\n99999 9\n255\n"),
                                  QByteArray("P5\n160 104\n255\nshort"), QByteArray()}) {
        QFile file(folder.filePath(QString("%1.pgm").arg(number++)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bad);
    }
    QFile other(folder.filePath("readme.txt"));
    QVERIFY(other.open(QIODevice::WriteOnly));
    qputenv("SWIPELINE_FRAMES", folder.path().toUtf8());
    lineArrives();
}

void TestIapEngine::folderWithoutPictures()
{
    QTemporaryDir folder;
    qputenv("SWIPELINE_FRAMES", folder.path().toUtf8());
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
    qputenv("SWIPELINE_FRAMES", "/nowhere/at/all");
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
}

void TestIapEngine::video()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("swipe.y4m"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(videoOf(lineFrames(), frameRate(lineFrames())));
    file.close();
    qputenv("SWIPELINE_CAMERA", file.fileName().toUtf8());
    lineArrives();
}

void TestIapEngine::videoThatIsNone()
{
    qputenv("SWIPELINE_CAMERA", "/nowhere/at/all");
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
    QCOMPARE(workState(), -1);
}

QTEST_MAIN(TestIapEngine)
#include "tst_iap_engine.moc"
