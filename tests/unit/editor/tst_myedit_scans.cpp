#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"

#include <QDialog>
#include <QSignalSpy>
#include <QTest>
#include <thread>

namespace {

const QString TooBigToAppend = QStringLiteral("The file is too big. Please create new file.");

_stImg* pictureOfALine()
{
    const std::vector<unsigned char> pixels(4);
    return makeImage(pixels.data(), 2, 2, 0);
}

} // namespace

/* From a swipe to the text in the document. */
class TestMyEditScans : public EditorFixture
{
    Q_OBJECT

private slots:
    void swipeBecomesTextAndSpeech();
    void swipeTellsTheLauncher();
    void secondSwipeWhileRecognisingIsDropped();
    void scanBeingRecognisedIsSavedOnLeaving();
    void scanAfterLeavingIsDropped();
    void scanWhoseEndIsUnheardIsNotOverwritten();
    void scanThatNeverArrivesIsFreed();
    void emptyResultAddsNothingAndFails();
    void doubtedTextIsUsedAndFails();
    void recognitionOfNoImageGivesMinusOne();
    void recognitionOfNothingGivesMinusTwo();
    void swipeWhileReadingSilencesAndIsRecognised();
    void scanThatDoesNotFitIsDroppedWithAMessage();
    void fullDocumentOfLinesTakesNoCharacter();
    void scanThatEndsUnderAnOpenDialogIsKept();
    void scanLandsAtTheEndThoughTheUserWalks();
    void scanStaysAtTheCursorWhenAsked();
    void scanIsAppendedWhileReadingIsOff();
    void scanGoesToTheEndWhereverTheCursorIs();
    void scansAreLoggedAtOnce();
    void keysAreIgnoredWhileSwiping();
};

void TestMyEditScans::swipeBecomesTextAndSpeech()
{
    open(QStringLiteral("Before. "));
    swipeOver(u"Hello world");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("Before. Hello world "));
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"Hello world"}));
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
    QVERIFY(m_launcher->messages().contains(QStringLiteral("execute(QString) soundyes")));
    QVERIFY(!m_edit->recognitionFailed());
    QCOMPARE(FakeOcr::lastImage().width, 40);
    QCOMPARE(FakeOcr::openResults(), 0);
}

void TestMyEditScans::swipeTellsTheLauncher()
{
    open(QString());
    swipeOver(u"x");
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(m_launcher->messages().first(), QStringLiteral("execute(QString) trigger"));
}

void TestMyEditScans::secondSwipeWhileRecognisingIsDropped()
{
    open(QString());
    swipeAndHold(u"first");
    QSignalSpy arrived(m_edit.get(), &MyEdit::signalEdit);
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(20, 10)), std::optional(0));
    QTRY_COMPARE(arrived.count(), 1);
    QCoreApplication::processEvents(); // Recognize() has seen it
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("first "));
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
    QCOMPARE(FakeOcr::images().size(), std::size_t(1));
}

// Its end has not been heard when the file is left: it belongs to this file and to no other.
void TestMyEditScans::scanBeingRecognisedIsSavedOnLeaving()
{
    open(QStringLiteral("one "));
    swipeAndHold(u"two");
    FakeOcr::release();
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(savedText(), QStringLiteral("one two "));
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_previous.get());
    QCoreApplication::processEvents();
    QVERIFY(m_edit->documentText().isEmpty());
    m_edit->readDelaySlot(); // what the delay's end does
    QVERIFY(!m_edit->soundThread()->isRunning());
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEditScans::scanAfterLeavingIsDropped()
{
    open(QStringLiteral("one "));
    QSignalSpy arrived(m_edit.get(), &MyEdit::signalEdit);
    swipeOver(u"two"); // arrives when the event loop runs again
    m_edit->SaveAndExit();
    QTRY_COMPARE(arrived.count(), 1);
    QCOMPARE(m_edit->Recognize(pictureOfALine()), -1);
    QVERIFY(FakeOcr::images().empty());
    QVERIFY(m_edit->documentText().isEmpty());
}

void TestMyEditScans::scanWhoseEndIsUnheardIsNotOverwritten()
{
    open(QString());
    FakeOcr::queueResult(u"first");
    FakeOcr::queueResult(u"second");
    QCOMPARE(m_edit->Recognize(pictureOfALine()), 0);
    const QDeadlineTimer deadline(5000);
    while (m_edit->Recognize(pictureOfALine()) != 0) { // dropped as long as the first is running
        QVERIFY(!deadline.hasExpired());
        std::this_thread::yield();
    }
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("first second "));
}

// For the leak checker: the editor ends before its event loop has seen the scan.
void TestMyEditScans::scanThatNeverArrivesIsFreed()
{
    open(QString());
    swipeOver(u"never read");
    m_edit.reset();
    QCoreApplication::processEvents();
    QVERIFY(FakeOcr::images().empty());
}

void TestMyEditScans::emptyResultAddsNothingAndFails()
{
    open(QStringLiteral("text"));
    QSignalSpy finished(m_edit.get(), &MyEdit::signalEdit);
    swipeOver(u"");
    QTRY_VERIFY(m_edit->recognitionFailed());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_edit->documentText(), QStringLiteral("text"));
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEditScans::doubtedTextIsUsedAndFails()
{
    open(QString());
    FakeOcr::setResult(u"doubt", 1);
    FakeIap::swipe(FakeIap::pattern(40, 10));
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("doubt "));
    QVERIFY(m_edit->recognitionFailed());
}

void TestMyEditScans::recognitionOfNoImageGivesMinusOne()
{
    open(QString());
    auto* record = new _stImg;
    record->buffer = new unsigned char[4];
    QCOMPARE(m_edit->RecThread(record), -1);
    QVERIFY(FakeOcr::images().empty());
}

void TestMyEditScans::recognitionOfNothingGivesMinusTwo()
{
    open(QString());
    FakeOcr::setResult(u"");
    auto* record = new _stImg;
    record->image = new unsigned char[4]{};
    record->width = 2;
    record->height = 2;
    QCOMPARE(m_edit->RecThread(record), -2);
    QVERIFY(m_edit->documentText().isEmpty());
}

void TestMyEditScans::swipeWhileReadingSilencesAndIsRecognised()
{
    open(QString());
    FakeTts::setPace(FakeTts::Pace::Held);
    swipeOver(u"first line");
    QTRY_VERIFY(FakeTts::isSpeaking());
    QSignalSpy keys(m_edit.get(), &MyEdit::signalKeyPress);
    swipeOver(u"second line");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("first line second line "));
    QTRY_COMPARE(FakeTts::texts().size(), std::size_t(2));
    QCOMPARE(keys.count(), 1);
    QVERIFY(m_edit->scannedWhileReading());
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditScans::scanThatDoesNotFitIsDroppedWithAMessage()
{
    const QString full(32768, u'a');
    open(full);
    swipeOver(u"b");
    QTRY_COMPARE(m_messages->texts(), QStringList{TooBigToAppend});
    QCOMPARE(m_edit->documentText(), full);
    QVERIFY(FakeTts::texts().empty());
}

// 32,768 code units as they are saved: a line end is two.
void TestMyEditScans::fullDocumentOfLinesTakesNoCharacter()
{
    open(QStringLiteral("\r\n").repeated(16'000) + QString(768, u'a'));
    QVERIFY(!m_edit->appendText(QStringLiteral("b")));
    QCOMPARE(m_messages->texts(), QStringList{TooBigToAppend});
    QCOMPARE(m_edit->documentText().size(), 16'768);
}

void TestMyEditScans::scanThatEndsUnderAnOpenDialogIsKept()
{
    open(QString());
    swipeAndHold(u"under a dialog");
    QDialog dialog(m_edit.get());
    QTimer look;
    connect(&look, &QTimer::timeout, &dialog, [&] {
        FakeOcr::release();
        if (!m_edit->documentText().isEmpty())
            dialog.accept();
    });
    look.start(0);
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(m_edit->documentText(), QStringLiteral("under a dialog "));
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"under a dialog"}));
}

// What was scanned last is what is seen.
void TestMyEditScans::scanLandsAtTheEndThoughTheUserWalks()
{
    open(QStringLiteral("one two "));
    swipeAndHold(u"three");
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 4);
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("one two three "));
    QCOMPARE(m_edit->getCurPosition(), 8);
}

void TestMyEditScans::scanStaysAtTheCursorWhenAsked()
{
    open(QStringLiteral("one two "));
    m_edit->setKeepPosition(true);
    m_edit->gotoBeginEdit();
    swipeOver(u"zero");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("zero one two "));
    QCOMPARE(m_edit->getCurPosition(), 0);
}

void TestMyEditScans::scanIsAppendedWhileReadingIsOff()
{
    m_state->root.setSetting(QStringLiteral("InfoScan/ReadControl"), 1);
    open(QStringLiteral("one "));
    m_edit->gotoBeginEdit();
    swipeOver(u"two");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("one two "));
    QCOMPARE(m_edit->getCurPosition(), 4);
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEditScans::scanGoesToTheEndWhereverTheCursorIs()
{
    open(QStringLiteral("one "));
    m_edit->gotoBeginEdit();
    QVERIFY(m_edit->appendText(QStringLiteral("two")));
    QCOMPARE(m_edit->documentText(), QStringLiteral("one two "));
    QCOMPARE(m_edit->getCurPosition(), 4); // where the scan begins
}

void TestMyEditScans::scansAreLoggedAtOnce()
{
    open(QStringLiteral("one"));
    m_edit->appendText(QStringLiteral("\ntwo\r\nthree"));
    m_edit->appendText(QStringLiteral("four"));
    const QString text = m_edit->documentText();
    QCOMPARE(savedText(), QStringLiteral("one")); // nothing was saved
    FileManager::quitFun();                       // the power goes
    m_state->load();
    QCOMPARE(savedText(), QString(text).replace(u'\n', QStringLiteral("\r\n")));
    FileManager::quitFun();
    m_state->load(); // not once more
    QCOMPARE(savedText(), QString(text).replace(u'\n', QStringLiteral("\r\n")));
}

void TestMyEditScans::keysAreIgnoredWhileSwiping()
{
    open(QStringLiteral("one two"));
    QVERIFY(FakeIap::press());
    QSignalSpy pressed(m_edit.get(), &MyEdit::signalKeyPress);
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(pressed.count(), 2);
    QCOMPARE(m_edit->getCurPosition(), 7);
    QVERIFY(m_edit->isBound());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
}

TEST_OBJECT(TestMyEditScans)
#include "tst_myedit_scans.moc"
