/*
 * What platform/zembra_tts.h promises, as far as a caller can see it. Built once for each engine;
 * nothing here knows which one it is.
 */
#include "platform/zembra_tts.h"
#include "tests/fakes/words.h"

#include <QFile>
#include <QTest>
#include <algorithm>
#include <atomic>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Words = std::vector<std::u16string>;

struct Report
{
    int offset;
    int length;
    int kind;
};

// What the highlight callbacks saw; the engine's thread writes, the test reads.
struct Heard
{
    std::mutex mutex;
    std::vector<Report> reports;
    std::function<void()> onReport;

    void begin(std::function<void()> reaction = {})
    {
        const std::lock_guard lock(mutex);
        reports.clear();
        onReport = std::move(reaction);
    }

    std::vector<Report> all()
    {
        const std::lock_guard lock(mutex);
        return reports;
    }
};

Heard heard;
std::atomic<int> otherReports{0};

int receive(int offset, int length, int kind)
{
    std::function<void()> reaction;
    {
        const std::lock_guard lock(heard.mutex);
        heard.reports.push_back({offset, length, kind});
        reaction = heard.onReport;
    }
    if (reaction)
        reaction();
    return 0;
}

int receiveOther(int, int, int)
{
    ++otherReports;
    return -1;
}

int play(const std::u16string& text)
{
    // Exactly the text's size on the heap: an engine that reads on is seen by AddressSanitizer.
    const std::vector<unsigned short> units(text.begin(), text.end());
    return ZEMBRA_TTS_Play(units.data(), static_cast<int>(2 * units.size()), 0);
}

int initialize()
{
    const char* dirs[] = {"/nowhere/ttsrec", "/nowhere/languages"};
    return ZEMBRA_TTS_Initialize(dirs, 2, 80);
}

std::u16string lettersOf(const std::u16string& text)
{
    std::u16string letters;
    std::copy_if(text.begin(), text.end(), std::back_inserter(letters), [](char16_t unit) {
        return QChar(unit).isLetterOrNumber() || QChar(unit).isSurrogate();
    });
    return letters;
}

Words wordsHeard(const std::u16string& text)
{
    Words words;
    for (const Report& report : heard.all()) {
        words.push_back(lettersOf(text.substr(static_cast<std::size_t>(report.offset),
                                              static_cast<std::size_t>(report.length))));
    }
    return words;
}

bool overlapsTag(const std::u16string& text, const Report& report)
{
    const auto tags = fakes::pauseTagsOf(text);
    return std::any_of(tags.begin(), tags.end(), [&report](const fakes::Stretch& tag) {
        return report.offset < tag.offset + tag.length
               && tag.offset < report.offset + report.length;
    });
}

// Whether the reports of `text` keep the rules that hold for every text.
bool lawful(const std::u16string& text)
{
    int end = 0;
    for (const Report& report : heard.all()) {
        const bool inside = report.offset >= end && report.length >= 1
                            && report.offset + report.length <= static_cast<int>(text.size());
        if (!inside || report.kind != ZEMBRA_TTS_WORD || overlapsTag(text, report))
            return false;
        end = report.offset + report.length;
    }
    return true;
}

// Whether a thread of this process sleeps in the kernel.
bool sleeps(pid_t thread)
{
    QFile file(QStringLiteral("/proc/self/task/%1/stat").arg(thread));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray line = file.readAll();
    return line.mid(line.lastIndexOf(')') + 2, 1) == "S";
}

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
    void eachWordIsReportedOnceAndInOrder();
    void reportsCountMarkUpAndAvoidIt();
    void whatOnlyLooksLikeMarkUpIsText();
    void otherScriptsAreReportedInsideTheText_data();
    void otherScriptsAreReportedInsideTheText();
    void strangeCharactersAreBlanks();
    void withoutReceiverNothingIsReported();
    void aReceiverSetMeanwhileCountsFromTheNextText();
    void nothingIsReportedAfterTheReturn();
    void stopWithoutSpeechSucceeds();
    void stopBeforePlayDoesNotCancelIt();
    void stopDuringPlayEndsIt();
    void stopEndsEveryPlayThatWasEntered();
    void twoTextsAreServedOneAfterTheOther();
    void volumeMayChangeWhileSpeaking();
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
    if (test.startsWith("beforeTheStart"))
        return;
    QCOMPARE(initialize(), 0);
    QCOMPARE(ZEMBRA_TTS_SetLang(200), 0);
    QCOMPARE(ZEMBRA_TTS_SetSpeed(150), 0);
    QCOMPARE(ZEMBRA_TTS_SetVolume(80), 0);
    QCOMPARE(ZEMBRA_TTS_SetHighlight_CallBack(&receive), 0);
    heard.begin();
    otherReports = 0;
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

void ContractTts::eachWordIsReportedOnceAndInOrder()
{
    const std::u16string text = u"One two one two, and three. Three!";
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    QCOMPARE(wordsHeard(text), (Words{u"One", u"two", u"one", u"two", u"and", u"three", u"Three"}));
}

void ContractTts::reportsCountMarkUpAndAvoidIt()
{
    const std::u16string text =
        u"<vtml_pause time=\"0\"/>One<vtml_pause time=\"20\"/> two <vtml_pause time=\"5\"/>three.";
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    QCOMPARE(wordsHeard(text), (Words{u"One", u"two", u"three"}));
    QCOMPARE(heard.all().front().offset, static_cast<int>(text.find(u"One")));
}

void ContractTts::whatOnlyLooksLikeMarkUpIsText()
{
    const std::u16string text = u"a <b> c <vtml_pause time=\"x\"/> d";
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    const Words words = wordsHeard(text);
    QCOMPARE(words.front(), u"a");
    QCOMPARE(words.back(), u"d");
    QVERIFY(std::find(words.begin(), words.end(), u"c") != words.end());
}

void ContractTts::otherScriptsAreReportedInsideTheText_data()
{
    QTest::addColumn<int>("voice");
    QTest::addColumn<QString>("text");
    QTest::newRow("Chinese") << 1 << QStringLiteral("你好，世界。");
    QTest::newRow("Chinese with English") << 1 << QStringLiteral("我有 book 两本。");
    QTest::newRow("Russian") << 151 << QStringLiteral("Привет, мир.");
    QTest::newRow("accents") << 103 << QStringLiteral("Où est l'élève ?");
    QTest::newRow("decomposed") << 103 << QStringLiteral("e\u0301le\u0300ve");
    QTest::newRow("beyond the first plane") << 200 << QStringLiteral("one 😀 two");
}

void ContractTts::otherScriptsAreReportedInsideTheText()
{
    QFETCH(int, voice);
    QFETCH(QString, text);
    QCOMPARE(ZEMBRA_TTS_SetLang(voice), 0);
    QCOMPARE(play(text.toStdU16String()), 0);
    QVERIFY(!heard.all().empty());
    QVERIFY(lawful(text.toStdU16String()));
}

void ContractTts::strangeCharactersAreBlanks()
{
    std::u16string text = u"one";
    text += char16_t{0xd800};
    text += u"two";
    text += char16_t{1};
    text += char16_t{0};
    text += u"three";
    text += char16_t{0xdc00};
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    QCOMPARE(wordsHeard(text), (Words{u"one", u"two", u"three"}));
}

void ContractTts::withoutReceiverNothingIsReported()
{
    QCOMPARE(ZEMBRA_TTS_SetHighlight_CallBack(nullptr), 0);
    QCOMPARE(play(u"Nobody listens."), 0);
    QVERIFY(heard.all().empty());
}

void ContractTts::aReceiverSetMeanwhileCountsFromTheNextText()
{
    heard.begin([] { ZEMBRA_TTS_SetHighlight_CallBack(&receiveOther); });
    const std::u16string text = u"One two three.";
    QCOMPARE(play(text), 0);
    QCOMPARE(wordsHeard(text), (Words{u"One", u"two", u"three"}));
    QCOMPARE(otherReports.load(), 0);
    QCOMPARE(play(text), 0);
    QCOMPARE(otherReports.load(), 3);
}

void ContractTts::nothingIsReportedAfterTheReturn()
{
    std::atomic<bool> playing{false};
    std::atomic<int> late{0};
    for (int i = 0; i < 5; ++i) {
        heard.begin([&] {
            late += playing ? 0 : 1;
            ZEMBRA_TTS_Stop();
        });
        playing = true;
        play(u"One two three four five.");
        playing = false;
    }
    // A shut-down would wait for an engine thread that still reports.
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
    QCOMPARE(late.load(), 0);
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
    QTRY_VERIFY(thread != 0 && sleeps(thread));
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

void ContractTts::volumeMayChangeWhileSpeaking()
{
    heard.begin([] {
        ZEMBRA_TTS_SetVolume(10);
        ZEMBRA_TTS_SetVolumeLevel(1000);
        ZEMBRA_TTS_SetSpeed(20);
        ZEMBRA_TTS_SetLang(104);
    });
    const std::u16string text = u"Louder and softer.";
    QCOMPARE(play(text), 0);
    QCOMPARE(wordsHeard(text), (Words{u"Louder", u"and", u"softer"}));
    QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(0), 0);
}

void ContractTts::shutDownEndsSpeechAndWaitsForIt()
{
    Gate begun;
    heard.begin([&begun] { begun.open(); });
    std::atomic<bool> returned{false};
    auto speech = std::async(std::launch::async, [&returned] {
        const int result = play(u"One <vtml_pause time=\"60000\"/> two");
        returned = true;
        return result;
    });
    QVERIFY(begun.wait());
    const int result = ZEMBRA_TTS_Uninitialize();
    QCOMPARE(result, 0);
    // Play has left the engine; its caller may need a moment to note it.
    QTRY_VERIFY(returned);
    const int played = speech.get();
    QVERIFY2(played == 0 || played == 1, "neither spoken nor stopped");
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
