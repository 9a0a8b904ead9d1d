#include "engines/charscanner.h"
#include "tests/shared/questionwatcher.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/app/renamefixture.h"

#include <QLabel>

namespace {

const QString Hint = QStringLiteral("Scan to rename,press ok to confirm.");

} // namespace

/* The input of a new name: how it opens, what it takes, and what ends it. */
class TestRenameFlowInput : public QObject
{
    Q_OBJECT

private slots:
    void openListTakesSwipes();
    void swipeOpensTheInputWithItsText();
    void keysRestWhileANameIsRecognised();
    void keyOpensAnEmptyInput();
    void hintGivesWayToTheFirstScan();
    void hintForwardsKeys();
    void newInputTellsTheLauncherAndHoldsScans();
    void scanInTheInputReplacesTheName();
    void escapeAbandonsAndListensAgain();
    void lateTextIsIgnored_data();
    void lateTextIsIgnored();
    void usbFreezesTheInputAndGoesOn();
    void powerKeySilencesTheInput();
    void saveMessagesLeaveTheInputAlone();
    void textOnItsWayWhenTheWindowGoesIsHarmless();
    void endWhileTheListIsShownStopsTheEngine_data();
    void endWhileTheListIsShownStopsTheEngine();
};

void TestRenameFlowInput::openListTakesSwipes()
{
    RenameFixture f;
    QVERIFY(!FakeIap::isStarted());
    f.openList();
    QVERIFY(FakeIap::isStarted());
    QCOMPARE(CharScanner::editScan, f.window.get());
    f.press(Qt::Key_Escape);
    QVERIFY(!FakeIap::isStarted());
}

void TestRenameFlowInput::swipeOpensTheInputWithItsText()
{
    RenameFixture f;
    f.openList();
    f.hush();
    swipeOver(u" Chapter\n1 ");
    QTRY_VERIFY(f.input() && f.current() == f.input());
    QCOMPARE(f.input()->documentText(), QStringLiteral("Chapter 1"));
    QVERIFY(FakeIap::isStarted());
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("Chapter 1")));
    QVERIFY(f.lastHeard().endsWith(Hint));
}

// A key that stopped the scan engine now would wait for the recognition, with a dead display.
void TestRenameFlowInput::keysRestWhileANameIsRecognised()
{
    RenameFixture f;
    f.openList();
    FakeOcr::setResult(u"Late");
    FakeOcr::hold();
    QVERIFY(FakeIap::press());
    FakeIap::lift(FakeIap::pattern(40, 10)); // a name is recognised within the callback
    QTRY_VERIFY(FakeOcr::isRecognizing());
    for (const auto key :
         {Qt::Key_F11, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Down, Qt::Key_F9, Qt::Key_F12}) {
        f.press(key);
        QCOMPARE(f.current(), f.menu());
        QCOMPARE(f.menu()->getCurIndex(), 0);
        QVERIFY(FakeIap::isStarted());
        QVERIFY(FakeOcr::isRecognizing());
    }
    FakeOcr::release();
    QTRY_VERIFY(f.input() && f.current() == f.input());
    QCOMPARE(f.input()->documentText(), QStringLiteral("Late"));
}

void TestRenameFlowInput::keyOpensAnEmptyInput()
{
    RenameFixture f;
    f.openList();
    f.hush();
    f.press(Qt::Key_F11);
    QCOMPARE(f.current(), f.input());
    QVERIFY(f.input()->documentText().isEmpty());
    QTRY_COMPARE(f.heard(), QStringList{Hint});
    QVERIFY(f.input()->findChild<QLabel*>()->isVisible());
}

void TestRenameFlowInput::hintGivesWayToTheFirstScan()
{
    RenameFixture f;
    f.openList();
    f.window->renameCurrentFile();
    const auto* hint = f.input()->findChild<QLabel*>();
    QCOMPARE(hint->text().simplified(), Hint); // in two lines
    QVERIFY(hint->isVisible());
    swipeOver(u"");
    QTRY_VERIFY(!FakeIap::stopSignal() && FakeOcr::images().size() == 1);
    QTRY_VERIFY(hint->isVisible()); // there is no name yet
    swipeOver(u"name");
    QTRY_COMPARE(f.input()->documentText(), QStringLiteral("name"));
    QVERIFY(!hint->isVisible());
}

void TestRenameFlowInput::hintForwardsKeys()
{
    RenameFixture f;
    f.openList();
    QWidget* list = f.current();
    f.window->renameCurrentFile();
    auto* hint = f.input()->findChild<QLabel*>();
    QTest::keyClick(hint, Qt::Key_Escape);
    QCOMPARE(f.current(), list);
}

void TestRenameFlowInput::newInputTellsTheLauncherAndHoldsScans()
{
    RenameFixture f;
    f.openList();
    f.window->renameCurrentFile();
    f.launcher.clear();
    f.window->newInput();
    QVERIFY(FakeIap::stopSignal());
    QVERIFY(f.launcher.waitFor(QStringLiteral("execute(QString) trigger")));
    QVERIFY(!f.input()->findChild<QLabel*>()->isVisible());
    QCOMPARE(f.input()->getPosition(), 0);
}

void TestRenameFlowInput::scanInTheInputReplacesTheName()
{
    RenameFixture f;
    f.startInput(u"first");
    f.hush();
    swipeOver(u"second");
    QTRY_COMPARE(f.input()->documentText(), QStringLiteral("second"));
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(f.lastHeard(), QStringLiteral("second"));
}

void TestRenameFlowInput::escapeAbandonsAndListensAgain()
{
    RenameFixture f;
    f.startInput(u"idea");
    f.hush();
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), QStringLiteral("b  [Import]"));
    QVERIFY(f.exists("b"));
    QTRY_VERIFY(!f.heard().isEmpty() && f.lastHeard().startsWith(QStringLiteral("b  [")));
    swipeOver(u"second thought");
    QTRY_COMPARE(f.current(), f.input());
    QCOMPARE(f.input()->documentText(), QStringLiteral("second thought"));
}

void TestRenameFlowInput::lateTextIsIgnored_data()
{
    QTest::addColumn<QByteArray>("where");
    QTest::newRow("list left") << QByteArray("left");
    QTest::newRow("file being opened") << QByteArray("busy");
    QTest::newRow("card with a PC") << QByteArray("usb");
    QTest::newRow("no list ever") << QByteArray("never");
}

void TestRenameFlowInput::lateTextIsIgnored()
{
    QFETCH(QByteArray, where);
    RenameFixture f;
    if (where != "never")
        f.openList();
    if (where == "left")
        f.press(Qt::Key_Escape);
    else if (where == "busy")
        f.press(Qt::Key_Return);
    else if (where == "usb")
        f.usb("plug");
    f.window->tirggleEditSingal(QStringLiteral("late"));
    QCoreApplication::processEvents();
    f.window->Recognize(QStringLiteral("late"));
    QVERIFY(!f.input());
    QCOMPARE(FileManager::Instance()->getLatestFile(), QStringLiteral("b"));
    if (where == "busy")
        QTRY_COMPARE(f.current(), f.window->editor());
    if (where == "usb")
        QVERIFY(!FakeIap::isStarted());
}

void TestRenameFlowInput::usbFreezesTheInputAndGoesOn()
{
    RenameFixture f;
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    f.startInput(u"idea");
    f.usb("plug");
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(!f.current()->isEnabled());
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 0);
    // A file comes from the PC.
    f.state.root.write(f.placeOf(QStringLiteral("new")), QByteArray("\xff\xfe", 2));
    f.usb("delete");
    QCOMPARE(f.current(), f.input());
    QVERIFY(f.current()->isEnabled());
    QVERIFY(FakeIap::isStarted());
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries(), (QStringList{"new  [Import]", "idea  [Import]", "a  [Import]"}));
    QCOMPARE(f.menu()->getCurIndex(), 1);
}

void TestRenameFlowInput::powerKeySilencesTheInput()
{
    RenameFixture f;
    f.startInput(u"idea");
    f.hush();
    FakeTts::setPace(FakeTts::Pace::Held);
    swipeOver(u"spoken");
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.execute("presspoweroff");
    QVERIFY(FakeTts::waitUntilSilent());
    QCOMPARE(f.current(), f.input());
    QCOMPARE(f.input()->documentText(), QStringLiteral("spoken"));
}

void TestRenameFlowInput::saveMessagesLeaveTheInputAlone()
{
    RenameFixture f;
    f.startInput(u"idea");
    for (const char* payload : {"save", "savenochujiao"})
        f.execute(payload);
    QCOMPARE(f.current(), f.input());
    QCOMPARE(f.state.root.read(f.placeOf(QStringLiteral("b"))), QByteArray("\xff\xfet\0", 4));
}

void TestRenameFlowInput::textOnItsWayWhenTheWindowGoesIsHarmless()
{
    RenameFixture f;
    f.openList();
    swipeOver(u"late"); // its text waits in the queue of events
    f.window.reset();
    QVERIFY(!CharScanner::editScan);
    QCoreApplication::processEvents();
}

void TestRenameFlowInput::endWhileTheListIsShownStopsTheEngine_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("stop") << QByteArray("stop");
    QTest::newRow("stoponly") << QByteArray("stoponly");
}

void TestRenameFlowInput::endWhileTheListIsShownStopsTheEngine()
{
    QFETCH(QByteArray, word);
    RenameFixture f;
    f.openList();
    f.execute(word);
    QVERIFY(!f.window->isVisible());
    QVERIFY(!FakeIap::isStarted());
}

TEST_OBJECT(TestRenameFlowInput)
#include "tst_renameflow_input.moc"
