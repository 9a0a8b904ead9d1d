#include "tests/shared/launcherrows.h"
#include "tests/shared/questionwatcher.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/app/renamefixture.h"

namespace {

const QString Question = QStringLiteral("Sure to rename the file?");
const QString WhileYes = QStringLiteral("Press OK to rename, or right to interrupt.");
const QString WhileNo = QStringLiteral("Press OK to interrupt, or left to rename.");

} // namespace

/* Renaming an entry of the open list: the question, the answers and the refusals. */
class TestRenameFlowConfirming : public QObject
{
    Q_OBJECT

private slots:
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
    void failedRenameKeepsTheNameAndIsTold();
    void launcherThatComesWhileAskingRenamesNothing_data();
    void launcherThatComesWhileAskingRenamesNothing();
    void everyRefusalInOneWalk();
};

void TestRenameFlowConfirming::yesRenamesFileAndEntry()
{
    RenameFixture f;
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    f.startInput(u"idea");
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QCOMPARE(f.entries(), (QStringList{"idea  [Import]", "a  [Import]"}));
    QCOMPARE(f.menu()->getCurIndex(), 0);
    QVERIFY(f.exists("idea"));
    QVERIFY(!f.exists("b"));
    QVERIFY(f.messages.texts().isEmpty());
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("idea  [Import]")));
    QVERIFY(FakeIap::isStarted()); // for the next name
    FileManager::quitFun();
    QCOMPARE(FileManager::Instance()->init(), 0);
    QCOMPARE(FileManager::Instance()->getLatestFile(), QStringLiteral("idea"));
}

void TestRenameFlowConfirming::currentFileIsContinuedByItsNewName()
{
    RenameFixture f;
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan a"));
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    f.startInput(u"idea", 1);
    f.press(Qt::Key_Return);
    QCOMPARE(f.menu()->getCurIndex(), 1);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan idea"));
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("t"));
}

void TestRenameFlowConfirming::answersThatKeepTheName_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::newRow("no") << QList<Qt::Key>{Qt::Key_Right, Qt::Key_Return};
    QTest::newRow("escape") << QList<Qt::Key>{Qt::Key_Escape};
}

void TestRenameFlowConfirming::answersThatKeepTheName()
{
    QFETCH(QList<Qt::Key>, keys);
    RenameFixture f;
    QuestionWatcher questions;
    questions.answer(keys);
    f.startInput(u"idea");
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries().first(), QStringLiteral("b  [Import]"));
    QVERIFY(f.exists("b"));
    QVERIFY(!f.exists("idea"));
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("b  [Import]")));
    swipeOver(u"again");
    QTRY_COMPARE(f.current(), f.input());
}

void TestRenameFlowConfirming::questionShowsBothNamesAndIsSpoken()
{
    RenameFixture f;
    QuestionWatcher questions;
    f.startInput(u"idea");
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

void TestRenameFlowConfirming::leftAndRightSpeakOnlyTheInstruction()
{
    RenameFixture f;
    QuestionWatcher questions;
    f.startInput(u"idea");
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

void TestRenameFlowConfirming::refusals_data()
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

void TestRenameFlowConfirming::refusals()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    RenameFixture f;
    QuestionWatcher questions;
    f.openList();
    f.window->renameCurrentFile();
    f.window->renameSlot(name);
    QCOMPARE(f.messages.texts(), QStringList{message});
    QCOMPARE(questions.count(), 0);
    QVERIFY(f.exists("a"));
    QVERIFY(f.exists("b"));
    QCOMPARE(FileManager::Instance()->getLatestFile(), QStringLiteral("b"));
    // What was refused is still to be seen, and may be scanned over.
    QCOMPARE(f.current(), f.input());
    QCOMPARE(f.input()->documentText(), name);
}

void TestRenameFlowConfirming::tenCharactersAreAccepted()
{
    RenameFixture f;
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    f.startInput(u"0123456789");
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries().first(), QStringLiteral("0123456789  [Import]"));
}

void TestRenameFlowConfirming::afterARefusalTheNextSwipeIsTaken()
{
    RenameFixture f;
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    f.startInput(u"a name that is much too long");
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"String is too long."});
    QCOMPARE(f.current(), f.input());
    swipeOver(u"short");
    QTRY_COMPARE(f.input()->documentText(), QStringLiteral("short"));
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries().first(), QStringLiteral("short  [Import]"));
}

void TestRenameFlowConfirming::nameOfAListedFileOfTheOtherStoreIsTaken()
{
    RenameFixture f({QStringLiteral("b")}, [] {});
    f.state.root.write(QStringLiteral("/mnt/mtdblock3/e_ListenFile/heard.txt"),
                       QByteArray("\xff\xfe", 2));
    f.state.root.write(QStringLiteral("/apps/config/filelist.cfg"),
                       "0\nb\tImport\t20260101\t0\nheard\tx\t20260101\t1\n");
    FileManager::Instance()->init();
    f.openList(1);
    f.window->renameCurrentFile();
    f.window->renameSlot(QStringLiteral("heard"));
    QCOMPARE(f.messages.texts(), QStringList{"File exists."});
}

void TestRenameFlowConfirming::fileOfTheOtherStoreIsNotRenamed()
{
    RenameFixture f({QStringLiteral("heard")});
    f.state.root.write(QStringLiteral("/mnt/mtdblock3/e_ListenFile/heard.txt"),
                       QByteArray("\xff\xfe", 2));
    f.state.root.write(QStringLiteral("/apps/config/filelist.cfg"), "0\nheard\tx\t20260101\t1\n");
    FileManager::Instance()->init();
    f.openList();
    swipeOver(u"idea");
    QTRY_COMPARE(f.messages.texts(), QStringList{"This file cannot be renamed."});
    QCOMPARE(f.entries(), QStringList{"heard  [x]"});
    QVERIFY(f.exists("heard")); // one of the same name
    QVERIFY(FakeIap::isStarted());
}

void TestRenameFlowConfirming::failedRenameKeepsTheNameAndIsTold()
{
    RenameFixture f;
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    f.startInput(u"idea");
    QVERIFY(QFile::remove(f.state.root.path(f.placeOf(QStringLiteral("b")))));
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"The file cannot be renamed."});
    QCOMPARE(f.entries().first(), QStringLiteral("b  [Import]"));
    QVERIFY(!f.exists("idea"));
}

void TestRenameFlowConfirming::launcherThatComesWhileAskingRenamesNothing_data()
{
    launcherrows::addEnding();
}

void TestRenameFlowConfirming::launcherThatComesWhileAskingRenamesNothing()
{
    QFETCH(QString, message);
    QFETCH(QByteArray, payload);
    RenameFixture f;
    QuestionWatcher questions;
    f.startInput(u"idea");
    questions.act([&](YesnoSelect* dialog) {
        f.window->handleReceived(message, payload);
        QVERIFY(!dialog->isVisible());
    });
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QVERIFY(f.exists("b"));
    QVERIFY(!FakeIap::isStarted());
    if (payload != "plug") {
        QVERIFY(!f.window->isVisible());
        return;
    }
    f.window->handleReceived(message, "delete");
    QCOMPARE(f.menu()->title(), QStringLiteral("Open file"));
    QVERIFY(FakeIap::isStarted());
}

void TestRenameFlowConfirming::everyRefusalInOneWalk()
{
    RenameFixture f;
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    f.openList();
    f.window->renameCurrentFile();
    const auto scanAndConfirm = [&](const char16_t* text) {
        swipeOver(text);
        QTRY_COMPARE(f.input()->documentText(), QString::fromUtf16(text));
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

TEST_OBJECT(TestRenameFlowConfirming)
#include "tst_renameflow_confirming.moc"
