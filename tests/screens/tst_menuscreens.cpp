#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "widgets/mysubmenu.h"
#include "widgets/sandglass.h"

#include <QApplication>
#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QMovie>
#include <QTemporaryDir>
#include <QTimerEvent>

/* The talking list menus. */
class TestMenuScreens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fiveEntries_data();
    void fiveEntries();
    void fourEntriesScrolledUpAgain();
    void threeEntries();
    void noEntries();
    void longEntryAtRest();
    void longEntryScrolled();
    void longEntryScrolledToItsEnd();
    void longEntryWithoutAnimation();
    void chineseEntries();
    void russianEntries();
    void fileNamesArePlainText();
    void secondTexts();
    void numberLabel();
    void longTitleAndManyEntries();
    void sandGlass();
    void sandGlassWithoutItsFile();
    void everyPictureIsUsed();

private:
    Album m_album{QStringLiteral("menus")};
    QTemporaryDir m_root;
};

namespace {

const QString MainTitle = QStringLiteral("Scan to file");
const QStringList MainEntries{QStringLiteral("New file"), QStringLiteral("Open file"),
                              QStringLiteral("Delete file"), QStringLiteral("Scan settings")};
const QString LongEntry = QStringLiteral("Continue scan Shopping list for the weekend");

class Menu : public MySubMenu
{
public:
    Menu(const QString& menuTitle, const QStringList& entries) : MySubMenu(menuTitle)
    {
        for (const QString& entry : entries)
            addAction(entry);
        show();
    }

    void tick(int times)
    {
        for (int i = 0; i < times; ++i) {
            QTimerEvent event(scrollTimerId());
            QCoreApplication::sendEvent(this, &event);
        }
    }
};

QStringList withContinue(const QString& name)
{
    return QStringList{QStringLiteral("Continue scan ") + name} + MainEntries;
}

void placeSandGlass(SandGlass& glass)
{
    glass.setGeometry(QRect(QPoint(100, 10), QPoint(132, 42)));
    if (QMovie* const movie = glass.findChild<QLabel*>(QStringLiteral("label"))->movie()) {
        movie->stop();
        movie->jumpToFrame(2);
    }
    glass.show();
}

} // namespace

void TestMenuScreens::initTestCase()
{
    QVERIFY(m_root.isValid());
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_root.path()));
    const QString res = m_root.filePath(QStringLiteral("apps/res"));
    QVERIFY(QDir().mkpath(res));
    QVERIFY(QFile::copy(QStringLiteral(SWIPELINE_SOURCE_DIR "/device/apps/res/sandglass.gif"),
                        res + QStringLiteral("/sandglass.gif")));
}

void TestMenuScreens::fiveEntries_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("five-first") << 0;
    QTest::newRow("five-second") << 1;
    QTest::newRow("five-third") << 2;
    QTest::newRow("five-fourth") << 3;
    QTest::newRow("five-last") << 4;
}

void TestMenuScreens::fiveEntries()
{
    QFETCH(int, index);
    Menu menu(MainTitle, withContinue(QStringLiteral("001")));
    QVERIFY(menu.setCurIndex(index));
    QVERIFY2(m_album.shows(&menu, QLatin1String(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestMenuScreens::fourEntriesScrolledUpAgain()
{
    Menu menu(MainTitle, MainEntries);
    QCOMPARE(QFontMetrics(menu.font()).height(), 16);
    COMPARE_SCREEN(m_album, &menu, "four-first");
    QVERIFY(menu.setCurIndex(3));
    COMPARE_SCREEN(m_album, &menu, "four-last");
    QVERIFY(menu.setCurIndex(1));
    COMPARE_SCREEN(m_album, &menu, "four-second-from-below");
}

void TestMenuScreens::threeEntries()
{
    Menu menu(QStringLiteral("Reading"),
              {QStringLiteral("On"), QStringLiteral("Off"), QStringLiteral("Ask every time")});
    QVERIFY(menu.setCurIndex(1));
    COMPARE_SCREEN(m_album, &menu, "three");
}

void TestMenuScreens::noEntries()
{
    Menu menu(QStringLiteral("Open file"), {});
    COMPARE_SCREEN(m_album, &menu, "empty");
}

void TestMenuScreens::longEntryAtRest()
{
    Menu menu(MainTitle, QStringList{LongEntry} + MainEntries);
    menu.tick(slowscroll::RestTicks - 1);
    COMPARE_SCREEN(m_album, &menu, "long-at-rest");
    QVERIFY(menu.setCurIndex(1));
    COMPARE_SCREEN(m_album, &menu, "long-not-current");
}

void TestMenuScreens::longEntryScrolled()
{
    Menu menu(MainTitle, QStringList{LongEntry} + MainEntries);
    menu.tick(slowscroll::RestTicks + 9);
    COMPARE_SCREEN(m_album, &menu, "long-scrolled");
}

void TestMenuScreens::longEntryScrolledToItsEnd()
{
    Menu menu(MainTitle, QStringList{LongEntry} + MainEntries);
    menu.tick(slowscroll::RestTicks + 60);
    COMPARE_SCREEN(m_album, &menu, "long-end");
}

void TestMenuScreens::longEntryWithoutAnimation()
{
    Menu menu(MainTitle, QStringList{LongEntry} + MainEntries);
    menu.setProperty("animated", false);
    QCOMPARE(menu.scrollTimerId(), -1);
    COMPARE_SCREEN(m_album, &menu, "long-still");
}

void TestMenuScreens::chineseEntries()
{
    Menu menu(QStringLiteral("扫描到文件"),
              {QStringLiteral("继续扫描 001"), QStringLiteral("新建文件"),
               QStringLiteral("打开文件"), QStringLiteral("删除文件"), QStringLiteral("扫描设置")});
    QVERIFY(menu.setCurIndex(1));
    COMPARE_SCREEN(m_album, &menu, "chinese");
}

void TestMenuScreens::russianEntries()
{
    Menu menu(QStringLiteral("Сканирование в файл"),
              {QStringLiteral("Новый файл"), QStringLiteral("Открыть файл"),
               QStringLiteral("Удалить файл"), QStringLiteral("Настройки")});
    QVERIFY(menu.setCurIndex(2));
    COMPARE_SCREEN(m_album, &menu, "russian");
}

void TestMenuScreens::fileNamesArePlainText()
{
    Menu menu(QStringLiteral("Open file"),
              {QStringLiteral("R&D  [<b>Budget</b> & plan]"), QStringLiteral("a\tb  [tab]"),
               QStringLiteral("%1  [100 %]")});
    COMPARE_SCREEN(m_album, &menu, "plain-text");
}

void TestMenuScreens::secondTexts()
{
    Menu menu(QStringLiteral("Reading settings"),
              {QStringLiteral("Reading"), QStringLiteral("Speed"),
               QStringLiteral("A first text that needs its room")});
    const QList<QAction*> actions = menu.actions();
    actions.at(0)->setStatusTip(QStringLiteral("On"));
    actions.at(1)->setStatusTip(QStringLiteral("6"));
    actions.at(2)->setStatusTip(QStringLiteral("a second text, long too"));
    menu.SetShowSecondText(true);
    QVERIFY(menu.setCurIndex(1));
    COMPARE_SCREEN(m_album, &menu, "second-text");
}

void TestMenuScreens::numberLabel()
{
    Menu menu(MainTitle, MainEntries);
    menu.setNumLabel(QStringLiteral("[7]"));
    COMPARE_SCREEN(m_album, &menu, "number-label");
}

void TestMenuScreens::longTitleAndManyEntries()
{
    QStringList entries;
    for (int i = 1; i <= 1000; ++i)
        entries.append(QStringLiteral("Entry %1").arg(i));
    Menu menu(QStringLiteral("A title much too long for the first line"), entries);
    QVERIFY(menu.setCurIndex(999));
    COMPARE_SCREEN(m_album, &menu, "thousand");
}

void TestMenuScreens::sandGlass()
{
    Menu menu(MainTitle, MainEntries);
    SandGlass glass(&menu);
    placeSandGlass(glass);
    COMPARE_SCREEN(m_album, &menu, "sandglass");
}

void TestMenuScreens::sandGlassWithoutItsFile()
{
    Menu menu(MainTitle, MainEntries);
    const QTemporaryDir empty;
    qputenv("SWIPELINE_ROOT", QFile::encodeName(empty.path()));
    SandGlass glass(&menu);
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_root.path()));
    placeSandGlass(glass);
    COMPARE_SCREEN(m_album, &menu, "sandglass-standing");
}

void TestMenuScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestMenuScreens)
#include "tst_menuscreens.moc"
