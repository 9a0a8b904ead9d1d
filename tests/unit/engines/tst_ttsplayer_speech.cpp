#include "engines/ttsplayer.h"
#include "platform/zembra_tts.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/engines/playerfixture.h"

#include <QTest>
#include <future>
#include <thread>

using fakes::calls;

/* The player from its first use to its end: voices, texts and stops. */
class TestTtsPlayerSpeech : public PlayerFixture
{
    Q_OBJECT

private slots:
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
    void quitShutsTheEngineDown();
    void quitWithoutInstanceDoesNothing();
    void quitEndsSpeech();
};

void TestTtsPlayerSpeech::theFirstUseStartsTheEngineWithItsFolders()
{
    QVERIFY(!TTSPlayer::player);
    TTSPlayer* const player = TTSPlayer::Instance();
    QCOMPARE(TTSPlayer::Instance(), player);
    QCOMPARE(TTSPlayer::player.load(), player);
    QCOMPARE(calls(), QStringList{"ZEMBRA_TTS_Initialize(/mnt/hidmmc/sysdict/ttsrec, "
                                  "/mnt/hidmmc/sysdict/languages, 2, 80)"});
}

void TestTtsPlayerSpeech::oneInstanceForManyThreads()
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

void TestTtsPlayerSpeech::initStartsTheEngineAgain()
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

void TestTtsPlayerSpeech::anEngineThatDoesNotStartCannotSpeak()
{
    FakeTts::setInitializeResult(-1);
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Hello")), -1);
}

void TestTtsPlayerSpeech::setLanRegistersTheReceiverAgain()
{
    TTSPlayer::Instance();
    CallLog::clear();
    QCOMPARE(TTSPlayer::Instance()->setLan(103), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_TTS_SetLang(103)",
                                   "ZEMBRA_TTS_SetHighlight_CallBack(callback)"}));
}

void TestTtsPlayerSpeech::speedAndVolumeGoThrough()
{
    TTSPlayer::Instance();
    CallLog::clear();
    TTSPlayer::Instance()->setSpeed(48);
    TTSPlayer::Instance()->setVolume(80);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_TTS_SetSpeed(48)", "ZEMBRA_TTS_SetVolume(80)"}));
}

void TestTtsPlayerSpeech::playHandsOverTheBytes()
{
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Grün <vtml_pause time=\"5\"/>")), 0);
    QCOMPARE(calls("ZEMBRA_TTS_Play"),
             QStringList{"ZEMBRA_TTS_Play(\"Grün <vtml_pause time=\"5\"/>\", 54, 0)"});
}

void TestTtsPlayerSpeech::playOfAnEmptyTextHandsOverLengthZero()
{
    QCOMPARE(TTSPlayer::Instance()->play(QString()), 0);
    QCOMPARE(calls("ZEMBRA_TTS_Play"), QStringList{"ZEMBRA_TTS_Play(\"\", 0, 0)"});
}

void TestTtsPlayerSpeech::playReturnsTheEnginesResult()
{
    FakeTts::setPlayResult(-1);
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Hello")), -1);
}

void TestTtsPlayerSpeech::stopFromAnotherThreadEndsPlay()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    auto speech = std::async(std::launch::async, [] {
        return TTSPlayer::Instance()->play(QStringLiteral("A long text."));
    });
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCOMPARE(TTSPlayer::Instance()->stop(), 0);
    QCOMPARE(speech.get(), 1);
}

void TestTtsPlayerSpeech::aStopAfterTheTextWasTakenCancelsIt()
{
    auto speech = std::async(std::launch::async, [] {
        TTSPlayer::beginRequest();
        std::thread([] { TTSPlayer::Instance()->stop(); }).join();
        return TTSPlayer::Instance()->play(QStringLiteral("Too late."));
    });
    QCOMPARE(speech.get(), 1);
    QVERIFY(FakeTts::texts().empty());
}

void TestTtsPlayerSpeech::aStopBeforeTheTextWasTakenDoesNot()
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

void TestTtsPlayerSpeech::aStopThatTheEngineMissedIsMadeGoodAtTheFirstWord()
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

void TestTtsPlayerSpeech::aVoiceIsSetJustBeforeItsText()
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

void TestTtsPlayerSpeech::whatAVoiceDoesNotNameStays()
{
    TTSPlayer::Instance();
    CallLog::clear();
    TTSPlayer::Instance()->play(QStringLiteral("a"), TTSPlayer::Voice());
    QCOMPARE(calls(), QStringList{"ZEMBRA_TTS_Play(\"a\", 2, 0)"});
}

// Two workers at a time: the second one's voice is not set before the first one's text has ended.
void TestTtsPlayerSpeech::aVoiceWaitsForTheTextBefore()
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

void TestTtsPlayerSpeech::aCancelledTextLeavesTheVoice()
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

void TestTtsPlayerSpeech::quitShutsTheEngineDown()
{
    TTSPlayer::Instance();
    TTSPlayer::quitFun();
    QVERIFY(!TTSPlayer::player);
    QVERIFY(!FakeTts::isStarted());
    TTSPlayer::Instance();
    QVERIFY(FakeTts::isStarted());
}

void TestTtsPlayerSpeech::quitWithoutInstanceDoesNothing()
{
    TTSPlayer::quitFun();
    QCOMPARE(calls(), QStringList());
}

void TestTtsPlayerSpeech::quitEndsSpeech()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    auto speech = std::async(std::launch::async, [] {
        return TTSPlayer::Instance()->play(QStringLiteral("A long text."));
    });
    QVERIFY(FakeTts::waitUntilSpeaking());
    TTSPlayer::quitFun();
    QCOMPARE(speech.get(), 1);
}

TEST_OBJECT(TestTtsPlayerSpeech)
#include "tst_ttsplayer_speech.moc"
