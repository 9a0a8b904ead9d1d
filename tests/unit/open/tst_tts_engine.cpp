#include "platform/zembra_tts.h"

#include "desk/desklink.h"
#include "ttsfixture.h"
#include "wavfile.h"

#include <QDir>
#include <QTest>

#include <atomic>
#include <chrono>
#include <future>
#include <new>
#include <thread>
#include <vector>

namespace {

int threadCount()
{
    return static_cast<int>(QDir(QStringLiteral("/proc/self/task"))
                                .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                                .size());
}

} // namespace

/* Starting, stopping, closing, and where the sound goes. */
class TstTtsEngine : public TtsFixture
{
    Q_OBJECT

private slots:
    void settingsBeforeStart();
    void nullCallbackIsAllowed();
    void stopEndsPlay();
    void stopFromReport();
    void stopEndsWaitingTextsToo();
    void stopBeforePlayDoesNothing();
    void stopManyTimes();
    void noReportAfterReturn();
    void soundEndsSoonAfterStop();
    void textsComeOneAfterTheOther();
    void emptyAndWrongArguments();
    void startTwiceKeepsSettings();
    void nothingIsThrownAtTheCaller();
    void notStarted();
    void closeEndsPlay();
    void startAndCloseAgainAndAgain();
    void fileIsValidWhileSpeaking();
    void unwritableFileIsNoOutput();
    void dummyDriverPacesWithoutDevice();
};

void TstTtsEngine::settingsBeforeStart()
{
    ZEMBRA_TTS_Uninitialize();
    QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(1000), 0);
    QCOMPARE(ZEMBRA_TTS_SetVolume(0), 0);
    QCOMPARE(ZEMBRA_TTS_SetLang(104), 0);
    QCOMPARE(ZEMBRA_TTS_SetSpeed(40), 0);
    QCOMPARE(ZEMBRA_TTS_Stop(), 0);
    QCOMPARE(ZEMBRA_TTS_Initialize(nullptr, 0, 80), 0);
    QCOMPARE(play(QStringLiteral("Leise.")), 0);
    QCOMPARE(peakOf(recorded()), 0);
}

void TstTtsEngine::nullCallbackIsAllowed()
{
    QCOMPARE(ZEMBRA_TTS_SetHighlight_CallBack(nullptr), 0);
    QCOMPARE(play(QStringLiteral("To nobody.")), 0);
    QCOMPARE(s_reports.count(), 0);
}

void TstTtsEngine::stopEndsPlay()
{
    restart("1");
    std::thread stopper([] {
        s_reports.waitFor(2);
        ZEMBRA_TTS_Stop();
    });
    QCOMPARE(play(QStringLiteral("and so it goes on ").repeated(500)), 1);
    stopper.join();
    QVERIFY(s_reports.count() < 100);
}

void TstTtsEngine::stopFromReport()
{
    s_reports.stopAt = 3;
    QCOMPARE(play(QStringLiteral("One two three four five six.")), 1);
    QCOMPARE(s_reports.count(), 3);
}

void TstTtsEngine::stopEndsWaitingTextsToo()
{
    restart("1");
    const QString text = QStringLiteral("and so it goes on ").repeated(500);
    std::vector<int> codes(3, -5);
    std::atomic<int> entered = 0;
    std::vector<std::thread> threads;
    threads.reserve(codes.size());
    for (int& code : codes)
        threads.emplace_back([&code, &text, &entered] {
            ++entered;
            code = play(text);
        });
    s_reports.waitFor(1);
    QTRY_COMPARE(entered.load(), 3);
    // A thread may have announced itself and not yet be in; stopping goes on until all have ended.
    std::atomic<bool> done = false;
    std::thread stopper([&done] {
        while (!done) {
            ZEMBRA_TTS_Stop();
            std::this_thread::yield();
        }
    });
    for (std::thread& thread : threads)
        thread.join();
    done = true;
    stopper.join();
    for (const int code : codes)
        QCOMPARE(code, 1);
}

void TstTtsEngine::stopBeforePlayDoesNothing()
{
    for (int i = 0; i < 5; ++i)
        ZEMBRA_TTS_Stop();
    QCOMPARE(play(QStringLiteral("Still spoken.")), 0);
    QCOMPARE(s_reports.count(), 2);
}

void TstTtsEngine::stopManyTimes()
{
    const QString text = QStringLiteral("One two three four five six seven eight nine ten.");
    for (int round = 0; round < 200; ++round) {
        s_reports.clear();
        const int at = 1 + round % 9;
        std::thread stopper([at] {
            s_reports.waitFor(at);
            ZEMBRA_TTS_Stop();
        });
        const int code = play(text);
        stopper.join();
        // At this pace the text may have ended before the stop came.
        QVERIFY(code == 1 || (code == 0 && s_reports.count() == 10));
        QVERIFY(s_reports.count() >= at);
        QVERIFY(!s_reports.outsidePlay);
        for (qsizetype i = 1; i < s_reports.all.size(); ++i)
            QVERIFY(s_reports.all[i].offset > s_reports.all[i - 1].offset);
    }
    s_reports.clear();
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.count(), 10);
}

void TstTtsEngine::noReportAfterReturn()
{
    for (int round = 0; round < 20; ++round) {
        s_reports.clear();
        s_reports.stopAt = 2;
        QCOMPARE(play(QStringLiteral("One two three four.")), 1);
        const int count = s_reports.count();
        QCOMPARE(play(tag(50)), 0); // time passes, nothing to report
        QCOMPARE(s_reports.count(), count);
    }
}

void TstTtsEngine::soundEndsSoonAfterStop()
{
    restart("1");
    s_reports.stopAt = 1;
    QCOMPARE(play(QStringLiteral("Enough of it, and more than enough. ").repeated(40)), 1);
    // What was taken before the stop and 5 ms of fade: nothing of the minute and more to come.
    QVERIFY(recorded().size() <= 5 * SamplesPerSecond);
}

void TstTtsEngine::textsComeOneAfterTheOther()
{
    const QString text = QStringLiteral("One after the other.");
    const std::size_t one = lengthOf(text);
    const std::size_t before = recorded().size();
    constexpr int Speakers = 4;
    std::vector<std::thread> threads;
    threads.reserve(Speakers);
    std::atomic<int> spoken = 0;
    for (int i = 0; i < Speakers; ++i)
        threads.emplace_back([&text, &spoken] { spoken += play(text) == 0; });
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(spoken.load(), 4);
    const auto all = static_cast<double>(recorded().size() - before);
    QVERIFY(std::abs(all - 4.0 * static_cast<double>(one)) < 2000);
}

void TstTtsEngine::emptyAndWrongArguments()
{
    const unsigned short unit = 'a';
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, 0, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, -4, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, 4, 0), -1);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, 0, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, -2, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, 1, 0), 0);
    QCOMPARE(s_reports.count(), 0);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, 3, 0), 0);
    QCOMPARE(s_reports.count(), 1);
}

void TstTtsEngine::startTwiceKeepsSettings()
{
    ZEMBRA_TTS_SetVolume(0);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(ZEMBRA_TTS_Initialize(nullptr, 0, 80), 0);
    QCOMPARE(play(QStringLiteral("Quiet as before.")), 0);
    QCOMPARE(s_reports.count(), 3);
    QCOMPARE(peakOf(recorded()), 0);
}

// Memory may run out at any place; a receiver that throws lets it do so in the middle of a text.
void TstTtsEngine::nothingIsThrownAtTheCaller()
{
    ZEMBRA_TTS_SetHighlight_CallBack([](int, int, int) -> int { throw std::bad_alloc(); });
    for (int i = 0; i < 2; ++i)
        QCOMPARE(play(QStringLiteral("Given up at the first word. ").repeated(20)), -1);
    QCOMPARE(ZEMBRA_TTS_SetHighlight_CallBack(nullptr), 0);
    QCOMPARE(play(QStringLiteral("All of it.")), 0);
    auto closed = std::async(std::launch::async, ZEMBRA_TTS_Uninitialize);
    if (closed.wait_for(std::chrono::seconds(20)) != std::future_status::ready)
        qFatal("closing waits for a text that is over");
    QCOMPARE(closed.get(), 0);
}

void TstTtsEngine::notStarted()
{
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), -1);
    QCOMPARE(play(QStringLiteral("Nobody.")), -1);
    QCOMPARE(play(QString()), -1);
    QCOMPARE(s_reports.count(), 0);
}

void TstTtsEngine::closeEndsPlay()
{
    restart("1");
    std::thread closer([] {
        s_reports.waitFor(1);
        ZEMBRA_TTS_Uninitialize();
    });
    QCOMPARE(play(QStringLiteral("and so it goes on ").repeated(500)), 1);
    closer.join();
    QCOMPARE(play(QStringLiteral("Closed.")), -1);
}

void TstTtsEngine::startAndCloseAgainAndAgain()
{
    const int threads = threadCount();
    for (int round = 0; round < 20; ++round) {
        QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
        start();
        s_reports.clear();
        QCOMPARE(play(QStringLiteral("Round after round.")), 0);
        QCOMPARE(s_reports.count(), 3);
        QCOMPARE(threadCount(), threads);
    }
}

void TstTtsEngine::fileIsValidWhileSpeaking()
{
    restart("20");
    QVERIFY(readWav(m_wav));
    std::atomic<bool> done = false;
    std::thread speaker([&done] {
        play(QStringLiteral("and so it goes on, ").repeated(20));
        done = true;
    });
    std::size_t before = 0;
    int grown = 0;
    while (!done) {
        // One that is read while its header is being written may be seen half new; not twice.
        auto samples = readWav(m_wav);
        if (!samples)
            samples = readWav(m_wav);
        if (!samples || samples->size() < before)
            break;
        grown += samples->size() > before;
        before = samples->size();
        std::this_thread::yield();
    }
    const bool all = done;
    speaker.join();
    QVERIFY(all);
    QVERIFY(grown > 3);
}

void TstTtsEngine::unwritableFileIsNoOutput()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv(desklink::WavVariable, "/no/such/folder/speech.wav");
    QCOMPARE(ZEMBRA_TTS_Initialize(nullptr, 0, 80), -1);
    QCOMPARE(play(QStringLiteral("Nowhere.")), -1);
}

void TstTtsEngine::dummyDriverPacesWithoutDevice()
{
    ZEMBRA_TTS_Uninitialize();
    qunsetenv(desklink::WavVariable);
    qputenv("SDL_AUDIODRIVER", "no such driver");
    start();
    const QString text = QStringLiteral("One two.");
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), QStringList({"One", "two"}));
    s_reports.clear();
    s_reports.stopAt = 1;
    QCOMPARE(play(QStringLiteral("Three four five six seven.")), 1);
    QCOMPARE(s_reports.count(), 1);
    const int threads = threadCount();
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
        start();
        QCOMPARE(threadCount(), threads);
    }
}

QTEST_GUILESS_MAIN(TstTtsEngine)
#include "tst_tts_engine.moc"
