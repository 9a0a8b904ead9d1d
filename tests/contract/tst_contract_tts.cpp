/*
 * What platform/zembra_tts.h promises, as far as a caller can see it. Built once for each
 * engine; nothing here knows which one it is.
 */
#include "platform/zembra_tts.h"
#include "tests/contract/ttscaller.h"
#include "tests/shared/asleep.h"

#include <QTest>
#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <unistd.h>
#include <vector>

using namespace ttscaller;

namespace {

// A gate that a thread waits at until another opens it.
class Gate
{
public:
    void open()
    {
        if (!m_opened.exchange(true))
            m_promise.set_value();
    }
    bool wait() { return m_future.wait_for(std::chrono::seconds(20)) == std::future_status::ready; }

private:
    std::atomic<bool> m_opened{false};
    std::promise<void> m_promise;
    std::future<void> m_future = m_promise.get_future();
};

} // namespace

class ContractTts : public QObject
{
    Q_OBJECT

private slots:
    // First, while the engine has not been started in this process.
    void beforeTheStartNothingIsSpoken();
    void beforeTheStartThereIsNothingToShutDown();
    void beforeTheStartSettingsAreTaken();

    void init();
    void startingAgainSucceeds();
    void startingAgainKeepsTheReceiver();
    void startingAgainInterruptsNothing();
    void knownVoicesAreTaken_data();
    void knownVoicesAreTaken();
    void anUnknownVoiceIsRefusedAndSpeechGoesOn();
    void settingsOutOfRangeAreTaken();
    void aTextIsSpoken();
    void nothingToSpeakSucceeds();
    void nullTextFails();
    void stopWithoutSpeechSucceeds();
    void stopBeforePlayDoesNotCancelIt();
    void stopDuringPlayEndsIt();
    void stopEndsEveryPlayThatWasEntered();
    void twoTextsAreServedOneAfterTheOther();
    void shutDownEndsSpeechAndWaitsForIt();
    void afterTheShutDownNothingIsSpoken();
    void afterAShutDownItStartsAgain();
    void cleanupTestCase();
};

void ContractTts::beforeTheStartNothingIsSpoken()
{
    QCOMPARE(play(u"Nothing."), -1);
}

void ContractTts::beforeTheStartThereIsNothingToShutDown()
{
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), -1);
}

void ContractTts::beforeTheStartSettingsAreTaken()
{
    QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(1000), 0);
    QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(0), 0);
    QCOMPARE(ZEMBRA_TTS_Stop(), 0);
}

void ContractTts::init()
{
    const QByteArray test = QTest::currentTestFunction();
    if (!test.startsWith("beforeTheStart"))
        prepareEngine();
}

void ContractTts::startingAgainSucceeds()
{
    for (int i = 0; i < 5; ++i)
        QCOMPARE(initialize(), 0);
    QCOMPARE(play(u"Once."), 0);
}

void ContractTts::startingAgainKeepsTheReceiver()
{
    QCOMPARE(initialize(), 0);
    const std::u16string text = u"Still here.";
    QCOMPARE(play(text), 0);
    QCOMPARE(wordsHeard(text), (Words{u"Still", u"here"}));
}

void ContractTts::startingAgainInterruptsNothing()
{
    std::atomic<int> result{-2};
    heard.begin([&result] {
        if (result == -2)
            result = initialize();
    });
    const std::u16string text = u"Going on.";
    QCOMPARE(play(text), 0);
    QCOMPARE(result.load(), 0);
    QCOMPARE(wordsHeard(text), (Words{u"Going", u"on"}));
}

void ContractTts::knownVoicesAreTaken_data()
{
    QTest::addColumn<int>("code");
    for (const int code : {1,   2,   101, 103, 104, 105, 106, 107, 108, 109, 110, 111,
                           151, 152, 200, 201, 202, 203, 204, 205, 206, 211, 212})
        QTest::addRow("%d", code) << code;
}

void ContractTts::knownVoicesAreTaken()
{
    QFETCH(int, code);
    QCOMPARE(ZEMBRA_TTS_SetLang(code), 0);
    const std::u16string text = u"1";
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
}

void ContractTts::anUnknownVoiceIsRefusedAndSpeechGoesOn()
{
    for (const int code : {-1, 3, 102, 207, 9999})
        QCOMPARE(ZEMBRA_TTS_SetLang(code), -1);
    ZEMBRA_TTS_SetLang(0);
    const std::u16string text = u"The same voice.";
    QCOMPARE(play(text), 0);
    QCOMPARE(wordsHeard(text), (Words{u"The", u"same", u"voice"}));
}

void ContractTts::settingsOutOfRangeAreTaken()
{
    for (const int value : {-1, 1000000, -1000000}) {
        QCOMPARE(ZEMBRA_TTS_SetVolume(value), 0);
        QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(value), 0);
    }
    QCOMPARE(ZEMBRA_TTS_SetSpeed(1000000), 0);
    QCOMPARE(play(u"Fast."), 0);
    QCOMPARE(ZEMBRA_TTS_SetSpeed(-1000000), 0);
    QCOMPARE(play(u"Slow."), 0);
    QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(0), 0);
}

void ContractTts::aTextIsSpoken()
{
    QCOMPARE(play(u"This is a line of text."), 0);
}

void ContractTts::nothingToSpeakSucceeds()
{
    const unsigned short text[] = {'a', 'b'};
    QCOMPARE(ZEMBRA_TTS_Play(text, 0, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(text, -2, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, 0, 0), 0);
    QVERIFY(heard.all().empty());
}

void ContractTts::nullTextFails()
{
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, 2, 0), -1);
    QVERIFY(heard.all().empty());
}

void ContractTts::stopWithoutSpeechSucceeds()
{
    QCOMPARE(ZEMBRA_TTS_Stop(), 0);
    QCOMPARE(ZEMBRA_TTS_Stop(), 0);
}

void ContractTts::stopBeforePlayDoesNotCancelIt()
{
    QCOMPARE(ZEMBRA_TTS_Stop(), 0);
    const std::u16string text = u"Spoken after all.";
    QCOMPARE(play(text), 0);
    QCOMPARE(wordsHeard(text), (Words{u"Spoken", u"after", u"all"}));
}

void ContractTts::stopDuringPlayEndsIt()
{
    // The engine is stopped from a thread that is neither Play's nor the report's.
    Gate begun;
    auto result = std::async(std::launch::async, [&begun] {
        begun.wait();
        return ZEMBRA_TTS_Stop();
    });
    heard.begin([&] {
        begun.open();
        result.wait();
    });
    const std::u16string text = u"Begin <vtml_pause time=\"60000\"/> and never come to the end.";
    QCOMPARE(play(text), 1);
    QCOMPARE(result.get(), 0);
    QVERIFY(lawful(text));
    QVERIFY(heard.all().size() < 7);
}

void ContractTts::stopEndsEveryPlayThatWasEntered()
{
    // The first text stands in its first report until the second has been handed over and waits
    // for its turn, which shows in that its thread sleeps.
    Gate begun;
    Gate stopped;
    heard.begin([&] {
        begun.open();
        stopped.wait();
    });
    auto first = std::async(std::launch::async, [] { return play(u"First of two."); });
    QVERIFY(begun.wait());
    std::atomic<pid_t> thread{0};
    auto second = std::async(std::launch::async, [&thread] {
        std::vector<unsigned short> text(40, ' ');
        text.insert(text.end(), {'t', 'w', 'o', ' ', 'm', 'o', 'r', 'e'});
        thread = gettid();
        return ZEMBRA_TTS_Play(text.data(), static_cast<int>(2 * text.size()), 0);
    });
    QTRY_VERIFY(isAsleep(thread));
    QCOMPARE(ZEMBRA_TTS_Stop(), 0);
    stopped.open();
    QCOMPARE(first.get(), 1);
    QCOMPARE(second.get(), 1);
    for (const Report& report : heard.all())
        QVERIFY2(report.offset < 40, "a word of the second text was spoken");
}

void ContractTts::twoTextsAreServedOneAfterTheOther()
{
    // Offsets tell the texts apart: the words of one begin beyond the other's end.
    const std::u16string near = u"one two three four";
    const std::u16string far = std::u16string(40, u' ') + u"one two three four";
    auto other = std::async(std::launch::async, [&far] { return play(far); });
    QCOMPARE(play(near), 0);
    QCOMPARE(other.get(), 0);

    const std::vector<Report> reports = heard.all();
    QCOMPARE(reports.size(), std::size_t{8});
    int changes = 0;
    for (std::size_t i = 1; i < reports.size(); ++i)
        changes += (reports[i].offset < 40) != (reports[i - 1].offset < 40) ? 1 : 0;
    QCOMPARE(changes, 1);
}

void ContractTts::shutDownEndsSpeechAndWaitsForIt()
{
    // The text stands in its first report. That the shut-down waits for it shows in that its thread
    // sleeps, for longer than it may when it closes the output.
    constexpr int Looks = 30;
    Gate begun;
    Gate goOn;
    heard.begin([&] {
        begun.open();
        goOn.wait();
    });
    auto speech = std::async(std::launch::async,
                             [] { return play(u"One <vtml_pause time=\"60000\"/> two"); });
    QVERIFY(begun.wait());
    std::atomic<pid_t> thread{0};
    auto shutDown = std::async(std::launch::async, [&thread] {
        thread = gettid();
        return ZEMBRA_TTS_Uninitialize();
    });
    const bool waits = waitUntilAsleep(thread, Looks);
    goOn.open();
    QCOMPARE(shutDown.get(), 0);
    const int played = speech.get();
    QVERIFY2(played == 0 || played == 1, "neither spoken nor stopped");
    QVERIFY2(waits, "shut down before the text had ended");
}

void ContractTts::afterTheShutDownNothingIsSpoken()
{
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
    QCOMPARE(play(u"Nothing."), -1);
    QVERIFY(heard.all().empty());
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), -1);
}

void ContractTts::afterAShutDownItStartsAgain()
{
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
        QCOMPARE(initialize(), 0);
        const std::u16string text = u"Again.";
        heard.begin();
        QCOMPARE(play(text), 0);
        QCOMPARE(wordsHeard(text), (Words{u"Again"}));
    }
}

void ContractTts::cleanupTestCase()
{
    ZEMBRA_TTS_Uninitialize();
}

QTEST_GUILESS_MAIN(ContractTts)
#include "tst_contract_tts.moc"
