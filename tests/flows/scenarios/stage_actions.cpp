// What a prompter may ask of the stage.
#include "tests/flows/scenarios/stage.h"

#include "app/mainwindow.h"
#include "platform/qcopchannel.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/faketts.h"
#include "tests/flows/scenarios/runningtimer.h"
#include "tests/shared/asleep.h"

#include <QGuiApplication>
#include <QTest>
#include <QTimerEvent>
#include <QWindow>

namespace {

constexpr int LooksAsleep = 50;   // in a row: a thread sleeps now and then for a moment, too
constexpr int PictureWidth = 100; // of the first swipe; each that follows is one wider
constexpr int PictureHeight = 20;
const QString ToApplication = QStringLiteral("scanprocess");
const QString Mark = QStringLiteral("stageMark");

void runOut(QObject* owner, int timerId)
{
    QTimerEvent event(timerId);
    QCoreApplication::sendEvent(owner, &event);
}

} // namespace

void Stage::act(std::function<void()> action)
{
    ++m_actions;
    ++m_waitingActions;
    QMetaObject::invokeMethod(
        this,
        [this, action = std::move(action)] {
            --m_waitingActions;
            m_calmTurns = 0;
            action();
        },
        Qt::QueuedConnection);
}

void Stage::press(int key)
{
    act([key] {
        if (QWindow* const front = QGuiApplication::focusWindow())
            QTest::keyEvent(QTest::Press, front, Qt::Key(key));
    });
}

void Stage::release(int key)
{
    act([key] {
        if (QWindow* const front = QGuiApplication::focusWindow())
            QTest::keyEvent(QTest::Release, front, Qt::Key(key));
    });
}

// The mark comes over the same channel: when it is heard, the message has been obeyed or its
// handler runs.
void Stage::send(const QString& message, const QByteArray& payload)
{
    act([this, message, payload] {
        if (!window())
            return;
        auto* const channel = window()->findChild<QCopChannel*>();
        if (m_channel != channel) {
            m_channel = channel;
            connect(channel, &QCopChannel::received, this, [this](const QString& name) {
                if (name == Mark)
                    --m_awaitedMarks;
            });
        }
        ++m_awaitedMarks;
        QCopChannel::send(ToApplication, message, payload);
        QCopChannel::send(ToApplication, Mark, {});
    });
}

bool Stage::tipDown()
{
    m_tipIsDown = FakeIap::press();
    return m_tipIsDown && !FakeIap::stopSignal();
}

void Stage::tipUp(const QString& text)
{
    act([this, text] {
        const int width = PictureWidth + m_swipes++;
        FakeOcr::setResultOf(width, text.toStdU16String());
        if (text.isEmpty())
            FakeIap::liftWithoutLine();
        else
            FakeIap::lift(FakeIap::pattern(width, PictureHeight));
        m_tipIsDown = false;
    });
}

void Stage::letGo()
{
    holdVoice(false);
    holdRecognition(false);
    holdDictionary(false);
    FakeIap::liftWithoutLine();
    m_tipIsDown = false;
}

void Stage::joinReleaser()
{
    if (m_releaser.joinable())
        m_releaser.join();
}

// The interface thread, which has turns to make, sleeps only where the application waits. Should it
// come back to its turns instead, there is nothing to wait for.
void Stage::releaseRecognitionSoon()
{
    joinReleaser();
    m_recognitionHeld = false;
    m_turnIsDue = true;
    m_releaser = std::thread([this, interface = gettid()] {
        int asleep = 0;
        while (m_turnIsDue && asleep < LooksAsleep) {
            asleep = isAsleep(interface) ? asleep + 1 : 0;
            std::this_thread::yield();
        }
        FakeOcr::release();
    });
}

void Stage::holdRecognition(bool hold)
{
    joinReleaser();
    m_recognitionHeld = hold;
    if (hold)
        FakeOcr::hold();
    else
        FakeOcr::release();
}

void Stage::holdDictionary(bool hold)
{
    m_dictionaryHeld = hold;
    FakeDic::holdInitialize(hold);
}

void Stage::holdVoice(bool hold)
{
    m_voiceHeld = hold;
    FakeTts::setPace(hold ? FakeTts::Pace::Held : FakeTts::Pace::Automatic);
}

bool Stage::endTimer(const QString& name)
{
    const RunningTimer timer = findTimer(name);
    if (!timer.owner || timer.id == 0)
        return false;
    act([timer] {
        if (timer.owner)
            runOut(timer.owner, timer.id);
    });
    return true;
}
