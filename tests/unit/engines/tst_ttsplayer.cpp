#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/flags.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_tts.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/faketts.h"
#include "tests/fakes/testroot.h"
#include "tests/shared/asleep.h"

#include <QTest>
#include <future>
#include <memory>
#include <thread>

using fakes::calls;

namespace {

using Highlight = std::array<int, 3>;

// The highlights that a screen's signal brought to the interface thread.
template <class Screen> class Highlights : public QObject
{
public:
    explicit Highlights(Screen& screen)
    {
        connect(&screen, &Screen::signalTTShignlight, this,
                [this](int offset, int length, int kind) {
                    seen.push_back({offset, length, kind});
                    thread = QThread::currentThread();
                });
    }

    std::vector<Highlight> seen;
    QThread* thread = nullptr;
};

} // namespace

class TestTtsPlayer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theFirstUseStartsTheEngineWithItsFolders();
    void oneInstanceForManyThreads();
    void initStartsTheEngineAgain();
    void anEngineThatDoesNotStartCannotSpeak();
    void setLanRegistersTheReceiverAgain();
    void speedAndVolumeGoThrough();
    void playHandsOverTheBytes();
    void playOfAnEmptyTextHandsOverLengthZero();
    void playReturnsTheEnginesResult();
    void stopFromAnotherThreadEndsPlay();
    void aStopAfterTheTextWasTakenCancelsIt();
    void aStopBeforeTheTextWasTakenDoesNot();
    void aStopThatTheEngineMissedIsMadeGoodAtTheFirstWord();
    void aVoiceIsSetJustBeforeItsText();
    void whatAVoiceDoesNotNameStays();
    void aVoiceWaitsForTheTextBefore();
    void aCancelledTextLeavesTheVoice();
    void highlightsReachTheEditorUnchanged();
    void withoutScanPlayFlagNoHighlightArrives();
    void inDictionaryModeTheTranslateScreenReceives();
    void inDictionaryModeWithoutTranslateScreenReportsAreDropped();
    void withoutReceiverReportsAreDropped();
    void theScreenSetLastIsNoted();
    void forgettingAScreenWaitsForAReportInProgress();
    void reportsAfterAScreenIsGoneAreDropped();
    void forgettingAnotherScreenChangesNothing();
    void quitShutsTheEngineDown();
    void quitWithoutInstanceDoesNothing();
    void quitEndsSpeech();

private:
    std::unique_ptr<TestRoot> m_root;
};

void TestTtsPlayer::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    TTSPlayer::editScan = nullptr;
    TTSPlayer::editDict = nullptr;
    TTSPlayer::scanPlayFlag = true;
    g_InDict = false;
}

void TestTtsPlayer::cleanup()
{
    TTSPlayer::quitFun();
    fakes::reset();
    m_root.reset();
}

void TestTtsPlayer::theFirstUseStartsTheEngineWithItsFolders()
{
    QVERIFY(!TTSPlayer::player);
    TTSPlayer* const player = TTSPlayer::Instance();
    QCOMPARE(TTSPlayer::Instance(), player);
    QCOMPARE(TTSPlayer::player.load(), player);
    QCOMPARE(calls(), QStringList{"ZEMBRA_TTS_Initialize(/mnt/hidmmc/sysdict/ttsrec, "
                                  "/mnt/hidmmc/sysdict/languages, 2, 80)"});
}

void TestTtsPlayer::oneInstanceForManyThreads()
{
    constexpr int Users = 8;
    std::vector<std::future<TTSPlayer*>> users;
    users.reserve(Users);
    for (int i = 0; i < Users; ++i)
        users.push_back(std::async(std::launch::async, &TTSPlayer::Instance));
    for (auto& user : users)
        QCOMPARE(user.get(), TTSPlayer::Instance());
    QCOMPARE(CallLog::count("ZEMBRA_TTS_Initialize"), 1);
}

void TestTtsPlayer::initStartsTheEngineAgain()
{
    TTSPlayer* const player = TTSPlayer::Instance();
    QCOMPARE(player->init(7), 0);
    FakeTts::setInitializeResult(-1);
    QCOMPARE(player->init(0), -1);
    const QStringList all = calls();
    QCOMPARE(all.size(), 3);
    QCOMPARE(all[1], all[0]);
    QCOMPARE(all[2], all[0]);
}

void TestTtsPlayer::anEngineThatDoesNotStartCannotSpeak()
{
    FakeTts::setInitializeResult(-1);
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Hello")), -1);
}

void TestTtsPlayer::setLanRegistersTheReceiverAgain()
{
    TTSPlayer::Instance();
    CallLog::clear();
    QCOMPARE(TTSPlayer::Instance()->setLan(103), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_TTS_SetLang(103)",
                                   "ZEMBRA_TTS_SetHighlight_CallBack(callback)"}));
}

void TestTtsPlayer::speedAndVolumeGoThrough()
{
    TTSPlayer::Instance();
    CallLog::clear();
    TTSPlayer::Instance()->setSpeed(48);
    TTSPlayer::Instance()->setVolume(80);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_TTS_SetSpeed(48)", "ZEMBRA_TTS_SetVolume(80)"}));
}

void TestTtsPlayer::playHandsOverTheBytes()
{
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Grün <vtml_pause time=\"5\"/>")), 0);
    QCOMPARE(calls("ZEMBRA_TTS_Play"),
             QStringList{"ZEMBRA_TTS_Play(\"Grün <vtml_pause time=\"5\"/>\", 54, 0)"});
}

void TestTtsPlayer::playOfAnEmptyTextHandsOverLengthZero()
{
    QCOMPARE(TTSPlayer::Instance()->play(QString()), 0);
    QCOMPARE(calls("ZEMBRA_TTS_Play"), QStringList{"ZEMBRA_TTS_Play(\"\", 0, 0)"});
}

void TestTtsPlayer::playReturnsTheEnginesResult()
{
    FakeTts::setPlayResult(-1);
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Hello")), -1);
}

void TestTtsPlayer::stopFromAnotherThreadEndsPlay()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    auto speech = std::async(std::launch::async, [] {
        return TTSPlayer::Instance()->play(QStringLiteral("A long text."));
    });
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCOMPARE(TTSPlayer::Instance()->stop(), 0);
    QCOMPARE(speech.get(), 1);
}

void TestTtsPlayer::aStopAfterTheTextWasTakenCancelsIt()
{
    auto speech = std::async(std::launch::async, [] {
        TTSPlayer::beginRequest();
        std::thread([] { TTSPlayer::Instance()->stop(); }).join();
        return TTSPlayer::Instance()->play(QStringLiteral("Too late."));
    });
    QCOMPARE(speech.get(), 1);
    QVERIFY(FakeTts::texts().empty());
}

void TestTtsPlayer::aStopBeforeTheTextWasTakenDoesNot()
{
    auto speech = std::async(std::launch::async, [] {
        TTSPlayer::beginRequest();
        TTSPlayer::Instance()->stop();
        TTSPlayer::beginRequest();
        return TTSPlayer::Instance()->play(QStringLiteral("Spoken."));
    });
    QCOMPARE(speech.get(), 0);
    QCOMPARE(FakeTts::texts().size(), std::size_t{1});
}

void TestTtsPlayer::aStopThatTheEngineMissedIsMadeGoodAtTheFirstWord()
{
    TTSPlayer::Instance()->setLan(200);
    FakeTts::setPace(FakeTts::Pace::Held);
    auto speech = std::async(std::launch::async, [] {
        TTSPlayer::beginRequest();
        return TTSPlayer::Instance()->play(QStringLiteral("One two three."));
    });
    QVERIFY(FakeTts::waitUntilSpeaking());
    FakeTts::missStops(1);
    TTSPlayer::Instance()->stop();
    QVERIFY(FakeTts::isSpeaking());
    FakeTts::speakWord();
    QCOMPARE(speech.get(), 1);
    QCOMPARE(CallLog::count("ZEMBRA_TTS_Stop"), 2);
}

void TestTtsPlayer::aVoiceIsSetJustBeforeItsText()
{
    TTSPlayer::Instance();
    CallLog::clear();
    TTSPlayer::Voice voice;
    voice.language = 103;
    voice.volume = 40;
    voice.speed = 56;
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Bon"), voice), 0);
    QCOMPARE(calls(),
             (QStringList{"ZEMBRA_TTS_SetLang(103)", "ZEMBRA_TTS_SetHighlight_CallBack(callback)",
                          "ZEMBRA_TTS_SetVolume(40)", "ZEMBRA_TTS_SetSpeed(56)",
                          "ZEMBRA_TTS_Play(\"Bon\", 6, 0)"}));
    QVERIFY(!TTSPlayer::scanPlayFlag);
    voice.highlights = true;
    TTSPlayer::Instance()->play(QStringLiteral("Bon"), voice);
    QVERIFY(TTSPlayer::scanPlayFlag);
}

void TestTtsPlayer::whatAVoiceDoesNotNameStays()
{
    TTSPlayer::Instance();
    CallLog::clear();
    TTSPlayer::Instance()->play(QStringLiteral("a"), TTSPlayer::Voice());
    QCOMPARE(calls(), QStringList{"ZEMBRA_TTS_Play(\"a\", 2, 0)"});
}

// Two workers at a time: the second one's voice is not set before the first one's text has ended.
void TestTtsPlayer::aVoiceWaitsForTheTextBefore()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    const auto say = [](const QString& text, int language) {
        TTSPlayer::Voice voice;
        voice.language = language;
        return TTSPlayer::Instance()->play(text, voice);
    };
    auto first = std::async(std::launch::async, say, QStringLiteral("first"), 103);
    QVERIFY(FakeTts::waitUntilSpeaking());
    std::promise<void> begun;
    auto second = std::async(std::launch::async, [&] {
        begun.set_value();
        return say(QStringLiteral("second"), 104);
    });
    begun.get_future().wait();
    QCOMPARE(FakeTts::language(), 103);
    QVERIFY(FakeTts::finish());
    QCOMPARE(first.get(), 0);
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    QCOMPARE(second.get(), 0);
    const QStringList log = calls();
    QVERIFY(log.indexOf(QStringLiteral("ZEMBRA_TTS_SetLang(104)"))
            > log.indexOf(QStringLiteral("ZEMBRA_TTS_Play(\"first\", 10, 0)")));
    QCOMPARE(FakeTts::language(), 104);
}

void TestTtsPlayer::aCancelledTextLeavesTheVoice()
{
    TTSPlayer::Instance()->setLan(103);
    auto speech = std::async(std::launch::async, [] {
        TTSPlayer::beginRequest();
        TTSPlayer::Instance()->stop();
        TTSPlayer::Voice voice;
        voice.language = 104;
        return TTSPlayer::Instance()->play(QStringLiteral("never"), voice);
    });
    QCOMPARE(speech.get(), 1);
    QCOMPARE(FakeTts::language(), 103);
}

void TestTtsPlayer::highlightsReachTheEditorUnchanged()
{
    MyEdit edit;
    Highlights highlights(edit);
    FakeTts::setReports({{3, 4, 0}, {-1, 70000, 9}});
    TTSPlayer::Instance()->setLan(200);
    TTSPlayer::Instance()->setEdit(&edit);
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Hello")), 0);
    QTRY_COMPARE(highlights.seen, (std::vector<Highlight>{{3, 4, 0}, {-1, 70000, 9}}));
    QCOMPARE(highlights.thread, qApp->thread());
    TTSPlayer::forget(&edit);
}

void TestTtsPlayer::withoutScanPlayFlagNoHighlightArrives()
{
    MyEdit edit;
    Highlights highlights(edit);
    TTSPlayer::Instance()->setEdit(&edit);
    TTSPlayer::Instance()->setScanPlayFlag(false);
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), -1);
    TTSPlayer::Instance()->setScanPlayFlag(true);
    QCOMPARE(TTSPlayer::ReceiveHighlight(1, 1, 0), 0);
    QTRY_COMPARE(highlights.seen, (std::vector<Highlight>{{1, 1, 0}}));
    TTSPlayer::forget(&edit);
}

void TestTtsPlayer::inDictionaryModeTheTranslateScreenReceives()
{
    MyEdit edit;
    DictScanEdit dict;
    Highlights editHighlights(edit);
    Highlights dictHighlights(dict);
    TTSPlayer::Instance()->setEditD(&dict);
    TTSPlayer::Instance()->setEdit(&edit);
    g_InDict = true;
    QCOMPARE(TTSPlayer::ReceiveHighlight(5, 6, 7), 0);
    QTRY_COMPARE(dictHighlights.seen, (std::vector<Highlight>{{5, 6, 7}}));
    QVERIFY(editHighlights.seen.empty());
    TTSPlayer::forget(&edit);
    TTSPlayer::forget(&dict);
}

void TestTtsPlayer::inDictionaryModeWithoutTranslateScreenReportsAreDropped()
{
    MyEdit edit;
    Highlights highlights(edit);
    TTSPlayer::Instance()->setEdit(&edit);
    g_InDict = true;
    QCOMPARE(TTSPlayer::ReceiveHighlight(1, 1, 0), 0);
    g_InDict = false;
    QCOMPARE(TTSPlayer::ReceiveHighlight(2, 1, 0), 0);
    QTRY_COMPARE(highlights.seen, (std::vector<Highlight>{{2, 1, 0}}));
    TTSPlayer::forget(&edit);
}

void TestTtsPlayer::withoutReceiverReportsAreDropped()
{
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), 0);
    g_InDict = true;
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), 0);
}

void TestTtsPlayer::theScreenSetLastIsNoted()
{
    DictScanEdit dict;
    TTSPlayer::Instance()->setEditD(&dict);
    QCOMPARE(TTSPlayer::m_EditId.load(), 1);
    TTSPlayer::Instance()->setEdit(nullptr);
    QCOMPARE(TTSPlayer::m_EditId.load(), 0);
    TTSPlayer::forget(&dict);
}

void TestTtsPlayer::forgettingAScreenWaitsForAReportInProgress()
{
    auto edit = std::make_unique<MyEdit>();
    std::promise<void> reporting;
    std::promise<void> goOn;
    std::atomic<bool> reported{false};
    connect(
        edit.get(), &MyEdit::signalTTShignlight, edit.get(),
        [&] {
            reporting.set_value();
            goOn.get_future().wait();
            reported = true;
        },
        Qt::DirectConnection);
    TTSPlayer::Instance()->setLan(200);
    TTSPlayer::Instance()->setEdit(edit.get());
    auto speech = std::async(std::launch::async,
                             [] { return TTSPlayer::Instance()->play(QStringLiteral("One")); });
    reporting.get_future().wait();
    std::atomic<pid_t> destroyer{0};
    auto destroyed = std::async(std::launch::async, [&] {
        destroyer = gettid();
        TTSPlayer::forget(edit.get());
        return reported.load();
    });
    const bool waits = waitUntilAsleep(destroyer);
    goOn.set_value();
    QVERIFY2(destroyed.get() && waits, "the screen was given up while it was receiving a report");
    edit.reset();
    QCOMPARE(speech.get(), 0);
}

void TestTtsPlayer::reportsAfterAScreenIsGoneAreDropped()
{
    auto edit = std::make_unique<MyEdit>();
    TTSPlayer::Instance()->setEdit(edit.get());
    TTSPlayer::forget(edit.get());
    edit.reset();
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), 0);
}

void TestTtsPlayer::forgettingAnotherScreenChangesNothing()
{
    MyEdit edit;
    MyEdit other;
    TTSPlayer::Instance()->setEdit(&edit);
    TTSPlayer::forget(&other);
    QCOMPARE(static_cast<MyEdit*>(TTSPlayer::editScan), &edit);
    TTSPlayer::forget(&edit);
    QCOMPARE(static_cast<MyEdit*>(TTSPlayer::editScan), nullptr);
}

void TestTtsPlayer::quitShutsTheEngineDown()
{
    TTSPlayer::Instance();
    TTSPlayer::quitFun();
    QVERIFY(!TTSPlayer::player);
    QVERIFY(!FakeTts::isStarted());
    TTSPlayer::Instance();
    QVERIFY(FakeTts::isStarted());
}

void TestTtsPlayer::quitWithoutInstanceDoesNothing()
{
    TTSPlayer::quitFun();
    QCOMPARE(calls(), QStringList());
}

void TestTtsPlayer::quitEndsSpeech()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    auto speech = std::async(std::launch::async, [] {
        return TTSPlayer::Instance()->play(QStringLiteral("A long text."));
    });
    QVERIFY(FakeTts::waitUntilSpeaking());
    TTSPlayer::quitFun();
    QCOMPARE(speech.get(), 1);
}

QTEST_MAIN(TestTtsPlayer)
#include "tst_ttsplayer.moc"
