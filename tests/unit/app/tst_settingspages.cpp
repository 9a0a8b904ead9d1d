#include "app/mainwindow.h"

#include "engines/csoundthread.h"
#include "engines/cttsthread.h"
#include "engines/speechtext.h"
#include "platform/devicepaths.h"
#include "tests/fakes/fakeiap.h"
#include "tests/shared/windowfixture.h"
#include "widgets/spinitems.h"
#include "widgets/ttsconfig.h"

#include <QSettings>

namespace {

const QString Help = QStringLiteral("Press left or right to change, OK to go back.");
const QString MainMenuHeading = QStringLiteral("Scan to File mode. ");

void settle(WindowFixture& f)
{
    QTRY_VERIFY(!f.spoken().isEmpty() && !f.window->menuSpeech()->isRunning()
                && (!f.window->editor() || !f.window->editor()->soundThread()->isRunning()));
    QCoreApplication::processEvents();
}

TTSConfig* page(const WindowFixture& f)
{
    return qobject_cast<TTSConfig*>(f.current());
}

QList<SpinItems*> rows(const WindowFixture& f)
{
    return page(f)->findChildren<SpinItems*>(Qt::FindDirectChildrenOnly);
}

int storedSetting(const WindowFixture& f, const QString& key)
{
    return QSettings(f.state.root.path(QStringLiteral("/apps/config/config.ini")),
                     QSettings::IniFormat)
        .value(key, -1)
        .toInt();
}

using Open = void (MainWindow::*)();

} // namespace

Q_DECLARE_METATYPE(Open)

/* The pages of reading settings. */
class TestSettingsPages : public QObject
{
    Q_OBJECT

private slots:
    void readingPageHasItsRows();
    void dictionaryPageHasItsRows();
    void rowShowsWhatIsStored_data();
    void rowShowsWhatIsStored();
    void changeIsStoredAndHeard_data();
    void changeIsStoredAndHeard();
    void numberNotOfferedStaysUntilChanged_data();
    void numberNotOfferedStaysUntilChanged();
    void endsOfARowKeepTheSetting();
    void speedAndVolumeAreHeardAtOnce();
    void rowsAreSpoken();
    void escapeReturnsToScanSettings();
    void enterReturnsToScanSettings();
    void enterReturnsToTheEditor();
    void escapeReturnsToTheQuickMenu();
    void pageTellsWhereOneIs();
    void launcherMessagesAreHarmless_data();
    void launcherMessagesAreHarmless();
    void usbUnderAPageSavesAndReopens();
    void stopUnderAPageSaves();
};

void TestSettingsPages::readingPageHasItsRows()
{
    WindowFixture f;
    f.window->newTTS();
    QVERIFY(page(f));
    QStringList labels;
    for (const SpinItems* row : rows(f))
        labels.append(row->getText1().trimmed());
    QCOMPARE(labels, (QStringList{"Reading", "Speed", "Word Pause", "Punc Pause", "Volume"}));
    QCOMPARE(page(f)->geometry(), QRect(0, 0, 256, 64));
    QVERIFY(page(f)->isVisible() && page(f)->hasFocus());
}

void TestSettingsPages::dictionaryPageHasItsRows()
{
    WindowFixture f;
    f.window->newOtherReadingSet();
    QStringList labels;
    for (const SpinItems* row : rows(f))
        labels.append(row->getText1().trimmed());
    QCOMPARE(labels, (QStringList{"Read OK", "Speed", "Volume"}));
}

void TestSettingsPages::rowShowsWhatIsStored_data()
{
    QTest::addColumn<Open>("open");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("shown");
    const Open reading = &MainWindow::newTTS;
    const Open other = &MainWindow::newOtherReadingSet;
    QTest::newRow("reading on") << reading << "InfoScan/ReadControl" << 0 << 0 << "On";
    QTest::newRow("reading off") << reading << "InfoScan/ReadControl" << 0 << 1 << "Off";
    QTest::newRow("speed") << reading << "SystemSet/Speed" << 1 << 10 << "10";
    QTest::newRow("word pause") << reading << "SystemSet/WORDPAUSE" << 2 << 18 << "18";
    QTest::newRow("punctuation pause")
        << reading << "SystemSet/PUNCTUATIONPAUSE" << 3 << 30 << "30";
    QTest::newRow("volume") << reading << "SystemSet/Volum" << 4 << 5 << "5";
    QTest::newRow("volume too high") << reading << "SystemSet/Volum" << 4 << 100 << "5";
    QTest::newRow("speed below zero") << reading << "SystemSet/Speed" << 1 << -2 << "0";
    QTest::newRow("pause between two") << reading << "SystemSet/WORDPAUSE" << 2 << 20 << "18";
    QTest::newRow("dictionary, off") << other << "DictTrans/ReadControl" << 0 << 1 << "Off";
    QTest::newRow("dictionary, speed") << other << "DictTrans/ReadSpeed" << 1 << 3 << "3";
    QTest::newRow("dictionary, volume") << other << "DictTrans/Volum" << 2 << 0 << "0";
}

void TestSettingsPages::rowShowsWhatIsStored()
{
    QFETCH(Open, open);
    QFETCH(QString, key);
    QFETCH(int, row);
    QFETCH(int, stored);
    QFETCH(QString, shown);
    WindowFixture f({}, [&] {
        QSettings(devicePath(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat)
            .setValue(key, stored);
    });
    (f.window.get()->*open)();
    QCOMPARE(rows(f).at(row)->getCurItem(), shown);
    f.press(Qt::Key_Escape);
    QCOMPARE(storedSetting(f, key), stored);
}

void TestSettingsPages::changeIsStoredAndHeard_data()
{
    QTest::addColumn<Open>("open");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("row");
    QTest::addColumn<Qt::Key>("press");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("heard");
    const Open reading = &MainWindow::newTTS;
    const Open other = &MainWindow::newOtherReadingSet;
    QTest::newRow("reading") << reading << "InfoScan/ReadControl" << 0 << Qt::Key_Right << 1
                             << "Off";
    QTest::newRow("speed up") << reading << "SystemSet/Speed" << 1 << Qt::Key_Right << 7 << "7";
    QTest::newRow("speed down") << reading << "SystemSet/Speed" << 1 << Qt::Key_Left << 5 << "5";
    QTest::newRow("word pause") << reading << "SystemSet/WORDPAUSE" << 2 << Qt::Key_Right << 1
                                << "1";
    QTest::newRow("punctuation pause")
        << reading << "SystemSet/PUNCTUATIONPAUSE" << 3 << Qt::Key_Left << 0 << "0";
    QTest::newRow("volume up") << reading << "SystemSet/Volum" << 4 << Qt::Key_Right << 5 << "5";
    QTest::newRow("volume down") << reading << "SystemSet/Volum" << 4 << Qt::Key_Left << 3 << "3";
    QTest::newRow("dictionary, read")
        << other << "DictTrans/ReadControl" << 0 << Qt::Key_Right << 1 << "Off";
    QTest::newRow("dictionary, speed")
        << other << "DictTrans/ReadSpeed" << 1 << Qt::Key_Left << 4 << "4";
    QTest::newRow("dictionary, volume")
        << other << "DictTrans/Volum" << 2 << Qt::Key_Right << 5 << "5";
}

void TestSettingsPages::changeIsStoredAndHeard()
{
    QFETCH(Open, open);
    QFETCH(QString, key);
    QFETCH(int, row);
    QFETCH(Qt::Key, press);
    QFETCH(int, stored);
    QFETCH(QString, heard);
    WindowFixture f;
    (f.window.get()->*open)();
    for (int i = 0; i < row; ++i)
        f.press(Qt::Key_Down);
    settle(f);
    f.press(press);
    QCOMPARE(storedSetting(f, key), stored);
    QTRY_COMPARE(f.lastSpoken(), heard);
    QCOMPARE(rows(f).at(row)->getCurItem(), heard);
}

void TestSettingsPages::numberNotOfferedStaysUntilChanged_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("stored");
    QTest::addColumn<Qt::Key>("press");
    QTest::addColumn<int>("changed");
    QTest::newRow("too high") << "SystemSet/Volum" << 4 << 80 << Qt::Key_Left << 4;
    QTest::newRow("too low") << "SystemSet/Speed" << 1 << -9 << Qt::Key_Right << 1;
    QTest::newRow("between two") << "SystemSet/WORDPAUSE" << 2 << 13 << Qt::Key_Right << 18;
}

void TestSettingsPages::numberNotOfferedStaysUntilChanged()
{
    QFETCH(QString, key);
    QFETCH(int, row);
    QFETCH(int, stored);
    QFETCH(Qt::Key, press);
    QFETCH(int, changed);
    WindowFixture f({}, [&] {
        QSettings(devicePath(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat)
            .setValue(key, stored);
    });
    f.window->newTTS();
    for (int i = 0; i < row; ++i)
        f.press(Qt::Key_Down);
    QCOMPARE(storedSetting(f, key), stored);
    f.press(press);
    QCOMPARE(storedSetting(f, key), changed);
}

void TestSettingsPages::endsOfARowKeepTheSetting()
{
    WindowFixture f({}, [] {
        QSettings(devicePath(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat)
            .setValue(QStringLiteral("SystemSet/Speed"), 10);
    });
    f.window->newTTS();
    f.press(Qt::Key_Down);
    settle(f);
    f.press(Qt::Key_Right);
    QCOMPARE(storedSetting(f, QStringLiteral("SystemSet/Speed")), 10);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("10"));
}

void TestSettingsPages::speedAndVolumeAreHeardAtOnce()
{
    WindowFixture f;
    f.window->newTTS();
    f.press(Qt::Key_Down);
    settle(f);
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_Right);
    QVERIFY(FakeTts::waitUntilSpeaking());
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("7"));
    QCOMPARE(FakeTts::speed(), 56);
    QVERIFY(FakeTts::finish());
    FakeTts::setPace(FakeTts::Pace::Automatic);
    for (int i = 0; i < 3; ++i)
        f.press(Qt::Key_Down);
    settle(f);
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_Left);
    QTRY_VERIFY(FakeTts::isSpeaking() && f.lastSpoken() == QStringLiteral("3"));
    QCOMPARE(FakeTts::volume(), 60);
    QVERIFY(FakeTts::finish());
}

void TestSettingsPages::rowsAreSpoken()
{
    WindowFixture f;
    settle(f);
    f.window->newTTS();
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Reading On") + pauseTag(500) + Help);
    for (const char* text : {"Speed 6", "Word Pause 0", "Punc Pause 1", "Volume 4"}) {
        settle(f);
        f.press(Qt::Key_Down);
        QTRY_COMPARE(f.lastSpoken(), QString::fromLatin1(text));
    }
    settle(f);
    f.press(Qt::Key_Up);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Punc Pause 1"));
}

void TestSettingsPages::escapeReturnsToScanSettings()
{
    WindowFixture f;
    f.window->newSet();
    QWidget* settings = f.current();
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    const QPointer<TTSConfig> opened(page(f));
    QVERIFY(opened);
    settle(f);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), settings);
    QVERIFY(settings->isVisible() && settings->hasFocus());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Reading settings") + pauseTag(500)));
    QTRY_VERIFY(!opened);
}

void TestSettingsPages::enterReturnsToScanSettings()
{
    WindowFixture f;
    f.window->newSet();
    QWidget* settings = f.current();
    f.window->newTTS();
    const QPointer<TTSConfig> opened(page(f));
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), settings);
    QTRY_VERIFY(!opened);
    f.press(Qt::Key_Escape);
    QTRY_VERIFY(f.lastSpoken().startsWith(MainMenuHeading));
}

void TestSettingsPages::enterReturnsToTheEditor()
{
    WindowFixture f;
    f.openNewFile();
    f.press(Qt::Key_F12);
    const QPointer<QWidget> quick(f.current());
    f.window->newTTS();
    const QPointer<TTSConfig> opened(page(f));
    QVERIFY(FakeIap::stopSignal());
    f.press(Qt::Key_Right);
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(f.current()->isVisible() && f.current()->hasFocus());
    QVERIFY(!FakeIap::stopSignal());
    QTRY_VERIFY(!opened && !quick);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Scan or press Menu for options."));
}

void TestSettingsPages::escapeReturnsToTheQuickMenu()
{
    WindowFixture f;
    f.openNewFile();
    f.press(Qt::Key_F12);
    QWidget* quick = f.current();
    f.window->newTTS();
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), quick);
    QVERIFY(FakeIap::stopSignal());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!FakeIap::stopSignal());
}

void TestSettingsPages::pageTellsWhereOneIs()
{
    WindowFixture f;
    f.window->newTTS();
    f.press(Qt::Key_Down);
    settle(f);
    f.press(Qt::Key_F10);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Reading settings. Speed 6. 2 of 5"));
    settle(f);
    f.press(Qt::Key_F9);
    QVERIFY(f.menu());
    f.press(Qt::Key_Escape);
    QVERIFY(page(f));
    QCOMPARE(page(f)->getCurIndex(), 1);
}

void TestSettingsPages::launcherMessagesAreHarmless_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("payload");
    for (const char* word : {"presspoweroff", "plugusb", "save", "savenochujiao", "chujiaostop"})
        QTest::newRow(word) << QStringLiteral("execute(QString)") << QByteArray(word);
    QTest::newRow("USB") << QStringLiteral("USB(QString)") << QByteArray("plug");
}

void TestSettingsPages::launcherMessagesAreHarmless()
{
    QFETCH(QString, message);
    QFETCH(QByteArray, payload);
    WindowFixture f;
    f.window->newTTS();
    TTSConfig* opened = page(f);
    f.window->handleReceived(message, payload);
    QCOMPARE(f.current(), opened);
    if (payload == "plug") {
        QVERIFY(!opened->isEnabled());
        f.window->handleReceived(message, "delete");
    }
    QVERIFY(opened->isEnabled() && opened->hasFocus());
    f.press(Qt::Key_Right);
    QCOMPARE(storedSetting(f, QStringLiteral("InfoScan/ReadControl")), 1);
    f.press(Qt::Key_Escape);
    QVERIFY(f.menu());
}

void TestSettingsPages::usbUnderAPageSavesAndReopens()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("kept"));
    f.press(Qt::Key_F12);
    f.window->newTTS();
    const QPointer<TTSConfig> opened(page(f));
    f.usb("plug");
    QVERIFY(!f.current()->isEnabled());
    f.usb("delete");
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("kept "));
    QTRY_VERIFY(!opened);
}

void TestSettingsPages::stopUnderAPageSaves()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("kept"));
    f.press(Qt::Key_F12);
    f.window->newTTS();
    f.execute("stop");
    QVERIFY(!f.window->isVisible());
    QCOMPARE(f.newFileOnCard().size(), 2 + 2 * 5);
}

QTEST_MAIN(TestSettingsPages)
#include "tst_settingspages.moc"
