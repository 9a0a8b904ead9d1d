#include "app/mainwindow.h"

#include "engines/csoundthread.h"
#include "engines/cttsthread.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeoled.h"
#include "tests/shared/launcherrows.h"
#include "tests/shared/swipes.h"
#include "tests/shared/windowfixture.h"
#include "widgets/sandglass.h"

#include <QDir>
#include <QTimer>

namespace {

const QString Execute = QStringLiteral("execute(QString)");
const QString Usb = QStringLiteral("USB(QString)");

/* Whether the launcher had been told that the user leaves when the window was closed. */
class CloseWatcher : public QObject
{
public:
    explicit CloseWatcher(WindowFixture& f) : m_f(f) { f.window->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Close)
            toldBefore = m_f.launcher.waitFor(QStringLiteral("ESC(QString) escpressed"));
        return false;
    }

    bool toldBefore = false;

private:
    WindowFixture& m_f;
};

} // namespace

class TestLauncherMessages : public QObject
{
    Q_OBJECT

private slots:
    void powerAndUsbSilenceEverything_data();
    void powerAndUsbSilenceEverything();
    void powerSilencesAScanThatWaitsForItsDelay();
    void stopSavesAndCloses();
    void stopOnlyTellsAndCloses();
    void saveKeepsRunning();
    void saveWithoutFileOnlySilences();
    void saveWithoutTipLeavesTheEngineAlone();
    void stopSignalIsCleared();
    void usbFreezesAndReopens();
    void usbBringsBackATextThatTheCardRefused();
    void usbKeepsATextThatCannotBeSaved();
    void usbReopensNoFileThatWasNotOpen();
    void usbEndWithoutBeginReopensNothing();
    void usbEndSaidTwiceLosesNothing();
    void usbEndWhileSavingIsNotForgotten();
    void wordsBelongToTheirMessage_data();
    void wordsBelongToTheirMessage();
    void messagesComeOverTheChannel();
};

void TestLauncherMessages::powerAndUsbSilenceEverything_data()
{
    launcherrows::addSilencing();
}

void TestLauncherMessages::powerAndUsbSilenceEverything()
{
    QFETCH(QByteArray, word);
    WindowFixture f;
    f.openNewFile(QStringLiteral("one two"));
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->editor()->gotoBeginEdit();
    f.press(Qt::Key_Return);
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.execute(word);
    QVERIFY(FakeTts::waitUntilSilent());
    QTRY_VERIFY(!f.window->editor()->soundThread()->isRunning());
    QVERIFY(f.window->isVisible());
    QCOMPARE(f.current(), f.window->editor());
}

void TestLauncherMessages::powerSilencesAScanThatWaitsForItsDelay()
{
    WindowFixture f;
    ConfigReader::Instance()->setDelayInfo(3);
    f.openNewFile();
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    swipeOver(u"later");
    QTRY_COMPARE(f.window->editor()->documentText(), QStringLiteral("later "));
    f.execute("presspoweroff");
    f.window->editor()->readDelaySlot(); // what the delay's end does
    QVERIFY(!f.window->editor()->soundThread()->isRunning());
    QVERIFY(!f.spoken().contains(QStringLiteral("later")));
}

void TestLauncherMessages::stopSavesAndCloses()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    f.execute("stop");
    QCOMPARE(f.newFileOnCard(), QByteArray("\xff\xfe"
                                           "a\0 \0",
                                           6));
    QVERIFY(FakeIap::stopSignal());
    QVERIFY(!f.window->isVisible());
}

void TestLauncherMessages::stopOnlyTellsAndCloses()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    CloseWatcher closing(f);
    f.execute("stoponly");
    QVERIFY(closing.toldBefore);
    QVERIFY(!f.window->isVisible());
    QVERIFY(!f.window->keepRunning());
    QCOMPARE(f.newFileOnCard(), QByteArray("\xff\xfe", 2));
    QVERIFY(!FakeIap::isStarted());
}

void TestLauncherMessages::saveKeepsRunning()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    CallLog::clear();
    f.execute("save");
    QCOMPARE(f.newFileOnCard().size(), 6);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(f.window->editor()->isBound());
    QVERIFY(FakeIap::stopSignal());
    QVERIFY(FakeOled::follows());
    QCOMPARE(fakes::calls("oled_update_set"), QStringList{"oled_update_set(1)"});
}

void TestLauncherMessages::saveWithoutFileOnlySilences()
{
    WindowFixture f;
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    CallLog::clear();
    f.execute("save");
    QCOMPARE(fakes::calls(), QStringList{"ZEMBRA_TTS_Stop()"});
    f.openNewFile(QStringLiteral("a"));
    f.window->editor()->setEnabled(false);
    f.execute("save");
    QCOMPARE(f.newFileOnCard().size(), 2);
    QVERIFY(!FakeIap::stopSignal());
}

void TestLauncherMessages::saveWithoutTipLeavesTheEngineAlone()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    CallLog::clear();
    f.execute("savenochujiao");
    QCOMPARE(f.newFileOnCard().size(), 6);
    QVERIFY(!FakeIap::stopSignal());
    QVERIFY(fakes::calls("oled_update_set").isEmpty());
}

void TestLauncherMessages::stopSignalIsCleared()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    f.window->editor()->setStopFlag(true);
    f.execute("chujiaostop");
    QVERIFY(!FakeIap::stopSignal());
}

void TestLauncherMessages::usbFreezesAndReopens()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    f.usb("plug");
    QCOMPARE(f.newFileOnCard().size(), 6);
    QVERIFY(!f.current()->isEnabled());
    QVERIFY(f.current() != f.window->editor());
    f.usb("delete");
    QTRY_COMPARE(f.current(), f.window->editor());
    QVERIFY(f.current()->isEnabled());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("a "));
}

// The pen keeps it, so that the card may go to the PC; afterwards it is on the card.
void TestLauncherMessages::usbBringsBackATextThatTheCardRefused()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("precious"));
    const QString path = f.state.root.path(f.placeOf(f.newFileName()));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    f.usb("plug");
    QCOMPARE(f.messages.texts().size(), 2);
    QVERIFY(f.current() != f.window->editor());
    QVERIFY(QDir(path).removeRecursively());
    f.usb("delete");
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("precious "));
    QCOMPARE(f.newFileOnCard().size(), 2 + 2 * 9);
}

void TestLauncherMessages::usbKeepsATextThatCannotBeSaved()
{
    WindowFixture f;
    const QString journal = f.state.root.path(QStringLiteral("/apps/config/store.jnl"));
    QFile::remove(journal);
    QVERIFY(QDir().mkpath(journal)); // the pen cannot keep it either
    f.openNewFile(QStringLiteral("precious"));
    const QString path = f.state.root.path(f.placeOf(f.newFileName()));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    f.usb("plug");
    QCOMPARE(f.messages.texts().size(), 1);
    QVERIFY(!f.window->editor()->isEnabled());
    QVERIFY(QDir(path).removeRecursively());
    f.usb("delete");
    QVERIFY(f.window->editor()->isEnabled());
    QVERIFY(!f.window->findChild<SandGlass*>()); // nothing is being opened
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("precious "));
    f.execute("save");
    QCOMPARE(f.newFileOnCard().size(), 2 + 2 * 9);
}

// The editor exists and is usable, but its file was too big to be opened.
void TestLauncherMessages::usbReopensNoFileThatWasNotOpen()
{
    WindowFixture f({QStringLiteral("big")});
    f.state.root.write(QStringLiteral("/mnt/mmc/e_ScanFile/big.txt"),
                       QByteArray("\xff\xfe", 2) + QByteArray("a\0", 2).repeated(40000));
    QWidget* menu = f.current();
    f.window->continueFile();
    QTRY_COMPARE(f.messages.texts().size(), 1);
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    f.usb("plug");
    f.usb("delete");
    QVERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(f.current(), menu);
}

void TestLauncherMessages::usbEndSaidTwiceLosesNothing()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("one"));
    f.usb("plug");
    f.usb("delete");
    QTRY_VERIFY(f.window->editor()->isBound());
    f.window->editor()->appendText(QStringLiteral("two"));
    f.usb("delete");
    QVERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("one two "));
    f.press(Qt::Key_Escape);
    QVERIFY(f.menu());
}

void TestLauncherMessages::usbEndWhileSavingIsNotForgotten()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("one"));
    QVERIFY(QDir().rename(f.state.root.path(QStringLiteral("/mnt/mmc")),
                          f.state.root.path(QStringLiteral("/mnt/away"))));
    // In the event loop of the message that the text cannot be saved.
    QTimer::singleShot(0, f.window.get(), [&f] {
        QVERIFY(!f.messages.texts().isEmpty());
        f.usb("delete");
    });
    f.usb("plug");
    QVERIFY(f.current()->isEnabled());
}

void TestLauncherMessages::usbEndWithoutBeginReopensNothing()
{
    WindowFixture f({QStringLiteral("notes")});
    QWidget* menu = f.current();
    menu->setEnabled(false);
    f.usb("delete");
    QVERIFY(menu->isEnabled());
    QVERIFY(menu->hasFocus());
    QCoreApplication::processEvents();
    QCOMPARE(f.current(), menu);
    QVERIFY(!f.window->editor());
}

void TestLauncherMessages::wordsBelongToTheirMessage_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("USB word in execute") << Execute << QByteArray("plug");
    QTest::newRow("execute word in USB") << Usb << QByteArray("plugusb");
    QTest::newRow("stop in USB") << Usb << QByteArray("stop");
    QTest::newRow("capital") << Execute << QByteArray("Stop");
    QTest::newRow("zero behind") << Execute << QByteArray("stop\0", 5);
    QTest::newRow("empty") << Execute << QByteArray();
    QTest::newRow("unknown message") << QStringLiteral("Show(QString)") << QByteArray("stop");
}

void TestLauncherMessages::wordsBelongToTheirMessage()
{
    QFETCH(QString, message);
    QFETCH(QByteArray, payload);
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    CallLog::clear();
    f.window->handleReceived(message, payload);
    QCOMPARE(fakes::calls(), QStringList());
    QVERIFY(f.window->isVisible());
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(f.current()->isEnabled());
}

void TestLauncherMessages::messagesComeOverTheChannel()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("a"));
    QVERIFY(QCopChannel::send(QStringLiteral("scanprocess"), Execute, "savenochujiao"));
    QTRY_COMPARE(f.newFileOnCard().size(), 6);
}

QTEST_MAIN(TestLauncherMessages)
#include "tst_launchermessages.moc"
