#include "store/newwordmanager.h"
#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "tests/shared/dictwindowfixture.h"

/* Dictionary mode: its menus, its messages, and what is seen while one waits. */
class TestDictFlowScreens : public QObject
{
    Q_OBJECT

private slots:
    void readSettings();
    void readTranslation();
    void newWords();
    void aboutTheDictionary();
    void waitingForTheDictionary();
    void recognisingOnTheTranslateScreen();
    void changingTheDictionary();
    void nothingRecognised();
    void messages_data();
    void messages();
    void everyPictureIsUsed();

private:
    Album m_album{QStringLiteral("dictflows")};
};

void TestDictFlowScreens::readSettings()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_F12);
    COMPARE_SCREEN(m_album, f.menu(), "read-settings");
    f.settle();
}

void TestDictFlowScreens::readTranslation()
{
    DictWindowFixture f;
    f.window->newReadTrans();
    COMPARE_SCREEN(m_album, f.menu(), "read-translation");
    f.settle();
}

void TestDictFlowScreens::newWords()
{
    DictWindowFixture f;
    for (const char* word : {"house", "Leuchtturm", "灯塔", "être"})
        NewWordManager::Instance()->put(QString::fromUtf8(word), QStringLiteral("x"));
    f.window->newWords();
    COMPARE_SCREEN(m_album, f.menu(), "new-words");
    f.settle();
}

void TestDictFlowScreens::aboutTheDictionary()
{
    DictWindowFixture f;
    f.window->aboutDictionaries();
    COMPARE_SCREEN(m_album, f.menu(), "dictionaries");
    f.settle();
}

void TestDictFlowScreens::waitingForTheDictionary()
{
    DictWindowFixture f;
    f.usb("plug");
    f.settle();
    FakeDic::holdInitialize(true);
    f.usb("delete");
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    f.putCursorOn(QStringLiteral("house"));
    f.window->transWordFun();
    COMPARE_SCREEN(m_album, f.window.get(), "waiting");
    FakeDic::holdInitialize(false);
    f.settle();
}

void TestDictFlowScreens::recognisingOnTheTranslateScreen()
{
    DictWindowFixture f;
    f.translate();
    swipeAndHold(u"later");
    COMPARE_SCREEN(m_album, f.window.get(), "recognising");
    FakeOcr::release();
    f.settle();
}

void TestDictFlowScreens::changingTheDictionary()
{
    DictWindowFixture f;
    f.window->selectDicFun();
    FakeDic::holdInitialize(true);
    f.window->changeDict(0, 1, 1);
    COMPARE_SCREEN(m_album, f.window.get(), "changing");
    FakeDic::holdInitialize(false);
    f.settle();
}

void TestDictFlowScreens::nothingRecognised()
{
    DictWindowFixture f;
    f.translate();
    swipeOver(u"");
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Nothing recognised."));
    COMPARE_SCREEN(m_album, f.screen(), "nothing-recognised");
    f.settle();
}

void TestDictFlowScreens::messages_data()
{
    QTest::addColumn<QString>("message");
    QTest::newRow("no-word") << QStringLiteral("word is null");
    QTest::newRow("none-installed") << QStringLiteral("No dictionary is installed.");
    QTest::newRow("not-opened") << QStringLiteral(
        "The dictionary cannot be opened. Please select another one.");
    QTest::newRow("no-new-words") << QStringLiteral("There are no new words.");
}

void TestDictFlowScreens::messages()
{
    QFETCH(QString, message);
    MessageDialog dialog(nullptr, message);
    QVERIFY2(m_album.shows(&dialog, QLatin1String("message-") + QTest::currentDataTag()),
             qPrintable(m_album.problem()));
}

void TestDictFlowScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestDictFlowScreens)
#include "tst_dictflowscreens.moc"
