#include "engines/flags.h"
#include "tests/shared/dictwindowfixture.h"
#include "tests/shared/testobjects.h"

namespace {

/* Dictionaries of which the chosen one cannot be opened. */
void installBroken()
{
    DictWindowFixture::install();
    ConfigReader::Instance()->setLanDict(DictWindowFixture::FrenchEnglish);
}

/* Keys as the window system delivers them: to the widget that has the focus. */
void pressFocused(const DictWindowFixture& f, Qt::Key key)
{
    QTest::keyClick(f.window->focusWidget(), key);
}

/* The editor with a word, and a dictionary that does not open before it is let to. */
class WaitingFixture : public DictWindowFixture
{
public:
    explicit WaitingFixture(const std::function<void()>& prepare = &DictWindowFixture::install)
        : DictWindowFixture(QStringLiteral("the house stands"), prepare)
    {
        usb("plug");
        settle();
        FakeDic::holdInitialize(true);
        usb("delete");
        QTRY_COMPARE(current(), static_cast<QWidget*>(window->editor()));
        QTRY_VERIFY(!window->menuSpeech()->isRunning());
        putCursorOn(QStringLiteral("house"));
        window->transWordFun();
        QVERIFY(window->findChild<SandGlass*>());
    }
};

} // namespace

/* Opening the chosen dictionary, which never blocks the user. */
class TestDictionariesOpening : public QObject
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
};

void TestDictionariesOpening::chosenDictionaryIsOpenedAhead()
{
    DictWindowFixture f(QStringLiteral("house"), [] {
        DictWindowFixture::install();
        ConfigReader::Instance()->setLanDictInfo(1);
    });
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::EnglishGerman, 1));
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.messages.texts().isEmpty());
}

void TestDictionariesOpening::startDoesNotWaitForIt()
{
    WindowFixture f({}, [] {
        DictWindowFixture::install();
        FakeDic::holdInitialize(true);
    });
    QVERIFY(f.window->isOpeningDictionary());
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan to file"));
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.press(Qt::Key_Down);
    QCOMPARE(f.menu()->getCurIndex(), 1);
    QVERIFY(!DictWindowFixture::isOpen(DictWindowFixture::EnglishGerman, 0));
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::EnglishGerman, 0));
}

void TestDictionariesOpening::withoutDictionariesNothingIsOpened()
{
    WindowFixture f;
    QVERIFY(!f.window->isOpeningDictionary());
    QVERIFY(fakes::calls("ZEMBRA_DIC_Initialize").isEmpty());
}

void TestDictionariesOpening::translationWaitsUntilItIsOpen()
{
    DictWindowFixture f;
    f.usb("plug"); // closes it
    f.settle();
    FakeDic::holdInitialize(true);
    f.usb("delete");
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

void TestDictionariesOpening::wordIsTheOneThatWasAskedFor()
{
    WaitingFixture f;
    f.putCursorOn(QStringLiteral("stands"));
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictionariesOpening::keysRestMeanwhile()
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

void TestDictionariesOpening::scansGoIntoTheFileMeanwhile()
{
    WaitingFixture f;
    swipeOver(u"meanwhile");
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("meanwhile ")));
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictionariesOpening::usbEndsTheWait()
{
    WaitingFixture f;
    f.usb("plug");
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.menu() && !f.menu()->isEnabled());
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QVERIFY(!g_InDict);
}

void TestDictionariesOpening::endOfTheApplicationEndsTheWait_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<bool>("opens");
    for (const char* word : {"stop", "stoponly"}) {
        QTest::addRow("%s, it opens", word) << QByteArray(word) << true;
        QTest::addRow("%s, it fails", word) << QByteArray(word) << false;
    }
}

void TestDictionariesOpening::endOfTheApplicationEndsTheWait()
{
    QFETCH(QByteArray, word);
    QFETCH(bool, opens);
    WaitingFixture f(opens ? &DictWindowFixture::install : &installBroken);
    if (!opens)
        f.window->changeDict(DictWindowFixture::FrenchEnglish, 0, 1); // two who would be told
    f.execute(word);
    QVERIFY(!f.window->isVisible());
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QVERIFY(!g_InDict);
    QVERIFY(f.current() != f.screen());
    QVERIFY(f.messages.texts().isEmpty());
}

void TestDictionariesOpening::noDictionaryIsTold()
{
    DictWindowFixture f(QStringLiteral("house"), [] {});
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{DictWindowFixture::NoneInstalled});
    QTRY_COMPARE(f.lastSpoken(), DictWindowFixture::NoneInstalled);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!g_InDict);
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.window->selectDicFun();
    QCOMPARE(f.messages.texts().size(), 2);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
}

void TestDictionariesOpening::dictionaryThatCannotBeOpenedIsTold()
{
    DictWindowFixture f(QStringLiteral("house"), installBroken);
    QVERIFY(f.messages.texts().isEmpty()); // at start nobody has asked
    f.window->transWordFun();
    QVERIFY(f.window->findChild<SandGlass*>());
    QTRY_COMPARE(f.messages.texts(), QStringList{DictWindowFixture::CannotBeOpened});
    QTRY_COMPARE(f.lastSpoken(), DictWindowFixture::CannotBeOpened);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!g_InDict);
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(f.records().isEmpty());
    f.settle();
    f.window->changeDict(DictWindowFixture::EnglishGerman, 0, 1); // and another one serves
    f.settle();
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictionariesOpening::dictionaryThatIsGoneIsTold_data()
{
    QTest::addColumn<int>("pair");
    QTest::addColumn<int>("dict");
    QTest::newRow("pair") << 7 << 0;
    QTest::newRow("dictionary") << 0 << 7;
    QTest::newRow("negative") << -1 << -1;
}

void TestDictionariesOpening::dictionaryThatIsGoneIsTold()
{
    QFETCH(int, pair);
    QFETCH(int, dict);
    DictWindowFixture f(QStringLiteral("house"), [pair, dict] {
        DictWindowFixture::install();
        ConfigReader::Instance()->setLanDict(pair);
        ConfigReader::Instance()->setLanDictInfo(dict);
    });
    f.window->transWordFun();
    QTRY_COMPARE(f.messages.texts(), QStringList{DictWindowFixture::CannotBeOpened});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.window->selectDicFun();
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->dictionarySwitch()));
    f.settle();
}

void TestDictionariesOpening::nextAttemptMaySucceed()
{
    DictWindowFixture f(QStringLiteral("house"), [] {
        DictWindowFixture::install();
        FakeDic::fail("ZEMBRA_DIC_Initialize", -1);
    });
    f.window->transWordFun();
    QTRY_COMPARE(f.messages.texts(), QStringList{DictWindowFixture::CannotBeOpened});
    FakeDic::fail("ZEMBRA_DIC_Initialize", 0); // the card is back
    f.settle();
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictionariesOpening::cardThatWasPulledOutIsAskedAgain()
{
    DictWindowFixture f;
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

void TestDictionariesOpening::scanAsksACardThatWasPulledOutAgain()
{
    DictWindowFixture f;
    f.translate();
    FakeDic::fail("ZEMBRA_DIC_SearchWord", -1);
    FakeDic::fail("ZEMBRA_DIC_GetFirstComment", -1);
    swipeOver(u"a keeper");
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

void TestDictionariesOpening::cardThatStaysAwayIsTold()
{
    DictWindowFixture f;
    f.translate();
    for (const char* function :
         {"ZEMBRA_DIC_SearchWord", "ZEMBRA_DIC_GetFirstComment", "ZEMBRA_DIC_Initialize"})
        FakeDic::fail(function, -1);
    swipeOver(u"a keeper");
    QTRY_COMPARE(f.screen()->shownTranslation(), QStringLiteral("No translation result."));
    f.settle();
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.messages.texts(), QStringList{DictWindowFixture::CannotBeOpened});
    QTRY_VERIFY(f.spoken().contains(DictWindowFixture::CannotBeOpened));
    f.settle();
    QVERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.settle();
}

TEST_OBJECT(TestDictionariesOpening)
#include "tst_dictionaries_opening.moc"
