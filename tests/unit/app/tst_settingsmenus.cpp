#include "app/mainwindow.h"

#include "engines/cttsthread.h"
#include "engines/speechtext.h"
#include "platform/devicepaths.h"
#include "tests/shared/windowfixture.h"
#include "widgets/sandglass.h"

#include <QSettings>

namespace {

const QString Pause = pauseTag(500);
const QString FirstHelp = QStringLiteral("Press OK to select, or down for other options.");

struct Case
{
    void (MainWindow::*open)();
    QString title;
    QStringList entries;
    QString key;
};

void settle(WindowFixture& f)
{
    QTRY_VERIFY(!f.spoken().isEmpty() && !f.window->menuSpeech()->isRunning());
}

int storedSetting(const WindowFixture& f, const QString& key)
{
    return QSettings(f.state.root.path(QStringLiteral("/apps/config/config.ini")),
                     QSettings::IniFormat)
        .value(key, -1)
        .toInt();
}

Case caseOf(const QString& name)
{
    if (name == QLatin1String("delay"))
        return {&MainWindow::delaySet, "Read delay", {"none", "1s", "2s", "3s"}, "SystemSet/Delay"};
    if (name == QLatin1String("voice"))
        return {&MainWindow::newTTSSet,
                "TTS Setting",
                {"British English", "American English"},
                "SystemSet/TTS"};
    if (name == QLatin1String("direction"))
        return {&MainWindow::newDic,
                "Scan Direction",
                {"Horizontal Text Scan", "Vertical Text Scan"},
                "InfoScan/ScanDirect"};
    return {&MainWindow::newLanguage,
            "Scan languages",
            {"Deutsch", "English", "Español", "Français", "Русский", "中文"},
            "SystemSet/scanLan"};
}

} // namespace

/* The menus of settings, opened from the main menu. */
class TestSettingsMenus : public QObject
{
    Q_OBJECT

private slots:
    void scanSettingsLeadFurther();
    void escapeEndsAMenu();
    void menuShowsWhatIsStored_data();
    void menuShowsWhatIsStored();
    void everyItemIsSpoken_data();
    void everyItemIsSpoken();
    void choiceIsStoredAndHeard_data();
    void choiceIsStoredAndHeard();
    void unchangedChoiceChangesNothing_data();
    void unchangedChoiceChangesNothing();
    void voiceIsHeardAtOnce();
    void languageIsSetUpInTheBackground();
    void ofTwoLanguagesTheLastIsSetUp();
    void languageFromScanSettingsReturnsThere();
    void languageTableMayBeEmpty();
    void languageOutsideTheTableShowsTheFirst();
    void launcherMessagesAreHarmless_data();
    void launcherMessagesAreHarmless();
    void launcherMayStopInAnyMenu_data();
    void launcherMayStopInAnyMenu();
};

void TestSettingsMenus::scanSettingsLeadFurther()
{
    WindowFixture f;
    settle(f);
    f.window->newSet();
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan settings"));
    QCOMPARE(f.entries(), (QStringList{"Scan languages", "Reading settings"}));
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Scan languages") + Pause + FirstHelp);
    f.press(Qt::Key_Return);
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan languages"));
}

void TestSettingsMenus::escapeEndsAMenu()
{
    WindowFixture f;
    QWidget* mainMenu = f.current();
    f.window->newSet();
    const QPointer<MySubMenu> settings(f.menu());
    QCOMPARE(settings->parent(), f.window.get());
    f.press(Qt::Key_Return);
    const QPointer<MySubMenu> languages(f.menu());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), settings);
    QTRY_VERIFY(!languages);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), mainMenu);
    QVERIFY(mainMenu->isVisible() && mainMenu->isEnabled() && mainMenu->hasFocus());
    QTRY_VERIFY(!settings);
}

void TestSettingsMenus::menuShowsWhatIsStored_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("place");
    QTest::newRow("delay none") << "delay" << 0 << 0;
    QTest::newRow("delay 3s") << "delay" << 3 << 3;
    QTest::newRow("delay out of range") << "delay" << 60 << 3;
    QTest::newRow("delay negative") << "delay" << -5 << 0;
    QTest::newRow("voice British") << "voice" << 0 << 0;
    QTest::newRow("voice American") << "voice" << 1 << 1;
    QTest::newRow("voice not offered") << "voice" << 4 << 1;
    QTest::newRow("direction across") << "direction" << 0 << 0;
    QTest::newRow("direction down") << "direction" << 1 << 1;
    QTest::newRow("language English") << "language" << 0 << 1;
    QTest::newRow("language German") << "language" << 2 << 0;
    QTest::newRow("language Chinese") << "language" << 5 << 5;
}

void TestSettingsMenus::menuShowsWhatIsStored()
{
    QFETCH(QString, menu);
    QFETCH(int, stored);
    QFETCH(int, place);
    const Case c = caseOf(menu);
    WindowFixture f;
    f.state.root.setSetting(c.key, stored);
    f.window.reset();
    f.state.singletonsAreGone();
    f.state.load();
    f.window = std::make_unique<MainWindow>();
    f.window->show();
    (f.window.get()->*c.open)();
    QCOMPARE(f.menu()->title(), c.title);
    QCOMPARE(f.entries(), c.entries);
    QCOMPARE(f.menu()->getCurIndex(), place);
    f.press(Qt::Key_Escape);
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(storedSetting(f, c.key), stored);
}

void TestSettingsMenus::everyItemIsSpoken_data()
{
    QTest::addColumn<QString>("menu");
    for (const char* menu : {"delay", "voice", "direction", "language"})
        QTest::newRow(menu) << QString::fromLatin1(menu);
}

void TestSettingsMenus::everyItemIsSpoken()
{
    QFETCH(QString, menu);
    const Case c = caseOf(menu);
    WindowFixture f;
    settle(f);
    (f.window.get()->*c.open)();
    while (f.menu()->getCurIndex() > 0)
        f.press(Qt::Key_Up);
    for (const QString& entry : c.entries) {
        QTRY_VERIFY(f.lastSpoken().startsWith(entry + Pause + "Press OK to select, or "));
        settle(f);
        f.press(Qt::Key_Down);
    }
}

void TestSettingsMenus::choiceIsStoredAndHeard_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<int>("downs");
    QTest::addColumn<Qt::Key>("leave");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("heard");
    QTest::newRow("delay, OK") << "delay" << 2 << Qt::Key_Return << 2 << "2s";
    QTest::newRow("delay, Escape") << "delay" << 3 << Qt::Key_Escape << 3 << "3s";
    QTest::newRow("voice, OK") << "voice" << 1 << Qt::Key_Return << 1 << "American English";
    QTest::newRow("voice, Escape") << "voice" << 1 << Qt::Key_Escape << 1 << "American English";
    QTest::newRow("direction, OK")
        << "direction" << 1 << Qt::Key_Return << 1 << "Vertical Text Scan";
    QTest::newRow("direction, Escape")
        << "direction" << 1 << Qt::Key_Escape << 1 << "Vertical Text Scan";
    QTest::newRow("language, OK") << "language" << 2 << Qt::Key_Return << 1 << "Français";
    QTest::newRow("language, Escape") << "language" << 1 << Qt::Key_Escape << 3 << "Español";
}

void TestSettingsMenus::choiceIsStoredAndHeard()
{
    QFETCH(QString, menu);
    QFETCH(int, downs);
    QFETCH(Qt::Key, leave);
    QFETCH(int, stored);
    QFETCH(QString, heard);
    const Case c = caseOf(menu);
    WindowFixture f;
    settle(f);
    QWidget* before = f.current();
    (f.window.get()->*c.open)();
    for (int i = 0; i < downs; ++i)
        f.press(Qt::Key_Down);
    f.press(leave);
    QCOMPARE(f.current(), before);
    QTRY_COMPARE(storedSetting(f, c.key), stored);
    QTRY_VERIFY(f.lastSpoken().startsWith(heard + Pause + "Scan to File mode. "));
}

void TestSettingsMenus::unchangedChoiceChangesNothing_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<Qt::Key>("leave");
    for (const char* menu : {"delay", "voice", "direction", "language"}) {
        QTest::addRow("%s, OK", menu) << QString::fromLatin1(menu) << Qt::Key_Return;
        QTest::addRow("%s, Escape", menu) << QString::fromLatin1(menu) << Qt::Key_Escape;
    }
}

void TestSettingsMenus::unchangedChoiceChangesNothing()
{
    QFETCH(QString, menu);
    QFETCH(Qt::Key, leave);
    const Case c = caseOf(menu);
    WindowFixture f;
    settle(f);
    const QByteArray file = f.state.root.read(QStringLiteral("/apps/config/config.ini"));
    (f.window.get()->*c.open)();
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Up);
    settle(f);
    f.press(leave);
    QVERIFY(!f.window->findChild<SandGlass*>());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Scan to File mode. ")));
    f.window.reset();
    f.state.singletonsAreGone();
    QCOMPARE(f.state.root.read(QStringLiteral("/apps/config/config.ini")), file);
}

void TestSettingsMenus::voiceIsHeardAtOnce()
{
    WindowFixture f;
    settle(f);
    QCOMPARE(FakeTts::language(), 200);
    f.window->newTTSSet();
    settle(f);
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("American English")));
    QCOMPARE(FakeTts::language(), 201);
}

void TestSettingsMenus::languageIsSetUpInTheBackground()
{
    WindowFixture f;
    settle(f);
    f.window->newLanguage();
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    auto* busy = f.window->findChild<SandGlass*>(); // until the worker's end has been heard
    QVERIFY(busy && busy->isVisible());
    QCOMPARE(busy->geometry(), QRect(QPoint(100, 10), QPoint(132, 42)));
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(ConfigReader::Instance()->getLanInfo(), 3);
}

void TestSettingsMenus::ofTwoLanguagesTheLastIsSetUp()
{
    WindowFixture f;
    settle(f);
    f.window->scanLanChange(3, QString());
    f.window->scanLanChange(5, QString());
    f.window->newLanguage();
    QCOMPARE(f.menu()->getCurIndex(), 5); // the one that is being set up
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(ConfigReader::Instance()->getLanInfo(), 5);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("中文") + Pause + "中文" + Pause));
    QVERIFY(!f.spoken().join(u' ').contains(QStringLiteral("Français")));
}

void TestSettingsMenus::languageFromScanSettingsReturnsThere()
{
    WindowFixture f;
    settle(f);
    f.window->newSet();
    QWidget* settings = f.current();
    f.press(Qt::Key_Return);
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), settings);
    QTRY_VERIFY(
        f.lastSpoken().startsWith(QStringLiteral("Español") + Pause + "Scan languages" + Pause));
}

void TestSettingsMenus::languageTableMayBeEmpty()
{
    WindowFixture f({}, [] {
        QFile table(devicePath(QStringLiteral("/apps/config/scanlanguage.cfg")));
        QVERIFY(table.open(QIODevice::WriteOnly | QIODevice::Truncate));
    });
    QWidget* before = f.current();
    f.window->newLanguage();
    QCOMPARE(f.entries(), QStringList());
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), before);
    QVERIFY(!f.window->findChild<SandGlass*>());
}

void TestSettingsMenus::languageOutsideTheTableShowsTheFirst()
{
    WindowFixture f;
    ConfigReader::Instance()->setLanInfo(77);
    f.window->newLanguage();
    QCOMPARE(f.menu()->getCurIndex(), 0);
    f.press(Qt::Key_Escape);
    QCOMPARE(ConfigReader::Instance()->getLanInfo(), 77);
}

void TestSettingsMenus::launcherMessagesAreHarmless_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("payload");
    const QString execute = QStringLiteral("execute(QString)");
    for (const char* menu : {"delay", "voice", "direction", "language"}) {
        for (const char* word :
             {"presspoweroff", "plugusb", "save", "savenochujiao", "chujiaostop"})
            QTest::addRow("%s, %s", menu, word)
                << QString::fromLatin1(menu) << execute << QByteArray(word);
        QTest::addRow("%s, USB", menu)
            << QString::fromLatin1(menu) << QStringLiteral("USB(QString)") << QByteArray("plug");
    }
}

void TestSettingsMenus::launcherMessagesAreHarmless()
{
    QFETCH(QString, menu);
    QFETCH(QString, message);
    QFETCH(QByteArray, payload);
    const Case c = caseOf(menu);
    WindowFixture f;
    settle(f);
    QWidget* mainMenu = f.current();
    (f.window.get()->*c.open)();
    QWidget* opened = f.current();
    f.window->handleReceived(message, payload);
    QCOMPARE(f.current(), opened);
    if (payload == "plug") {
        QVERIFY(!opened->isEnabled());
        QTest::keyClick(opened, Qt::Key_Down);
        QCOMPARE(f.current(), opened);
        f.window->handleReceived(message, "delete");
    }
    QVERIFY(opened->isEnabled() && opened->isVisible() && opened->hasFocus());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), mainMenu);
}

void TestSettingsMenus::launcherMayStopInAnyMenu_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QByteArray>("payload");
    for (const char* menu : {"delay", "voice", "direction", "language"}) {
        QTest::addRow("%s, stop", menu) << QString::fromLatin1(menu) << QByteArray("stop");
        QTest::addRow("%s, stoponly", menu) << QString::fromLatin1(menu) << QByteArray("stoponly");
    }
}

void TestSettingsMenus::launcherMayStopInAnyMenu()
{
    QFETCH(QString, menu);
    QFETCH(QByteArray, payload);
    WindowFixture f;
    (f.window.get()->*caseOf(menu).open)();
    f.execute(payload);
    QVERIFY(!f.window->isVisible());
    QCOMPARE(f.launcher.waitFor(QStringLiteral("execute(QString) soundno")), true);
    const QString left = QStringLiteral("ESC(QString) escpressed");
    if (payload == "stoponly")
        QVERIFY(f.launcher.waitFor(left));
    else
        QVERIFY(!f.launcher.messages().contains(left));
}

QTEST_MAIN(TestSettingsMenus)
#include "tst_settingsmenus.moc"
