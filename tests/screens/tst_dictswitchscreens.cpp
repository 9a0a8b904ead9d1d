#include "dict/dictlist.h"
#include "dict/dictswitch.h"
#include "store/languagemanager.h"
#include "tests/fakes/testroot.h"
#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "widgets/messagedialog.h"
#include "widgets/talkinglist.h"

#include <QApplication>
#include <QTimerEvent>
#include <memory>

using Names = QVector<QString>;

/* The choice of a dictionary. */
class TestDictSwitchScreens : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pairs_data();
    void pairs();
    void chineseInterface();
    void longNames();
    void nothingInstalled();
    void languagesThatDiffer();
    void everyPictureIsUsed();

private:
    static void fill(DictSwitch& page);
    static DictList* listOf(DictSwitch& page) { return page.findChild<DictList*>(); }

    std::unique_ptr<TestRoot> m_root;
    Album m_album{QStringLiteral("dictswitch")};
};

void TestDictSwitchScreens::init()
{
    m_root = std::make_unique<TestRoot>();
    LanguageManager::quitFun();
    LanguageManager::Instance()->init();
}

void TestDictSwitchScreens::cleanup()
{
    LanguageManager::quitFun();
    m_root.reset();
}

void TestDictSwitchScreens::fill(DictSwitch& page)
{
    page.addPair(QStringLiteral("English-German"),
                 Names{QStringLiteral("FreeDict"), QStringLiteral("Words of the sea, jgpqy"),
                       QStringLiteral("Small")});
    page.addPair(QStringLiteral("Norwegian-Portuguese"), Names{QStringLiteral("Only one")});
    page.addPair(QStringLiteral("English-Chinese (simplified), for learners"),
                 Names{QStringLiteral("汉英词典"), QStringLiteral("Русский словарь")});
    page.addPair(QStringLiteral("French-German"), Names{});
}

void TestDictSwitchScreens::pairs_data()
{
    QTest::addColumn<int>("pair");
    QTest::addColumn<int>("dict");
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("middle") << 0 << 1;
    QTest::newRow("only-one") << 1 << 0;
    QTest::newRow("long-pair") << 2 << 0;
    QTest::newRow("other-script") << 2 << 1;
    QTest::newRow("none") << 3 << -1;
}

void TestDictSwitchScreens::pairs()
{
    QFETCH(int, pair);
    QFETCH(int, dict);
    DictSwitch page;
    fill(page);
    page.setDictIndex(pair);
    QCOMPARE(page.reloadDictInfoIndex(dict), dict >= 0);
    page.showPage();
    QVERIFY2(m_album.shows(&page, QLatin1String(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestDictSwitchScreens::chineseInterface()
{
    m_root->setSetting(QStringLiteral("SystemSet/Lan"),
                       LanguageManager::Instance()->getIDByLanINT(1));
    DictSwitch page;
    page.addPair(QStringLiteral("英语 - 汉语"),
                 Names{QStringLiteral("牛津高阶"), QStringLiteral("简明英汉词典")});
    page.setDictIndex(0);
    QVERIFY(page.reloadDictInfoIndex(1));
    page.showPage();
    COMPARE_SCREEN(m_album, &page, "chinese-interface");
}

void TestDictSwitchScreens::longNames()
{
    DictSwitch page;
    const QString name = QStringLiteral("The complete dictionary of all the words that there are");
    page.addPair(QStringLiteral("English-German"), Names{name, name});
    DictList* const list = listOf(page);
    list->setAnimated(false);
    page.show();
    COMPARE_SCREEN(m_album, &page, "long-name");
    list->setAnimated(true);
    const auto tick = [list](int times) {
        for (int i = 0; i < times; ++i) {
            QTimerEvent event(list->scrollTimerId());
            QCoreApplication::sendEvent(list, &event);
        }
    };
    tick(slowscroll::RestTicks + 20);
    COMPARE_SCREEN(m_album, &page, "long-name-scrolled");
    tick(105);
    COMPARE_SCREEN(m_album, &page, "long-name-end");
}

void TestDictSwitchScreens::nothingInstalled()
{
    DictSwitch page;
    page.showPage();
    COMPARE_SCREEN(m_album, &page, "nothing-installed");
}

void TestDictSwitchScreens::languagesThatDiffer()
{
    MessageDialog dialog(
        nullptr, DictSwitch::tr("Scan language does not match dictionary source language!"));
    COMPARE_SCREEN(m_album, &dialog, "languages-differ");
}

void TestDictSwitchScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestDictSwitchScreens)
#include "tst_dictswitchscreens.moc"
