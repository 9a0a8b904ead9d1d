#include "engines/csoundthread.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/faketts.h"
#include "tests/unit/editor/editorfixture.h"

#include <QAbstractEventDispatcher>
#include <QDialog>
#include <QSignalSpy>
#include <QTest>
#include <thread>

namespace {

const QString TooBigToOpen =
    QStringLiteral("The file is too big, do not edit the file in computer.");
const QString TooBigToAppend = QStringLiteral("The file is too big. Please create new file.");
const QString Kept = QStringLiteral("The text is kept in the pen.");
const QString Damaged = QStringLiteral("File system is damaged, please connect to PC and repair.");

_stImg* pictureOfALine()
{
    const std::vector<unsigned char> pixels(4);
    return makeImage(pixels.data(), 2, 2, 0);
}

} // namespace

/* The editor: file, scans, keys. */
class TestMyEdit : public EditorFixture
{
    Q_OBJECT

private slots:
    void bindingLoadsTheTextAndStartsTheEngine();
    void fileAtTheLimitIsOpened();
    void fileOverTheLimitOpensEmptyAndIsNeverSaved();
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
    void paragraphBreakCountsOneMoreThanItsLength();
    void fileOf65537BytesIsNotAutoSaved();
    void scanThatEndsUnderAnOpenDialogIsKept();
    void scanLandsAtTheEndThoughTheUserWalks();
    void scanStaysAtTheCursorWhenAsked();
    void scanIsAppendedWhileReadingIsOff();
    void scanGoesToTheEndWhereverTheCursorIs();
    void noBreakSpaceSurvives();
    void escapeWithoutFileOnlyAsks();
    void escapeSavesAndGoesBack();
    void textThatTheCardRefusesIsKeptAndComesBack();
    void failedSaveKeepsTextAndScreen();
    void scansAreLoggedAtOnce();
    void stopOnlyLeavesTheFileAlone();
    void autoSaveTimerSaves();
    void keysAreIgnoredWhileSwiping();
    void arrowsWalkWords();
    void wordAtTheCursor();
};

void TestMyEdit::bindingLoadsTheTextAndStartsTheEngine()
{
    open(QStringLiteral("one\r\ntwo "));
    QVERIFY(m_edit->isBound());
    QCOMPARE(m_edit->documentText(), QStringLiteral("one\ntwo "));
    QCOMPARE(m_edit->getCurPosition(), 8);
    QVERIFY(FakeIap::isStarted());
    QVERIFY(m_messages->texts().isEmpty());
}

void TestMyEdit::fileAtTheLimitIsOpened()
{
    open(QString(32768, u'a'));
    QVERIFY(m_edit->isBound());
    QCOMPARE(m_edit->documentText().size(), 32768);
}

void TestMyEdit::fileOverTheLimitOpensEmptyAndIsNeverSaved()
{
    const QString text(32769, u'a');
    open(text);
    QCOMPARE(m_messages->texts(), QStringList{TooBigToOpen});
    QVERIFY(!m_edit->isBound());
    QVERIFY(m_edit->documentText().isEmpty());
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(!m_edit->SaveOnly());
    m_edit->SaveAndExit();
    QCOMPARE(savedText(), text);
}

void TestMyEdit::swipeBecomesTextAndSpeech()
{
    open(QStringLiteral("Before. "));
    swipe(u"Hello world");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("Before. Hello world "));
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"Hello world"}));
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
    QVERIFY(m_launcher->messages().contains(QStringLiteral("execute(QString) soundyes")));
    QVERIFY(!m_edit->recognitionFailed());
    QCOMPARE(FakeOcr::lastImage().width, 40);
    QCOMPARE(FakeOcr::openResults(), 0);
}

void TestMyEdit::swipeTellsTheLauncher()
{
    open(QString());
    swipe(u"x");
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(m_launcher->messages().first(), QStringLiteral("execute(QString) trigger"));
}

void TestMyEdit::secondSwipeWhileRecognisingIsDropped()
{
    open(QString());
    FakeOcr::hold();
    swipe(u"first");
    QCoreApplication::processEvents(); // Recognize() is called
    QVERIFY(FakeOcr::waitUntilRecognizing());
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
void TestMyEdit::scanBeingRecognisedIsSavedOnLeaving()
{
    open(QStringLiteral("one "));
    FakeOcr::hold();
    swipe(u"two");
    QCoreApplication::processEvents(); // Recognize() is called
    QVERIFY(FakeOcr::waitUntilRecognizing());
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

void TestMyEdit::scanAfterLeavingIsDropped()
{
    open(QStringLiteral("one "));
    QSignalSpy arrived(m_edit.get(), &MyEdit::signalEdit);
    swipe(u"two"); // arrives when the event loop runs again
    m_edit->SaveAndExit();
    QTRY_COMPARE(arrived.count(), 1);
    QCOMPARE(m_edit->Recognize(pictureOfALine()), -1);
    QVERIFY(FakeOcr::images().empty());
    QVERIFY(m_edit->documentText().isEmpty());
}

void TestMyEdit::scanWhoseEndIsUnheardIsNotOverwritten()
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
void TestMyEdit::scanThatNeverArrivesIsFreed()
{
    open(QString());
    swipe(u"never read");
    m_edit.reset();
    QCoreApplication::processEvents();
    QVERIFY(FakeOcr::images().empty());
}

void TestMyEdit::emptyResultAddsNothingAndFails()
{
    open(QStringLiteral("text"));
    QSignalSpy finished(m_edit.get(), &MyEdit::signalEdit);
    swipe(u"");
    QTRY_VERIFY(m_edit->recognitionFailed());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_edit->documentText(), QStringLiteral("text"));
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEdit::doubtedTextIsUsedAndFails()
{
    open(QString());
    FakeOcr::setResult(u"doubt", 1);
    FakeIap::swipe(FakeIap::pattern(40, 10));
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("doubt "));
    QVERIFY(m_edit->recognitionFailed());
}

void TestMyEdit::recognitionOfNoImageGivesMinusOne()
{
    open(QString());
    auto* record = new _stImg;
    record->buffer = new unsigned char[4];
    QCOMPARE(m_edit->RecThread(record), -1);
    QVERIFY(FakeOcr::images().empty());
}

void TestMyEdit::recognitionOfNothingGivesMinusTwo()
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

void TestMyEdit::swipeWhileReadingSilencesAndIsRecognised()
{
    open(QString());
    FakeTts::setPace(FakeTts::Pace::Held);
    swipe(u"first line");
    QTRY_VERIFY(FakeTts::isSpeaking());
    QSignalSpy keys(m_edit.get(), &MyEdit::signalKeyPress);
    swipe(u"second line");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("first line second line "));
    QTRY_COMPARE(FakeTts::texts().size(), std::size_t(2));
    QCOMPARE(keys.count(), 1);
    QVERIFY(m_edit->scannedWhileReading());
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEdit::scanThatDoesNotFitIsDroppedWithAMessage()
{
    const QString full(32768, u'a');
    open(full);
    swipe(u"b");
    QTRY_COMPARE(m_messages->texts(), QStringList{TooBigToAppend});
    QCOMPARE(m_edit->documentText(), full);
    QVERIFY(FakeTts::texts().empty());
}

// 32,768 code units as they are saved: a line end is two.
void TestMyEdit::fullDocumentOfLinesTakesNoCharacter()
{
    open(QStringLiteral("\r\n").repeated(16'000) + QString(768, u'a'));
    QVERIFY(!m_edit->appendText(QStringLiteral("b")));
    QCOMPARE(m_messages->texts(), QStringList{TooBigToAppend});
    QCOMPARE(m_edit->documentText().size(), 16'768);
}

void TestMyEdit::paragraphBreakCountsOneMoreThanItsLength()
{
    const QString paragraph = QStringLiteral("\n    ");
    open(QString(32'763, u'a'));
    QVERIFY(!m_edit->appendText(paragraph)); // five characters would just fit
    m_edit->setPlainText(QString(32'762, u'a'));
    QVERIFY(m_edit->appendText(paragraph));
}

void TestMyEdit::fileOf65537BytesIsNotAutoSaved()
{
    const QString text(32'769, u'a');
    open(text);
    QVERIFY(m_edit->documentText().isEmpty());
    QCOMPARE(m_edit->autoSaveTimer(), 0);
    m_edit->insertPlainText(QStringLiteral("other"));
    QTimerEvent due(m_edit->autoSaveTimer());
    QCoreApplication::sendEvent(m_edit.get(), &due);
    QVERIFY(!m_edit->SaveOnly());
    QCOMPARE(savedText(), text);
}

void TestMyEdit::scanThatEndsUnderAnOpenDialogIsKept()
{
    open(QString());
    FakeOcr::hold();
    swipe(u"under a dialog");
    QCoreApplication::processEvents(); // Recognize() is called
    QVERIFY(FakeOcr::waitUntilRecognizing());
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
void TestMyEdit::scanLandsAtTheEndThoughTheUserWalks()
{
    open(QStringLiteral("one two "));
    FakeOcr::hold();
    swipe(u"three");
    QCoreApplication::processEvents(); // Recognize() is called
    QVERIFY(FakeOcr::waitUntilRecognizing());
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 4);
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("one two three "));
    QCOMPARE(m_edit->getCurPosition(), 8);
}

void TestMyEdit::scanStaysAtTheCursorWhenAsked()
{
    open(QStringLiteral("one two "));
    m_edit->setKeepPosition(true);
    m_edit->gotoBeginEdit();
    swipe(u"zero");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("zero one two "));
    QCOMPARE(m_edit->getCurPosition(), 0);
}

void TestMyEdit::scanIsAppendedWhileReadingIsOff()
{
    m_state->root.setSetting(QStringLiteral("InfoScan/ReadControl"), 1);
    open(QStringLiteral("one "));
    m_edit->gotoBeginEdit();
    swipe(u"two");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("one two "));
    QCOMPARE(m_edit->getCurPosition(), 4);
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEdit::scanGoesToTheEndWhereverTheCursorIs()
{
    open(QStringLiteral("one "));
    m_edit->gotoBeginEdit();
    QVERIFY(m_edit->appendText(QStringLiteral("two")));
    QCOMPARE(m_edit->documentText(), QStringLiteral("one two "));
    QCOMPARE(m_edit->getCurPosition(), 4); // where the scan begins
}

void TestMyEdit::noBreakSpaceSurvives()
{
    open(QStringLiteral("10\u00a0km"));
    QVERIFY(m_edit->SaveOnly());
    QCOMPARE(savedText(), QStringLiteral("10\u00a0km"));
}

void TestMyEdit::escapeWithoutFileOnlyAsks()
{
    m_state->load();
    m_edit = std::make_unique<MyEdit>();
    QSignalSpy asked(m_edit.get(), &MyEdit::signalEsc);
    QSignalSpy left(m_edit.get(), &MyEdit::signalDelete);
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(asked.count(), 1);
    QCOMPARE(left.count(), 0);
    QCOMPARE(fakes::calls("ZEMBRA_IAP_Uninitialize").size(), 0);
}

void TestMyEdit::escapeSavesAndGoesBack()
{
    open(QStringLiteral("one"));
    m_edit->appendText(QStringLiteral("\ntwo"));
    QStringList order;
    connect(m_edit.get(), &MyEdit::signalEsc, this, [&] { order.append(QStringLiteral("esc")); });
    connect(m_edit.get(), &MyEdit::signalDelete, this, [&] {
        order.append(m_edit->isVisible() ? QStringLiteral("early") : QStringLiteral("delete"));
    });
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(order, (QStringList{QStringLiteral("esc"), QStringLiteral("delete")}));
    QCOMPARE(savedText(), QStringLiteral("one\r\ntwo "));
    QVERIFY(m_edit->documentText().isEmpty());
    QVERIFY(!m_edit->isBound());
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(m_previous->isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_previous.get());
}

void TestMyEdit::textThatTheCardRefusesIsKeptAndComesBack()
{
    open(QStringLiteral("old "));
    m_edit->appendText(QStringLiteral("precious"));
    const QString path = m_state->root.path(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(m_messages->texts(), (QStringList{Damaged, Kept}));
    QVERIFY(!m_edit->isBound());
    QVERIFY(m_previous->isVisible());

    FileInfo info;
    QVERIFY(FileManager::Instance()->getInfoByID(0, info));
    QCOMPARE(m_edit->setFileInfo(info), 0); // while the card still fails
    QCOMPARE(m_edit->documentText(), QStringLiteral("old precious "));

    QVERIFY(QDir(path).removeRecursively());
    QCOMPARE(m_edit->setFileInfo(info), 0);
    QCOMPARE(m_edit->documentText(), QStringLiteral("old precious "));
    QCOMPARE(savedText(), QStringLiteral("old precious "));
}

void TestMyEdit::scansAreLoggedAtOnce()
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

void TestMyEdit::failedSaveKeepsTextAndScreen()
{
    open(QStringLiteral("precious"));
    QVERIFY(QDir().mkpath(m_state->root.path(QStringLiteral("/apps/config/store.jnl"))));
    const QString path = m_state->root.path(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(m_messages->texts(), QStringList{Damaged});
    QCOMPARE(m_edit->documentText(), QStringLiteral("precious"));
    QVERIFY(m_edit->isBound());
    QVERIFY(m_edit->isVisible());

    QVERIFY(QDir(path).removeRecursively());
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(savedText(), QStringLiteral("precious"));
    QVERIFY(m_previous->isVisible());
}

void TestMyEdit::stopOnlyLeavesTheFileAlone()
{
    open(QStringLiteral("one"));
    m_edit->appendText(QStringLiteral("two"));
    m_edit->StopOnly();
    QVERIFY(m_edit->documentText().isEmpty());
    QVERIFY(!FakeIap::isStarted());
    QCOMPARE(savedText(), QStringLiteral("one"));
}

void TestMyEdit::autoSaveTimerSaves()
{
    open(QStringLiteral("one "));
    int period = 0;
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(m_edit.get());
    for (const QAbstractEventDispatcher::TimerInfo& timer : timers)
        period = timer.timerId == m_edit->autoSaveTimer() ? timer.interval : period;
    QCOMPARE(period, 300'000);
    m_edit->appendText(QStringLiteral("two"));
    QTimerEvent foreign(m_edit->autoSaveTimer() + 1000);
    QCoreApplication::sendEvent(m_edit.get(), &foreign);
    QCOMPARE(savedText(), QStringLiteral("one "));
    QTimerEvent due(m_edit->autoSaveTimer());
    QCoreApplication::sendEvent(m_edit.get(), &due);
    QCOMPARE(savedText(), QStringLiteral("one two "));
    QVERIFY(m_edit->isBound());
}

void TestMyEdit::keysAreIgnoredWhileSwiping()
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

void TestMyEdit::arrowsWalkWords()
{
    open(QStringLiteral("one two\nthree"));
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 8);
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 4);
    QTest::keyClick(m_edit.get(), Qt::Key_Right);
    QCOMPARE(m_edit->getCurPosition(), 8);
    QTest::keyClick(m_edit.get(), Qt::Key_Up);
    QCOMPARE(m_edit->getCurPosition(), 0);
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 0);
}

void TestMyEdit::wordAtTheCursor()
{
    open(QStringLiteral("one, two"));
    QCOMPARE(m_edit->getWordFromMyEdit(), QStringLiteral("two"));
    m_edit->gotoBeginEdit();
    QCOMPARE(m_edit->getWordFromMyEdit(), QStringLiteral("one"));
}

QTEST_MAIN(TestMyEdit)
#include "tst_myedit.moc"
