#include "app/mainwindow.h"

#include "editor/myedit.h"
#include "engines/charscanner.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/shared/questionwatcher.h"
#include "tests/shared/windowfixture.h"

#include <QDir>
#include <QLabel>

namespace {

const QString Hint = QStringLiteral("Scan to rename,press ok to confirm.");
const QString Question = QStringLiteral("Sure to rename the file?");
const QString WhileYes = QStringLiteral("Press OK to rename, or right to interrupt.");
const QString WhileNo = QStringLiteral("Press OK to interrupt, or left to rename.");
const QStringList TwoFiles = {QStringLiteral("a"), QStringLiteral("b")};

QString placeOf(const QString& name)
{
    return QStringLiteral("/mnt/mmc/e_ScanFile/%1.txt").arg(name);
}

} // namespace

/* Renaming an entry of the open list. Two files are listed newest first: b, a; a is the current
 * file of the store. */
class TestRenameFlow : public QObject
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
    void yesRenamesFileAndEntry();
    void currentFileIsContinuedByItsNewName();
    void answersThatKeepTheName_data();
    void answersThatKeepTheName();
    void questionShowsBothNamesAndIsSpoken();
    void leftAndRightSpeakOnlyTheInstruction();
    void refusals_data();
    void refusals();
    void tenCharactersAreAccepted();
    void afterARefusalTheNextSwipeIsTaken();
    void nameOfAListedFileOfTheOtherStoreIsTaken();
    void fileOfTheOtherStoreIsNotRenamed();
    void escapeAbandonsAndListensAgain();
    void failedRenameKeepsTheNameAndIsTold();
    void lateTextIsIgnored_data();
    void lateTextIsIgnored();
    void usbFreezesTheInputAndGoesOn();
    void launcherThatComesWhileAskingRenamesNothing_data();
    void launcherThatComesWhileAskingRenamesNothing();
    void powerKeySilencesTheInput();
    void saveMessagesLeaveTheInputAlone();
    void textOnItsWayWhenTheWindowGoesIsHarmless();
    void endWhileTheListIsShownStopsTheEngine_data();
    void endWhileTheListIsShownStopsTheEngine();
    void everyRefusalInOneWalk();

private:
    static void openList(WindowFixture& f, int index = 0);
    static void swipe(const char16_t* text);
    static void startInput(WindowFixture& f, const char16_t* text);
};

void TestRenameFlow::openList(WindowFixture& f, int index)
{
    f.window->openFileMenu();
    QCOMPARE(f.menu()->title(), QStringLiteral("Open file"));
    QVERIFY(f.menu()->setCurIndex(index));
}

void TestRenameFlow::swipe(const char16_t* text)
{
    FakeOcr::setResult(text);
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(40, 10)), std::optional(0));
}

void TestRenameFlow::startInput(WindowFixture& f, const char16_t* text)
{
    openList(f);
    swipe(text);
    QTRY_VERIFY(f.window->renameEditor() && f.current() == f.window->renameEditor());
}

void TestRenameFlow::openListTakesSwipes()
{
    WindowFixture f(TwoFiles);
    QVERIFY(!FakeIap::isStarted());
    openList(f);
    QVERIFY(FakeIap::isStarted());
    QCOMPARE(CharScanner::editScan, f.window.get());
    f.press(Qt::Key_Escape);
    QVERIFY(!FakeIap::isStarted());
}

void TestRenameFlow::swipeOpensTheInputWithItsText()
{
    WindowFixture f(TwoFiles);
    openList(f);
    f.hush();
    swipe(u" Chapter\n1 ");
    QTRY_VERIFY(f.window->renameEditor() && f.current() == f.window->renameEditor());
    QCOMPARE(f.window->renameEditor()->documentText(), QStringLiteral("Chapter 1"));
    QVERIFY(FakeIap::isStarted());
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("Chapter 1")));
    QVERIFY(f.lastHeard().endsWith(Hint));
}

// A key that stopped the scan engine now would wait for the recognition, with a dead display.
void TestRenameFlow::keysRestWhileANameIsRecognised()
{
    WindowFixture f(TwoFiles);
    openList(f);
    FakeOcr::setResult(u"Late");
    FakeOcr::hold();
    QVERIFY(FakeIap::press());
    FakeIap::lift(FakeIap::pattern(40, 10));
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
    QTRY_VERIFY(f.window->renameEditor() && f.current() == f.window->renameEditor());
    QCOMPARE(f.window->renameEditor()->documentText(), QStringLiteral("Late"));
}

void TestRenameFlow::keyOpensAnEmptyInput()
{
    WindowFixture f(TwoFiles);
    openList(f);
    f.hush();
    f.press(Qt::Key_F11);
    QCOMPARE(f.current(), f.window->renameEditor());
    QVERIFY(f.window->renameEditor()->documentText().isEmpty());
    QTRY_COMPARE(f.heard(), QStringList{Hint});
    QVERIFY(f.window->renameEditor()->findChild<QLabel*>()->isVisible());
}

void TestRenameFlow::hintGivesWayToTheFirstScan()
{
    WindowFixture f(TwoFiles);
    openList(f);
    f.window->renameCurrentFile();
    const auto* hint = f.window->renameEditor()->findChild<QLabel*>();
    QCOMPARE(hint->text().simplified(), Hint); // in two lines
    QVERIFY(hint->isVisible());
    swipe(u"");
    QTRY_VERIFY(!FakeIap::stopSignal() && FakeOcr::images().size() == 1);
    QTRY_VERIFY(hint->isVisible()); // there is no name yet
    swipe(u"name");
    QTRY_COMPARE(f.window->renameEditor()->documentText(), QStringLiteral("name"));
    QVERIFY(!hint->isVisible());
}

void TestRenameFlow::hintForwardsKeys()
{
    WindowFixture f(TwoFiles);
    openList(f);
    QWidget* list = f.current();
    f.window->renameCurrentFile();
    auto* hint = f.window->renameEditor()->findChild<QLabel*>();
    QTest::keyClick(hint, Qt::Key_Escape);
    QCOMPARE(f.current(), list);
}

void TestRenameFlow::newInputTellsTheLauncherAndHoldsScans()
{
    WindowFixture f(TwoFiles);
    openList(f);
    f.window->renameCurrentFile();
    f.launcher.clear();
    f.window->newInput();
    QVERIFY(FakeIap::stopSignal());
    QVERIFY(f.launcher.waitFor(QStringLiteral("execute(QString) trigger")));
    QVERIFY(!f.window->renameEditor()->findChild<QLabel*>()->isVisible());
    QCOMPARE(f.window->renameEditor()->getPosition(), 0);
}

void TestRenameFlow::scanInTheInputReplacesTheName()
{
    WindowFixture f(TwoFiles);
    startInput(f, u"first");
    f.hush();
    swipe(u"second");
    QTRY_COMPARE(f.window->renameEditor()->documentText(), QStringLiteral("second"));
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(f.lastHeard(), QStringLiteral("second"));
}

void TestRenameFlow::yesRenamesFileAndEntry()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    startInput(f, u"idea");
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QCOMPARE(f.entries(), (QStringList{"idea  [Import]", "a  [Import]"}));
    QCOMPARE(f.menu()->getCurIndex(), 0);
    QVERIFY(f.state.root.exists(placeOf(QStringLiteral("idea"))));
    QVERIFY(!f.state.root.exists(placeOf(QStringLiteral("b"))));
    QVERIFY(f.messages.texts().isEmpty());
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("idea  [Import]")));
    QVERIFY(FakeIap::isStarted()); // for the next name
    FileManager::quitFun();
    QCOMPARE(FileManager::Instance()->init(), 0);
    QCOMPARE(FileManager::Instance()->getLatestFile(), QStringLiteral("idea"));
}

void TestRenameFlow::currentFileIsContinuedByItsNewName()
{
    WindowFixture f(TwoFiles);
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan a"));
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    openList(f, 1);
    swipe(u"idea");
    QTRY_VERIFY(f.window->renameEditor() && f.current() == f.window->renameEditor());
    f.press(Qt::Key_Return);
    QCOMPARE(f.menu()->getCurIndex(), 1);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan idea"));
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("t"));
}

void TestRenameFlow::answersThatKeepTheName_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::newRow("no") << QList<Qt::Key>{Qt::Key_Right, Qt::Key_Return};
    QTest::newRow("escape") << QList<Qt::Key>{Qt::Key_Escape};
}

void TestRenameFlow::answersThatKeepTheName()
{
    QFETCH(QList<Qt::Key>, keys);
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    questions.answer(keys);
    startInput(f, u"idea");
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries().first(), QStringLiteral("b  [Import]"));
    QVERIFY(f.state.root.exists(placeOf(QStringLiteral("b"))));
    QVERIFY(!f.state.root.exists(placeOf(QStringLiteral("idea"))));
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("b  [Import]")));
    swipe(u"again");
    QTRY_COMPARE(f.current(), f.window->renameEditor());
}

void TestRenameFlow::questionShowsBothNamesAndIsSpoken()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    startInput(f, u"idea");
    f.hush();
    QString heard;
    questions.act([&](YesnoSelect* dialog) {
        QTRY_VERIFY(!f.heard().isEmpty() && f.lastHeard().endsWith(WhileYes));
        heard = f.lastHeard();
        dialog->reject();
    });
    f.press(Qt::Key_Return);
    QVERIFY2(heard.startsWith(Question), qPrintable(heard));
}

void TestRenameFlow::leftAndRightSpeakOnlyTheInstruction()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    startInput(f, u"idea");
    questions.act([&](YesnoSelect* dialog) {
        f.hush();
        QTest::keyClick(dialog, Qt::Key_Right);
        QTRY_COMPARE(f.heard(), QStringList{WhileNo});
        f.hush();
        QTest::keyClick(dialog, Qt::Key_Left);
        QTRY_COMPARE(f.heard(), QStringList{WhileYes});
        dialog->reject();
    });
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
}

void TestRenameFlow::refusals_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* what, const char* name, const char* message) {
        QTest::newRow(what) << QString::fromUtf8(name) << QString::fromUtf8(message);
    };
    row("nothing", "", "The name is empty.");
    row("eleven characters", "01234567890", "String is too long.");
    row("eleven characters, some invalid", "0123456789?", "String is too long.");
    row("invalid character", "what?", "Invalid character.");
    row("other file's name", "a", "File exists.");
    row("its own name", "b", "File exists.");
    row("device", "nul", "This name cannot be used.");
}

void TestRenameFlow::refusals()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    openList(f);
    f.window->renameCurrentFile();
    f.window->renameSlot(name);
    QCOMPARE(f.messages.texts(), QStringList{message});
    QCOMPARE(questions.count(), 0);
    QVERIFY(f.state.root.exists(placeOf(QStringLiteral("a"))));
    QVERIFY(f.state.root.exists(placeOf(QStringLiteral("b"))));
    QCOMPARE(FileManager::Instance()->getLatestFile(), QStringLiteral("b"));
    // What was refused is still to be seen, and may be scanned over.
    QCOMPARE(f.current(), f.window->renameEditor());
    QCOMPARE(f.window->renameEditor()->documentText(), name);
}

void TestRenameFlow::tenCharactersAreAccepted()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    startInput(f, u"0123456789");
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries().first(), QStringLiteral("0123456789  [Import]"));
}

void TestRenameFlow::afterARefusalTheNextSwipeIsTaken()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    startInput(f, u"a name that is much too long");
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"String is too long."});
    QCOMPARE(f.current(), f.window->renameEditor());
    swipe(u"short");
    QTRY_COMPARE(f.window->renameEditor()->documentText(), QStringLiteral("short"));
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries().first(), QStringLiteral("short  [Import]"));
}

void TestRenameFlow::nameOfAListedFileOfTheOtherStoreIsTaken()
{
    WindowFixture f({QStringLiteral("b")}, [] {});
    f.state.root.write(QStringLiteral("/mnt/mtdblock3/e_ListenFile/heard.txt"),
                       QByteArray("\xff\xfe", 2));
    f.state.root.write(QStringLiteral("/apps/config/filelist.cfg"),
                       "0\nb\tImport\t20260101\t0\nheard\tx\t20260101\t1\n");
    FileManager::Instance()->init();
    openList(f, 1);
    f.window->renameCurrentFile();
    f.window->renameSlot(QStringLiteral("heard"));
    QCOMPARE(f.messages.texts(), QStringList{"File exists."});
}

void TestRenameFlow::fileOfTheOtherStoreIsNotRenamed()
{
    WindowFixture f({QStringLiteral("heard")});
    f.state.root.write(QStringLiteral("/mnt/mtdblock3/e_ListenFile/heard.txt"),
                       QByteArray("\xff\xfe", 2));
    f.state.root.write(QStringLiteral("/apps/config/filelist.cfg"), "0\nheard\tx\t20260101\t1\n");
    FileManager::Instance()->init();
    openList(f);
    swipe(u"idea");
    QTRY_COMPARE(f.messages.texts(), QStringList{"This file cannot be renamed."});
    QCOMPARE(f.entries(), QStringList{"heard  [x]"});
    QVERIFY(f.state.root.exists(placeOf(QStringLiteral("heard")))); // one of the same name
    QVERIFY(FakeIap::isStarted());
}

void TestRenameFlow::escapeAbandonsAndListensAgain()
{
    WindowFixture f(TwoFiles);
    startInput(f, u"idea");
    f.hush();
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), QStringLiteral("b  [Import]"));
    QVERIFY(f.state.root.exists(placeOf(QStringLiteral("b"))));
    QTRY_VERIFY(!f.heard().isEmpty() && f.lastHeard().startsWith(QStringLiteral("b  [")));
    swipe(u"second thought");
    QTRY_COMPARE(f.current(), f.window->renameEditor());
    QCOMPARE(f.window->renameEditor()->documentText(), QStringLiteral("second thought"));
}

void TestRenameFlow::failedRenameKeepsTheNameAndIsTold()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    startInput(f, u"idea");
    QVERIFY(QFile::remove(f.state.root.path(placeOf(QStringLiteral("b")))));
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"The file cannot be renamed."});
    QCOMPARE(f.entries().first(), QStringLiteral("b  [Import]"));
    QVERIFY(!f.state.root.exists(placeOf(QStringLiteral("idea"))));
}

void TestRenameFlow::lateTextIsIgnored_data()
{
    QTest::addColumn<QByteArray>("where");
    QTest::newRow("list left") << QByteArray("left");
    QTest::newRow("file being opened") << QByteArray("busy");
    QTest::newRow("card with a PC") << QByteArray("usb");
    QTest::newRow("no list ever") << QByteArray("never");
}

void TestRenameFlow::lateTextIsIgnored()
{
    QFETCH(QByteArray, where);
    WindowFixture f(TwoFiles);
    if (where != "never")
        openList(f);
    if (where == "left")
        f.press(Qt::Key_Escape);
    else if (where == "busy")
        f.press(Qt::Key_Return);
    else if (where == "usb")
        f.window->handleReceived(QStringLiteral("USB(QString)"), "plug");
    f.window->tirggleEditSingal(QStringLiteral("late"));
    QCoreApplication::processEvents();
    f.window->Recognize(QStringLiteral("late"));
    QVERIFY(!f.window->renameEditor());
    QCOMPARE(FileManager::Instance()->getLatestFile(), QStringLiteral("b"));
    if (where == "busy")
        QTRY_COMPARE(f.current(), f.window->editor());
    if (where == "usb")
        QVERIFY(!FakeIap::isStarted());
}

void TestRenameFlow::usbFreezesTheInputAndGoesOn()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    startInput(f, u"idea");
    f.window->handleReceived(QStringLiteral("USB(QString)"), "plug");
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(!f.current()->isEnabled());
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 0);
    // A file comes from the PC.
    f.state.root.write(placeOf(QStringLiteral("new")), QByteArray("\xff\xfe", 2));
    f.window->handleReceived(QStringLiteral("USB(QString)"), "delete");
    QCOMPARE(f.current(), f.window->renameEditor());
    QVERIFY(f.current()->isEnabled());
    QVERIFY(FakeIap::isStarted());
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries(), (QStringList{"new  [Import]", "idea  [Import]", "a  [Import]"}));
    QCOMPARE(f.menu()->getCurIndex(), 1);
}

void TestRenameFlow::launcherThatComesWhileAskingRenamesNothing_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("payload");
    const QString execute = QStringLiteral("execute(QString)");
    QTest::newRow("plug") << QStringLiteral("USB(QString)") << QByteArray("plug");
    QTest::newRow("stop") << execute << QByteArray("stop");
    QTest::newRow("stoponly") << execute << QByteArray("stoponly");
}

void TestRenameFlow::launcherThatComesWhileAskingRenamesNothing()
{
    QFETCH(QString, message);
    QFETCH(QByteArray, payload);
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    startInput(f, u"idea");
    questions.act([&](YesnoSelect* dialog) {
        f.window->handleReceived(message, payload);
        QVERIFY(!dialog->isVisible());
    });
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QVERIFY(f.state.root.exists(placeOf(QStringLiteral("b"))));
    QVERIFY(!FakeIap::isStarted());
    if (payload != "plug") {
        QVERIFY(!f.window->isVisible());
        return;
    }
    f.window->handleReceived(message, "delete");
    QCOMPARE(f.menu()->title(), QStringLiteral("Open file"));
    QVERIFY(FakeIap::isStarted());
}

void TestRenameFlow::powerKeySilencesTheInput()
{
    WindowFixture f(TwoFiles);
    startInput(f, u"idea");
    f.hush();
    FakeTts::setPace(FakeTts::Pace::Held);
    swipe(u"spoken");
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.window->handleReceived(QStringLiteral("execute(QString)"), "presspoweroff");
    QVERIFY(FakeTts::waitUntilSilent());
    QCOMPARE(f.current(), f.window->renameEditor());
    QCOMPARE(f.window->renameEditor()->documentText(), QStringLiteral("spoken"));
}

void TestRenameFlow::saveMessagesLeaveTheInputAlone()
{
    WindowFixture f(TwoFiles);
    startInput(f, u"idea");
    for (const char* payload : {"save", "savenochujiao"})
        f.window->handleReceived(QStringLiteral("execute(QString)"), payload);
    QCOMPARE(f.current(), f.window->renameEditor());
    QCOMPARE(f.state.root.read(placeOf(QStringLiteral("b"))), QByteArray("\xff\xfet\0", 4));
}

void TestRenameFlow::textOnItsWayWhenTheWindowGoesIsHarmless()
{
    WindowFixture f(TwoFiles);
    openList(f);
    swipe(u"late"); // its text waits in the queue of events
    f.window.reset();
    QVERIFY(!CharScanner::editScan);
    QCoreApplication::processEvents();
}

void TestRenameFlow::endWhileTheListIsShownStopsTheEngine_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("stop") << QByteArray("stop");
    QTest::newRow("stoponly") << QByteArray("stoponly");
}

void TestRenameFlow::endWhileTheListIsShownStopsTheEngine()
{
    QFETCH(QByteArray, word);
    WindowFixture f(TwoFiles);
    openList(f);
    f.window->handleReceived(QStringLiteral("execute(QString)"), word);
    QVERIFY(!f.window->isVisible());
    QVERIFY(!FakeIap::isStarted());
}

void TestRenameFlow::everyRefusalInOneWalk()
{
    WindowFixture f(TwoFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    openList(f);
    f.window->renameCurrentFile();
    const auto scanAndConfirm = [&](const char16_t* text) {
        swipe(text);
        QTRY_COMPARE(f.window->renameEditor()->documentText(), QString::fromUtf16(text));
        f.press(Qt::Key_Return);
    };
    f.press(Qt::Key_Return);
    scanAndConfirm(u"a name much too long");
    scanAndConfirm(u"to be?");
    scanAndConfirm(u"a");
    scanAndConfirm(u"CON");
    QCOMPARE(f.messages.texts(),
             (QStringList{"The name is empty.", "String is too long.", "Invalid character.",
                          "File exists.", "This name cannot be used."}));
    scanAndConfirm(u"at last");
    QCOMPARE(questions.count(), 1);
    QCOMPARE(f.entries().first(), QStringLiteral("at last  [Import]"));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan a"));
}

QTEST_MAIN(TestRenameFlow)
#include "tst_renameflow.moc"
