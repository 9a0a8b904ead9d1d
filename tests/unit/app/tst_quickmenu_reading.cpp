#include "engines/speechtext.h"
#include "tests/shared/launcherrows.h"
#include "tests/shared/swipes.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/app/editorwindowfixture.h"

namespace {

const QString Hint = QStringLiteral("Scan or press Menu for options.");

/* The voice of a menu takes its time to end. */
constexpr int SlowVoice = 20;

/* Away from the beginning, "Go to beginning" is chosen; the menu's voice goes on. */
void askForTheBeginning(EditorWindowFixture& f)
{
    f.press({Qt::Key_Right, Qt::Key_Right});
    f.settle();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press({Qt::Key_F12, Qt::Key_Down});
    QTRY_VERIFY(FakeTts::isSpeaking()
                && f.lastSpoken().startsWith(QStringLiteral("Go to beginning")));
    FakeTts::missStops(SlowVoice);
    f.press(Qt::Key_Return);
}

/* The text was read; the menu opens, and its voice goes on whatever comes. */
void openMenuAfterAReading(EditorWindowFixture& f)
{
    f.window->editor()->gotoBeginEdit();
    f.press(Qt::Key_Return);
    f.settle();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_F12);
    QVERIFY(FakeTts::waitUntilSpeaking());
    FakeTts::missStops(SlowVoice);
}

} // namespace

/* The quick menu over the editor: open and closed, and what it lets be read. */
class TestQuickMenuReading : public QObject
{
    Q_OBJECT

private slots:
    void opensOverTheEditor();
    void silencesWhatIsBeingRead();
    void doesNotOpenDuringASwipe();
    void escapeReturnsToTheEditor();
    void scansWaitUntilTheEditorIsBack();
    void scanRecognisedUnderAMenuIsNotReadOverIt();
    void readAgainReadsTheLastTextAgain();
    void readAgainWaitsForTheMenusVoice();
    void readAgainWithoutATextGivesTheHint();
    void goToBeginningSaysWhereThatIs();
    void goToBeginningWaitsForTheMenusVoice();
    void launcherClearsARequest_data();
    void launcherClearsARequest();
    void lateItemIsNotSpokenOverTheReading();
    void powerKeyIsHarmless();
};

void TestQuickMenuReading::opensOverTheEditor()
{
    EditorWindowFixture f;
    f.press(Qt::Key_F12);
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan quick settings"));
    QCOMPARE(f.entries(), (QStringList{"Read again.", "Go to beginning", "Reading settings",
                                       "Translate", "Select dictionary", "Scan languages"}));
    QCOMPARE(f.menu()->getCurIndex(), 0);
    QVERIFY(FakeIap::stopSignal());
    QVERIFY(!f.window->editor()->isVisible());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.") + pauseTag(500)));
}

void TestQuickMenuReading::silencesWhatIsBeingRead()
{
    EditorWindowFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_Return);
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.press(Qt::Key_F12);
    QTRY_VERIFY(!f.window->editor()->soundThread()->isRunning());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestQuickMenuReading::doesNotOpenDuringASwipe()
{
    EditorWindowFixture f;
    QVERIFY(FakeIap::press());
    f.press(Qt::Key_F12);
    f.press(Qt::Key_F9);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!FakeIap::stopSignal());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    f.press(Qt::Key_F12);
    QVERIFY(f.menu());
}

void TestQuickMenuReading::escapeReturnsToTheEditor()
{
    EditorWindowFixture f;
    f.press(Qt::Key_F12);
    const QPointer<MySubMenu> menu(f.menu());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(f.current()->isVisible() && f.current()->isEnabled() && f.current()->hasFocus());
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(f.lastSpoken(), Hint);
    QTRY_VERIFY(!menu);
}

void TestQuickMenuReading::scansWaitUntilTheEditorIsBack()
{
    EditorWindowFixture f(QString{});
    FakeOcr::setResult(u"later");
    f.press(Qt::Key_F12);
    QVERIFY(!FakeIap::swipe(FakeIap::pattern(40, 10)));
    f.press(Qt::Key_Escape);
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.window->editor()->documentText(), QStringLiteral("later "));
}

// It is in the text, and read when it is asked for.
void TestQuickMenuReading::scanRecognisedUnderAMenuIsNotReadOverIt()
{
    EditorWindowFixture f;
    swipeAndHold(u"late");
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_F12);
    QTRY_VERIFY(FakeTts::isSpeaking() && f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    FakeOcr::release();
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    f.window->editor()->readDelaySlot(); // what the delay's end does
    QCoreApplication::processEvents();
    QVERIFY(FakeTts::isSpeaking());
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    QVERIFY(!f.window->editor()->soundThread()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Automatic); // lets it run to its end
    f.settle();
    QVERIFY(!f.spoken().contains(QStringLiteral("late")));
    f.press(Qt::Key_Return); // "Read again."
    QCOMPARE(f.current(), f.window->editor());
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("late"));
}

void TestQuickMenuReading::readAgainReadsTheLastTextAgain()
{
    EditorWindowFixture f;
    f.window->editor()->gotoBeginEdit();
    f.press(Qt::Key_Return);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    f.settle();
    f.press(Qt::Key_F12);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QVERIFY(!f.spoken().endsWith(Hint));
}

void TestQuickMenuReading::readAgainWaitsForTheMenusVoice()
{
    EditorWindowFixture f;
    openMenuAfterAReading(f);
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!f.window->editor()->soundThread()->isRunning());
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCoreApplication::processEvents();
    QVERIFY(FakeTts::isSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestQuickMenuReading::readAgainWithoutATextGivesTheHint()
{
    EditorWindowFixture f(QString{});
    f.chooseQuick(EditorWindowFixture::ReadAgain);
    QCOMPARE(f.current(), f.window->editor());
    QTRY_COMPARE(f.lastSpoken(), Hint);
}

void TestQuickMenuReading::goToBeginningSaysWhereThatIs()
{
    EditorWindowFixture f;
    f.press({Qt::Key_Right, Qt::Key_Right});
    QVERIFY(f.window->editor()->getCurPosition() > 0);
    f.settle();
    f.chooseQuick(EditorWindowFixture::GoToBeginning);
    QCOMPARE(f.current(), f.window->editor());
    QTRY_COMPARE(f.window->editor()->getCurPosition(), 0);
    QTRY_VERIFY(f.lastSpoken().contains(QStringLiteral("one")));
}

void TestQuickMenuReading::goToBeginningWaitsForTheMenusVoice()
{
    EditorWindowFixture f;
    askForTheBeginning(f);
    QVERIFY(f.window->editor()->getCurPosition() > 0);
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(f.window->editor()->getCurPosition(), 0);
    QTRY_VERIFY(f.lastSpoken().contains(QStringLiteral("one")));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestQuickMenuReading::launcherClearsARequest_data()
{
    launcherrows::addSilencing();
}

void TestQuickMenuReading::launcherClearsARequest()
{
    QFETCH(QByteArray, word);
    EditorWindowFixture f;
    askForTheBeginning(f);
    const int position = f.window->editor()->getCurPosition();
    QVERIFY(position > 0);
    const qsizetype before = f.spoken().size();
    f.execute(word);
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    f.settle();
    QCOMPARE(f.window->editor()->getCurPosition(), position);
    QCOMPARE(f.spoken().size(), before);
}

// Items that the user went over faster than the voice could follow.
void TestQuickMenuReading::lateItemIsNotSpokenOverTheReading()
{
    EditorWindowFixture f;
    openMenuAfterAReading(f);
    f.press({Qt::Key_Down, Qt::Key_Up, Qt::Key_Return});
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QVERIFY(FakeTts::finish());
    f.settle();
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
}

void TestQuickMenuReading::powerKeyIsHarmless()
{
    EditorWindowFixture f;
    f.press(Qt::Key_F12);
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_Down);
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.execute("presspoweroff");
    QVERIFY(FakeTts::waitUntilSilent());
    FakeTts::setPace(FakeTts::Pace::Automatic);
    QCOMPARE(f.menu()->getCurIndex(), 1);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
}

TEST_OBJECT(TestQuickMenuReading)
#include "tst_quickmenu_reading.moc"
