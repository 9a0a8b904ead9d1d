#include "app/mainwindow.h"

#include "engines/flags.h"
#include "engines/speechtext.h"
#include "store/newwordmanager.h"
#include "tests/unit/app/dictfixture.h"

#include <QDateTime>
#include <QSignalSpy>

namespace {

const QString Hint = QStringLiteral("Scan or press Menu for options.");
const QString Execute = QStringLiteral("execute(QString)");
const QString Usb = QStringLiteral("USB(QString)");

/* The words of the new-word book, the oldest first. */
QStringList remembered()
{
    QStringList words;
    WordItem item;
    for (int i = 0; NewWordManager::Instance()->get(i, item); ++i)
        words.append(item.word);
    return words;
}

} // namespace

/* From the editor to a translation and back. */
class TestDictFlows : public QObject
{
    Q_OBJECT

private slots:
    void wordAtTheCursorIsTranslated();
    void chineseWordAtTheCursorIsTheLongest();
    void quickMenuGivesWayToTheTranslation();
    void noWordLeavesTheEditor();
    void noWordIsNoTranslationAgain();
    void withoutAnEditorThereIsNoWord();
    void scanDuringThatMessageGoesIntoTheFile();
    void escapeComesBackToTheEditor();
    void screenIsReusedAndComesBackToWhereItWasLeft();
    void wordThatIsNotThereIsShownAllTheSame();
    void eachTranslationIsCountedOnce();
    void nothingIsCountedWhenSwitchedOff_data();
    void nothingIsCountedWhenSwitchedOff();
    void missingWordIsNotCounted();
    void wordsAreRemembered();
    void wordIsNotRememberedTwiceInARow();
    void editorIsSilentWhileATranslationIsRead();
    void readingUsesTheDictionarySettings();

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

void TestDictFlows::wordAtTheCursorIsTranslated()
{
    DictFixture f;
    QVERIFY(!f.screen());
    f.translate();
    QVERIFY(g_InDict);
    QCOMPARE(f.screen()->geometry(), QRect(0, 0, 256, 64));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
    QCOMPARE(f.screen()->getPrevWidget(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(f.screen()->hasFocus() || f.screen()->isAncestorOf(f.window->focusWidget()));
    QVERIFY(!FakeIap::stopSignal());
    QVERIFY(f.spoken().contains(QStringLiteral("house")));
    QCOMPARE(f.lastSpoken(), QStringLiteral("Haus"));
}

void TestDictFlows::chineseWordAtTheCursorIsTheLongest()
{
    DictFixture f(QStringLiteral("\u6211\u7231\u4e2d\u56fd\u4eba\u6c11\u3002\u4eba"), [] {
        FakeDic::addPair(1, 101, u"Chinese - English",
                         {DictFixture::dictionary(
                             u"Han", {{u"\u4e2d\u56fd\u4eba\u6c11", u"the Chinese people"}})});
    });
    f.putCursorOn(QStringLiteral("\u4e2d"));
    f.translate();
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("\u4e2d"));
    QVERIFY(f.screen()->shownTranslation().endsWith(QStringLiteral("the Chinese people")));
    QCOMPARE(f.screen()->currentHeadword(), QStringLiteral("\u4e2d\u56fd\u4eba\u6c11"));
}

void TestDictFlows::quickMenuGivesWayToTheTranslation()
{
    DictFixture f;
    f.press({Qt::Key_F12, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down});
    QVERIFY(f.menu());
    f.settle();
    f.hush();
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->getPrevWidget(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!FakeIap::stopSignal()); // it may scan
    f.settle();
    QCOMPARE(f.heard(), (QStringList{QStringLiteral("house"), QStringLiteral("Haus")}));
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1); // the main menu
}

void TestDictFlows::noWordLeavesTheEditor()
{
    DictFixture f(QStringLiteral("one  "));
    f.window->editor()->moveCursor(QTextCursor::End);
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QVERIFY(!g_InDict);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QCOMPARE(f.window->focusWidget(), f.current());
    QCOMPARE(f.window->font().family(), QStringLiteral("nits"));
    QCOMPARE(f.window->editor()->font().family(), QStringLiteral("nits"));
    QVERIFY(f.records().isEmpty());
}

void TestDictFlows::noWordIsNoTranslationAgain()
{
    DictFixture f;
    f.translate();
    f.press(Qt::Key_Escape);
    f.window->editor()->setPlainText(QString());
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QCOMPARE(f.records().size(), 1);
}

void TestDictFlows::withoutAnEditorThereIsNoWord()
{
    WindowFixture f({}, DictFixture::install);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QWidget* const before = f.current();
    QVERIFY(!f.window->editor());
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QCOMPARE(f.messages.milliseconds(), QList<int>{2000});
    QCOMPARE(f.current(), before);
    QVERIFY(!g_InDict);
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
}

void TestDictFlows::scanDuringThatMessageGoesIntoTheFile()
{
    DictFixture f(QStringLiteral("one  "));
    f.window->editor()->moveCursor(QTextCursor::End);
    FakeOcr::setResult(u"keeper");
    f.messages.meanwhile([&f] {
        QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
        QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("keeper ")));
    });
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QVERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("keeper ")));
    QVERIFY(remembered().isEmpty());
    f.settle();
}

void TestDictFlows::escapeComesBackToTheEditor()
{
    DictFixture f;
    f.translate();
    f.window->setFont(QFont(QStringLiteral("other")));
    f.press(Qt::Key_Escape);
    QVERIFY(!g_InDict);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(f.current()->isVisible() && f.current()->hasFocus());
    QCOMPARE(f.window->font().family(), QStringLiteral("nits"));
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(f.lastSpoken(), Hint);
    QCOMPARE(f.window->editor()->getWordFromMyEdit(), QStringLiteral("house"));
}

void TestDictFlows::screenIsReusedAndComesBackToWhereItWasLeft()
{
    DictFixture f;
    f.translate();
    const DictScanEdit* first = f.screen();
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("stands"));
    f.screen()->setPrevWidget(nullptr);
    f.translate();
    QCOMPARE(f.screen(), first);
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("stands"));
    QCOMPARE(f.screen()->getPrevWidget(), static_cast<QWidget*>(f.window->editor()));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
}

void TestDictFlows::wordThatIsNotThereIsShownAllTheSame()
{
    DictFixture f(QStringLiteral("xyzzy"));
    f.translate();
    QVERIFY(g_InDict);
    QCOMPARE(f.screen()->shownTranslation(), QStringLiteral("No translation result."));
    QVERIFY(f.spoken().contains(QStringLiteral("No translation result.")));
    QVERIFY(remembered().isEmpty());
}

void TestDictFlows::eachTranslationIsCountedOnce()
{
    DictFixture f;
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    f.translate();
    const qint64 after = QDateTime::currentMSecsSinceEpoch();
    QCOMPARE(f.records().size(), 1);
    const QStringList fields = f.records().first().split(u'\t');
    QCOMPARE(fields.size(), 5);
    QCOMPARE(fields[0], QStringLiteral("house"));
    QVERIFY(fields[1].toLongLong() >= before && fields[1].toLongLong() <= after);
    QCOMPARE(fields.mid(2), (QStringList{"1", "en", "null"}));
    f.press(Qt::Key_Right); // on the screen, words are looked up and not counted
    f.settle();
    f.press(Qt::Key_Escape);
    f.translate();
    QCOMPARE(f.records().size(), 2);
}

void TestDictFlows::nothingIsCountedWhenSwitchedOff_data()
{
    QTest::addColumn<int>("setting");
    QTest::newRow("off") << 1;
    QTest::newRow("damaged") << -1;
}

void TestDictFlows::nothingIsCountedWhenSwitchedOff()
{
    QFETCH(int, setting);
    DictFixture f;
    ConfigReader::Instance()->setStatisInfo(setting);
    f.translate();
    QVERIFY(!f.state.root.exists(QStringLiteral("/mnt/mmc/Stastistic_File.txt")));
}

void TestDictFlows::missingWordIsNotCounted()
{
    DictFixture f(QStringLiteral("xyzzy"));
    f.translate();
    QVERIFY(!f.state.root.exists(QStringLiteral("/mnt/mmc/Stastistic_File.txt")));
}

void TestDictFlows::wordsAreRemembered()
{
    DictFixture f;
    f.translate();
    QCOMPARE(remembered(), QStringList{QStringLiteral("house")});
    WordItem item;
    QVERIFY(NewWordManager::Instance()->get(0, item));
    QCOMPARE(item.translation, QStringLiteral("Haus"));
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("stands"));
    f.translate();
    QCOMPARE(remembered(), (QStringList{QStringLiteral("house"), QStringLiteral("stands")}));
    QVERIFY(f.state.root.read(QStringLiteral("/apps/config/newword.cfg")).contains("stands"));
}

void TestDictFlows::wordIsNotRememberedTwiceInARow()
{
    DictFixture f;
    f.translate();
    f.press(Qt::Key_Escape);
    f.translate();
    QCOMPARE(remembered(), QStringList{QStringLiteral("house")});
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("stands"));
    f.translate();
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("house"));
    f.translate();
    QCOMPARE(remembered(), (QStringList{"house", "stands", "house"}));
}

void TestDictFlows::editorIsSilentWhileATranslationIsRead()
{
    DictFixture f;
    f.press(Qt::Key_Return); // there is something to read again
    f.settle();
    f.translate();
    emit f.screen()->signalOKInTrans();
    f.hush();
    f.window->editor()->soundAgain();
    QVERIFY(!f.window->editor()->soundThread()->isRunning());
    QVERIFY(f.window->editor()->getFlagForTalk());
    emit f.screen()->signalTTSendInTrans();
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("house stands")));
    f.settle();
}

void TestDictFlows::readingUsesTheDictionarySettings()
{
    DictFixture f;
    ConfigReader::Instance()->setVolumDict(2);
    ConfigReader::Instance()->setReadSpeedInfoForDict(9);
    f.translate();
    QCOMPARE(f.lastSpoken(), QStringLiteral("Haus"));
    QCOMPARE(FakeTts::volume(), 40);
    QCOMPARE(FakeTts::speed(), 72);
    QCOMPARE(FakeTts::language(), 104);
}

void TestDictFlows::scanGoesToTheTranslateScreen()
{
    DictFixture f;
    f.translate();
    const QString document = f.window->editor()->documentText();
    f.launcher.clear();
    FakeOcr::setResult(u"a keeper came");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.screen()->selectedWord(), QStringLiteral("keeper"));
    f.settle();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("W\u00e4rter")));
    QCOMPARE(f.window->editor()->documentText(), document);
    QCOMPARE(f.lastSpoken(), QStringLiteral("W\u00e4rter"));
    QVERIFY(f.launcher.messages().contains(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(remembered(), (QStringList{"house", "keeper"}));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.window->editor()->documentText(), document);
}

void TestDictFlows::hyphenatedScansAreJoined()
{
    DictFixture f(QStringLiteral("the house stands"), [] {
        FakeDic::addPair(101, 104, u"English - German",
                         {DictFixture::dictionary(
                             u"Small", {{u"house", u"Haus"}, {u"lighthouse", u"Leuchtturm"}})});
    });
    f.translate();
    for (const char16_t* line : {u"the old light-", u"house stands"}) {
        QSignalSpy taken(f.window->editor(), &MyEdit::signalTransText);
        FakeOcr::setResult(line);
        QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
        QTRY_COMPARE(taken.count(), 1);
        f.settle();
    }
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("light-house"));
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Leuchtturm")));
}

void TestDictFlows::scanCutsTheReadingShort()
{
    DictFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->transWordFun();
    QTRY_VERIFY(FakeTts::isSpeaking());
    QCOMPARE(f.lastSpoken(), QStringLiteral("house"));
    FakeOcr::setResult(u"keeper");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("keeper"));
    QVERIFY(!f.spoken().contains(QStringLiteral("Haus")));
    FakeTts::setPace(FakeTts::Pace::Automatic);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("W\u00e4rter"));
}

void TestDictFlows::scanWithoutTextIsTold()
{
    DictFixture f;
    f.translate();
    FakeOcr::setResult(u"");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Nothing recognised."));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictFlows::scanBegunBeforeGoesIntoTheFile()
{
    DictFixture f;
    FakeOcr::setResult(u"late");
    FakeOcr::hold();
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_VERIFY(FakeOcr::isRecognizing());
    f.translate();
    FakeOcr::release();
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.hush();
    f.window->editor()->readDelaySlot(); // what the delay's end does
    f.settle();
    QVERIFY(f.heard().isEmpty());
}

void TestDictFlows::scanWhoseScreenWasLeftGoesIntoTheFile()
{
    DictFixture f;
    f.translate();
    FakeOcr::setResult(u"late");
    FakeOcr::hold();
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_VERIFY(FakeOcr::isRecognizing());
    QVERIFY(f.window->findChild<SandGlass*>());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    FakeOcr::release();
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("late"));
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.settle();
}

void TestDictFlows::noScanIsTakenUnderAMenu()
{
    DictFixture f;
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

void TestDictFlows::powerKeySilences_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("power") << QByteArray("presspoweroff");
    QTest::newRow("USB") << QByteArray("plugusb");
}

void TestDictFlows::powerKeySilences()
{
    QFETCH(QByteArray, word);
    DictFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->transWordFun();
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(f.screen()->getOkSoundFlagForTalk());
    f.window->handleReceived(Execute, word);
    QVERIFY(FakeTts::waitUntilSilent());
    QVERIFY(!f.screen()->getOkSoundFlagForTalk());
    FakeTts::setPace(FakeTts::Pace::Automatic);
    f.settle();
    QVERIFY(!f.spoken().contains(QStringLiteral("Haus")));
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(g_InDict);
}

void TestDictFlows::usbSavesAndLeavesTheMode()
{
    DictFixture f;
    f.translate();
    FakeOcr::setResult(u"late");
    FakeOcr::hold();
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_VERIFY(FakeOcr::isRecognizing());
    FakeOcr::release();
    f.window->handleReceived(Usb, "plug");
    QVERIFY(!g_InDict);
    QVERIFY(f.menu());
    QVERIFY(!f.current()->isEnabled());
    QTRY_COMPARE(FakeDic::openDictionaries(), 0); // the card may be given away
    f.window->handleReceived(Usb, "delete");
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    QTRY_COMPARE(FakeDic::openDictionaries(), 1);
    f.settle();
    f.putCursorOn(QStringLiteral("house"));
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictFlows::usbOverARememberedWord()
{
    WindowFixture f({}, DictFixture::install);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    NewWordManager::Instance()->put(QStringLiteral("house"), QStringLiteral("Haus"));
    f.window->newWords();
    QWidget* const list = f.current();
    f.press(Qt::Key_Return);
    DictScanEdit* const screen = f.window->translateScreen();
    QCOMPARE(f.current(), static_cast<QWidget*>(screen));
    QTRY_VERIFY(!screen->isReading() && !f.window->menuSpeech()->isRunning());
    f.window->handleReceived(Usb, "plug");
    QVERIFY(!screen->isEnabled());
    QTRY_COMPARE(FakeDic::openDictionaries(), 0);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    FakeDic::holdInitialize(true);
    f.window->handleReceived(Usb, "delete");
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

void TestDictFlows::stopOnlyEndsOverATranslation()
{
    DictFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->transWordFun();
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.launcher.clear();
    f.window->handleReceived(Execute, "stoponly");
    QTRY_VERIFY(f.launcher.messages().contains(QStringLiteral("ESC(QString) escpressed")));
    QVERIFY(!f.window->isVisible());
    f.window.reset();
    QVERIFY(!FakeTts::isStarted());
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QCOMPARE(FakeDic::misuses(), 0);
}

void TestDictFlows::stopSavesAndEnds()
{
    DictFixture f;
    f.translate();
    f.window->handleReceived(Execute, "stop");
    QVERIFY(!f.window->isVisible());
    QVERIFY(!g_InDict);
    QVERIFY(FakeIap::stopSignal());
    const QString name = QDate::currentDate().toString(QStringLiteral("yyMMdd"));
    QVERIFY(f.state.root.read(QStringLiteral("/mnt/mmc/e_ScanFile/%1.txt").arg(name)).size() > 2);
}

void TestDictFlows::quittingWhileReadingIsClean()
{
    {
        DictFixture f;
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

QTEST_MAIN(TestDictFlows)
#include "tst_dictflows.moc"
