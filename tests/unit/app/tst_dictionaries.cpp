#include "app/mainwindow.h"

#include "engines/flags.h"
#include "engines/speechtext.h"
#include "tests/unit/app/dictfixture.h"

#include <QSignalSpy>
#include <thread>

namespace {

const QString CannotBeOpened =
    QStringLiteral("The dictionary cannot be opened. Please select another one.");
const QString NoneInstalled = QStringLiteral("No dictionary is installed.");
const QString Usb = QStringLiteral("USB(QString)");

enum Pair { EnglishGerman, GermanEnglish, FrenchEnglish };

bool isOpen(int pair, int dict)
{
    return Translater::Instance()->isOpen(pair, dict);
}

/* Dictionaries of which the chosen one cannot be opened. */
void installBroken()
{
    DictFixture::install();
    ConfigReader::Instance()->setLanDict(FrenchEnglish);
}

/* Keys as the window system delivers them: to the widget that has the focus. */
void pressFocused(const DictFixture& f, Qt::Key key)
{
    QTest::keyClick(f.window->focusWidget(), key);
}

} // namespace

/* Opening and choosing dictionaries, which never blocks the user. */
class TestDictionaries : public QObject
{
    Q_OBJECT

private slots:
    void chosenDictionaryIsOpenedAhead();
    void startDoesNotWaitForIt();
    void withoutDictionariesNothingIsOpened();
    void translationWaitsUntilItIsOpen();
    void wordIsTheOneThatWasAskedFor();
    void keysRestMeanwhile();
    void scansGoIntoTheFileMeanwhile();
    void usbEndsTheWait();
    void endOfTheApplicationEndsTheWait_data();
    void endOfTheApplicationEndsTheWait();
    void noDictionaryIsTold();
    void dictionaryThatCannotBeOpenedIsTold();
    void dictionaryThatIsGoneIsTold_data();
    void dictionaryThatIsGoneIsTold();
    void nextAttemptMaySucceed();
    void cardThatWasPulledOutIsAskedAgain();
    void scanAsksACardThatWasPulledOutAgain();
    void cardThatStaysAwayIsTold();

    void selectionIsFilledAtStart();
    void selectionShowsWhatIsChosen();
    void selectionWithoutDictionariesIsTold();
    void changeIsStoredAndOpened();
    void changeShowsTheSignAndBlocksTheScreen();
    void lastOfSeveralChangesCounts();
    void changeThatFailsIsToldAndKept();
    void changeIsToldByName();
    void translationIsLookedUpAgain();
    void translationWaitsForTheChange();
    void scanWaitsForTheChange();
    void choiceThatUsbTookAwayIsNone();
    void choiceOfAPairWithoutDictionariesIsTold();
    void quittingWhileOpeningIsClean();
};

void TestDictionaries::chosenDictionaryIsOpenedAhead()
{
    DictFixture f(QStringLiteral("house"), [] {
        DictFixture::install();
        ConfigReader::Instance()->setLanDictInfo(1);
    });
    QVERIFY(isOpen(EnglishGerman, 1));
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.messages.texts().isEmpty());
}

void TestDictionaries::startDoesNotWaitForIt()
{
    WindowFixture f({}, [] {
        DictFixture::install();
        FakeDic::holdInitialize(true);
    });
    QVERIFY(f.window->isOpeningDictionary());
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan to file"));
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.press(Qt::Key_Down);
    QCOMPARE(f.menu()->getCurIndex(), 1);
    QVERIFY(!isOpen(EnglishGerman, 0));
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QVERIFY(isOpen(EnglishGerman, 0));
}

void TestDictionaries::withoutDictionariesNothingIsOpened()
{
    WindowFixture f;
    QVERIFY(!f.window->isOpeningDictionary());
    QVERIFY(fakes::calls("ZEMBRA_DIC_Initialize").isEmpty());
}

void TestDictionaries::translationWaitsUntilItIsOpen()
{
    DictFixture f;
    f.window->handleReceived(Usb, "plug"); // closes it
    f.settle();
    FakeDic::holdInitialize(true);
    f.window->handleReceived(Usb, "delete");
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.putCursorOn(QStringLiteral("house"));
    f.hush();
    f.window->transWordFun();
    const auto* sign = f.window->findChild<SandGlass*>();
    QVERIFY(sign && sign->isVisible());
    QVERIFY(!g_InDict);
    QTRY_COMPARE(f.lastHeard(), QStringLiteral("Please wait."));
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(g_InDict);
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
    f.settle();
    QCOMPARE(f.heard(), (QStringList{"Please wait.", "house", "Haus"}));
    QCOMPARE(f.records().size(), 1);
}

/* The editor with a word, and a dictionary that does not open before it is let to. */
class WaitingFixture : public DictFixture
{
public:
    explicit WaitingFixture(const std::function<void()>& prepare = &DictFixture::install)
        : DictFixture(QStringLiteral("the house stands"), prepare)
    {
        window->handleReceived(Usb, "plug");
        settle();
        FakeDic::holdInitialize(true);
        window->handleReceived(Usb, "delete");
        QTRY_COMPARE(current(), static_cast<QWidget*>(window->editor()));
        QTRY_VERIFY(!window->menuSpeech()->isRunning());
        putCursorOn(QStringLiteral("house"));
        window->transWordFun();
        QVERIFY(window->findChild<SandGlass*>());
    }
};

void TestDictionaries::wordIsTheOneThatWasAskedFor()
{
    WaitingFixture f;
    f.putCursorOn(QStringLiteral("stands"));
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictionaries::keysRestMeanwhile()
{
    WaitingFixture f;
    const int position = f.window->editor()->getCurPosition();
    for (const Qt::Key key :
         {Qt::Key_Right, Qt::Key_Return, Qt::Key_F12, Qt::Key_Escape, Qt::Key_F9})
        pressFocused(f, key);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QCOMPARE(f.window->editor()->getCurPosition(), position);
    QVERIFY(f.window->editor()->isBound());
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    pressFocused(f, Qt::Key_F10);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Please wait. ")));
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    f.settle();
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.press(Qt::Key_Right); // and act again
    QVERIFY(f.window->editor()->getCurPosition() != position);
    f.settle();
}

void TestDictionaries::scansGoIntoTheFileMeanwhile()
{
    WaitingFixture f;
    FakeOcr::setResult(u"meanwhile");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("meanwhile ")));
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictionaries::usbEndsTheWait()
{
    WaitingFixture f;
    f.window->handleReceived(Usb, "plug");
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.menu() && !f.menu()->isEnabled());
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QVERIFY(!g_InDict);
}

void TestDictionaries::endOfTheApplicationEndsTheWait_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<bool>("opens");
    for (const char* word : {"stop", "stoponly"}) {
        QTest::addRow("%s, it opens", word) << QByteArray(word) << true;
        QTest::addRow("%s, it fails", word) << QByteArray(word) << false;
    }
}

void TestDictionaries::endOfTheApplicationEndsTheWait()
{
    QFETCH(QByteArray, word);
    QFETCH(bool, opens);
    WaitingFixture f(opens ? &DictFixture::install : &installBroken);
    if (!opens)
        f.window->changeDict(FrenchEnglish, 0, 1); // two who would be told
    f.window->handleReceived(QStringLiteral("execute(QString)"), word);
    QVERIFY(!f.window->isVisible());
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QVERIFY(!g_InDict);
    QVERIFY(f.current() != f.screen());
    QVERIFY(f.messages.texts().isEmpty());
}

void TestDictionaries::noDictionaryIsTold()
{
    DictFixture f(QStringLiteral("house"), [] {});
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{NoneInstalled});
    QTRY_COMPARE(f.lastSpoken(), NoneInstalled);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!g_InDict);
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.window->selectDicFun();
    QCOMPARE(f.messages.texts().size(), 2);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
}

void TestDictionaries::dictionaryThatCannotBeOpenedIsTold()
{
    DictFixture f(QStringLiteral("house"), installBroken);
    QVERIFY(f.messages.texts().isEmpty()); // at start nobody has asked
    f.window->transWordFun();
    QVERIFY(f.window->findChild<SandGlass*>());
    QTRY_COMPARE(f.messages.texts(), QStringList{CannotBeOpened});
    QTRY_COMPARE(f.lastSpoken(), CannotBeOpened);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!g_InDict);
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.records().isEmpty());
    f.settle();
    f.window->changeDict(EnglishGerman, 0, 1); // and another one serves
    f.settle();
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictionaries::dictionaryThatIsGoneIsTold_data()
{
    QTest::addColumn<int>("pair");
    QTest::addColumn<int>("dict");
    QTest::newRow("pair") << 7 << 0;
    QTest::newRow("dictionary") << 0 << 7;
    QTest::newRow("negative") << -1 << -1;
}

void TestDictionaries::dictionaryThatIsGoneIsTold()
{
    QFETCH(int, pair);
    QFETCH(int, dict);
    DictFixture f(QStringLiteral("house"), [pair, dict] {
        DictFixture::install();
        ConfigReader::Instance()->setLanDict(pair);
        ConfigReader::Instance()->setLanDictInfo(dict);
    });
    f.window->transWordFun();
    QTRY_COMPARE(f.messages.texts(), QStringList{CannotBeOpened});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.window->selectDicFun();
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->dictionarySwitch()));
    f.settle();
}

void TestDictionaries::nextAttemptMaySucceed()
{
    DictFixture f(QStringLiteral("house"), [] {
        DictFixture::install();
        FakeDic::fail("ZEMBRA_DIC_Initialize", -1);
    });
    f.window->transWordFun();
    QTRY_COMPARE(f.messages.texts(), QStringList{CannotBeOpened});
    FakeDic::fail("ZEMBRA_DIC_Initialize", 0); // the card is back
    f.settle();
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictionaries::cardThatWasPulledOutIsAskedAgain()
{
    DictFixture f;
    FakeDic::fail("ZEMBRA_DIC_SearchWord", -1);
    FakeDic::fail("ZEMBRA_DIC_GetFirstComment", -1);
    f.translate();
    QCOMPARE(f.screen()->shownTranslation(), QStringLiteral("No translation result."));
    f.press(Qt::Key_Escape);
    f.settle();
    FakeDic::fail("ZEMBRA_DIC_SearchWord", 0);
    FakeDic::fail("ZEMBRA_DIC_GetFirstComment", 0);
    f.window->transWordFun();
    QVERIFY(f.window->isOpeningDictionary()); // what was open is not to be trusted
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
    QCOMPARE(FakeDic::openDictionaries(), 1);
    f.settle();
}

void TestDictionaries::scanAsksACardThatWasPulledOutAgain()
{
    DictFixture f;
    f.translate();
    FakeDic::fail("ZEMBRA_DIC_SearchWord", -1);
    FakeDic::fail("ZEMBRA_DIC_GetFirstComment", -1);
    FakeOcr::setResult(u"a keeper");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.screen()->shownTranslation(), QStringLiteral("No translation result."));
    f.settle();
    const auto opened = fakes::calls("ZEMBRA_DIC_Initialize").size();
    FakeDic::fail("ZEMBRA_DIC_SearchWord", 0);
    FakeDic::fail("ZEMBRA_DIC_GetFirstComment", 0);
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.screen()->selectedWord(), QStringLiteral("keeper"));
    QTRY_VERIFY(f.screen()->shownTranslation().contains(QStringLiteral("W\u00e4rter")));
    f.settle();
    QCOMPARE(fakes::calls("ZEMBRA_DIC_Initialize").size(), opened + 1);
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.messages.texts().isEmpty());
}

void TestDictionaries::cardThatStaysAwayIsTold()
{
    DictFixture f;
    f.translate();
    for (const char* function :
         {"ZEMBRA_DIC_SearchWord", "ZEMBRA_DIC_GetFirstComment", "ZEMBRA_DIC_Initialize"})
        FakeDic::fail(function, -1);
    FakeOcr::setResult(u"a keeper");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.screen()->shownTranslation(), QStringLiteral("No translation result."));
    f.settle();
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.messages.texts(), QStringList{CannotBeOpened});
    QTRY_VERIFY(f.spoken().contains(CannotBeOpened));
    f.settle();
    QVERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.settle();
}

void TestDictionaries::selectionIsFilledAtStart()
{
    DictFixture f;
    DictSwitch* const selection = f.window->dictionarySwitch();
    QCOMPARE(selection->GetDictCount(), 3);
    QVERIFY(!selection->isVisible());
    selection->setDictIndex(GermanEnglish);
    QCOMPARE(selection->getSelectIndex(), int(GermanEnglish));
    QVERIFY(selection->reloadDictInfoIndex(0));
    QVERIFY(!selection->reloadDictInfoIndex(1)); // it has one
}

void TestDictionaries::selectionShowsWhatIsChosen()
{
    DictFixture f;
    f.window->changeDict(EnglishGerman, 1, 1);
    f.settle();
    f.press(Qt::Key_F12);
    QWidget* const menu = f.current();
    for (int i = 0; i < 4; ++i)
        f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    DictSwitch* const selection = f.window->dictionarySwitch();
    QCOMPARE(f.current(), static_cast<QWidget*>(selection));
    QCOMPARE(selection->getSelectIndex(), int(EnglishGerman));
    QTRY_VERIFY(f.lastSpoken().contains(QStringLiteral("English - German"))
                && f.lastSpoken().contains(QStringLiteral("Large")));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), menu);
    QVERIFY(isOpen(EnglishGerman, 1));
    f.settle();
}

void TestDictionaries::selectionWithoutDictionariesIsTold()
{
    WindowFixture f;
    QWidget* const before = f.current();
    f.window->selectDicFun();
    QCOMPARE(f.messages.texts(), QStringList{NoneInstalled});
    QCOMPARE(f.current(), before);
}

void TestDictionaries::changeIsStoredAndOpened()
{
    DictFixture f;
    f.window->changeDict(GermanEnglish, 0, 1);
    // The selection screen asks for the chosen pair before the worker has come to it.
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(GermanEnglish));
    f.settle();
    QVERIFY(isOpen(GermanEnglish, 0));
    QVERIFY(f.window->dictionaryChanged());
    f.window->changeDict(EnglishGerman, 1, 1);
    f.settle();
    QVERIFY(isOpen(EnglishGerman, 1));
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(EnglishGerman));
    QCOMPARE(ConfigReader::Instance()->getLanDictInfo(), 1);
}

void TestDictionaries::changeShowsTheSignAndBlocksTheScreen()
{
    DictFixture f;
    f.window->selectDicFun();
    DictSwitch* const selection = f.window->dictionarySwitch();
    FakeDic::holdInitialize(true);
    f.window->changeDict(EnglishGerman, 1, 1);
    const auto* sign = f.window->findChild<SandGlass*>();
    QVERIFY(sign && sign->isVisible());
    QCOMPARE(sign->geometry(), QRect(100, 10, 33, 33));
    f.press({Qt::Key_Right, Qt::Key_Down, Qt::Key_Escape});
    QCOMPARE(f.current(), static_cast<QWidget*>(selection));
    QCOMPARE(selection->getSelectIndex(), int(EnglishGerman));
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    f.press(Qt::Key_Right);
    QCOMPARE(selection->getSelectIndex(), int(GermanEnglish));
    f.settle();
}

void TestDictionaries::lastOfSeveralChangesCounts()
{
    DictFixture f;
    FakeDic::holdInitialize(true);
    f.window->changeDict(EnglishGerman, 1, 1);
    f.window->changeDict(FrenchEnglish, 0, 1);
    f.window->changeDict(GermanEnglish, 0, 1);
    FakeDic::holdInitialize(false);
    f.settle();
    QVERIFY(isOpen(GermanEnglish, 0));
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(GermanEnglish));
    QVERIFY(f.messages.texts().isEmpty());
    QCOMPARE(FakeDic::misuses(), 0);
}

void TestDictionaries::changeThatFailsIsToldAndKept()
{
    DictFixture f;
    f.window->changeDict(FrenchEnglish, 0, 1);
    QTRY_COMPARE(f.messages.texts(), QStringList{CannotBeOpened});
    QTRY_COMPARE(f.lastSpoken(), CannotBeOpened);
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(FrenchEnglish));
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.settle();
}

void TestDictionaries::changeIsToldByName()
{
    DictFixture f;
    f.window->changeDict(EnglishGerman, 1, 1);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Large")));
    f.settle();
}

void TestDictionaries::translationIsLookedUpAgain()
{
    DictFixture f;
    f.translate();
    QCOMPARE(f.lastSpoken(), QStringLiteral("Haus"));
    FakeTts::setPace(FakeTts::Pace::Held);
    f.screen()->soundOnlySrcForTrans();
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.press(Qt::Key_F9); // ends the reading
    QTRY_VERIFY(!f.screen()->isReading());
    FakeTts::setPace(FakeTts::Pace::Automatic);
    f.press(Qt::Key_F9);
    QVERIFY(f.menu());
    f.window->selectDicFun();
    f.window->changeDict(EnglishGerman, 1, 1);
    f.settle();
    QVERIFY(!f.screen()->shownTranslation().contains(QStringLiteral("Geb\u00e4ude")));
    f.press(Qt::Key_Escape);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QTRY_VERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Geb\u00e4ude")));
    QVERIFY(!FakeIap::stopSignal());
    f.settle();
    QCOMPARE(f.lastSpoken(),
             QStringLiteral("Haus;") + pauseTag(200) + QStringLiteral(" Geb\u00e4ude"));
}

void TestDictionaries::translationWaitsForTheChange()
{
    DictFixture f;
    f.translate();
    f.press(Qt::Key_F9);
    FakeDic::holdInitialize(true);
    f.window->changeDict(EnglishGerman, 1, 1);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(f.window->findChild<SandGlass*>());
    QVERIFY(FakeIap::stopSignal());
    f.press(Qt::Key_Escape); // rests
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Geb\u00e4ude")));
    QVERIFY(!FakeIap::stopSignal());
    f.settle();
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
}

void TestDictionaries::scanWaitsForTheChange()
{
    DictFixture f;
    f.translate();
    FakeOcr::setResult(u"a house");
    FakeOcr::hold();
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_VERIFY(FakeOcr::isRecognizing());
    FakeDic::holdInitialize(true);
    f.window->changeDict(EnglishGerman, 1, 1);
    FakeOcr::release();
    QTRY_VERIFY(!f.window->editor()->findChild<SandGlass*>());
    QCoreApplication::processEvents();
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    QTRY_VERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Geb\u00e4ude")));
    f.settle();
}

void TestDictionaries::choiceThatUsbTookAwayIsNone()
{
    DictFixture f;
    f.window->selectDicFun();
    f.press(Qt::Key_Down);
    f.window->handleReceived(Usb, "plug");
    f.window->handleReceived(Usb, "delete");
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.settle();
    f.window->selectDicFun();
    QSignalSpy chosen(f.window->dictionarySwitch(), &DictSwitch::selectChangedSignal);
    QCOMPARE(f.window->dictionarySwitch()->getDictInfoIndex(), 0);
    f.press(Qt::Key_Escape);
    QVERIFY(chosen.isEmpty());
    QVERIFY(isOpen(EnglishGerman, 0));
    f.settle();
}

void TestDictionaries::choiceOfAPairWithoutDictionariesIsTold()
{
    DictFixture f(QStringLiteral("house"), [] {
        DictFixture::install();
        FakeDic::addPair(101, 105, u"English - Spanish", {});
    });
    f.window->selectDicFun();
    f.settle();
    f.press(Qt::Key_Left);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("English - Spanish. No dictionary."));
    f.press(Qt::Key_Escape);
    QTRY_VERIFY(f.messages.texts().contains(CannotBeOpened));
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.settle();
    f.window->transWordFun();
    QTRY_COMPARE(f.messages.texts().count(CannotBeOpened), 2);
    QVERIFY(!g_InDict);
    f.window->selectDicFun();
    QCOMPARE(f.window->dictionarySwitch()->getDictInfoIndex(), -1);
    f.press(Qt::Key_Right); // to the first pair
    f.press(Qt::Key_Escape);
    f.settle();
    QVERIFY(isOpen(EnglishGerman, 0));
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictionaries::quittingWhileOpeningIsClean()
{
    DictFixture f;
    FakeDic::holdInitialize(true);
    f.window->changeDict(EnglishGerman, 1, 1);
    std::thread release([] { FakeDic::holdInitialize(false); });
    f.window.reset();
    release.join();
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QCOMPARE(FakeDic::openRecords(), 0);
    QCOMPARE(FakeDic::misuses(), 0);
}

QTEST_MAIN(TestDictionaries)
#include "tst_dictionaries.moc"
