#include "app/mainwindow.h"

#include "editor/myedit.h"
#include "engines/csoundthread.h"
#include "engines/cttsthread.h"
#include "tests/shared/swipes.h"
#include "tests/shared/windowfixture.h"

#include <QDir>
#include <QFile>

namespace {

const QString Hint = QStringLiteral("Scan or press Menu for options.");
const QString SoundYes = QStringLiteral("execute(QString) soundyes");
const QString SoundNo = QStringLiteral("execute(QString) soundno");

} // namespace

/* The editor in the whole application: what it tells is heard, and the menus' voice and its own
 * make room for each other. */
class TestEditorTalk : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void endOfTheTextIsHeard();
    void scanWithoutTextIsHeard();
    void scanThatIsTooBigIsHeard();
    void fileThatIsTooBigIsHeard();
    void failedSaveIsHeardAndLosesNothing();
    void textKeptInThePenIsHeard();
    void scanDuringAHintIsReadAfterIt();
    void poweringOffDropsTheWaitingReading();
    void hintsAreInTheMenusVoiceReadingsInTheirOwn();
    void launcherHearsNoSilenceBetweenReadingAndMenu();

private:
    void openNotes();
    QString lastSpoken() const;
    void quiet();

    std::unique_ptr<WindowFixture> f;
};

void TestEditorTalk::init()
{
    f = std::make_unique<WindowFixture>(QStringList{QStringLiteral("notes")});
    quiet();
}

void TestEditorTalk::cleanup()
{
    FakeTts::setPace(FakeTts::Pace::Automatic);
    f.reset();
}

void TestEditorTalk::openNotes()
{
    f->window->continueFile();
    QTRY_VERIFY(!f->spoken().isEmpty() && f->spoken().last() == Hint);
    quiet();
}

QString TestEditorTalk::lastSpoken() const
{
    return f->spoken().isEmpty() ? QString() : f->spoken().last();
}

void TestEditorTalk::quiet()
{
    QTRY_VERIFY(!f->spoken().isEmpty());
    QTRY_VERIFY(!f->window->menuSpeech()->isRunning());
    QTRY_VERIFY(!f->window->editor() || !f->window->editor()->soundThread()->isRunning());
    QCoreApplication::processEvents();
}

void TestEditorTalk::endOfTheTextIsHeard()
{
    openNotes();
    f->window->editor()->gotoBeginEdit();
    f->press(Qt::Key_Left);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("Start of text."));
}

void TestEditorTalk::scanWithoutTextIsHeard()
{
    openNotes();
    swipeOver(u"");
    QTRY_COMPARE(lastSpoken(), QStringLiteral("Nothing recognised."));
    QVERIFY(f->messages.texts().isEmpty());
}

void TestEditorTalk::scanThatIsTooBigIsHeard()
{
    openNotes();
    const QString message = QStringLiteral("The file is too big. Please create new file.");
    QVERIFY(!f->window->editor()->appendText(QString(40'000, u'a')));
    QCOMPARE(f->messages.texts(), QStringList{message});
    QTRY_COMPARE(lastSpoken(), message);
}

void TestEditorTalk::fileThatIsTooBigIsHeard()
{
    f->state.root.write(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"),
                        QByteArray("\xff\xfe", 2) + QByteArray(70'000, 'a'));
    const QString message =
        QStringLiteral("The file is too big, do not edit the file in computer.");
    f->window->continueFile();
    QTRY_COMPARE(f->messages.texts(), QStringList{message});
    QTRY_VERIFY(f->spoken().contains(message));
}

void TestEditorTalk::failedSaveIsHeardAndLosesNothing()
{
    openNotes();
    MyEdit* const edit = f->window->editor();
    const QString journal = f->state.root.path(QStringLiteral("/apps/config/store.jnl"));
    QFile::remove(journal);
    QVERIFY(QDir().mkpath(journal)); // nowhere else to keep it
    QVERIFY(edit->appendText(QStringLiteral("precious")));
    const QString text = edit->documentText();
    const QString path = f->state.root.path(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    f->press(Qt::Key_Escape);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("Not saved. Text is kept here."));
    QVERIFY(edit->isVisible());
    QCOMPARE(edit->documentText(), text);

    // The card is repaired: the next attempt saves.
    QVERIFY(QDir(path).removeRecursively());
    f->press(Qt::Key_Escape);
    QVERIFY(!edit->isBound());
    QVERIFY(QFile::exists(path));
}

void TestEditorTalk::textKeptInThePenIsHeard()
{
    openNotes();
    MyEdit* const edit = f->window->editor();
    QVERIFY(edit->appendText(QStringLiteral("precious")));
    const QString path = f->state.root.path(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    f->hush();
    f->press(Qt::Key_Escape);
    QVERIFY(!edit->isBound());
    QTRY_COMPARE(f->heard().size(), 3);
    QCOMPARE(f->heard().mid(0, 2), f->messages.texts());
    QCOMPARE(f->messages.texts().last(), QStringLiteral("The text is kept in the pen."));
    QVERIFY(lastSpoken().startsWith(QStringLiteral("Scan to File mode. ")));
}

// The key that began the scan cuts the hint short in life; here it goes on, as when a message comes
// between.
void TestEditorTalk::scanDuringAHintIsReadAfterIt()
{
    openNotes();
    MyEdit* const edit = f->window->editor();
    f->state.root.setSetting(QStringLiteral("SystemSet/Delay"), 3);
    ConfigReader::Instance()->setDelayInfo(3);
    swipeOver(u"scanned");
    QTRY_VERIFY(edit->documentText().endsWith(QStringLiteral("scanned ")));
    FakeTts::setPace(FakeTts::Pace::Held);
    f->window->hintSlot(QStringLiteral("message"));
    QTRY_COMPARE(lastSpoken(), QStringLiteral("message"));
    edit->readDelaySlot(); // what the delay's end does
    QVERIFY(edit->getFlagForTalk());
    QVERIFY(FakeTts::isSpeaking());
    QCOMPARE(lastSpoken(), QStringLiteral("message")); // is not cut off
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(lastSpoken(), QStringLiteral("scanned"));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    quiet();
}

void TestEditorTalk::poweringOffDropsTheWaitingReading()
{
    openNotes();
    MyEdit* const edit = f->window->editor();
    FakeTts::setPace(FakeTts::Pace::Held);
    edit->gotoBeginEdit();
    f->window->hintSlot(QStringLiteral("message"));
    QTRY_COMPARE(lastSpoken(), QStringLiteral("message"));
    edit->setFlagForTalk(true);
    f->execute("presspoweroff");
    QVERIFY(!edit->getFlagForTalk());
    quiet();
    QCOMPARE(lastSpoken(), QStringLiteral("message"));
}

void TestEditorTalk::hintsAreInTheMenusVoiceReadingsInTheirOwn()
{
    ConfigReader::Instance()->setLanInfo(1); // French is scanned, the menus are English
    openNotes();
    swipeOver(u"bon");
    QTRY_COMPARE(lastSpoken(), QStringLiteral("bon"));
    QCOMPARE(FakeTts::language(), 103);
    quiet();
    f->window->hintSlot(QStringLiteral("hint"));
    QTRY_COMPARE(lastSpoken(), QStringLiteral("hint"));
    QCOMPARE(FakeTts::language(), 200);
}

// Escape ends a reading and the menu speaks at once: the end of the reading is heard later.
void TestEditorTalk::launcherHearsNoSilenceBetweenReadingAndMenu()
{
    openNotes();
    FakeTts::setPace(FakeTts::Pace::Held);
    f->press(Qt::Key_Return);
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCoreApplication::processEvents();
    f->launcher.clear();
    f->press(Qt::Key_Escape);
    QTRY_VERIFY(lastSpoken().startsWith(QStringLiteral("Scan to File mode")));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QTRY_VERIFY(f->launcher.messages().contains(SoundYes));
    QTRY_VERIFY(!f->window->editor()->soundThread()->isRunning());
    QCoreApplication::processEvents();
    QVERIFY(!f->launcher.messages().contains(SoundNo));
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(f->launcher.messages().last(), SoundNo);
}

QTEST_MAIN(TestEditorTalk)
#include "tst_editortalk.moc"
