#include "engines/flags.h"
#include "store/newwordmanager.h"
#include "tests/shared/dictwindowfixture.h"
#include "tests/shared/launcherrows.h"
#include "tests/shared/testobjects.h"

#include <QSignalSpy>

/* Scans and messages of the launcher over a translation. */
class TestDictFlowsScans : public QObject
{
    Q_OBJECT

private slots:
    void scanGoesToTheTranslateScreen();
    void hyphenatedScansAreJoined();
    void scanCutsTheReadingShort();
    void scanWithoutTextIsTold();
    void scanBegunBeforeGoesIntoTheFile();
    void scanWhoseScreenWasLeftGoesIntoTheFile();
    void noScanIsTakenUnderAMenu();
    void powerKeySilences_data();
    void powerKeySilences();
    void usbSavesAndLeavesTheMode();
    void usbOverARememberedWord();
    void stopSavesAndEnds();
    void stopOnlyEndsOverATranslation();
    void quittingWhileReadingIsClean();
};

void TestDictFlowsScans::scanGoesToTheTranslateScreen()
{
    DictWindowFixture f;
    f.translate();
    const QString document = f.window->editor()->documentText();
    f.launcher.clear();
    swipeOver(u"a keeper came");
    QTRY_COMPARE(f.screen()->selectedWord(), QStringLiteral("keeper"));
    f.settle();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("W\u00e4rter")));
    QCOMPARE(f.window->editor()->documentText(), document);
    QCOMPARE(f.lastSpoken(), QStringLiteral("W\u00e4rter"));
    QVERIFY(f.launcher.messages().contains(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(DictWindowFixture::remembered(), (QStringList{"house", "keeper"}));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.window->editor()->documentText(), document);
}

void TestDictFlowsScans::hyphenatedScansAreJoined()
{
    DictWindowFixture f(QStringLiteral("the house stands"), [] {
        FakeDic::addPair(101, 104, u"English - German",
                         {DictWindowFixture::dictionary(
                             u"Small", {{u"house", u"Haus"}, {u"lighthouse", u"Leuchtturm"}})});
    });
    f.translate();
    for (const char16_t* line : {u"the old light-", u"house stands"}) {
        QSignalSpy taken(f.window->editor(), &MyEdit::signalTransText);
        swipeOver(line);
        QTRY_COMPARE(taken.count(), 1);
        f.settle();
    }
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("light-house"));
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Leuchtturm")));
}

void TestDictFlowsScans::scanCutsTheReadingShort()
{
    DictWindowFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->transWordFun();
    QTRY_VERIFY(FakeTts::isSpeaking());
    QCOMPARE(f.lastSpoken(), QStringLiteral("house"));
    swipeOver(u"keeper");
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("keeper"));
    QVERIFY(!f.spoken().contains(QStringLiteral("Haus")));
    FakeTts::setPace(FakeTts::Pace::Automatic);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("W\u00e4rter"));
}

void TestDictFlowsScans::scanWithoutTextIsTold()
{
    DictWindowFixture f;
    f.translate();
    swipeOver(u"");
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Nothing recognised."));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictFlowsScans::scanBegunBeforeGoesIntoTheFile()
{
    DictWindowFixture f;
    swipeAndHold(u"late");
    f.translate();
    FakeOcr::release();
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.hush();
    f.window->editor()->readDelaySlot(); // what the delay's end does
    f.settle();
    QVERIFY(f.heard().isEmpty());
}

void TestDictFlowsScans::scanWhoseScreenWasLeftGoesIntoTheFile()
{
    DictWindowFixture f;
    f.translate();
    swipeAndHold(u"late");
    QVERIFY(f.window->findChild<SandGlass*>());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    FakeOcr::release();
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("late"));
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.settle();
}

void TestDictFlowsScans::noScanIsTakenUnderAMenu()
{
    DictWindowFixture f;
    f.translate();
    for (const Qt::Key key : {Qt::Key_F12, Qt::Key_F9}) {
        f.press(key);
        QVERIFY(f.menu());
        QVERIFY(!FakeIap::swipe(FakeIap::pattern(40, 10)));
        f.press(Qt::Key_Escape);
        QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
        QVERIFY(!FakeIap::stopSignal());
        f.settle();
    }
}

void TestDictFlowsScans::powerKeySilences_data()
{
    launcherrows::addSilencing();
}

void TestDictFlowsScans::powerKeySilences()
{
    QFETCH(QByteArray, word);
    DictWindowFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->transWordFun();
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(f.screen()->getOkSoundFlagForTalk());
    f.execute(word);
    QVERIFY(FakeTts::waitUntilSilent());
    QVERIFY(!f.screen()->getOkSoundFlagForTalk());
    FakeTts::setPace(FakeTts::Pace::Automatic);
    f.settle();
    QVERIFY(!f.spoken().contains(QStringLiteral("Haus")));
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(g_InDict);
}

void TestDictFlowsScans::usbSavesAndLeavesTheMode()
{
    DictWindowFixture f;
    f.translate();
    swipeAndHold(u"late");
    FakeOcr::release();
    f.usb("plug");
    QVERIFY(!g_InDict);
    QVERIFY(f.menu());
    QVERIFY(!f.current()->isEnabled());
    QTRY_COMPARE(FakeDic::openDictionaries(), 0); // the card may be given away
    f.usb("delete");
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    QTRY_COMPARE(FakeDic::openDictionaries(), 1);
    f.settle();
    f.putCursorOn(QStringLiteral("house"));
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictFlowsScans::usbOverARememberedWord()
{
    WindowFixture f({}, DictWindowFixture::install);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    NewWordManager::Instance()->put(QStringLiteral("house"), QStringLiteral("Haus"));
    f.window->newWords();
    QWidget* const list = f.current();
    f.press(Qt::Key_Return);
    DictScanEdit* const screen = f.window->translateScreen();
    QCOMPARE(f.current(), static_cast<QWidget*>(screen));
    QTRY_VERIFY(!screen->isReading() && !f.window->menuSpeech()->isRunning());
    f.usb("plug");
    QVERIFY(!screen->isEnabled());
    QTRY_COMPARE(FakeDic::openDictionaries(), 0);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    FakeDic::holdInitialize(true);
    f.usb("delete");
    QVERIFY(screen->isEnabled());
    QVERIFY(f.window->findChild<SandGlass*>()); // the keys rest
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(screen));
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(screen->selectedWord(), QStringLiteral("house"));
    QVERIFY(FakeIap::stopSignal());
    QTRY_VERIFY(!screen->isReading() && !f.window->menuSpeech()->isRunning());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), list);
    QVERIFY(!g_InDict);
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
}

void TestDictFlowsScans::stopSavesAndEnds()
{
    DictWindowFixture f;
    f.translate();
    f.execute("stop");
    QVERIFY(!f.window->isVisible());
    QVERIFY(!g_InDict);
    QVERIFY(FakeIap::stopSignal());
    QVERIFY(f.newFileOnCard().size() > 2);
}

void TestDictFlowsScans::stopOnlyEndsOverATranslation()
{
    DictWindowFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->transWordFun();
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.launcher.clear();
    f.execute("stoponly");
    QTRY_VERIFY(f.launcher.messages().contains(QStringLiteral("ESC(QString) escpressed")));
    QVERIFY(!f.window->isVisible());
    f.window.reset();
    QVERIFY(!FakeTts::isStarted());
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QCOMPARE(FakeDic::misuses(), 0);
}

void TestDictFlowsScans::quittingWhileReadingIsClean()
{
    {
        DictWindowFixture f;
        FakeTts::setPace(FakeTts::Pace::Held);
        f.window->transWordFun();
        QTRY_VERIFY(FakeTts::isSpeaking());
        f.window.reset();
        QVERIFY(!g_InDict);
        QVERIFY(!FakeTts::isStarted());
        QCOMPARE(FakeDic::openDictionaries(), 0);
        QCOMPARE(FakeDic::openRecords(), 0);
        QCOMPARE(FakeDic::misuses(), 0);
    }
}

TEST_OBJECT(TestDictFlowsScans)
#include "tst_dictflows_scans.moc"
