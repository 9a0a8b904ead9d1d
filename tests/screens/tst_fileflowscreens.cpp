#include "editor/myedit.h"
#include "engines/cttsthread.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "tests/shared/questionwatcher.h"
#include "tests/shared/windowfixture.h"

#include <QApplication>

/* Scan files: the lists, deleting, renaming. */
class TestFileFlowScreens : public QObject
{
    Q_OBJECT

private slots:
    void openList();
    void deleteList();
    void deleteYes();
    void deleteNo();
    void renameInputs_data();
    void renameInputs();
    void renameWithoutAName();
    void renameLongOldName();
    void renameYes();
    void renameNo();
    void renameLongestNames();
    void refusals_data();
    void refusals();
    void everyPictureIsUsed();

private:
    static void openListOf(WindowFixture& f);
    /* What the window shows while the question of the key press is asked. */
    void question(WindowFixture& f, const QList<Qt::Key>& keys, const QString& picture);

    Album m_album{QStringLiteral("fileflows")};
};

namespace {

const QStringList Files = {QStringLiteral("chapter 1"), QStringLiteral("letter"),
                           QStringLiteral("recipe")};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

void TestFileFlowScreens::openListOf(WindowFixture& f)
{
    f.window->openFileMenu();
    f.menu()->setAnimated(false);
    QVERIFY(f.menu()->setCurIndex(1));
}

void TestFileFlowScreens::question(WindowFixture& f, const QList<Qt::Key>& keys,
                                   const QString& picture)
{
    QuestionWatcher questions;
    questions.act([&](YesnoSelect* dialog) {
        dialog->setAnimated(false);
        for (const Qt::Key key : keys)
            QTest::keyClick(dialog, key);
        QVERIFY2(m_album.shows(dialog, picture), qPrintable(m_album.problem()));
        dialog->reject();
    });
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
}

void TestFileFlowScreens::openList()
{
    WindowFixture f(Files);
    openListOf(f);
    COMPARE_SCREEN(m_album, f.menu(), "list-open");
}

void TestFileFlowScreens::deleteList()
{
    WindowFixture f(Files);
    f.window->deleteFileMenu();
    COMPARE_SCREEN(m_album, f.menu(), "list-delete");
}

void TestFileFlowScreens::deleteYes()
{
    WindowFixture f(Files);
    f.window->deleteFileMenu();
    question(f, {}, QStringLiteral("delete-yes"));
}

void TestFileFlowScreens::deleteNo()
{
    WindowFixture f(Files);
    f.window->deleteFileMenu();
    question(f, {Qt::Key_Right}, QStringLiteral("delete-no"));
}

void TestFileFlowScreens::renameInputs_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("short") << text("Ode to joy");
    QTest::newRow("too-long") << text("The quick brown fox jumps over it");
    QTest::newRow("chinese") << text("二〇二六年日记");
    QTest::newRow("russian") << text("Дневник");
}

void TestFileFlowScreens::renameInputs()
{
    QFETCH(QString, name);
    WindowFixture f(Files);
    openListOf(f);
    f.window->Recognize(name);
    QCOMPARE(f.current(), f.window->renameEditor());
    QVERIFY2(m_album.shows(f.current(), QLatin1String("rename-") + QTest::currentDataTag()),
             qPrintable(m_album.problem()));
}

void TestFileFlowScreens::renameWithoutAName()
{
    WindowFixture f(Files);
    openListOf(f);
    f.press(Qt::Key_F11);
    COMPARE_SCREEN(m_album, f.current(), "rename-hint");
}

void TestFileFlowScreens::renameLongOldName()
{
    WindowFixture f({text("A file from a PC may have a name of any length")});
    f.window->openFileMenu();
    f.window->Recognize(text("short"));
    COMPARE_SCREEN(m_album, f.current(), "rename-old-long");
}

void TestFileFlowScreens::renameYes()
{
    WindowFixture f(Files);
    openListOf(f);
    f.window->Recognize(text("my letter"));
    question(f, {}, QStringLiteral("rename-yes"));
}

void TestFileFlowScreens::renameNo()
{
    WindowFixture f(Files);
    openListOf(f);
    f.window->Recognize(text("my letter"));
    question(f, {Qt::Key_Right}, QStringLiteral("rename-no"));
}

void TestFileFlowScreens::renameLongestNames()
{
    WindowFixture f({text("一二三四五六七八九十")});
    f.window->openFileMenu();
    f.window->Recognize(text("十九八七六五四三二一"));
    question(f, {}, QStringLiteral("rename-longest"));
}

void TestFileFlowScreens::refusals_data()
{
    QTest::addColumn<QString>("message");
    QTest::newRow("empty") << text("The name is empty.");
    QTest::newRow("too-long") << text("String is too long.");
    QTest::newRow("character") << text("Invalid character.");
    QTest::newRow("exists") << text("File exists.");
    QTest::newRow("reserved") << text("This name cannot be used.");
    QTest::newRow("no-rename") << text("The file cannot be renamed.");
    QTest::newRow("other-store") << text("This file cannot be renamed.");
    QTest::newRow("no-delete") << text("The file cannot be deleted.");
    QTest::newRow("missing") << text("The file is missing.");
}

void TestFileFlowScreens::refusals()
{
    QFETCH(QString, message);
    MessageDialog dialog(nullptr, message);
    QVERIFY2(m_album.shows(&dialog, QLatin1String("message-") + QTest::currentDataTag()),
             qPrintable(m_album.problem()));
}

void TestFileFlowScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestFileFlowScreens)
#include "tst_fileflowscreens.moc"
