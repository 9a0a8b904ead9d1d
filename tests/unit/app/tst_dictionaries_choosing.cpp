#include "engines/flags.h"
#include "engines/speechtext.h"
#include "tests/shared/dictwindowfixture.h"
#include "tests/shared/testobjects.h"

#include <QSignalSpy>
#include <thread>

/* Choosing another dictionary, which never blocks the user. */
class TestDictionariesChoosing : public QObject
{
    Q_OBJECT

private slots:
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

void TestDictionariesChoosing::selectionIsFilledAtStart()
{
    DictWindowFixture f;
    DictSwitch* const selection = f.window->dictionarySwitch();
    QCOMPARE(selection->GetDictCount(), 3);
    QVERIFY(!selection->isVisible());
    selection->setDictIndex(DictWindowFixture::GermanEnglish);
    QCOMPARE(selection->getSelectIndex(), int(DictWindowFixture::GermanEnglish));
    QVERIFY(selection->reloadDictInfoIndex(0));
    QVERIFY(!selection->reloadDictInfoIndex(1)); // it has one
}

void TestDictionariesChoosing::selectionShowsWhatIsChosen()
{
    DictWindowFixture f;
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
    f.settle();
    f.press(Qt::Key_F12);
    QWidget* const menu = f.current();
    for (int i = 0; i < 4; ++i)
        f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    DictSwitch* const selection = f.window->dictionarySwitch();
    QCOMPARE(f.current(), static_cast<QWidget*>(selection));
    QCOMPARE(selection->getSelectIndex(), int(DictWindowFixture::EnglishGerman));
    QTRY_VERIFY(f.lastSpoken().contains(QStringLiteral("English - German"))
                && f.lastSpoken().contains(QStringLiteral("Large")));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), menu);
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::EnglishGerman, 1));
    f.settle();
}

void TestDictionariesChoosing::selectionWithoutDictionariesIsTold()
{
    WindowFixture f;
    QWidget* const before = f.current();
    f.window->selectDicFun();
    QCOMPARE(f.messages.texts(), QStringList{DictWindowFixture::NoneInstalled});
    QCOMPARE(f.current(), before);
}

void TestDictionariesChoosing::changeIsStoredAndOpened()
{
    DictWindowFixture f;
    f.window->changeDict(DictWindowFixture::GermanEnglish, 0, 1);
    // The selection screen asks for the chosen pair before the worker has come to it.
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(DictWindowFixture::GermanEnglish));
    f.settle();
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::GermanEnglish, 0));
    QVERIFY(f.window->dictionaryChanged());
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
    f.settle();
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::EnglishGerman, 1));
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(DictWindowFixture::EnglishGerman));
    QCOMPARE(ConfigReader::Instance()->getLanDictInfo(), 1);
}

void TestDictionariesChoosing::changeShowsTheSignAndBlocksTheScreen()
{
    DictWindowFixture f;
    f.window->selectDicFun();
    DictSwitch* const selection = f.window->dictionarySwitch();
    FakeDic::holdInitialize(true);
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
    const auto* sign = f.window->findChild<SandGlass*>();
    QVERIFY(sign && sign->isVisible());
    QCOMPARE(sign->geometry(), QRect(100, 10, 33, 33));
    f.press({Qt::Key_Right, Qt::Key_Down, Qt::Key_Escape});
    QCOMPARE(f.current(), static_cast<QWidget*>(selection));
    QCOMPARE(selection->getSelectIndex(), int(DictWindowFixture::EnglishGerman));
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    f.press(Qt::Key_Right);
    QCOMPARE(selection->getSelectIndex(), int(DictWindowFixture::GermanEnglish));
    f.settle();
}

void TestDictionariesChoosing::lastOfSeveralChangesCounts()
{
    DictWindowFixture f;
    FakeDic::holdInitialize(true);
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
    f.window->changeDict(DictWindowFixture::FrenchEnglish, 0, 1);
    f.window->changeDict(DictWindowFixture::GermanEnglish, 0, 1);
    FakeDic::holdInitialize(false);
    f.settle();
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::GermanEnglish, 0));
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(DictWindowFixture::GermanEnglish));
    QVERIFY(f.messages.texts().isEmpty());
    QCOMPARE(FakeDic::misuses(), 0);
}

void TestDictionariesChoosing::changeThatFailsIsToldAndKept()
{
    DictWindowFixture f;
    f.window->changeDict(DictWindowFixture::FrenchEnglish, 0, 1);
    QTRY_COMPARE(f.messages.texts(), QStringList{DictWindowFixture::CannotBeOpened});
    QTRY_COMPARE(f.lastSpoken(), DictWindowFixture::CannotBeOpened);
    QCOMPARE(ConfigReader::Instance()->getLanDict(), int(DictWindowFixture::FrenchEnglish));
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.settle();
}

void TestDictionariesChoosing::changeIsToldByName()
{
    DictWindowFixture f;
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Large")));
    f.settle();
}

void TestDictionariesChoosing::translationIsLookedUpAgain()
{
    DictWindowFixture f;
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
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
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

void TestDictionariesChoosing::translationWaitsForTheChange()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_F9);
    FakeDic::holdInitialize(true);
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
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

void TestDictionariesChoosing::scanWaitsForTheChange()
{
    DictWindowFixture f;
    f.translate();
    swipeAndHold(u"a house");
    FakeDic::holdInitialize(true);
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
    FakeOcr::release();
    QTRY_VERIFY(!f.window->editor()->findChild<SandGlass*>());
    QCoreApplication::processEvents();
    FakeDic::holdInitialize(false);
    QTRY_COMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    QTRY_VERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Geb\u00e4ude")));
    f.settle();
}

void TestDictionariesChoosing::choiceThatUsbTookAwayIsNone()
{
    DictWindowFixture f;
    f.window->selectDicFun();
    f.press(Qt::Key_Down);
    f.usb("plug");
    f.usb("delete");
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.settle();
    f.window->selectDicFun();
    QSignalSpy chosen(f.window->dictionarySwitch(), &DictSwitch::selectChangedSignal);
    QCOMPARE(f.window->dictionarySwitch()->getDictInfoIndex(), 0);
    f.press(Qt::Key_Escape);
    QVERIFY(chosen.isEmpty());
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::EnglishGerman, 0));
    f.settle();
}

void TestDictionariesChoosing::choiceOfAPairWithoutDictionariesIsTold()
{
    DictWindowFixture f(QStringLiteral("house"), [] {
        DictWindowFixture::install();
        FakeDic::addPair(101, 105, u"English - Spanish", {});
    });
    f.window->selectDicFun();
    f.settle();
    f.press(Qt::Key_Left);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("English - Spanish. No dictionary."));
    f.press(Qt::Key_Escape);
    QTRY_VERIFY(f.messages.texts().contains(DictWindowFixture::CannotBeOpened));
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.settle();
    f.window->transWordFun();
    QTRY_COMPARE(f.messages.texts().count(DictWindowFixture::CannotBeOpened), 2);
    QVERIFY(!g_InDict);
    f.window->selectDicFun();
    QCOMPARE(f.window->dictionarySwitch()->getDictInfoIndex(), -1);
    f.press(Qt::Key_Right); // to the first pair
    f.press(Qt::Key_Escape);
    f.settle();
    QVERIFY(DictWindowFixture::isOpen(DictWindowFixture::EnglishGerman, 0));
    f.translate();
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
}

void TestDictionariesChoosing::quittingWhileOpeningIsClean()
{
    DictWindowFixture f;
    FakeDic::holdInitialize(true);
    f.window->changeDict(DictWindowFixture::EnglishGerman, 1, 1);
    std::thread release([] { FakeDic::holdInitialize(false); });
    f.window.reset();
    release.join();
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QCOMPARE(FakeDic::openRecords(), 0);
    QCOMPARE(FakeDic::misuses(), 0);
}

TEST_OBJECT(TestDictionariesChoosing)
#include "tst_dictionaries_choosing.moc"
