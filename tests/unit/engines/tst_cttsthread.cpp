#include "engines/cttsthread.h"
#include "engines/flags.h"
#include "engines/ttsplayer.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/faketts.h"
#include "tests/fakes/testroot.h"
#include "tests/unit/engines/freshsettings.h"
#include "tests/unit/engines/queuedtexts.h"

#include <QSignalSpy>
#include <QTest>
#include <memory>

using fakes::calls;

class TestCTTSThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void onlyTheNewestTextIsSpoken();
    void aMenuItemComesBeforeAnInstruction();
    void onlyTheNewestInstructionIsSpoken();
    void clearedInstructionsAreNotSpoken();
    void clearContentLeavesTheQueue();
    void forgottenTextsAreNotSpoken();
    void withNothingQueuedItEnds();
    void aTextQueuedWhileSpeakingIsSpokenNext();
    void aKeyEndsItAfterTheCurrentText();
    void theKeyFlagIsClearedBeforeATextAndAfterAKey();
    void withTalkingMenusOffTextsAreConsumedSilently();
    void settingsAreAppliedInOrder();
    void defaultsForAnEmptyFile();
    void settingsAreReadFromTheFileForEachText();
    void theVoiceFollowsTheMenuLanguage_data();
    void theVoiceFollowsTheMenuLanguage();
    void highlightsAreTurnedOff();
    void itCanBeStartedAgain();
    void destroyingItWhileItSpeaksEndsIt();
    void destroyingItWithTextsQueuedDoesNotSpeakThem();

private:
    bool runs(CTTSThread& thread) const;

    std::unique_ptr<TestRoot> m_root;
};

void TestCTTSThread::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    freshSettings();
    g_KeyFlag = false;
    TTSPlayer::Instance();
    CallLog::clear();
}

void TestCTTSThread::cleanup()
{
    fakes::reset();
    TTSPlayer::quitFun();
    m_root.reset();
}

// Starts the thread and waits for its end.
bool TestCTTSThread::runs(CTTSThread& thread) const
{
    thread.start();
    return thread.wait(static_cast<unsigned long>(FakePatience.count()));
}

void TestCTTSThread::onlyTheNewestTextIsSpoken()
{
    CTTSThread thread;
    thread.setContent(QStringLiteral("one"));
    thread.setContent(QStringLiteral("two"));
    thread.setContent(QStringLiteral("three"));
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"three"});
}

void TestCTTSThread::aMenuItemComesBeforeAnInstruction()
{
    CTTSThread thread;
    thread.setInstructStr(QStringLiteral("instruction"));
    thread.setContent(QStringLiteral("item"));
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"item", u"instruction"}));
}

void TestCTTSThread::onlyTheNewestInstructionIsSpoken()
{
    CTTSThread thread;
    thread.setInstructStr(QStringLiteral("one"));
    thread.setInstructStr(QStringLiteral("two"));
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"two"});
}

void TestCTTSThread::clearedInstructionsAreNotSpoken()
{
    CTTSThread thread;
    thread.setInstructStr(QStringLiteral("one"));
    thread.clearInstruct();
    QVERIFY(runs(thread));
    QVERIFY(FakeTts::texts().empty());
}

void TestCTTSThread::clearContentLeavesTheQueue()
{
    CTTSThread thread;
    thread.setContent(QStringLiteral("queued"));
    thread.clearContent();
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"queued"});
}

void TestCTTSThread::forgottenTextsAreNotSpoken()
{
    CTTSThread thread;
    thread.setContent(QStringLiteral("item"));
    thread.setInstructStr(QStringLiteral("instruction"));
    thread.forgetQueued();
    QVERIFY(runs(thread));
    QVERIFY(FakeTts::texts().empty());
}

void TestCTTSThread::withNothingQueuedItEnds()
{
    CTTSThread thread;
    QVERIFY(runs(thread));
    QCOMPARE(calls(), QStringList());
}

void TestCTTSThread::aTextQueuedWhileSpeakingIsSpokenNext()
{
    CTTSThread thread;
    speaksTheNewestOfThoseQueuedMeanwhile(thread);
}

void TestCTTSThread::aKeyEndsItAfterTheCurrentText()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    CTTSThread thread;
    thread.setContent(QStringLiteral("current"));
    thread.start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread.setContent(QStringLiteral("behind"));
    thread.setInstructStr(QStringLiteral("behind too"));
    g_KeyFlag = true;
    TTSPlayer::Instance()->stop();
    QVERIFY(thread.wait());
    QCoreApplication::processEvents();
    QVERIFY(!thread.isRunning());
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"current"});
}

void TestCTTSThread::theKeyFlagIsClearedBeforeATextAndAfterAKey()
{
    CTTSThread thread;
    g_KeyFlag = true;
    thread.setContent(QStringLiteral("text"));
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::texts().size(), std::size_t{1});
    QVERIFY(!g_KeyFlag);

    FakeTts::setPace(FakeTts::Pace::Held);
    thread.setContent(QStringLiteral("text"));
    thread.start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    g_KeyFlag = true;
    TTSPlayer::Instance()->stop();
    QVERIFY(thread.wait());
    QVERIFY(!g_KeyFlag);
}

void TestCTTSThread::withTalkingMenusOffTextsAreConsumedSilently()
{
    m_root->setSetting(QStringLiteral("SystemSet/MenuTalking"), 1);
    freshSettings();
    CTTSThread thread;
    thread.setContent(QStringLiteral("silent"));
    QVERIFY(runs(thread));
    QVERIFY(FakeTts::texts().empty());

    m_root->setSetting(QStringLiteral("SystemSet/MenuTalking"), 0);
    freshSettings();
    QVERIFY(runs(thread));
    QVERIFY2(FakeTts::texts().empty(), "the text was still queued");
}

void TestCTTSThread::settingsAreAppliedInOrder()
{
    m_root->setSetting(QStringLiteral("SystemSet/Volum"), 2);
    m_root->setSetting(QStringLiteral("SystemSet/Speed"), 9);
    CTTSThread thread;
    thread.setContent(QStringLiteral("text"));
    QVERIFY(runs(thread));
    QCOMPARE(calls(),
             (QStringList{"ZEMBRA_TTS_SetLang(200)", "ZEMBRA_TTS_SetHighlight_CallBack(callback)",
                          "ZEMBRA_TTS_SetVolume(40)", "ZEMBRA_TTS_SetSpeed(72)",
                          "ZEMBRA_TTS_Play(\"text\", 8, 0)"}));
}

void TestCTTSThread::defaultsForAnEmptyFile()
{
    m_root->write(QStringLiteral("/apps/config/config.ini"), QByteArray());
    CTTSThread thread;
    thread.setContent(QStringLiteral("text"));
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::volume(), 80);
    QCOMPARE(FakeTts::speed(), 48);
    QCOMPARE(FakeTts::language(), 200);
}

void TestCTTSThread::settingsAreReadFromTheFileForEachText()
{
    CTTSThread thread;
    thread.setContent(QStringLiteral("text"));
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::volume(), 80);
    m_root->setSetting(QStringLiteral("SystemSet/Volum"), 1);
    thread.setContent(QStringLiteral("text"));
    QVERIFY(runs(thread));
    QCOMPARE(FakeTts::volume(), 20);
}

void TestCTTSThread::theVoiceFollowsTheMenuLanguage_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("spanish");
    QTest::addColumn<int>("voice");
    QTest::newRow("English, choice 3") << 0 << 3 << 0 << 206;
    QTest::newRow("English, choice 5") << 0 << 5 << 0 << 206;
    QTest::newRow("English, no choice") << 0 << 6 << 0 << 101;
    QTest::newRow("German, choice 3") << 2 << 3 << 0 << 104;
    QTest::newRow("Spanish") << 3 << 0 << 0 << 105;
    QTest::newRow("Spanish of Latin America") << 3 << 2 << 1 << 202;
    QTest::newRow("beyond the table") << 99 << 0 << 0 << 0;
    QTest::newRow("below the table") << -1 << 0 << 0 << 0;
}

void TestCTTSThread::theVoiceFollowsTheMenuLanguage()
{
    QFETCH(int, row);
    QFETCH(int, choice);
    QFETCH(int, spanish);
    QFETCH(int, voice);
    m_root->setSetting(QStringLiteral("SystemSet/Lan"), row);
    m_root->setSetting(QStringLiteral("SystemSet/TTS"), choice);
    m_root->setSetting(QStringLiteral("SystemSet/SPANISH"), spanish);
    freshSettings();
    CallLog::clear();
    CTTSThread thread;
    thread.setContent(QStringLiteral("text"));
    QVERIFY(runs(thread));
    QCOMPARE(calls("ZEMBRA_TTS_SetLang"),
             QStringList{QStringLiteral("ZEMBRA_TTS_SetLang(%1)").arg(voice)});
}

void TestCTTSThread::highlightsAreTurnedOff()
{
    TTSPlayer::Instance()->setScanPlayFlag(true);
    CTTSThread thread;
    thread.setContent(QStringLiteral("text"));
    QVERIFY(runs(thread));
    QVERIFY(!TTSPlayer::scanPlayFlag);
}

void TestCTTSThread::itCanBeStartedAgain()
{
    CTTSThread thread;
    for (int i = 0; i < 20; ++i) {
        thread.setContent(QString::number(i));
        QVERIFY(runs(thread));
    }
    QCOMPARE(FakeTts::texts().size(), std::size_t{20});
}

void TestCTTSThread::destroyingItWhileItSpeaksEndsIt()
{
    endsWhenDestroyedWhileSpeaking(std::make_unique<CTTSThread>());
}

void TestCTTSThread::destroyingItWithTextsQueuedDoesNotSpeakThem()
{
    {
        CTTSThread thread;
        thread.setContent(QStringLiteral("text"));
        thread.setInstructStr(QStringLiteral("text"));
    }
    QVERIFY(FakeTts::texts().empty());
}

QTEST_MAIN(TestCTTSThread)
#include "tst_cttsthread.moc"
