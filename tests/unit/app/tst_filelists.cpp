#include "app/mainwindow.h"

#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakesystem.h"
#include "tests/shared/windowfixture.h"
#include "widgets/sandglass.h"

#include <QDir>
#include <QElapsedTimer>

namespace {

} // namespace

/* The list of files to open, and the ways into and out of the editor. */
class TestFileLists : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { FakeSystem::reset(); }

    void currentFileIsCurrentInTheList();
    void briefIsFreshAfterEditing();
    void editorLeadsBackToTheList();
    void fileFromAPcIsListedWithoutARestart();
    void thousandFilesOpenFast();
    void secondPressOnAnEntryDoesNothing();
    void openingStopsTheEngineFirst();
    void fileThatVanishedIsNotOpened();
    void missingFolderIsMadeForANewFile();
    void fullStorageIsToldAndSpoken();
    void limitIsSpokenAndFocusReturns();
    void verticalModeIsSpokenOverTheEditor();
    void storeThatCannotWriteLeavesTheMenu();
    void messageGivesWayToTheLauncher();

private:
    static void choose(WindowFixture& f, int index);
};

void TestFileLists::choose(WindowFixture& f, int index)
{
    f.window->openFileMenu();
    QVERIFY(f.menu()->setCurIndex(index));
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
}

void TestFileLists::currentFileIsCurrentInTheList()
{
    WindowFixture f({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    FileManager::Instance()->setCurFileIndex(1);
    f.window->openFileMenu();
    QCOMPARE(f.menu()->getCurIndex(), 1);
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("b  [Import]")));
}

void TestFileLists::briefIsFreshAfterEditing()
{
    WindowFixture f({QStringLiteral("a"), QStringLiteral("b")});
    choose(f, 1);
    f.window->editor()->appendText(QStringLiteral("word"));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries(), (QStringList{"b  [Import]", "a  [tword]"}));
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("a  [tword]")));
}

void TestFileLists::editorLeadsBackToTheList()
{
    WindowFixture f({QStringLiteral("a"), QStringLiteral("b")});
    MySubMenu* mainMenu = f.menu();
    choose(f, 0);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.menu()->title(), QStringLiteral("Open file"));
    QCOMPARE(f.menu()->getCurIndex(), 0);
    QVERIFY(FakeIap::isStarted()); // for a new name
    f.press(Qt::Key_Escape);
    QCOMPARE(f.menu(), mainMenu);
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan b"));
    QVERIFY(!FakeIap::isStarted());
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1);
}

void TestFileLists::fileFromAPcIsListedWithoutARestart()
{
    WindowFixture f({QStringLiteral("a")});
    f.usb("plug");
    f.state.root.write(WindowFixture::placeOf(QStringLiteral("notes")), QByteArray("\xff\xfe", 2));
    f.usb("delete");
    f.window->openFileMenu();
    QCOMPARE(f.entries(), (QStringList{"notes  [Import]", "a  [Import]"}));
    QCOMPARE(f.menu()->getCurIndex(), 1);
}

void TestFileLists::thousandFilesOpenFast()
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QStringLiteral("f%1").arg(i));
    WindowFixture f(names);
    QElapsedTimer clock;
    clock.start();
    f.window->openFileMenu();
    f.window->repaint();
    const qint64 ms = clock.elapsed();
    QCOMPARE(f.entries().size(), 1000);
    qInfo("1000 entries listed and painted in %lld ms", static_cast<long long>(ms));
    QVERIFY2(ms < 5000, qPrintable(QString::number(ms))); // far above, for loaded machines
    clock.start();
    f.press(Qt::Key_Up);
    qInfo("one step in %lld ms", static_cast<long long>(clock.elapsed()));
}

void TestFileLists::secondPressOnAnEntryDoesNothing()
{
    WindowFixture f({QStringLiteral("a"), QStringLiteral("b")});
    f.window->openFileMenu();
    QVERIFY(f.menu()->setCurIndex(0));
    f.press(Qt::Key_Return);
    QCOMPARE(f.window->findChildren<SandGlass*>().size(), 1);
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    QCOMPARE(f.window->findChildren<SandGlass*>().size(), 1);
    QTRY_COMPARE(f.current(), f.window->editor());
    FileInfo current;
    QVERIFY(FileManager::Instance()->getCurInfo(current));
    QCOMPARE(current.name, QStringLiteral("b"));
}

void TestFileLists::openingStopsTheEngineFirst()
{
    WindowFixture f({QStringLiteral("a")});
    f.window->openFileMenu();
    QVERIFY(FakeIap::isStarted());
    f.press(Qt::Key_Return);
    QVERIFY(!FakeIap::isStarted());
    const auto* glass = f.window->findChild<SandGlass*>();
    QVERIFY(glass && glass->isVisible());
    QCOMPARE(glass->geometry(), QRect(QPoint(100, 10), QPoint(132, 42)));
    QTRY_COMPARE(f.current(), f.window->editor());
    QVERIFY(FakeIap::isStarted());
}

// Opened empty it would be written empty on leaving, over the file that may be back by then.
void TestFileLists::fileThatVanishedIsNotOpened()
{
    WindowFixture f({QStringLiteral("a")});
    QVERIFY(QFile::remove(f.state.root.path(WindowFixture::placeOf(QStringLiteral("a")))));
    f.window->continueFile();
    QTRY_COMPARE(f.messages.texts(), QStringList{"The file is missing."});
    QVERIFY(!f.window->editor());
    f.window->openFileMenu();
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.messages.texts().size(), 2);
    QCOMPARE(f.menu()->title(), QStringLiteral("Open file"));
    QCOMPARE(f.window->focusWidget(), f.menu());
    QVERIFY(FakeIap::isStarted());
    QVERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(!f.state.root.exists(WindowFixture::placeOf(QStringLiteral("a"))));
}

void TestFileLists::missingFolderIsMadeForANewFile()
{
    WindowFixture f;
    QVERIFY(QDir(f.state.root.path(QStringLiteral("/mnt/mmc/e_ScanFile"))).removeRecursively());
    f.window->newFile();
    QTRY_COMPARE(f.current(), f.window->editor());
    QVERIFY(f.messages.texts().isEmpty());
    QCOMPARE(FileManager::Instance()->getFileNum(), 1);
}

void TestFileLists::fullStorageIsToldAndSpoken()
{
    const QString text = QStringLiteral("No enough storage space. Please remove some files.");
    WindowFixture f;
    f.hush();
    FakeSystem::setFreeBytes(1'048'575);
    f.window->newFile();
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.messages.texts(), QStringList{text});
    QVERIFY(f.heard().contains(text));
}

void TestFileLists::limitIsSpokenAndFocusReturns()
{
    const QString text = QStringLiteral("Max number of files exceeded. Please remove some files.");
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QStringLiteral("f%1").arg(i));
    WindowFixture f(names);
    QWidget* menu = f.current();
    f.window->newFile();
    QTRY_COMPARE(f.messages.texts(), QStringList{text});
    QCOMPARE(f.window->focusWidget(), menu);
    QTRY_COMPARE(f.lastHeard(), text);
    QVERIFY(!f.window->findChild<SandGlass*>());
}

void TestFileLists::verticalModeIsSpokenOverTheEditor()
{
    WindowFixture f({QStringLiteral("a")});
    ConfigReader::Instance()->setScanDirectInfo(1);
    choose(f, 0);
    QTRY_COMPARE(f.messages.texts(), QStringList{"Vertical Text Scan Mode!"});
    QCOMPARE(f.window->focusWidget(), f.window->editor());
    QTRY_COMPARE(f.lastHeard(), QStringLiteral("Vertical Text Scan Mode!"));
}

void TestFileLists::storeThatCannotWriteLeavesTheMenu()
{
    WindowFixture f;
    QWidget* menu = f.current();
    // A file stands where the folder would be.
    const QString folder = f.state.root.path(QStringLiteral("/mnt/mmc/e_ScanFile"));
    QVERIFY(QDir(folder).removeRecursively());
    f.state.root.write(QStringLiteral("/mnt/mmc/e_ScanFile"), "x");
    f.window->newFile();
    QTRY_COMPARE(f.messages.texts(),
                 QStringList{"File system is damaged, please connect to PC and repair."});
    QCOMPARE(f.current(), menu);
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(FileManager::Instance()->getFileNum(), 0);
}

void TestFileLists::messageGivesWayToTheLauncher()
{
    WindowFixture f({QStringLiteral("a")});
    f.window->openFileMenu();
    f.press(Qt::Key_Escape);
    bool closed = false;
    QTimer::singleShot(0, f.window.get(), [&] {
        f.execute("stop");
        closed = !f.window->isVisible() && !QApplication::activeModalWidget();
    });
    MessageDialog(f.window.get(), QStringLiteral("x"), 60'000).exec();
    QVERIFY(closed);
}

QTEST_MAIN(TestFileLists)
#include "tst_filelists.moc"
