#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"
#include "widgets/hintline.h"

#include <QSignalSpy>
#include <QTest>

/* The cursor walks over words and lines: where it comes to, what is heard and what is told. */
class TestMyEditWalk : public EditorFixture
{
    Q_OBJECT

private slots:
    void stepSpeaksTheWord();
    void steppedWordIsMarked();
    void newerStepSilencesTheOlder();
    void steppingGoesCharacterByCharacterInChinese();
    void stepIsSilentAboutSeparators();
    void readAgainStaysWithThePassage();
    void linesAreWalkedSilently();
    void okReadsFromTheLine();
    void okWhileAWordIsSpokenReadsOn();
    void okAtTheEndReadsFromTheBeginning();
    void endsAreTold_data();
    void endsAreTold();
    void emptyDocumentTellsSo_data();
    void emptyDocumentTellsSo();
    void hintGoesWithAKeyAndWithTime();
    void wordsBesideTheCursor();
    void lateReportDoesNotMoveTheCursorBack();
    void anyKeyEndsAReading_data();
    void anyKeyEndsAReading();
    void heldOkSwitchesOnce();

private:
    QString lastSpoken() const;
    HintLine* hint() const { return m_edit->findChild<HintLine*>(); }
    void press(int key, const QString& text = {}, bool repeated = false);
};

QString TestMyEditWalk::lastSpoken() const
{
    const std::vector<std::u16string> texts = FakeTts::texts();
    return texts.empty() ? QString() : QString::fromStdU16String(texts.back());
}

void TestMyEditWalk::press(int key, const QString& text, bool repeated)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text, repeated);
    QCoreApplication::sendEvent(m_edit.get(), &event);
}

void TestMyEditWalk::stepSpeaksTheWord()
{
    open(QStringLiteral("one, two three"));
    m_edit->gotoBeginEdit();
    press(Qt::Key_Right);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two"));
    QCOMPARE(m_edit->getCurPosition(), 5);
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    press(Qt::Key_Left);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("one"));
    QCOMPARE(m_edit->getCurPosition(), 0);
}

void TestMyEditWalk::steppedWordIsMarked()
{
    open(QStringLiteral("one two"));
    FakeTts::setPace(FakeTts::Pace::Held);
    m_edit->gotoBeginEdit();
    press(Qt::Key_Right);
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(m_edit->extraSelections().size(), 1);
    QCOMPARE(m_edit->getStartPosition(), 4);
    QCOMPARE(m_edit->getEndPosition(), 7);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(m_edit->extraSelections().isEmpty());
}

void TestMyEditWalk::newerStepSilencesTheOlder()
{
    open(QStringLiteral("one two three"));
    FakeTts::setPace(FakeTts::Pace::Held);
    m_edit->gotoBeginEdit();
    press(Qt::Key_Right);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two"));
    press(Qt::Key_Right);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("three"));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditWalk::steppingGoesCharacterByCharacterInChinese()
{
    open(QStringLiteral("\u4f60\u597d USB"));
    m_edit->gotoBeginEdit();
    press(Qt::Key_Right);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("\u597d"));
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    press(Qt::Key_Right);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("USB"));
}

void TestMyEditWalk::stepIsSilentAboutSeparators()
{
    open(QStringLiteral("one ,.:;?! two"));
    m_edit->gotoBeginEdit();
    press(Qt::Key_Right);
    QCOMPARE(m_edit->getCurPosition(), 11);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two"));
}

void TestMyEditWalk::readAgainStaysWithThePassage()
{
    open(QStringLiteral("one two three"));
    m_edit->gotoBeginEdit();
    press(Qt::Key_Right);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two"));
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    press(Qt::Key_Return);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two three"));
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    press(Qt::Key_Left);
    QTRY_VERIFY(lastSpoken() != QStringLiteral("two three"));
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    m_edit->soundAgain();
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two three"));
}

void TestMyEditWalk::linesAreWalkedSilently()
{
    open(QStringLiteral("one two\nthree four\nfive"));
    m_edit->gotoBeginEdit();
    press(Qt::Key_Down);
    QCOMPARE(m_edit->getCurPosition(), 8);
    press(Qt::Key_Down);
    QCOMPARE(m_edit->getCurPosition(), 19);
    press(Qt::Key_Up);
    QCOMPARE(m_edit->getCurPosition(), 8);
    QVERIFY(!m_edit->soundThread()->isRunning());
    QVERIFY(FakeTts::texts().empty());
    QVERIFY(!hint()->isVisible());
}

void TestMyEditWalk::okReadsFromTheLine()
{
    open(QStringLiteral("one two\nthree four"));
    m_edit->gotoBeginEdit();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("three four"));
}

void TestMyEditWalk::okWhileAWordIsSpokenReadsOn()
{
    open(QStringLiteral("one two three"));
    FakeTts::setPace(FakeTts::Pace::Held);
    m_edit->gotoBeginEdit();
    press(Qt::Key_Right);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two"));
    press(Qt::Key_Return);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two three"));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditWalk::okAtTheEndReadsFromTheBeginning()
{
    open(QStringLiteral("one two. "));
    press(Qt::Key_Return);
    QTRY_COMPARE(lastSpoken().left(7), QStringLiteral("one two"));
}

void TestMyEditWalk::endsAreTold_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<QString>("told");
    const QString start = QStringLiteral("Start of text.");
    const QString end = QStringLiteral("End of text.");
    QTest::newRow("Left") << int(Qt::Key_Left) << 0 << start;
    QTest::newRow("Up") << int(Qt::Key_Up) << 0 << start;
    QTest::newRow("F7") << int(Qt::Key_F7) << 0 << start;
    QTest::newRow("Right") << int(Qt::Key_Right) << 4 << end;
    QTest::newRow("Down") << int(Qt::Key_Down) << 4 << end;
    QTest::newRow("F8") << int(Qt::Key_F8) << 4 << end;
}

void TestMyEditWalk::endsAreTold()
{
    QFETCH(int, key);
    QFETCH(int, cursor);
    QFETCH(QString, told);
    open(QStringLiteral("one two "));
    QTextCursor place = m_edit->textCursor();
    place.setPosition(cursor);
    m_edit->setTextCursor(place);
    QSignalSpy hints(m_edit.get(), &MyEdit::signalHint);
    press(key);
    QCOMPARE(hints, (QList<QVariantList>{{told}}));
    QVERIFY(hint()->isVisible());
    QCOMPARE(hint()->text(), told);
    QCOMPARE(m_edit->getCurPosition(), cursor == 0 ? 0 : 8);
    QVERIFY(FakeTts::texts().empty());
    QVERIFY(!m_edit->isSeeking());
}

void TestMyEditWalk::emptyDocumentTellsSo_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    for (const int key : {Qt::Key_Return, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down,
                          Qt::Key_F7, Qt::Key_F8})
        QTest::addRow("key %x", key) << key << QString();
    QTest::newRow("only separators") << int(Qt::Key_Return) << QStringLiteral(" .,:;?! ");
}

void TestMyEditWalk::emptyDocumentTellsSo()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    open(text);
    QSignalSpy hints(m_edit.get(), &MyEdit::signalHint);
    press(key);
    QCOMPARE(hints, (QList<QVariantList>{{QStringLiteral("No text.")}}));
    QVERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditWalk::hintGoesWithAKeyAndWithTime()
{
    open(QString());
    press(Qt::Key_Left);
    QVERIFY(hint()->isVisible());
    press(Qt::Key_Space);
    QVERIFY(!hint()->isVisible());
    press(Qt::Key_Left);
    QTimerEvent timeOver(hint()->timerId());
    QCoreApplication::sendEvent(hint(), &timeOver);
    QVERIFY(!hint()->isVisible());
    QCOMPARE(hint()->timerId(), 0);
}

void TestMyEditWalk::wordsBesideTheCursor()
{
    open(QStringLiteral("one two three"));
    m_edit->gotoBeginEdit();
    QVERIFY(!m_edit->GetPrevWod().isValid());
    QVERIFY(!m_edit->MovePrevWord());
    QCOMPARE(m_edit->GetNextWod().start, 4);
    QVERIFY(m_edit->MoveNextWord());
    QVERIFY(m_edit->MoveNextWord());
    QCOMPARE(m_edit->getCurPosition(), 8);
    QVERIFY(!m_edit->GetNextWod().isValid());
    QVERIFY(!m_edit->MoveNextWord());
    QCOMPARE(m_edit->GetPrevWod().start, 4);
    QVERIFY(m_edit->MovePrevWord());
    QCOMPARE(m_edit->getCurPosition(), 4);
    QVERIFY(FakeTts::texts().empty());
}

// The report of a word waits in the event queue when the key comes.
void TestMyEditWalk::lateReportDoesNotMoveTheCursorBack()
{
    open(QStringLiteral("one two three"));
    beginReading();
    QVERIFY(FakeTts::speakWord());
    QVERIFY(FakeTts::speakWord());
    QVERIFY(FakeTts::speakWord());
    press(Qt::Key_Down);
    QCoreApplication::processEvents();
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QCOMPARE(m_edit->getCurPosition(), 13); // where Down led
    QVERIFY(m_edit->extraSelections().isEmpty());
}

void TestMyEditWalk::anyKeyEndsAReading_data()
{
    QTest::addColumn<int>("key");
    for (const int key : {Qt::Key_Return, Qt::Key_Up, Qt::Key_Down, Qt::Key_F9, Qt::Key_Space})
        QTest::addRow("key %x", key) << key;
}

void TestMyEditWalk::anyKeyEndsAReading()
{
    QFETCH(int, key);
    open(QStringLiteral("one two\nthree"));
    beginReading();
    press(key);
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QCOMPARE(FakeTts::texts().size(), std::size_t(1));
}

void TestMyEditWalk::heldOkSwitchesOnce()
{
    open(QStringLiteral("one two"));
    beginReading();
    press(Qt::Key_Return, {}, true);
    press(Qt::Key_Return, {}, true);
    QVERIFY(FakeTts::isSpeaking());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QCOMPARE(FakeTts::texts().size(), std::size_t(1));
}

TEST_OBJECT(TestMyEditWalk)
#include "tst_myedit_walk.moc"
