#include "app/mainwindow.h"

#include "engines/csoundthread.h"
#include "engines/cttsthread.h"
#include "engines/speechtext.h"
#include "tests/fakes/calls.h"
#include "tests/shared/windowfixture.h"
#include "widgets/messagedialog.h"

#include <QSignalSpy>

namespace {

const QString FirstHelp = QStringLiteral("Press OK to select, or down for other options.");
const QString MiddleHelp = QStringLiteral("Press OK to select, or up or down for more options.");
const QString LastHelp = QStringLiteral("Press OK to select, or Up for other options.");

} // namespace

/* Menus of the main window, as they are heard. */
class TestMenuTalk : public QObject
{
    Q_OBJECT

private slots:
    void firstScreenIsSpokenWithItsHeading();
    void helpDependsOnThePlaceInTheMenu();
    void oneItemMenuGetsTheFirstHelp();
    void emptyInstructionSpeaksTheTextAlone();
    void emptyTextSpeaksTheInstructionAlone();
    void lastPendingUtteranceIsSpoken();
    void ofManyItemsTheLastIsHeard();
    void utteranceBegunBeforeTheEndIsHeardIsSpoken();
    void readingBegunDuringMenuSpeechIsNotSilenced();
    void keyCutsMenuSpeechShort();
    void keySetsTheFlagWhileAMenuIsSpoken();
    void launcherHearsOfMenuSpeech();
    void messageOfAnyoneIsHeardOnce_data();
    void messageOfAnyoneIsHeardOnce();
    void messageIsHeardToItsEnd();
    void ofTwoMessagesBothAreHeard();
    void keyThatEndsAMessageCutsItShort();
    void powerKeySilencesMessages();
};

void TestMenuTalk::firstScreenIsSpokenWithItsHeading()
{
    const WindowFixture f;
    QTRY_COMPARE(f.spoken(), QStringList{QStringLiteral("Scan to File mode. ") + pauseTag(500)
                                         + QStringLiteral("New file    ") + FirstHelp});
}

void TestMenuTalk::helpDependsOnThePlaceInTheMenu()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    const auto moveAndHear = [&](Qt::Key key, const QString& expected) {
        f.press(key);
        QTRY_COMPARE(f.spoken().last(), expected);
        QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    };
    moveAndHear(Qt::Key_Down, QStringLiteral("Open file") + pauseTag(500) + MiddleHelp);
    moveAndHear(Qt::Key_Down, QStringLiteral("Delete file") + pauseTag(500) + MiddleHelp);
    moveAndHear(Qt::Key_Down, QStringLiteral("Scan settings") + pauseTag(500) + LastHelp);
    moveAndHear(Qt::Key_Up, QStringLiteral("Delete file") + pauseTag(500) + MiddleHelp);
    moveAndHear(Qt::Key_Up, QStringLiteral("Open file") + pauseTag(500) + MiddleHelp);
    moveAndHear(Qt::Key_Up, QStringLiteral("New file") + pauseTag(500) + FirstHelp);
}

void TestMenuTalk::oneItemMenuGetsTheFirstHelp()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    f.window->menuShowSlot(0, QStringLiteral("only"), 0);
    QTRY_COMPARE(f.spoken().last(), QStringLiteral("only") + pauseTag(500) + FirstHelp);
}

void TestMenuTalk::emptyInstructionSpeaksTheTextAlone()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    f.window->talkingMenuTTS(0, QStringLiteral("text"), QString());
    QTRY_COMPARE(f.spoken().last(), QStringLiteral("text"));
}

void TestMenuTalk::emptyTextSpeaksTheInstructionAlone()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    f.window->talkingMenuTTS(0, QString(), QStringLiteral("instruction"));
    QTRY_COMPARE(f.spoken().last(), QStringLiteral("instruction"));
}

void TestMenuTalk::lastPendingUtteranceIsSpoken()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->talkingMenuTTS(0, QStringLiteral("one"), QString());
    QTRY_VERIFY(FakeTts::isSpeaking());
    FakeTts::missStops(2); // the worker is still speaking when both come
    f.window->talkingMenuTTS(0, QStringLiteral("two"), QString());
    f.window->talkingMenuTTS(0, QStringLiteral("three"), QString());
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(f.spoken().last(), QStringLiteral("three"));
    QVERIFY(!f.spoken().contains(QStringLiteral("two")));
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
}

// The items meet the worker in every state: starting, speaking, ending, its end not yet heard.
void TestMenuTalk::ofManyItemsTheLastIsHeard()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Held);
    for (int round = 0; round < 20; ++round) {
        const QString last = QStringLiteral("last of %1").arg(round);
        for (int i = 0; i < 10; ++i) {
            f.window->talkingMenuTTS(0, QStringLiteral("item"), QString());
            if (i % 3 == round % 3)
                QCoreApplication::processEvents();
        }
        f.window->talkingMenuTTS(0, last, QString());
        QTRY_VERIFY(FakeTts::isSpeaking() && f.spoken().last() == last);
        QCoreApplication::processEvents();
        QVERIFY(FakeTts::isSpeaking() && f.spoken().last() == last);
        QVERIFY(FakeTts::finish());
        QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    }
}

// The worker has ended, but its end waits in the event queue when the next item comes.
void TestMenuTalk::utteranceBegunBeforeTheEndIsHeardIsSpoken()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->talkingMenuTTS(0, QStringLiteral("one"), QString());
    QVERIFY(FakeTts::waitUntilSpeaking());
    f.window->keyPressSlot();
    QVERIFY(f.window->menuSpeech()->wait());
    f.window->talkingMenuTTS(0, QStringLiteral("two"), QString());
    QVERIFY(FakeTts::waitUntilSpeaking());
    CallLog::clear();
    QCoreApplication::processEvents(); // the end of "one" is heard
    QCOMPARE(fakes::calls("ZEMBRA_TTS_Stop"), QStringList());
    QVERIFY(!f.launcher.messages().last().endsWith(QStringLiteral("soundno")));
    QCOMPARE(f.spoken().last(), QStringLiteral("two"));
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(f.launcher.messages().last().endsWith(QStringLiteral("soundno")));
}

void TestMenuTalk::readingBegunDuringMenuSpeechIsNotSilenced()
{
    WindowFixture f({QStringLiteral("notes")});
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->continueFile();
    QTRY_COMPARE(f.spoken().last(), QStringLiteral("Scan or press Menu for options."));
    f.press(Qt::Key_Return);
    QVERIFY(f.window->menuSpeech()->wait());
    CallLog::clear();
    QCoreApplication::processEvents(); // the end of the hint is heard
    QCOMPARE(fakes::calls("ZEMBRA_TTS_Stop"), QStringList());
    QTRY_COMPARE(f.spoken().last(), QStringLiteral("t"));
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!f.window->editor()->soundThread()->isRunning());
}

void TestMenuTalk::keyCutsMenuSpeechShort()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->talkingMenuTTS(0, QStringLiteral("long"), QString());
    QTRY_VERIFY(FakeTts::isSpeaking());
    QSignalSpy finished(f.window->menuSpeech(), &QThread::finished);
    f.window->keyPressSlot();
    QVERIFY(!FakeTts::isSpeaking() || FakeTts::waitUntilSilent());
    QTRY_COMPARE(finished.count(), 1);
}

void TestMenuTalk::keySetsTheFlagWhileAMenuIsSpoken()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    f.window->keyPressSlot();
    QVERIFY(!g_KeyFlag); // nothing is being spoken
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->talkingMenuTTS(0, QStringLiteral("long"), QString());
    QVERIFY(FakeTts::waitUntilSpeaking());
    FakeTts::missStops(1); // the voice is a little late
    f.window->keyPressSlot();
    QVERIFY(g_KeyFlag);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    QVERIFY(!g_KeyFlag);
}

void TestMenuTalk::launcherHearsOfMenuSpeech()
{
    WindowFixture f;
    QVERIFY(f.launcher.waitFor(QStringLiteral("execute(QString) soundno")));
    QCOMPARE(f.launcher.messages(),
             (QStringList{"execute(QString) soundyes", "execute(QString) soundno"}));
    f.window->SendShow();
    QVERIFY(f.launcher.waitFor(QStringLiteral("Show(QString) scan")));
}

void TestMenuTalk::messageOfAnyoneIsHeardOnce_data()
{
    QTest::addColumn<bool>("ofTheStart");
    QTest::newRow("of the window") << false;
    QTest::newRow("without a parent") << true;
}

void TestMenuTalk::messageOfAnyoneIsHeardOnce()
{
    QFETCH(bool, ofTheStart);
    WindowFixture f;
    f.hush();
    if (ofTheStart)
        MessageDialog(nullptr, QStringLiteral("No available files!")).exec();
    else
        f.window->openFileMenu();
    QCOMPARE(f.messages.texts(), QStringList{"No available files!"});
    QTRY_COMPARE(f.heard(), QStringList{"No available files!"});
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    QCoreApplication::processEvents();
    QCOMPARE(f.heard(), QStringList{"No available files!"});
}

// It is shown for two seconds, and may take longer to say; then the screen below speaks.
void TestMenuTalk::messageIsHeardToItsEnd()
{
    WindowFixture f;
    f.hush();
    FakeTts::setPace(FakeTts::Pace::Held);
    MessageDialog(f.window.get(), QStringLiteral("message")).exec();
    QVERIFY(FakeTts::waitUntilSpeaking());
    f.window->menuShowSlot(0, QStringLiteral("older"), 1);
    f.window->menuShowSlot(0, QStringLiteral("below"), 1);
    QCoreApplication::processEvents();
    QVERIFY(FakeTts::isSpeaking());
    QCOMPARE(f.heard(), QStringList{"message"});
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(f.heard(),
                 (QStringList{"message", QStringLiteral("below") + pauseTag(500) + FirstHelp}));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestMenuTalk::ofTwoMessagesBothAreHeard()
{
    WindowFixture f;
    f.hush();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->talkingMenuTTS(0, QStringLiteral("item"), QString());
    QVERIFY(FakeTts::waitUntilSpeaking());
    FakeTts::missStops(1); // the voice is a little late
    f.window->announceMessage(QStringLiteral("one"));
    f.window->announceMessage(QStringLiteral("two"));
    f.window->talkingMenuTTS(0, QStringLiteral("below"), QString());
    FakeTts::missStops(0);
    FakeTts::setPace(FakeTts::Pace::Automatic); // lets it run to its end
    QTRY_COMPARE(f.heard(), (QStringList{"item", "one", "two", "below"}));
}

void TestMenuTalk::keyThatEndsAMessageCutsItShort()
{
    WindowFixture f;
    f.hush();
    FakeTts::setPace(FakeTts::Pace::Held);
    MessageDialog message(f.window.get(), QStringLiteral("message"), 60'000);
    message.show();
    QVERIFY(FakeTts::waitUntilSpeaking());
    QTest::keyClick(&message, Qt::Key_Return);
    QVERIFY(FakeTts::waitUntilSilent());
    f.window->talkingMenuTTS(0, QStringLiteral("below"), QString());
    QTRY_COMPARE(f.heard(), (QStringList{"message", "below"}));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestMenuTalk::powerKeySilencesMessages()
{
    WindowFixture f;
    f.hush();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->announceMessage(QStringLiteral("one"));
    QVERIFY(FakeTts::waitUntilSpeaking());
    f.window->announceMessage(QStringLiteral("two"));
    f.execute("presspoweroff");
    QVERIFY(FakeTts::waitUntilSilent());
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    QCoreApplication::processEvents();
    QCOMPARE(f.heard(), QStringList{"one"});
}

QTEST_MAIN(TestMenuTalk)
#include "tst_menutalk.moc"
