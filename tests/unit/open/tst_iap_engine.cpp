#include "platform/zembra_iap.h"
#include "tests/unit/open/fakedesk.h"
#include "tests/unit/open/iappictures.h"

#include <QFile>
#include <QGuiApplication>
#include <QTest>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace {

/* What the receiver got, and what it is to do meanwhile. */
struct Delivery
{
    cv::Mat image; // empty for a null image
    bool isNull = false;
    int flag = -1;
    int width = -1;
    int height = -1;
    int stateInside = -1;
};

class Receiver
{
public:
    static int callback(void* context, unsigned char* image, int width, int height,
                        unsigned char flag, char* extra)
    {
        return s_current->take(context, image, width, height, flag, extra);
    }

    Receiver() { s_current = this; }
    ~Receiver()
    {
        ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr);
        ZEMBRA_IAP_Uninitialize();
        // A callback that stopped the engine itself may still be on its way out.
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_running == 0; });
    }

    /* Waits for the delivery number `count`, from 1. */
    std::optional<Delivery> delivery(std::size_t count = 1)
    {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait_for(lock, std::chrono::seconds(60),
                                [&] { return m_deliveries.size() >= count; }))
            return std::nullopt;
        return m_deliveries[count - 1];
    }

    std::size_t count()
    {
        const std::lock_guard lock(m_mutex);
        return m_deliveries.size();
    }

    std::function<void()> inside; // called by the callback after it has noted the delivery

private:
    int take(void* context, unsigned char* image, int width, int height, unsigned char flag,
             char* extra)
    {
        Delivery delivery;
        delivery.isNull = image == nullptr;
        if (image)
            delivery.image = cv::Mat(height, width, CV_8U, image).clone();
        delivery.width = width;
        delivery.height = height;
        delivery.flag = context || extra ? -2 : flag;
        ZEMBRA_IAP_GetWorkState(&delivery.stateInside);
        {
            const std::lock_guard lock(m_mutex);
            m_deliveries.push_back(delivery);
            ++m_running;
            m_changed.notify_all();
        }
        if (inside)
            inside();
        const std::lock_guard lock(m_mutex);
        --m_running;
        m_changed.notify_all();
        return 0;
    }

    static inline Receiver* s_current = nullptr;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Delivery> m_deliveries;
    int m_running = 0;
};

/* Holds a callback until it is opened. */
class Gate
{
public:
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_opened.notify_all();
    }
    void pass()
    {
        std::unique_lock lock(m_mutex);
        m_opened.wait(lock, [this] { return m_isOpen; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_isOpen = false;
};

int workState()
{
    int state = -1;
    return ZEMBRA_IAP_GetWorkState(&state) == 0 ? state : -1;
}

const std::vector<Frame>& lineFrames()
{
    static const std::vector<Frame> frames = swipeFrames(threeLines(), 1, {});
    return frames;
}

/* A short swipe, where the picture does not matter. */
std::vector<Frame> fewFrames()
{
    return {lineFrames().begin() + 20, lineFrames().begin() + 30};
}

} // namespace

class TestIapEngine : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void withoutAnySource();
    void notStarted();
    void greetsTheDeskAndSwitchesTheCamera();
    void swipeIsDelivered();
    void leftHandTurnsThePicture();
    void secondInitializeAppliesNewArguments();
    void flagIsTheScriptOfTheSwipe();
    void blankPaperGivesANullImage();
    void unreadableMotionGivesANullImage();
    void liftWithoutFramesGivesANullImage();
    void stopBeforeThePress();
    void stopDuringTheSwipe();
    void stopAndBackDuringTheSwipe();
    void initializeClearsTheStopSignal();
    void stopSignalIsRememberedWhileNotStarted();
    void noReceiver();
    void busyFromPressUntilAfterTheCallback();
    void swipesDuringACallbackAreNotLost();
    void uninitializeWaitsForTheCallback();
    void uninitializeInsideTheCallback();
    void restartInsideTheCallback();
    void badPacketsAreIgnored();
    void strayTipMessagesAreIgnored();
    void deskGoesDuringASwipe();
    void newDeskAfterTheOldOneHasGone();
    void folderOfPictures();
    void folderWithoutPictures();

private:
    void start(int hand = ZEMBRA_IAP_RIGHT_HAND)
    {
        QCOMPARE(ZEMBRA_IAP_Initialize(hand, ZEMBRA_IAP_HORIZONTAL, 0, 0), 0);
        ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, Receiver::callback);
        QVERIFY(m_desk->accept());
        QCOMPARE(m_desk->receive()->kind, desklink::Kind::Hello);
        QCOMPARE(m_desk->receive()->kind, desklink::Kind::CameraOn);
    }
    desklink::SwipeResultHead nextResult(QString* reason = nullptr)
    {
        desklink::SwipeResultHead head = {desklink::SwipeOutcome(99), 0, 0, 0};
        const std::optional<FakeDesk::Message> message = m_desk->receive();
        if (message && message->kind == desklink::Kind::SwipeResult
            && message->body.size() >= qsizetype(sizeof head)) {
            std::memcpy(&head, message->body.constData(), sizeof head);
            if (reason)
                *reason = QString::fromUtf8(message->body.mid(sizeof head));
        }
        return head;
    }
    void restartDesk()
    {
        m_desk.reset();
        m_desk.emplace();
    }

    std::optional<FakeDesk> m_desk;

private slots:
    void init() { m_desk.emplace(); }
};

void TestIapEngine::cleanup()
{
    ZEMBRA_IAP_Uninitialize();
    ZEMBRA_IAP_SetStopSignal(0);
    m_desk.reset();
    qunsetenv("SWIPELINE_FRAMES");
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

void TestIapEngine::swipeIsDelivered()
{
    Receiver receiver;
    start();
    m_desk->swipe(lineFrames());
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QVERIFY(likeness(cleanLine(), delivery->image) > 0.85);
    const desklink::SwipeResultHead result = nextResult();
    QCOMPARE(result.outcome, desklink::SwipeOutcome::Delivered);
    QCOMPARE(result.frames, std::uint32_t(lineFrames().size()));
    QCOMPARE(result.width, std::uint32_t(delivery->width));
    QCOMPARE(result.height, std::uint32_t(delivery->height));
    m_desk->swipe(lineFrames());
    const auto second = receiver.delivery(2);
    QVERIFY(second);
    QCOMPARE(cv::norm(second->image, delivery->image), 0.0);
}

void TestIapEngine::leftHandTurnsThePicture()
{
    Receiver receiver;
    start(ZEMBRA_IAP_LEFT_HAND);
    Swipe swipe;
    swipe.camera.mount.leftHand = true;
    m_desk->swipe(swipeFrames(threeLines(), 1, swipe));
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QVERIFY(likeness(cleanLine(), delivery->image) > 0.85);
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

void TestIapEngine::flagIsTheScriptOfTheSwipe()
{
    Receiver receiver;
    start();
    ZEMBRA_IAP_SetLangPara(ZEMBRA_IAP_SCRIPT_HAN);
    m_desk->swipe({});
    QCOMPARE(receiver.delivery(1)->flag, int(ZEMBRA_IAP_SCRIPT_HAN));
    ZEMBRA_IAP_SetLangPara(ZEMBRA_IAP_SCRIPT_ALPHA);
    m_desk->swipe({});
    QCOMPARE(receiver.delivery(2)->flag, int(ZEMBRA_IAP_SCRIPT_ALPHA));
}

void TestIapEngine::blankPaperGivesANullImage()
{
    Receiver receiver;
    start();
    m_desk->swipe(swipeFrames(blankPage(), 1, {}));
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && delivery->isNull);
    QCOMPARE(delivery->width, 0);
    QCOMPARE(delivery->height, 0);
    QString reason;
    QCOMPARE(nextResult(&reason).outcome, desklink::SwipeOutcome::NoPrint);
    QVERIFY(!reason.isEmpty());
}

void TestIapEngine::unreadableMotionGivesANullImage()
{
    Receiver receiver;
    start();
    // Frames from all over the page, as of a pen that is shaken.
    std::vector<Frame> frames;
    for (std::size_t i = 0; i < lineFrames().size(); i += 25)
        for (int turn = 0; turn < 6; ++turn) {
            Frame frame = lineFrames()[(i * 7 + std::size_t(turn) * 31) % lineFrames().size()];
            frame.timeUs = std::int64_t(frames.size()) * 7000;
            if (turn % 2)
                std::reverse(frame.pixels.begin(), frame.pixels.end());
            frames.push_back(frame);
        }
    m_desk->swipe(frames);
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && delivery->isNull);
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::BadMotion);
}

void TestIapEngine::liftWithoutFramesGivesANullImage()
{
    Receiver receiver;
    start();
    m_desk->swipe({});
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && delivery->isNull);
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::NoPrint);
}

void TestIapEngine::stopBeforeThePress()
{
    Receiver receiver;
    start();
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    m_desk->swipe(fewFrames());
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::Stopped);
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(0), 0);
    m_desk->swipe(fewFrames());
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::Delivered);
    QVERIFY(receiver.delivery());
    QCOMPARE(receiver.count(), std::size_t(1));
}

void TestIapEngine::stopDuringTheSwipe()
{
    Receiver receiver;
    start();
    m_desk->press();
    for (const Frame& frame : fewFrames())
        m_desk->sendFrame(frame);
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_BUSY));
    ZEMBRA_IAP_SetStopSignal(1);
    m_desk->lift();
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::Stopped);
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
    QCOMPARE(receiver.count(), std::size_t(0));
}

void TestIapEngine::stopAndBackDuringTheSwipe()
{
    Receiver receiver;
    start();
    m_desk->press();
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_BUSY));
    ZEMBRA_IAP_SetStopSignal(1);
    ZEMBRA_IAP_SetStopSignal(0); // from the next press on
    for (const Frame& frame : fewFrames())
        m_desk->sendFrame(frame);
    m_desk->lift();
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::Stopped);
    m_desk->swipe(fewFrames());
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::Delivered);
    QVERIFY(receiver.delivery());
    QCOMPARE(receiver.count(), std::size_t(1));
}

void TestIapEngine::initializeClearsTheStopSignal()
{
    Receiver receiver;
    start();
    ZEMBRA_IAP_SetStopSignal(1);
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    m_desk->swipe(fewFrames());
    QVERIFY(receiver.delivery());
}

void TestIapEngine::stopSignalIsRememberedWhileNotStarted()
{
    Receiver receiver;
    ZEMBRA_IAP_SetStopSignal(1);
    start(); // which clears it
    m_desk->swipe(fewFrames());
    QVERIFY(receiver.delivery());
}

void TestIapEngine::noReceiver()
{
    start();
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr);
    m_desk->swipe(lineFrames());
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::Stopped);
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
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

void TestIapEngine::swipesDuringACallbackAreNotLost()
{
    Gate gate;
    Receiver receiver;
    receiver.inside = [&] { gate.pass(); };
    start();
    m_desk->swipe(lineFrames());
    QVERIFY(receiver.delivery(1));
    m_desk->swipe(lineFrames());
    QCOMPARE(receiver.count(), std::size_t(1)); // one callback at a time
    gate.open();
    const auto second = receiver.delivery(2);
    QVERIFY(second && !second->isNull);
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
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
    QCOMPARE(receiver.count(), std::size_t(0));
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
    Receiver receiver;
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, Receiver::callback);
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QVERIFY(likeness(cleanLine(), delivery->image) > 0.85);
}

void TestIapEngine::folderWithoutPictures()
{
    QTemporaryDir folder;
    qputenv("SWIPELINE_FRAMES", folder.path().toUtf8());
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
    qputenv("SWIPELINE_FRAMES", "/nowhere/at/all");
    QVERIFY(ZEMBRA_IAP_Initialize(1, 0, 0, 0) != 0);
}

QTEST_MAIN(TestIapEngine)
#include "tst_iap_engine.moc"
