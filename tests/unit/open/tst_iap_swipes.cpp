#include "open/iap/scansession.h"
#include "tests/unit/open/iapfixture.h"

#include <QTest>

#include <algorithm>

/* What becomes of a swipe. */
class TestIapSwipes : public IapFixture
{
    Q_OBJECT

private slots:
    void swipeIsDelivered();
    void leftHandTurnsThePicture();
    void flagIsTheScriptOfTheSwipe();
    void blankPaperGivesAnEmptyImage();
    void unreadableMotionGivesAnEmptyImage();
    void touchOfTheTipGivesANullImage();
    void liftWithoutFramesGivesANullImage();
    void stopBeforeThePress();
    void stopDuringTheSwipe();
    void stopAndBackDuringTheSwipe();
    void initializeClearsTheStopSignal();
    void stopSignalIsRememberedWhileNotStarted();
    void noReceiver();
    void swipesDuringACallbackAreNotLost();
};

void TestIapSwipes::swipeIsDelivered()
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

void TestIapSwipes::leftHandTurnsThePicture()
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

void TestIapSwipes::flagIsTheScriptOfTheSwipe()
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

void TestIapSwipes::blankPaperGivesAnEmptyImage()
{
    Receiver receiver;
    start();
    m_desk->swipe(swipeFrames(blankPage(), 1, {}));
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    QCOMPARE(delivery->width, 0);
    QCOMPARE(delivery->height, 0);
    QString reason;
    QCOMPARE(nextResult(&reason).outcome, desklink::SwipeOutcome::NoPrint);
    QVERIFY(!reason.isEmpty());
}

void TestIapSwipes::unreadableMotionGivesAnEmptyImage()
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
    QVERIFY(delivery && !delivery->isNull);
    QCOMPARE(delivery->width, 0);
    QCOMPARE(delivery->height, 0);
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::BadMotion);
}

void TestIapSwipes::touchOfTheTipGivesANullImage()
{
    Receiver receiver;
    start();
    std::vector<Frame> frames = swipeFrames(blankPage(), 1, {});
    const auto isLate = [began = frames.front().timeUs](const Frame& frame) {
        return frame.timeUs - began >= ScanSession::ShortestSwipeUs;
    };
    frames.erase(std::ranges::find_if(frames, isLate), frames.end());
    m_desk->swipe(frames);
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && delivery->isNull);
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::NoPrint);
}

void TestIapSwipes::liftWithoutFramesGivesANullImage()
{
    Receiver receiver;
    start();
    m_desk->swipe({});
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && delivery->isNull);
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::NoPrint);
}

void TestIapSwipes::stopBeforeThePress()
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

void TestIapSwipes::stopDuringTheSwipe()
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

void TestIapSwipes::stopAndBackDuringTheSwipe()
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

void TestIapSwipes::initializeClearsTheStopSignal()
{
    Receiver receiver;
    start();
    ZEMBRA_IAP_SetStopSignal(1);
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    m_desk->swipe(fewFrames());
    QVERIFY(receiver.delivery());
}

void TestIapSwipes::stopSignalIsRememberedWhileNotStarted()
{
    Receiver receiver;
    ZEMBRA_IAP_SetStopSignal(1);
    start(); // which clears it
    m_desk->swipe(fewFrames());
    QVERIFY(receiver.delivery());
}

void TestIapSwipes::noReceiver()
{
    start();
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr);
    m_desk->swipe(lineFrames());
    QCOMPARE(nextResult().outcome, desklink::SwipeOutcome::Stopped);
    QTRY_COMPARE(workState(), int(ZEMBRA_IAP_IDLE));
}

void TestIapSwipes::swipesDuringACallbackAreNotLost()
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

QTEST_MAIN(TestIapSwipes)
#include "tst_iap_swipes.moc"
