#include "app/mainwindow.h"

#include "engines/cttsthread.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/shared/windowfixture.h"
#include "widgets/sandglass.h"

#include <QLineEdit>

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void windowIsTheWholeScreen();
    void menuWithoutFileHasFourItems();
    void menuWithFileStartsWithContinue();
    void newFileShowsTheEditor();
    void secondPressWhileBusyDoesNothing();
    void thousandFilesAllowNoNewOne();
    void continueOpensTheCurrentFile();
    void openListsTheFilesNewestFirst();
    void openWithoutFilesSaysSo();
    void openShowsTheChosenFile();
    void openedFileIsCurrentAfterARestart();
    void fileTooBigDoesNotBecomeCurrent();
    void cardThatLeavesWhileBusyStopsTheWork();
    void leavingTheEditorReturnsToTheMenu();
    void fileTooBigStaysInTheMenu();
    void verticalModeIsAnnounced();
    void editorSpeaksItsHint();
    void showingTheEditorLetsTheEngineDeliver();
    void dictionariesAreLoadedAtConstruction();
    void endOfSetUpTakesTheBusySignAway();
    void forwardedKeysReachTheEditor();
    void forwardedKeyWithoutEditorIsSwallowed();
    void escapeInTheMainMenuEndsTheApplication();
    void endShutsTheEnginesDown();
};

void TestMainWindow::windowIsTheWholeScreen()
{
    const WindowFixture f;
    QCOMPARE(f.window->size(), QSize(256, 64));
    QCOMPARE(f.window->pos(), QPoint(0, 0));
    QCOMPARE(f.window->objectName(), QStringLiteral("MainWindow"));
    QCOMPARE(f.window->windowTitle(), QStringLiteral("MainWindow"));
    QVERIFY(f.window->windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(f.window->centralWidget()->objectName(), QStringLiteral("centralWidget"));
    QVERIFY(f.window->keepRunning());
}

void TestMainWindow::menuWithoutFileHasFourItems()
{
    const WindowFixture f;
    QCOMPARE(f.entries(), (QStringList{"New file", "Open file", "Delete file", "Scan settings"}));
    QVERIFY(f.current()->isVisible());
}

void TestMainWindow::menuWithFileStartsWithContinue()
{
    const WindowFixture f({QStringLiteral("notes")});
    QCOMPARE(f.entries(), (QStringList{"Continue scan notes", "New file", "Open file",
                                       "Delete file", "Scan settings"}));
}

void TestMainWindow::newFileShowsTheEditor()
{
    WindowFixture f;
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    QVERIFY(f.window->editor()->isBound());
    QVERIFY(f.window->editor()->isVisible());
    QVERIFY(FakeIap::isStarted());
    const QString name = WindowFixture::newFileName();
    QVERIFY(f.state.root.exists(f.placeOf(name)));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.entries().first(), QStringLiteral("Continue scan ") + name);
    QCOMPARE(f.entries().size(), 5);
}

void TestMainWindow::secondPressWhileBusyDoesNothing()
{
    WindowFixture f;
    f.window->newFile();
    f.window->newFile();
    f.window->continueFile();
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(FileManager::Instance()->getFileNum(), 1);
}

void TestMainWindow::thousandFilesAllowNoNewOne()
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QStringLiteral("f%1").arg(i));
    WindowFixture f(names);
    QCOMPARE(FileManager::Instance()->getFileNum(), 1000);
    f.window->newFile();
    QTRY_COMPARE(f.messages.texts(),
                 QStringList{"Max number of files exceeded. Please remove some files."});
    QCOMPARE(FileManager::Instance()->getFileNum(), 1000);
    QCOMPARE(f.current(), f.menu());
    f.window->continueFile();
    QTRY_COMPARE(f.current(), f.window->editor());
}

void TestMainWindow::continueOpensTheCurrentFile()
{
    WindowFixture f({QStringLiteral("notes")});
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("t"));
}

void TestMainWindow::openListsTheFilesNewestFirst()
{
    WindowFixture f;
    f.state.root.write(QStringLiteral("/apps/config/filelist.cfg"), QByteArray());
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    f.window->editor()->appendText(QStringLiteral("first text"));
    f.press(Qt::Key_Escape);
    f.openNewFile();
    f.press(Qt::Key_Escape);
    f.window->openFileMenu();
    const QString name = WindowFixture::newFileName();
    QCOMPARE(f.entries(),
             (QStringList{name + QStringLiteral("_1  []"), name + QStringLiteral("  [sttext]")}));
    MySubMenu* list = f.menu();
    f.press(Qt::Key_Escape);
    QVERIFY(f.current() != list);
    QCOMPARE(f.entries().size(), 5);
}

void TestMainWindow::openWithoutFilesSaysSo()
{
    WindowFixture f;
    QWidget* before = f.current();
    f.window->openFileMenu();
    QCOMPARE(f.messages.texts(), QStringList{"No available files!"});
    QCOMPARE(f.current(), before);
}

void TestMainWindow::openShowsTheChosenFile()
{
    WindowFixture f({QStringLiteral("one"), QStringLiteral("two")});
    f.window->openFileMenu();
    const QString first = f.entries().first().section(u' ', 0, 0);
    const QString second = f.entries().at(1).section(u' ', 0, 0);
    QVERIFY(first != second);
    QVERIFY(f.menu()->setCurIndex(0));
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    FileInfo current;
    QVERIFY(FileManager::Instance()->getCurInfo(current));
    QCOMPARE(current.name, second);
}

void TestMainWindow::openedFileIsCurrentAfterARestart()
{
    WindowFixture f({QStringLiteral("one"), QStringLiteral("two")});
    f.window->openFileMenu();
    QVERIFY(f.menu()->setCurIndex(0)); // the one that is not current yet
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    FileInfo opened;
    QVERIFY(FileManager::Instance()->getCurInfo(opened));
    // As after a cut of power: nothing was left or saved.
    FileManager::quitFun();
    QCOMPARE(FileManager::Instance()->init(), 0);
    FileInfo restored;
    QVERIFY(FileManager::Instance()->getCurInfo(restored));
    QCOMPARE(restored.name, opened.name);
}

void TestMainWindow::fileTooBigDoesNotBecomeCurrent()
{
    WindowFixture f({QStringLiteral("a"), QStringLiteral("z")});
    FileInfo before;
    QVERIFY(FileManager::Instance()->getCurInfo(before));
    const QString big =
        before.name == QLatin1String("a") ? QStringLiteral("z") : QStringLiteral("a");
    f.state.root.write(f.placeOf(big),
                       QByteArray("\xff\xfe", 2) + QByteArray("a\0", 2).repeated(40000));
    f.window->openFileMenu();
    QVERIFY(f.menu()->setCurIndex(f.entries().first().startsWith(big) ? 0 : 1));
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.messages.texts(),
                 QStringList{"The file is too big, do not edit the file in computer."});
    FileInfo after;
    QVERIFY(FileManager::Instance()->getCurInfo(after));
    QCOMPARE(after.name, before.name);
}

void TestMainWindow::cardThatLeavesWhileBusyStopsTheWork()
{
    WindowFixture f;
    QWidget* menu = f.current();
    f.window->newFile();
    f.usb("plug");
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    QCOMPARE(FileManager::Instance()->getFileNum(), 0);
    QCOMPARE(f.current(), menu);
    f.usb("delete");
    f.openNewFile();
}

void TestMainWindow::leavingTheEditorReturnsToTheMenu()
{
    WindowFixture f;
    QWidget* menu = f.current();
    f.press(Qt::Key_Return);
    QTRY_COMPARE(f.current(), f.window->editor());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), menu);
    QVERIFY(menu->isVisible() && menu->isEnabled());
    QVERIFY(!f.window->editor()->isVisible());
}

void TestMainWindow::fileTooBigStaysInTheMenu()
{
    WindowFixture f({QStringLiteral("big")});
    QByteArray bytes("\xff\xfe", 2);
    bytes.append(QByteArray("a\0", 2).repeated(40000));
    f.state.root.write(QStringLiteral("/mnt/mmc/e_ScanFile/big.txt"), bytes);
    QWidget* menu = f.current();
    f.window->continueFile();
    QTRY_COMPARE(f.messages.texts(),
                 QStringList{"The file is too big, do not edit the file in computer."});
    QTRY_COMPARE(f.current(), menu);
    QVERIFY(menu->isVisible());
    QCOMPARE(f.state.root.read(QStringLiteral("/mnt/mmc/e_ScanFile/big.txt")), bytes);
}

void TestMainWindow::verticalModeIsAnnounced()
{
    WindowFixture f;
    ConfigReader::Instance()->setScanDirectInfo(1);
    f.window->newFile();
    QTRY_COMPARE(f.messages.texts(), QStringList{"Vertical Text Scan Mode!"});
    QCOMPARE(f.current(), f.window->editor());
    QCOMPARE(FakeIap::direction(), 1);
}

void TestMainWindow::editorSpeaksItsHint()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    f.window->newFile();
    QTRY_COMPARE(f.spoken().last(), QStringLiteral("Scan or press Menu for options."));
}

void TestMainWindow::showingTheEditorLetsTheEngineDeliver()
{
    WindowFixture f;
    f.openNewFile();
    f.window->editor()->setStopFlag(true);
    QVERIFY(FakeIap::stopSignal());
    f.window->editor()->hide();
    f.window->editor()->show();
    QVERIFY(!FakeIap::stopSignal());
}

void TestMainWindow::dictionariesAreLoadedAtConstruction()
{
    {
        const WindowFixture f({}, [] {
            FakeDic::addPair(104, 101, u"German - English", {{}, {}});
            FakeDic::addPair(101, 104, u"English - German", {{}});
        });
        QCOMPARE(f.window->dictionaries().size(), 2);
        QCOMPARE(f.window->dictionaries().at(0).name, QStringLiteral("German - English"));
        QCOMPARE(f.window->dictionaries().at(0).dicts.size(), 2);
        QCOMPARE(f.window->dictionaries().at(1).lanID, 101);
    }
    QCOMPARE(FakeDic::openRecords(), 0);
    QCOMPARE(FakeDic::misuses(), 0);
}

void TestMainWindow::endOfSetUpTakesTheBusySignAway()
{
    WindowFixture f;
    f.window->newFile();
    QVERIFY(f.window->findChild<SandGlass*>());
    f.window->finishTtsSet();
    QVERIFY(!f.window->findChild<SandGlass*>());
    f.window->finishTtsSetForSet(); // nothing left to take away
    QTRY_COMPARE(f.current(), f.window->editor());
}

void TestMainWindow::forwardedKeysReachTheEditor()
{
    WindowFixture f;
    f.openNewFile(QStringLiteral("one two"));
    QLineEdit forwarder(f.window.get());
    f.window->setKeyForwarder(&forwarder);
    f.window->hideButton();
    QVERIFY(forwarder.isVisible());
    forwarder.setFocus();
    QTest::keyClick(&forwarder, Qt::Key_Right);
    QCOMPARE(f.window->editor()->getCurPosition(), 4);
    QVERIFY(f.window->editor()->hasFocus());
    f.window->setKeyForwarder(nullptr);
    QTest::keyClick(&forwarder, Qt::Key_Right);
    QCOMPARE(f.window->editor()->getCurPosition(), 4);
}

void TestMainWindow::forwardedKeyWithoutEditorIsSwallowed()
{
    WindowFixture f;
    f.window->hideButton(); // nothing to show
    QLineEdit forwarder(f.window.get());
    f.window->setKeyForwarder(&forwarder);
    QTest::keyClicks(&forwarder, QStringLiteral("text"));
    QVERIFY(forwarder.text().isEmpty());
}

void TestMainWindow::escapeInTheMainMenuEndsTheApplication()
{
    WindowFixture f;
    QTRY_VERIFY(f.spoken().size() == 1 && !f.window->menuSpeech()->isRunning());
    f.press(Qt::Key_Escape);
    QVERIFY(f.launcher.waitFor(QStringLiteral("ESC(QString) escpressed")));
    QTRY_VERIFY(!f.window->isVisible());
}

void TestMainWindow::endShutsTheEnginesDown()
{
    {
        WindowFixture f;
        f.openNewFile();
        CallLog::clear();
        f.window.reset();
        const QStringList ends = fakes::calls();
        QVERIFY(ends.contains(QStringLiteral("ZEMBRA_TTS_Uninitialize()")));
        QVERIFY(ends.contains(QStringLiteral("ZEMBRA_IAP_Uninitialize()")));
        QCOMPARE(FakeOcr::openHandles(), 0);
        QVERIFY(!FakeTts::isStarted());
    }
    QCOMPARE(FakeOcr::misuses(), 0);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
