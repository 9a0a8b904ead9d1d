#include "app/mainwindow.h"

#include "tests/shared/launcherrows.h"
#include "tests/shared/questionwatcher.h"
#include "tests/shared/windowfixture.h"

#include <QDir>

namespace {

const QString Question = QStringLiteral("Are you sure to delete it?");
const QString WhileYes = QStringLiteral("Press OK to delete, or right to interrupt.");
const QString WhileNo = QStringLiteral("Press OK to interrupt, or left to delete.");
const QStringList ThreeFiles = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};

} // namespace

/* Deleting a file from the list. Three files are listed newest first: c, b, a. */
class TestDeleteFlow : public QObject
{
    Q_OBJECT

private slots:
    void listIsTheOneOfOpen();
    void withoutFilesItIsSaid();
    void yesDeletesFileAndEntry();
    void answersThatKeepTheFile_data();
    void answersThatKeepTheFile();
    void heldKeyChoosesButDoesNotAnswer();
    void questionIsSpokenWithItsInstruction();
    void leftAndRightSpeakOnlyTheInstruction();
    void questionIsShownInItsOwnWords();
    void nextEntryIsCurrentAndSpoken();
    void lastEntryLeavesTheOneBeforeIt();
    void lastFileLeadsToTheMainMenu();
    void currentFileLeavesContinueToTheNewest();
    void otherFileLeavesContinueAlone();
    void fileThatCannotBeDeletedIsKeptAndTold();
    void launcherThatComesWhileAskingDeletesNothing_data();
    void launcherThatComesWhileAskingDeletesNothing();
    void escapeLeadsToTheMainMenu();
    void swipeOverTheListRenamesNothing();

private:
    static void openList(WindowFixture& f);
};

void TestDeleteFlow::openList(WindowFixture& f)
{
    f.window->deleteFileMenu();
    QVERIFY(f.menu());
    QCOMPARE(f.menu()->title(), QStringLiteral("Delete file"));
    QVERIFY(f.menu()->setCurIndex(0));
}

void TestDeleteFlow::listIsTheOneOfOpen()
{
    WindowFixture f(ThreeFiles);
    f.window->openFileMenu();
    const QStringList open = f.entries();
    f.press(Qt::Key_Escape);
    f.window->deleteFileMenu();
    QCOMPARE(f.entries(), open);
    QCOMPARE(f.entries(), (QStringList{"c  [Import]", "b  [Import]", "a  [Import]"}));
    QCOMPARE(f.menu()->getCurIndex(), FileManager::Instance()->getCurFileIndex());
}

void TestDeleteFlow::withoutFilesItIsSaid()
{
    WindowFixture f;
    QWidget* before = f.current();
    f.window->deleteFileMenu();
    QCOMPARE(f.messages.texts(), QStringList{"No available files!"});
    QCOMPARE(f.current(), before);
    QCOMPARE(f.window->focusWidget(), before);
    QTRY_COMPARE(f.lastHeard(), QStringLiteral("No available files!"));
}

void TestDeleteFlow::yesDeletesFileAndEntry()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    openList(f);
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QCOMPARE(f.entries(), (QStringList{"c  [Import]", "a  [Import]"}));
    QVERIFY(!f.state.root.exists(WindowFixture::placeOf(QStringLiteral("b"))));
    QVERIFY(f.state.root.exists(WindowFixture::placeOf(QStringLiteral("a"))));
    // For good: the next start does not know it either.
    FileManager::quitFun();
    QCOMPARE(FileManager::Instance()->init(), 0);
    QCOMPARE(FileManager::Instance()->getFileNum(), 2);
}

void TestDeleteFlow::answersThatKeepTheFile_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::newRow("no") << QList<Qt::Key>{Qt::Key_Right, Qt::Key_Return};
    QTest::newRow("escape") << QList<Qt::Key>{Qt::Key_Escape};
    QTest::newRow("escape on no") << QList<Qt::Key>{Qt::Key_Right, Qt::Key_Escape};
}

void TestDeleteFlow::answersThatKeepTheFile()
{
    QFETCH(QList<Qt::Key>, keys);
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    questions.answer(keys);
    openList(f);
    MySubMenu* list = f.menu();
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QCOMPARE(f.entries().size(), 3);
    QVERIFY(f.state.root.exists(WindowFixture::placeOf(QStringLiteral("c"))));
    QCOMPARE(f.menu(), list);
    QCOMPARE(list->getCurIndex(), 0);
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("c  [Import]")));
}

// Yes is the first choice: a press of OK that lasts too long must not delete.
void TestDeleteFlow::heldKeyChoosesButDoesNotAnswer()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    bool stillAsking = false;
    questions.act([&](YesnoSelect* dialog) {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(dialog, &repeated);
        stillAsking = dialog->isVisible();
        dialog->reject();
    });
    openList(f);
    f.press(Qt::Key_Return);
    QVERIFY(stillAsking);
    QCOMPARE(f.entries().size(), 3);
    QVERIFY(f.state.root.exists(WindowFixture::placeOf(QStringLiteral("c"))));
}

void TestDeleteFlow::questionIsSpokenWithItsInstruction()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    openList(f);
    f.hush();
    QString heard;
    questions.act([&](YesnoSelect* dialog) {
        QTRY_VERIFY(f.lastHeard().contains(Question));
        heard = f.lastHeard();
        dialog->reject();
    });
    f.press(Qt::Key_Return);
    QVERIFY2(heard.startsWith(Question), qPrintable(heard));
    QVERIFY2(heard.endsWith(WhileYes), qPrintable(heard));
}

void TestDeleteFlow::leftAndRightSpeakOnlyTheInstruction()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    openList(f);
    questions.act([&](YesnoSelect* dialog) {
        const auto heardAfter = [&](Qt::Key key) {
            f.hush();
            QTest::keyClick(dialog, key);
            [&] { QTRY_VERIFY(!f.heard().isEmpty()); }();
            return f.heard();
        };
        QCOMPARE(heardAfter(Qt::Key_Right), QStringList{WhileNo});
        QCOMPARE(heardAfter(Qt::Key_Right), QStringList{WhileNo});
        QCOMPARE(heardAfter(Qt::Key_Left), QStringList{WhileYes});
        dialog->reject();
    });
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries().size(), 3);
}

void TestDeleteFlow::questionIsShownInItsOwnWords()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    openList(f);
    questions.act([&](YesnoSelect* dialog) {
        QVERIFY(dialog->isModal());
        QCOMPARE(dialog->size(), QSize(256, 64));
        dialog->reject();
    });
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
}

void TestDeleteFlow::nextEntryIsCurrentAndSpoken()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    openList(f);
    f.press(Qt::Key_Return);
    QCOMPARE(f.menu()->getCurIndex(), 0);
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("b  [Import]")));
    QVERIFY(
        f.lastHeard().endsWith(QStringLiteral("Press OK to select, or down for other options.")));
}

void TestDeleteFlow::lastEntryLeavesTheOneBeforeIt()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    openList(f);
    QVERIFY(f.menu()->setCurIndex(2));
    f.press(Qt::Key_Return);
    QCOMPARE(f.menu()->getCurIndex(), 1);
    QTRY_VERIFY(
        f.lastHeard().startsWith(QStringLiteral("b  [Import]"))
        && f.lastHeard().endsWith(QStringLiteral("Press OK to select, or Up for other options.")));
}

void TestDeleteFlow::lastFileLeadsToTheMainMenu()
{
    WindowFixture f({QStringLiteral("only")});
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    MySubMenu* mainMenu = f.menu();
    QVERIFY(mainMenu->setCurIndex(3));
    f.press(Qt::Key_Return);
    QCOMPARE(f.entries(), QStringList{"only  [Import]"});
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"No available files!"});
    QCOMPARE(f.menu(), mainMenu);
    QCOMPARE(f.entries(), (QStringList{"New file", "Open file", "Delete file", "Scan settings"}));
    QCOMPARE(f.menu()->getCurIndex(), 2); // where the user was
    QVERIFY(f.state.root.read(QStringLiteral("/apps/config/filelist.cfg"))
                .startsWith(QByteArray("\xff\xfe-\0001\0\n\0", 8)));
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1);
}

void TestDeleteFlow::currentFileLeavesContinueToTheNewest()
{
    WindowFixture f(ThreeFiles);
    FileManager::Instance()->setCurFileIndex(0);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    openList(f);
    QVERIFY(f.menu()->setCurIndex(2));
    f.press(Qt::Key_Return);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan c"));
    QCOMPARE(f.entries().size(), 5);
}

void TestDeleteFlow::otherFileLeavesContinueAlone()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    const QString before = f.entries().first();
    QCOMPARE(before, QStringLiteral("Continue scan a"));
    openList(f);
    f.press(Qt::Key_Return);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), before);
}

void TestDeleteFlow::fileThatCannotBeDeletedIsKeptAndTold()
{
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    questions.answer({Qt::Key_Return});
    // A folder stands in the file's place.
    const QString path = f.state.root.path(WindowFixture::placeOf(QStringLiteral("c")));
    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    openList(f);
    f.press(Qt::Key_Return);
    QCOMPARE(f.messages.texts(), QStringList{"The file cannot be deleted."});
    QCOMPARE(f.entries().size(), 3);
    QCOMPARE(f.menu()->getCurIndex(), 0);
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("c  [Import]")));
}

void TestDeleteFlow::launcherThatComesWhileAskingDeletesNothing_data()
{
    launcherrows::addEnding();
}

void TestDeleteFlow::launcherThatComesWhileAskingDeletesNothing()
{
    QFETCH(QString, message);
    QFETCH(QByteArray, payload);
    WindowFixture f(ThreeFiles);
    QuestionWatcher questions;
    openList(f);
    questions.act([&](YesnoSelect* dialog) {
        f.window->handleReceived(message, payload);
        QVERIFY(!dialog->isVisible());
    });
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QVERIFY(f.state.root.exists(WindowFixture::placeOf(QStringLiteral("c"))));
    QCOMPARE(FileManager::Instance()->getFileNum(), 3);
    if (payload != "plug") {
        QVERIFY(!f.window->isVisible());
        return;
    }
    QVERIFY(!f.current()->isEnabled());
    f.window->handleReceived(message, "delete");
    QVERIFY(f.current()->isEnabled());
    QCOMPARE(f.menu()->title(), QStringLiteral("Delete file"));
}

void TestDeleteFlow::escapeLeadsToTheMainMenu()
{
    WindowFixture f(ThreeFiles);
    MySubMenu* mainMenu = f.menu();
    f.window->deleteFileMenu();
    f.press(Qt::Key_Escape);
    QCOMPARE(f.menu(), mainMenu);
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1);
}

void TestDeleteFlow::swipeOverTheListRenamesNothing()
{
    WindowFixture f(ThreeFiles);
    openList(f);
    f.window->Recognize(QStringLiteral("late"));
    f.window->renameCurrentFile();
    QCOMPARE(f.menu()->title(), QStringLiteral("Delete file"));
    QVERIFY(!f.window->renameEditor());
}

QTEST_MAIN(TestDeleteFlow)
#include "tst_deleteflow.moc"
