#include "app/mainwindow.h"

#include "engines/csoundthread.h"
#include "engines/cttsthread.h"
#include "engines/speechtext.h"
#include "tests/fakes/fakeiap.h"
#include "tests/shared/questionwatcher.h"
#include "tests/shared/windowfixture.h"
#include "widgets/messagedialog.h"

namespace {

constexpr Qt::Key ExtraKeys[] = {Qt::Key_F9, Qt::Key_F10, Qt::Key_F11, Qt::Key_F12, Qt::Key_Space};

void settle(WindowFixture& f)
{
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning()
                && (!f.window->editor() || !f.window->editor()->soundThread()->isRunning()));
    QCoreApplication::processEvents();
}

void openEditor(WindowFixture& f, const QString& text)
{
    f.window->newFile();
    QTRY_COMPARE(f.current(), f.window->editor());
    f.window->editor()->appendText(text);
    settle(f);
}

} // namespace

/* Keys that every screen has. */
class TestExtraKeys : public QObject
{
    Q_OBJECT

private slots:
    void moreSettingsFromAMenu();
    void moreSettingsFromTheEditor();
    void moreSettingsOpenOnce();
    void moreSettingsOpenAgain();
    void placeInAMenu();
    void placeInAnEmptyMenu();
    void placeInTheEditor();
    void placeInAnEmptyText();
    void placeTellsOfWork();
    void lastWordsOfAMenuAgain();
    void lastReadingAgain();
    void keysRestWhileTheCardIsAway();
    void keysRestInAMessage();
    void keysRestInAQuestion();
};

void TestExtraKeys::moreSettingsFromAMenu()
{
    WindowFixture f;
    QWidget* mainMenu = f.current();
    f.press(Qt::Key_F9);
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    QCOMPARE(f.entries(), (QStringList{"Read delay", "TTS Setting", "Scan Direction",
                                       "Read translation", "New words", "Dictionaries"}));
    QWidget* more = f.current();
    for (const char* title : {"Read delay", "TTS Setting", "Scan Direction", "Read translation"}) {
        f.press(Qt::Key_Return);
        QCOMPARE(f.menu()->title(), QString::fromLatin1(title));
        f.press(Qt::Key_Return);
        QCOMPARE(f.current(), more);
        f.press(Qt::Key_Down);
    }
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), mainMenu);
}

void TestExtraKeys::moreSettingsFromTheEditor()
{
    WindowFixture f;
    openEditor(f, QStringLiteral("one"));
    f.press(Qt::Key_F9);
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    QVERIFY(FakeIap::stopSignal());
    f.press(Qt::Key_Return);
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!FakeIap::stopSignal());
    QCOMPARE(ConfigReader::Instance()->getDelayInfo(), 1);
    QTRY_COMPARE(f.lastSpoken(),
                 QStringLiteral("1s") + pauseTag(500) + "Scan or press Menu for options.");
}

void TestExtraKeys::moreSettingsOpenOnce()
{
    WindowFixture f;
    f.press(Qt::Key_F9);
    f.press(Qt::Key_Return);
    QWidget* delays = f.current();
    settle(f);
    f.press(Qt::Key_F9);
    QCOMPARE(f.current(), delays);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Read delay. none. 1 of 4"));
}

void TestExtraKeys::moreSettingsOpenAgain()
{
    WindowFixture f;
    for (int i = 0; i < 3; ++i) {
        f.press(Qt::Key_F9);
        QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
        f.press(Qt::Key_Escape);
        QCOMPARE(f.menu()->title(), QStringLiteral("Scan to file"));
    }
}

void TestExtraKeys::placeInAMenu()
{
    WindowFixture f;
    f.press(Qt::Key_Down);
    settle(f);
    f.press(Qt::Key_F10);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Scan to file. Open file. 2 of 4"));
}

void TestExtraKeys::placeInAnEmptyMenu()
{
    WindowFixture f;
    MySubMenu empty(QStringLiteral("Nothing"), f.window.get());
    WidgetChange::Instance()->Go2NewWidget(&empty);
    settle(f);
    f.window->sayPlace();
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Nothing"));
}

void TestExtraKeys::placeInTheEditor()
{
    WindowFixture f;
    openEditor(f, QStringLiteral("The first line is so long that it wraps here\nand more"));
    f.window->editor()->moveCursor(QTextCursor::End);
    f.press(Qt::Key_Left);
    settle(f);
    f.press(Qt::Key_F10);
    const QString name = WindowFixture::newFileName();
    QTRY_COMPARE(f.lastSpoken(), name + QStringLiteral(". Line 3 of 3. more"));
    QCOMPARE(f.current(), f.window->editor());
    f.window->editor()->gotoBeginEdit();
    settle(f);
    f.press(Qt::Key_F10);
    QTRY_COMPARE(f.lastSpoken(), name + QStringLiteral(". Line 1 of 3. The"));
}

void TestExtraKeys::placeInAnEmptyText()
{
    WindowFixture f;
    openEditor(f, QString());
    f.press(Qt::Key_F10);
    const QString name = WindowFixture::newFileName();
    QTRY_COMPARE(f.lastSpoken(), name + QStringLiteral(". Line 1 of 1"));
}

void TestExtraKeys::placeTellsOfWork()
{
    WindowFixture f;
    settle(f);
    f.window->newFile();
    f.press(Qt::Key_F10);
    QTRY_VERIFY(f.spoken().contains(QStringLiteral("Please wait. Scan to file. New file. 1 of 4")));
}

void TestExtraKeys::lastWordsOfAMenuAgain()
{
    WindowFixture f;
    f.press(Qt::Key_Down);
    settle(f);
    const QString last = f.lastSpoken();
    const qsizetype before = f.spoken().size();
    f.press(Qt::Key_Space);
    QTRY_COMPARE(f.spoken().size(), before + 1);
    QCOMPARE(f.lastSpoken(), last);
}

void TestExtraKeys::lastReadingAgain()
{
    WindowFixture f;
    openEditor(f, QStringLiteral("one"));
    f.press(Qt::Key_Space);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("Scan or press Menu for options."));
    settle(f);
    f.press(Qt::Key_Return);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    settle(f);
    const qsizetype before = f.spoken().size();
    f.press(Qt::Key_Space);
    QTRY_COMPARE(f.spoken().size(), before + 1);
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("one "));
}

void TestExtraKeys::keysRestWhileTheCardIsAway()
{
    WindowFixture f;
    settle(f);
    f.usb("plug");
    QWidget* frozen = f.current();
    const qsizetype before = f.spoken().size();
    for (const Qt::Key key : ExtraKeys)
        QTest::keyClick(f.window.get(), key);
    settle(f);
    QCOMPARE(f.current(), frozen);
    QCOMPARE(f.spoken().size(), before);
}

// What they would change lies below.
void TestExtraKeys::keysRestInAMessage()
{
    WindowFixture f;
    QWidget* before = f.current();
    f.hush();
    MessageDialog message(f.window.get(), QStringLiteral("message"), 60'000);
    message.show();
    for (const Qt::Key key : ExtraKeys)
        QTest::keyClick(&message, key);
    QVERIFY(message.isVisible());
    QCOMPARE(f.current(), before);
    QTRY_COMPARE(f.heard(), QStringList{"message"});
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
    QCoreApplication::processEvents();
    QCOMPARE(f.heard(), QStringList{"message"});
}

void TestExtraKeys::keysRestInAQuestion()
{
    WindowFixture f({QStringLiteral("a")});
    QuestionWatcher questions;
    f.window->deleteFileMenu();
    questions.act([&](YesnoSelect* dialog) {
        f.hush();
        for (const Qt::Key key : ExtraKeys)
            QTest::keyClick(dialog, key);
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->getValue(), 0);
        QVERIFY(f.heard().isEmpty());
        dialog->reject();
    });
    QWidget* list = f.current();
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
    QCOMPARE(f.current(), list);
    QCOMPARE(FileManager::Instance()->getFileNum(), 1);
}

QTEST_MAIN(TestExtraKeys)
#include "tst_extrakeys.moc"
