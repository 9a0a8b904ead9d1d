#include "app/mainwindow.h"

#include "editor/myedit.h"
#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "tests/shared/windowfixture.h"

#include <QApplication>

using Keys = QList<Qt::Key>;

/* The settings menus and pages, as they open and as the user goes through them. */
class TestSettingsScreens : public QObject
{
    Q_OBJECT

private slots:
    void fromTheMainMenu_data();
    void fromTheMainMenu();
    void fromTheEditor_data();
    void fromTheEditor();
    void dictionaryPage();
    void everyPictureIsUsed();

private:
    Album m_album{QStringLiteral("settings")};
};

namespace {

constexpr auto Up = Qt::Key_Up;
constexpr auto Down = Qt::Key_Down;
constexpr auto Left = Qt::Key_Left;
constexpr auto Right = Qt::Key_Right;
constexpr auto OK = Qt::Key_Return;
constexpr auto F9 = Qt::Key_F9;
constexpr auto F12 = Qt::Key_F12;

} // namespace

void TestSettingsScreens::fromTheMainMenu_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::newRow("scan-settings-first") << Keys{Down, Down, Down, OK};
    QTest::newRow("scan-settings-last") << Keys{Down, Down, Down, OK, Down};
    QTest::newRow("languages-stored") << Keys{Down, Down, Down, OK, OK};
    QTest::newRow("languages-first") << Keys{Down, Down, Down, OK, OK, Up};
    QTest::newRow("languages-middle") << Keys{Down, Down, Down, OK, OK, Down, Down};
    QTest::newRow("languages-last") << Keys{Down, Down, Down, OK, OK, Down, Down, Down, Down};
    QTest::newRow("more-first") << Keys{F9};
    QTest::newRow("more-middle") << Keys{F9, Down, Down, Down};
    QTest::newRow("more-last") << Keys{F9, Down, Down, Down, Down, Down};
    QTest::newRow("delay-first") << Keys{F9, OK};
    QTest::newRow("delay-middle") << Keys{F9, OK, Down, Down};
    QTest::newRow("delay-last") << Keys{F9, OK, Down, Down, Down};
    QTest::newRow("voice-first") << Keys{F9, Down, OK};
    QTest::newRow("voice-last") << Keys{F9, Down, OK, Down};
    QTest::newRow("direction-first") << Keys{F9, Down, Down, OK};
    QTest::newRow("direction-last") << Keys{F9, Down, Down, OK, Down};
    const Keys reading{Down, Down, Down, OK, Down, OK};
    QTest::newRow("reading") << reading;
    QTest::newRow("reading-off") << reading + Keys{Right};
    QTest::newRow("reading-speed") << reading + Keys{Down, Right};
    QTest::newRow("reading-word-pause") << reading + Keys{Down, Down, Right, Right};
    QTest::newRow("reading-punctuation-pause") << reading + Keys{Down, Down, Down};
    QTest::newRow("reading-longest-pause") << reading + Keys{Down, Down, Down} + Keys(20, Right);
    QTest::newRow("reading-volume") << reading + Keys{Down, Down, Down, Down};
    QTest::newRow("reading-silent") << reading + Keys{Down, Down, Down, Down} + Keys(5, Left);
}

void TestSettingsScreens::fromTheMainMenu()
{
    QFETCH(Keys, keys);
    WindowFixture f;
    for (const Qt::Key key : keys)
        f.press(key);
    QVERIFY2(m_album.shows(f.current(), QLatin1String(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestSettingsScreens::fromTheEditor_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::newRow("quick-first") << Keys{F12};
    QTest::newRow("quick-middle") << Keys{F12, Down, Down, Down};
    QTest::newRow("quick-last") << Keys{F12, Down, Down, Down, Down, Down};
}

void TestSettingsScreens::fromTheEditor()
{
    QFETCH(Keys, keys);
    WindowFixture f;
    f.window->newFile();
    QTRY_COMPARE(f.current(), f.window->editor());
    for (const Qt::Key key : keys)
        f.press(key);
    QVERIFY2(m_album.shows(f.current(), QLatin1String(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestSettingsScreens::dictionaryPage()
{
    WindowFixture f;
    f.window->newOtherReadingSet();
    COMPARE_SCREEN(m_album, f.current(), "dictionary");
}

void TestSettingsScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestSettingsScreens)
#include "tst_settingsscreens.moc"
