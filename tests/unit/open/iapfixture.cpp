#include "tests/unit/open/iapfixture.h"

#include <QTest>

#include <cstring>

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

std::vector<Frame> fewFrames()
{
    return {lineFrames().begin() + 20, lineFrames().begin() + 30};
}

void IapFixture::cleanup()
{
    ZEMBRA_IAP_Uninitialize();
    ZEMBRA_IAP_SetStopSignal(0);
    m_desk.reset();
    qunsetenv("SWIPELINE_FRAMES");
    qunsetenv("SWIPELINE_CAMERA");
}

void IapFixture::start(int hand)
{
    QCOMPARE(ZEMBRA_IAP_Initialize(hand, ZEMBRA_IAP_HORIZONTAL, 0, 0), 0);
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, Receiver::callback);
    QVERIFY(m_desk->accept());
    QCOMPARE(m_desk->receive()->kind, desklink::Kind::Hello);
    QCOMPARE(m_desk->receive()->kind, desklink::Kind::CameraOn);
}

desklink::SwipeResultHead IapFixture::nextResult(QString* reason)
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

void IapFixture::restartDesk()
{
    m_desk.reset();
    m_desk.emplace();
}
