#include "app/mainwindow.h"
#include "engines/flags.h"
#include "engines/speechtext.h"
#include "store/newwordmanager.h"
#include "tests/shared/dictwindowfixture.h"
#include "tests/shared/testobjects.h"

namespace {

void remember(const QStringList& words)
{
    for (const QString& word : words)
        NewWordManager::Instance()->put(word, word.toUpper());
}

} // namespace

/* The book of new words, as it is listed, shown and read. */
class TestDictMenusWords : public QObject
{
    Q_OBJECT

private slots:
    void newWordsAreListedNewestFirst();
    void emptyBookIsTold();
    void newWordIsShownAndLeadsBack();
    void scanThatWasOnItsWayTakesTheNewWordsPlace();
    void newWordTakesTheTranslationsPlace();
    void newWordWithoutTranslationIsTold();
    void newWordsWithoutAnEditor();
    void newWordIsReadInTheChosenLanguages();
    void newWordOfAPairThatIsGoneIsSpoken();
};

void TestDictMenusWords::newWordsAreListedNewestFirst()
{
    DictWindowFixture f;
    remember({"one", "two", "three"});
    f.chooseMore(QStringLiteral("New words"));
    QCOMPARE(f.menu()->title(), QStringLiteral("New words"));
    QCOMPARE(f.entries(), (QStringList{"three", "two", "one"}));
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("three")));
    f.settle();
}

void TestDictMenusWords::emptyBookIsTold()
{
    DictWindowFixture f;
    f.chooseMore(QStringLiteral("New words"));
    QCOMPARE(f.messages.texts(), QStringList{"There are no new words."});
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("There are no new words."));
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
}

void TestDictMenusWords::newWordIsShownAndLeadsBack()
{
    DictWindowFixture f;
    remember({"one", "two"});
    f.chooseMore(QStringLiteral("New words"));
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

void TestDictMenusWords::scanThatWasOnItsWayTakesTheNewWordsPlace()
{
    DictWindowFixture f;
    remember({"one"});
    f.translate();
    f.chooseMore(QStringLiteral("New words"));
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("one"));
    f.settle();
    QVERIFY(FakeIap::stopSignal());
    emit f.window->editor()->signalTransText(QStringLiteral("keeper"));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("keeper"));
    QVERIFY(!FakeIap::stopSignal()); // and the next one is taken
    f.settle();
}

void TestDictMenusWords::newWordTakesTheTranslationsPlace()
{
    DictWindowFixture f;
    remember({"one"});
    f.translate();
    f.chooseMore(QStringLiteral("New words"));
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

void TestDictMenusWords::newWordWithoutTranslationIsTold()
{
    DictWindowFixture f;
    NewWordManager::Instance()->put(QStringLiteral("one"), QString());
    f.chooseMore(QStringLiteral("New words"));
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"There is no translation."});
    QCOMPARE(f.menu()->title(), QStringLiteral("New words"));
    QVERIFY(!g_InDict);
    f.settle();
}

void TestDictMenusWords::newWordsWithoutAnEditor()
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

void TestDictMenusWords::newWordIsReadInTheChosenLanguages()
{
    WindowFixture f({}, [] {
        DictWindowFixture::install();
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

void TestDictMenusWords::newWordOfAPairThatIsGoneIsSpoken()
{
    WindowFixture f({}, [] {
        DictWindowFixture::install();
        ConfigReader::Instance()->setLanDict(7);
    });
    remember({"one"});
    f.window->newWords();
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("one") + pauseTag(500) + QStringLiteral("ONE"));
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    QTRY_VERIFY(!f.window->isOpeningDictionary());
}

TEST_OBJECT(TestDictMenusWords)
#include "tst_dictmenus_words.moc"
