#include "open/tts/bell.h"
#include "open/tts/pacelimit.h"
#include "open/tts/samplequeue.h"
#include "open/tts/soundbuffer.h"

#include <QTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace tts;
using namespace std::chrono_literals;

namespace {

std::vector<std::int16_t> taken(SoundBuffer& buffer, std::size_t count)
{
    std::vector<std::int16_t> block(count, 77);
    block.resize(buffer.take(block));
    return block;
}

using Samples = std::vector<std::int16_t>;

} // namespace

/* Sound on its way from the synthesizer to the output. */
class TstTtsQueue : public QObject
{
    Q_OBJECT

private slots:
    void bufferKeepsOrder();
    void bufferOfNothing();
    void silenceIsACount();
    void ringIsKept();
    void ringEndsWait();
    void queueFadesWhenStopped();
    void queueGivesSilenceWithoutText();
    void nextTextDoesNotCutTheFade();
    void silenceIsStoppedLikeSound();
    void stopEndsWaitingForAnOutputThatTakesNothing();
    void stallIsTold();
    void deviceWithoutClockIsHeldToItsPace();
    void deviceWithAClockIsNotHeld_data();
    void deviceWithAClockIsNotHeld();
};

void TstTtsQueue::bufferKeepsOrder()
{
    SoundBuffer buffer;
    buffer.add({1, 2, 3});
    buffer.addSilence(2);
    buffer.add({4, 5});
    QCOMPARE(taken(buffer, 2), Samples({1, 2}));
    QCOMPARE(taken(buffer, 4), Samples({3, 0, 0, 4}));
    QCOMPARE(taken(buffer, 4), Samples({5}));
    QVERIFY(buffer.isEmpty());
    QCOMPARE(taken(buffer, 4), Samples());
}

void TstTtsQueue::bufferOfNothing()
{
    SoundBuffer buffer;
    buffer.add({});
    buffer.addSilence(0);
    buffer.addSilence(-5);
    QVERIFY(buffer.isEmpty());
    buffer.add({1});
    buffer.clear();
    QVERIFY(buffer.isEmpty());
}

void TstTtsQueue::silenceIsACount()
{
    SoundBuffer buffer;
    constexpr std::int64_t Years = std::int64_t(1) << 44; // no memory would hold it
    buffer.addSilence(Years);
    buffer.add({9});
    QCOMPARE(taken(buffer, 3), Samples({0, 0, 0}));
    QVERIFY(!buffer.isEmpty());
}

void TstTtsQueue::ringIsKept()
{
    Bell bell;
    bell.ring();
    bell.ring();
    bell.wait();
    // Several rings were one: the next wait lasts its time.
    const auto limit = Bell::Clock::now() + std::chrono::milliseconds(20);
    bell.waitUntil(limit);
    QVERIFY(Bell::Clock::now() >= limit);
    bell.ring();
    bell.waitUntil(Bell::Clock::now() + std::chrono::hours(1));
}

void TstTtsQueue::ringEndsWait()
{
    Bell bell;
    std::atomic<int> count = 0;
    std::thread ringer([&] {
        for (int i = 1; i <= 1000; ++i) {
            count = i;
            bell.ring();
        }
    });
    while (count < 1000)
        bell.wait();
    ringer.join();
}

void TstTtsQueue::queueFadesWhenStopped()
{
    Generation generation = 7;
    SampleQueue queue(generation);
    queue.begin(7);
    const std::vector<std::int16_t> loud(4000, 10000);
    queue.push(loud);
    std::vector<std::int16_t> block(BlockSamples);
    QCOMPARE(queue.fill(block), std::size_t(BlockSamples));
    QCOMPARE(block[511], std::int16_t(10000));
    ++generation;
    const std::size_t used = queue.fill(block);
    QCOMPARE(used, std::size_t(110)); // 5 ms
    for (std::size_t i = 1; i < used; ++i)
        QVERIFY(block[i] <= block[i - 1] && block[i - 1] - block[i] < 200);
    for (std::size_t i = used; i < block.size(); ++i)
        QCOMPARE(block[i], std::int16_t(0));
    QCOMPARE(queue.fill(block), std::size_t(0));
    QVERIFY(!queue.waitUntilHeard(4000));
}

void TstTtsQueue::queueGivesSilenceWithoutText()
{
    Generation generation = 0;
    SampleQueue queue(generation);
    std::vector<std::int16_t> block(BlockSamples, 77);
    QCOMPARE(queue.fill(block), std::size_t(0));
    for (const std::int16_t sample : block)
        QCOMPARE(sample, std::int16_t(0));
}

void TstTtsQueue::nextTextDoesNotCutTheFade()
{
    Generation generation = 1;
    SampleQueue queue(generation);
    queue.begin(1);
    queue.push(std::vector<std::int16_t>(4000, 10000));
    std::vector<std::int16_t> block(BlockSamples);
    queue.fill(block);
    ++generation;
    queue.begin(2);
    queue.push(std::vector<std::int16_t>(4000, 100));
    QCOMPARE(queue.fill(block), std::size_t(BlockSamples));
    QVERIFY(block[0] > 9000);
    QCOMPARE(block[300], std::int16_t(100));
    QCOMPARE(queue.pushed(), 4000);
}

void TstTtsQueue::silenceIsStoppedLikeSound()
{
    Generation generation = 1;
    SampleQueue queue(generation);
    queue.begin(1);
    constexpr std::int64_t LongestPause = std::int64_t(65535) * SampleRate / 1000;
    queue.pushSilence(LongestPause);
    QCOMPARE(queue.pushed(), LongestPause);
    std::vector<std::int16_t> block(BlockSamples, 77);
    QCOMPARE(queue.fill(block), std::size_t(BlockSamples));
    ++generation;
    QCOMPARE(queue.fill(block), std::size_t(110)); // as long as a fade
    QCOMPARE(queue.fill(block), std::size_t(0));
}

void TstTtsQueue::stopEndsWaitingForAnOutputThatTakesNothing()
{
    Generation generation = 1;
    SampleQueue queue(generation);
    queue.begin(1);
    queue.pushSilence(SampleRate);
    std::thread stopper([&] {
        ++generation;
        queue.wake();
    });
    QVERIFY(!queue.waitUntilHeard(SampleRate));
    stopper.join();
}

void TstTtsQueue::stallIsTold()
{
    Generation generation = 1;
    SampleQueue queue(generation);
    int stalls = 0;
    queue.onStall([&] {
        ++stalls;
        std::vector<std::int16_t> block(BlockSamples);
        queue.fill(block);
    });
    queue.begin(1);
    queue.push(Samples(BlockSamples, 100));
    QVERIFY(queue.waitUntilHeard(BlockSamples));
    QCOMPARE(stalls, 1);
}

void TstTtsQueue::deviceWithoutClockIsHeldToItsPace()
{
    PaceLimit limit;
    const PaceLimit::Clock::time_point begin = PaceLimit::Clock::now();
    PaceLimit::Clock::time_point now = begin;
    constexpr int Seconds = 60;
    for (int taken = 0; taken < Seconds * SampleRate; taken += BlockSamples)
        now = limit.next(BlockSamples, now);
    QVERIFY(now - begin > 58s);
    QVERIFY(now - begin < 60s);
}

void TstTtsQueue::deviceWithAClockIsNotHeld_data()
{
    QTest::addColumn<double>("clock");
    QTest::addColumn<int>("buffer"); // blocks that it takes at once
    QTest::newRow("exact") << 1.0 << 2;
    QTest::newRow("fast") << 1.01 << 2;
    QTest::newRow("slow") << 0.99 << 2;
    QTest::newRow("large buffer") << 1.001 << 20;
}

void TstTtsQueue::deviceWithAClockIsNotHeld()
{
    QFETCH(double, clock);
    QFETCH(int, buffer);
    const auto round = std::chrono::duration_cast<PaceLimit::Clock::duration>(
        std::chrono::duration<double>(buffer * BlockSamples / (SampleRate * clock)));
    PaceLimit limit;
    PaceLimit::Clock::time_point now = PaceLimit::Clock::now();
    for (int i = 0; i < 100000; ++i, now += round)
        for (int block = 0; block < buffer; ++block)
            QVERIFY(limit.next(BlockSamples, now) == now);
    // And after it has slept.
    now += 3600s;
    QVERIFY(limit.next(BlockSamples, now) == now);
}

QTEST_APPLESS_MAIN(TstTtsQueue)
#include "tst_tts_queue.moc"
