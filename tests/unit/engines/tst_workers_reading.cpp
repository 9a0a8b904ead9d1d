#include "editor/myedit.h"
#include "engines/crecthread.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundthread.h"
#include "engines/csoundtransthread.h"
#include "engines/readingthread.h"
#include "engines/stimg.h"
#include "engines/ttsplayer.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/engines/queuedtexts.h"
#include "tests/unit/engines/workersfixture.h"

#include <QTest>
#include <future>
#include <memory>

namespace {

// Speaks what it reads, as a screen does.
struct Speaker
{
    void operator()(QString& text) const { TTSPlayer::Instance()->play(text); }
};

} // namespace

/* The threads that read aloud and recognise. */
class TestWorkersReading : public WorkersFixture
{
    Q_OBJECT

private slots:
    void onlyTheNewestTextIsRead();
    void aTextQueuedWhileReadingIsReadNext();
    void clearedTextsAreNotRead();
    void stoppingAndClearingEndsTheThread();
    void aStopBetweenTakingAndSpeakingIsNotLost();
    void aTextQueuedAsTheThreadEndsIsReadAfterAll();
    void destroyingAReaderWhileItReadsEndsIt();
    void aReaderWithoutScreenEnds();
    void aTranslationThatIsQueuedForgetsTheNewScan();
    void aNewScanIsSeenWhileATranslationIsRead();
    void onlyTheNewestTranslationIsRead();
    void theSourceIsReadOnceWithAnEmptyText();
    void destroyingTheSourceReaderWhileItReadsEndsIt();
    void anImageIsHandedOverOnce();
    void anImageThatIsReplacedIsFreed();
    void anImageNeverRecognisedIsFreed();
    void withoutImageNothingIsRecognised();
};

void TestWorkersReading::onlyTheNewestTextIsRead()
{
    ReadingThread thread{Speaker()};
    thread.setContent(QStringLiteral("one"));
    thread.setContent(QStringLiteral("two"));
    thread.setContent(QStringLiteral("three"));
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"three"});
}

void TestWorkersReading::aTextQueuedWhileReadingIsReadNext()
{
    ReadingThread thread{Speaker()};
    speaksTheNewestOfThoseQueuedMeanwhile(thread);
}

void TestWorkersReading::clearedTextsAreNotRead()
{
    ReadingThread thread{Speaker()};
    thread.setContent(QStringLiteral("text"));
    thread.clearContent();
    thread.start();
    QVERIFY(thread.wait());
    QVERIFY(FakeTts::texts().empty());
}

void TestWorkersReading::stoppingAndClearingEndsTheThread()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    ReadingThread thread{Speaker()};
    thread.setContent(QStringLiteral("first"));
    thread.start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread.setContent(QStringLiteral("second"));
    thread.clearContent();
    TTSPlayer::Instance()->stop();
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"first"});
}

void TestWorkersReading::aStopBetweenTakingAndSpeakingIsNotLost()
{
    std::promise<void> taken;
    std::promise<void> stopped;
    ReadingThread thread([&](QString& text) {
        taken.set_value();
        stopped.get_future().wait();
        TTSPlayer::Instance()->play(text);
    });
    thread.setContent(QStringLiteral("text"));
    thread.start();
    taken.get_future().wait();
    TTSPlayer::Instance()->stop();
    stopped.set_value();
    QVERIFY(thread.wait());
    QVERIFY(FakeTts::texts().empty());
}

void TestWorkersReading::aTextQueuedAsTheThreadEndsIsReadAfterAll()
{
    // finished() is emitted when the thread has looked into its queue for the last time and still
    // counts as running.
    ReadingThread thread{Speaker()};
    bool queued = false;
    connect(
        &thread, &QThread::finished, &thread,
        [&] {
            if (!std::exchange(queued, true))
                thread.setContent(QStringLiteral("late"));
        },
        Qt::DirectConnection);
    thread.setContent(QStringLiteral("first"));
    thread.start();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"first", u"late"}));
    QTRY_VERIFY(thread.isFinished());
}

void TestWorkersReading::destroyingAReaderWhileItReadsEndsIt()
{
    endsWhenDestroyedWhileSpeaking(std::make_unique<ReadingThread>(Speaker()));
}

void TestWorkersReading::aReaderWithoutScreenEnds()
{
    CSoundThread thread(nullptr);
    thread.setContent(QStringLiteral("text"));
    thread.start();
    QVERIFY(thread.wait());
    QVERIFY(FakeTts::texts().empty());
}

void TestWorkersReading::aTranslationThatIsQueuedForgetsTheNewScan()
{
    CSoundTransThread thread{Speaker()};
    QVERIFY(!thread.getnewScanState());
    thread.haveNewScan();
    QVERIFY(thread.getnewScanState());
    thread.setContent(QStringLiteral("text"));
    QVERIFY(!thread.getnewScanState());
}

void TestWorkersReading::aNewScanIsSeenWhileATranslationIsRead()
{
    std::promise<void> reading;
    std::promise<void> scanned;
    std::atomic<bool> seen{false};
    CSoundTransThread* asked = nullptr;
    CSoundTransThread thread([&](QString&) {
        reading.set_value();
        scanned.get_future().wait();
        seen = asked->getnewScanState();
    });
    asked = &thread;
    thread.setContent(QStringLiteral("text"));
    thread.start();
    reading.get_future().wait();
    thread.haveNewScan();
    scanned.set_value();
    QVERIFY(thread.wait());
    QVERIFY(seen);
}

void TestWorkersReading::onlyTheNewestTranslationIsRead()
{
    CSoundTransThread thread{Speaker()};
    thread.setContent(QStringLiteral("one"));
    thread.setContent(QStringLiteral("two"));
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"two"});
}

void TestWorkersReading::theSourceIsReadOnceWithAnEmptyText()
{
    QStringList handed;
    CSoundSrcThread thread([&](QString& text) { handed.append(text); });
    thread.setContent(QStringLiteral("one"));
    thread.setContent(QStringLiteral("two"));
    thread.start();
    QVERIFY(thread.wait());
    QCoreApplication::processEvents();
    QVERIFY(!thread.isRunning());
    QCOMPARE(handed, QStringList{QString()});
}

void TestWorkersReading::destroyingTheSourceReaderWhileItReadsEndsIt()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    auto thread = std::make_unique<CSoundSrcThread>(
        [](QString&) { TTSPlayer::Instance()->play(QStringLiteral("source")); });
    thread->start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread.reset();
    QVERIFY(!FakeTts::isSpeaking());
}

void TestWorkersReading::anImageIsHandedOverOnce()
{
    // A record freed twice, or not at all, is seen by the address sanitizer.
    MyEdit edit;
    CRecThread thread(&edit);
    const unsigned char pixels[6] = {};
    thread.setImg(makeImage(pixels, 3, 2, 0));
    thread.start();
    QVERIFY(thread.wait());
    thread.start();
    QVERIFY(thread.wait());
    QVERIFY(CallLog::count("ZEMBRA_OCR_Recognize") <= 1);
}

void TestWorkersReading::anImageThatIsReplacedIsFreed()
{
    CRecThread thread(nullptr);
    const unsigned char pixel = 0;
    thread.setImg(makeImage(&pixel, 1, 1, 1));
    thread.setImg(makeImage(&pixel, 1, 1, 2));
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(CallLog::count("ZEMBRA_OCR_Recognize"), 0);
}

void TestWorkersReading::anImageNeverRecognisedIsFreed()
{
    CRecThread thread(nullptr);
    const unsigned char pixel = 0;
    thread.setImg(makeImage(&pixel, 1, 1, 1));
}

void TestWorkersReading::withoutImageNothingIsRecognised()
{
    MyEdit edit;
    CallLog::clear();
    CRecThread thread(&edit);
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(CallLog::count("ZEMBRA_OCR_Recognize"), 0);
}

TEST_OBJECT(TestWorkersReading)
#include "tst_workers_reading.moc"
