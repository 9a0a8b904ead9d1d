#include "app/mainwindow.h"

#include "engines/flags.h"
#include "engines/speechtext.h"
#include "store/newwordmanager.h"
#include "tests/unit/app/dictfixture.h"
#include "widgets/ttsconfig.h"

namespace {

/* Triggers the entry of the "More settings" menu that reads so. */
void chooseMore(DictFixture& f, const QString& entry)
{
    f.press(Qt::Key_F9);
    const qsizetype index = f.entries().indexOf(entry);
    QVERIFY(index >= 0);
    for (qsizetype i = 0; i < index; ++i)
        f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
}

void remember(const QStringList& words)
{
    for (const QString& word : words)
        NewWordManager::Instance()->put(word, word.toUpper());
}

} // namespace

/* The menus of dictionary mode, and the keys that every screen has. */
class TestDictMenus : public QObject
{
    Q_OBJECT

private slots:
    void readSettingsAreBuiltOnce_data();
    void readSettingsAreBuiltOnce();
    void readSettingsOpenWithTheMenuKey();
    void readSettingsAreSpoken();
    void voiceLeadsBackToTheTranslation();
    void otherSettingsLeadBackToTheTranslation();
    void translationCanBeReadOrNot();

    void newWordsAreListedNewestFirst();
    void emptyBookIsTold();
    void newWordIsShownAndLeadsBack();
    void scanThatWasOnItsWayTakesTheNewWordsPlace();
    void newWordTakesTheTranslationsPlace();
    void newWordWithoutTranslationIsTold();
    void newWordsWithoutAnEditor();
    void newWordIsReadInTheChosenLanguages();
    void newWordOfAPairThatIsGoneIsSpoken();

    void dictionaryIsTold();
    void anotherDictionaryIsChosenFromThere();
    void withoutDictionariesThatIsTold();

    void placeOnTheTranslateScreen();
    void placeOnTheSelectionScreen();
    void translationIsReadAgain();
    void placeIsSaidAgain();
    void moreSettingsOverATranslation();
    void moreSettingsNotOverTheSelection();
};

void TestDictMenus::readSettingsAreBuiltOnce_data()
{
    QTest::addColumn<bool>("argument");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestDictMenus::readSettingsAreBuiltOnce()
{
    QFETCH(bool, argument);
    DictFixture f;
    f.translate();
    emit f.screen()->signalQuickset(argument);
    QWidget* const menu = f.current();
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionary Read Settings"));
    QCOMPARE(f.entries(), (QStringList{"English voice", "Other settings"}));
    QCOMPARE(f.menu()->geometry(), QRect(0, 0, 256, 64));
    QCOMPARE(f.menu()->getPrevWidget(), static_cast<QWidget*>(f.screen()));
    f.press({Qt::Key_Down, Qt::Key_Escape});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    emit f.screen()->signalQuickset(argument);
    QCOMPARE(f.current(), menu);
    QCOMPARE(f.menu()->getCurIndex(), 0);
    f.settle();
}

void TestDictMenus::readSettingsOpenWithTheMenuKey()
{
    DictFixture f;
    f.translate();
    f.press(Qt::Key_F12);
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionary Read Settings"));
    QVERIFY(FakeIap::stopSignal());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(!FakeIap::stopSignal());
    QVERIFY(g_InDict);
    f.settle();
}

void TestDictMenus::readSettingsAreSpoken()
{
    DictFixture f;
    f.translate();
    f.hush();
    f.press(Qt::Key_F12);
    f.settle();
    QVERIFY(f.lastHeard().startsWith(QStringLiteral("English voice") + pauseTag(500)));
    f.press(Qt::Key_Down);
    f.settle();
    QVERIFY(f.lastHeard().startsWith(QStringLiteral("Other settings") + pauseTag(500)));
    f.press(Qt::Key_Up);
    f.settle();
    QVERIFY(f.lastHeard().startsWith(QStringLiteral("English voice")));
}

void TestDictMenus::voiceLeadsBackToTheTranslation()
{
    DictFixture f;
    f.translate();
    f.press({Qt::Key_F12, Qt::Key_Return});
    QCOMPARE(f.menu()->title(), QStringLiteral("TTS Setting"));
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(ConfigReader::Instance()->getTTSDict(), 1);
    QVERIFY(g_InDict);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("American English")); // nothing speaks before it
    QVERIFY(!FakeIap::stopSignal());
    f.press({Qt::Key_F12, Qt::Key_Return, Qt::Key_Escape});
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionary Read Settings"));
    f.settle();
}

void TestDictMenus::otherSettingsLeadBackToTheTranslation()
{
    DictFixture f;
    f.translate();
    f.press({Qt::Key_F12, Qt::Key_Down, Qt::Key_Return});
    QVERIFY(qobject_cast<TTSConfig*>(f.current()));
    f.press(Qt::Key_Right); // "Read OK" is off
    QCOMPARE(ConfigReader::Instance()->getReadControlDict(), 1);
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(!FakeIap::stopSignal());
    f.settle();
    f.hush();
    f.press(Qt::Key_Right);
    f.settle();
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house")); // there is only one
    QVERIFY(!f.heard().contains(QStringLiteral("Haus")));
}

void TestDictMenus::translationCanBeReadOrNot()
{
    DictFixture f;
    f.translate();
    chooseMore(f, QStringLiteral("Read translation"));
    QCOMPARE(f.entries(), (QStringList{"On", "Off"}));
    QCOMPARE(f.menu()->getCurIndex(), 0);
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(ConfigReader::Instance()->getReadTransDict(), 1);
    f.settle();
    f.hush();
    f.press(Qt::Key_Return);
    f.settle();
    QCOMPARE(f.heard(), QStringList{QStringLiteral("house")});
}

void TestDictMenus::newWordsAreListedNewestFirst()
{
    DictFixture f;
    remember({"one", "two", "three"});
    chooseMore(f, QStringLiteral("New words"));
    QCOMPARE(f.menu()->title(), QStringLiteral("New words"));
    QCOMPARE(f.entries(), (QStringList{"three", "two", "one"}));
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("three")));
    f.settle();
}

void TestDictMenus::emptyBookIsTold()
{
    DictFixture f;
    chooseMore(f, QStringLiteral("New words"));
    QCOMPARE(f.messages.texts(), QStringList{"There are no new words."});
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("There are no new words."));
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
}

void TestDictMenus::newWordIsShownAndLeadsBack()
{
    DictFixture f;
    remember({"one", "two"});
    chooseMore(f, QStringLiteral("New words"));
    QWidget* const list = f.current();
    f.settle();
    f.hush();
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(g_InDict);
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("one"));
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("ONE")));
    f.settle();
    QCOMPARE(f.lastHeard(), QStringLiteral("ONE"));
    QVERIFY(FakeIap::stopSignal()); // nothing is scanned into a remembered word
    QCOMPARE(NewWordManager::Instance()->getSize(), 2);
    QVERIFY(f.records().isEmpty());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), list);
    QVERIFY(!g_InDict);
    f.press({Qt::Key_Escape, Qt::Key_Escape});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!FakeIap::stopSignal());
    f.settle();
}

void TestDictMenus::scanThatWasOnItsWayTakesTheNewWordsPlace()
{
    DictFixture f;
    remember({"one"});
    f.translate();
    chooseMore(f, QStringLiteral("New words"));
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("one"));
    f.settle();
    QVERIFY(FakeIap::stopSignal());
    emit f.window->editor()->signalTransText(QStringLiteral("keeper"));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("keeper"));
    QVERIFY(!FakeIap::stopSignal()); // and the next one is taken
    f.settle();
}

void TestDictMenus::newWordTakesTheTranslationsPlace()
{
    DictFixture f;
    remember({"one"});
    f.translate();
    chooseMore(f, QStringLiteral("New words"));
    f.press({Qt::Key_Down, Qt::Key_Return}); // below "house"
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("one"));
    f.settle();
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!g_InDict);
    QVERIFY(!FakeIap::stopSignal());
    f.settle();
    f.translate(); // and scans are taken again
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1);
}

void TestDictMenus::newWordWithoutTranslationIsTold()
{
    DictFixture f;
    NewWordManager::Instance()->put(QStringLiteral("one"), QString());
    chooseMore(f, QStringLiteral("New words"));
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"There is no translation."});
    QCOMPARE(f.menu()->title(), QStringLiteral("New words"));
    QVERIFY(!g_InDict);
    f.settle();
}

void TestDictMenus::newWordsWithoutAnEditor()
{
    WindowFixture f;
    remember({"one"});
    QWidget* const mainMenu = f.current();
    f.press(Qt::Key_F9);
    for (int i = 0; i < 4; ++i)
        f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    f.press(Qt::Key_Return);
    DictScanEdit* const screen = f.window->translateScreen();
    QCOMPARE(f.current(), static_cast<QWidget*>(screen));
    // Without dictionaries the languages are not known: the menus' voice tells it.
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("one") + pauseTag(500) + QStringLiteral("ONE"));
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    QTRY_VERIFY(!screen->isReading());
    for (int i = 0; i < 3; ++i)
        f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), mainMenu);
    QVERIFY(!g_InDict);
}

void TestDictMenus::newWordIsReadInTheChosenLanguages()
{
    WindowFixture f({}, [] {
        DictFixture::install();
        ConfigReader::Instance()->setLanDict(1); // German - English
        FakeDic::holdInitialize(true);           // it is not open yet
    });
    remember({"eins"});
    f.window->newWords();
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("EINS"));
    QVERIFY(FakeTts::language() != 104);
    FakeDic::holdInitialize(false);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QTRY_VERIFY(!f.window->translateScreen()->isReading());
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
}

void TestDictMenus::newWordOfAPairThatIsGoneIsSpoken()
{
    WindowFixture f({}, [] {
        DictFixture::install();
        ConfigReader::Instance()->setLanDict(7);
    });
    remember({"one"});
    f.window->newWords();
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("one") + pauseTag(500) + QStringLiteral("ONE"));
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    QTRY_VERIFY(!f.window->isOpeningDictionary());
}

void TestDictMenus::dictionaryIsTold()
{
    DictFixture f;
    chooseMore(f, QStringLiteral("Dictionaries"));
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionaries"));
    QCOMPARE(f.entries(),
             (QStringList{"Small", "Source: old prints", "Licence: CC0", "Select dictionary"}));
    f.settle();
    QCOMPARE(f.lastSpoken().section(QStringLiteral("<"), 0, 0), QStringLiteral("Small"));
    f.press(Qt::Key_Down);
    f.settle();
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("Source: old prints")));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
}

void TestDictMenus::anotherDictionaryIsChosenFromThere()
{
    DictFixture f;
    f.translate();
    chooseMore(f, QStringLiteral("Dictionaries"));
    f.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->dictionarySwitch()));
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
    QVERIFY(Translater::Instance()->isOpen(0, 1));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QTRY_VERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Geb\u00e4ude")));
    f.settle();
}

void TestDictMenus::withoutDictionariesThatIsTold()
{
    DictFixture f(QStringLiteral("house"), [] {});
    chooseMore(f, QStringLiteral("Dictionaries"));
    QCOMPARE(f.messages.texts(), QStringList{"No dictionary is installed."});
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
}

void TestDictMenus::placeOnTheTranslateScreen()
{
    DictFixture f;
    f.translate();
    f.press(Qt::Key_F10);
    f.settle();
    QVERIFY2(f.lastSpoken().startsWith(f.screen()->placeText()), qPrintable(f.lastSpoken()));
    QVERIFY(f.lastSpoken().contains(QStringLiteral("house")));
    QVERIFY(f.lastSpoken().endsWith(QStringLiteral("Small")));
}

void TestDictMenus::placeOnTheSelectionScreen()
{
    DictFixture f;
    f.window->selectDicFun();
    f.settle();
    f.press(Qt::Key_F10);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("Select dictionary. English - German. Small"));
    f.press(Qt::Key_Down);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("Large"));
    f.press(Qt::Key_Right);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("German - English. Deutsch"));
}

void TestDictMenus::translationIsReadAgain()
{
    DictFixture f;
    f.translate();
    f.hush();
    f.press(Qt::Key_Space);
    f.settle();
    QCOMPARE(f.heard(), (QStringList{"house", "Haus"}));
}

void TestDictMenus::placeIsSaidAgain()
{
    DictFixture f;
    f.translate();
    f.press(Qt::Key_F10);
    f.settle();
    const QString place = f.lastSpoken();
    f.hush();
    f.press(Qt::Key_Space);
    f.settle();
    QCOMPARE(f.heard(), QStringList{place});
}

void TestDictMenus::moreSettingsOverATranslation()
{
    DictFixture f;
    f.translate();
    f.press(Qt::Key_F9);
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.press(Qt::Key_Return); // "Read delay"
    f.press(Qt::Key_Return); // the one that is chosen
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(g_InDict);
    f.settle();
    f.press(Qt::Key_F9);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictMenus::moreSettingsNotOverTheSelection()
{
    DictFixture f;
    f.window->selectDicFun();
    f.press(Qt::Key_F9);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->dictionarySwitch()));
    f.settle();
}

QTEST_MAIN(TestDictMenus)
#include "tst_dictmenus.moc"
