#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"

#include <QSignalSpy>
#include <QTest>

/* Seeking with F7 and F8; ticks are given by hand. */
class TestMyEditSeek : public EditorFixture
{
    Q_OBJECT

private slots:
    void tapGoesOneWordAndSpeaksIt();
    void heldKeyGoesOnSilently();
    void wordsGiveWayToLines();
    void repeatedPressesDoNotBeginAnew();
    void atTheEndTheLastWordIsSpoken_data();
    void atTheEndTheLastWordIsSpoken();
    void otherKeyEndsTheSeek();
    void oppositeKeyTakesOver();
    void foreignReleaseDoesNotEndIt();
    void losingTheFocusEndsItSilently();
    void hidingEndsItSilently();
    void swipeEndsIt();
    void scanThatArrivesTakesTheCursor();
    void tickWithoutAKeyDoesNothing();
    void ticksComeFromATimer();

private:
    void key(QEvent::Type type, int code, bool repeated = false);
    void tick(int times);
    QString lastSpoken() const;
};

void TestMyEditSeek::key(QEvent::Type type, int code, bool repeated)
{
    QKeyEvent event(type, code, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(m_edit.get(), &event);
}

void TestMyEditSeek::tick(int times)
{
    for (int i = 0; i < times; ++i)
        m_edit->quickSeek();
}

QString TestMyEditSeek::lastSpoken() const
{
    const std::vector<std::u16string> texts = FakeTts::texts();
    return texts.empty() ? QString() : QString::fromStdU16String(texts.back());
}

void TestMyEditSeek::tapGoesOneWordAndSpeaksIt()
{
    open(QStringLiteral("one two three"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    QCOMPARE(m_edit->getCurPosition(), 4);
    QVERIFY(FakeTts::texts().empty());
    key(QEvent::KeyRelease, Qt::Key_F8);
    QVERIFY(!m_edit->isSeeking());
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two"));
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    key(QEvent::KeyPress, Qt::Key_F7);
    key(QEvent::KeyRelease, Qt::Key_F7);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("one"));
    QCOMPARE(m_edit->getCurPosition(), 0);
}

void TestMyEditSeek::heldKeyGoesOnSilently()
{
    open(QStringLiteral("one two three four five"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    tick(2);
    QCOMPARE(m_edit->getWordFromMyEdit(), QStringLiteral("four"));
    QVERIFY(!m_edit->soundThread()->isRunning());
    key(QEvent::KeyRelease, Qt::Key_F8);
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"four"}));
}

void TestMyEditSeek::wordsGiveWayToLines()
{
    QStringList lines;
    for (int i = 0; i < 100; ++i)
        lines.append(QStringLiteral("line%1 a b").arg(i));
    open(lines.join(u'\n'));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    tick(QuickSeek::WordTicks - 1);
    QCOMPARE(m_edit->getWordFromMyEdit(), QStringLiteral("a")); // ten words on
    tick(QuickSeek::LineTicks);
    tick(QuickSeek::DoublingTicks);
    key(QEvent::KeyRelease, Qt::Key_F8);
    // Ten words are three lines and one word; then ten lines, then five times two.
    QCOMPARE(m_edit->textCursor().blockNumber(), 3 + 10 + 10);
    QTRY_VERIFY(!lastSpoken().isEmpty());
    QCOMPARE(lastSpoken(), m_edit->getWordFromMyEdit());
}

void TestMyEditSeek::repeatedPressesDoNotBeginAnew()
{
    open(QStringLiteral("one two three four"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    QSignalSpy keys(m_edit.get(), &MyEdit::signalKeyPress);
    for (int i = 0; i < 20; ++i) {
        key(QEvent::KeyRelease, Qt::Key_F8, true);
        key(QEvent::KeyPress, Qt::Key_F8, true);
    }
    QVERIFY(m_edit->isSeeking());
    QCOMPARE(m_edit->getCurPosition(), 4);
    QCOMPARE(keys.count(), 0);
    key(QEvent::KeyRelease, Qt::Key_F8);
    QVERIFY(!m_edit->isSeeking());
}

void TestMyEditSeek::atTheEndTheLastWordIsSpoken_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("ticks");
    QTest::addColumn<QString>("word");
    QTest::newRow("forward by words") << int(Qt::Key_F8) << 9 << "last";
    QTest::newRow("forward by lines") << int(Qt::Key_F8) << 40 << "last";
    QTest::newRow("back by words") << int(Qt::Key_F7) << 9 << "first";
    QTest::newRow("back by lines") << int(Qt::Key_F7) << 40 << "first";
}

void TestMyEditSeek::atTheEndTheLastWordIsSpoken()
{
    QFETCH(int, code);
    QFETCH(int, ticks);
    QFETCH(QString, word);
    const QString middle =
        ticks > QuickSeek::WordTicks ? QStringLiteral("a b\n").repeated(20) : QString();
    open(QStringLiteral(" first ") + middle + QStringLiteral("mid ") + middle
         + QStringLiteral("last. "));
    QTextCursor place = m_edit->textCursor();
    place.setPosition(static_cast<int>(m_edit->documentText().indexOf(QStringLiteral("mid"))));
    m_edit->setTextCursor(place);
    QSignalSpy hints(m_edit.get(), &MyEdit::signalHint);
    key(QEvent::KeyPress, code);
    tick(ticks);
    QVERIFY(!m_edit->isSeeking()); // though the key is still held
    key(QEvent::KeyPress, code, true);
    QTRY_COMPARE(lastSpoken(), word);
    QCOMPARE(m_edit->getWordFromMyEdit(), word);
    QCOMPARE(hints.count(), 0);
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    key(QEvent::KeyRelease, code);
    QCOMPARE(FakeTts::texts().size(), std::size_t(1));
}

void TestMyEditSeek::otherKeyEndsTheSeek()
{
    open(QStringLiteral("one two three four"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    key(QEvent::KeyPress, Qt::Key_Right);
    QVERIFY(!m_edit->isSeeking());
    QCOMPARE(m_edit->getCurPosition(), 8);
    key(QEvent::KeyRelease, Qt::Key_F8);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("three"));
    QCOMPARE(m_edit->getCurPosition(), 8);
}

void TestMyEditSeek::oppositeKeyTakesOver()
{
    open(QStringLiteral("one two three four"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    tick(1);
    key(QEvent::KeyPress, Qt::Key_F7);
    QCOMPARE(m_edit->getCurPosition(), 4);
    key(QEvent::KeyRelease, Qt::Key_F8);
    QVERIFY(m_edit->isSeeking());
    key(QEvent::KeyRelease, Qt::Key_F7);
    QTRY_COMPARE(lastSpoken(), QStringLiteral("two"));
}

void TestMyEditSeek::foreignReleaseDoesNotEndIt()
{
    open(QStringLiteral("one two three"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    key(QEvent::KeyRelease, Qt::Key_Left);
    key(QEvent::KeyRelease, Qt::Key_F7);
    QVERIFY(m_edit->isSeeking());
}

void TestMyEditSeek::losingTheFocusEndsItSilently()
{
    open(QStringLiteral("one two three"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    QFocusEvent lost(QEvent::FocusOut, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(m_edit.get(), &lost);
    QVERIFY(!m_edit->isSeeking());
    tick(1);
    QCOMPARE(m_edit->getCurPosition(), 4);
    QVERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditSeek::hidingEndsItSilently()
{
    open(QStringLiteral("one two three"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    m_edit->hide();
    QVERIFY(!m_edit->isSeeking());
    QVERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditSeek::swipeEndsIt()
{
    open(QStringLiteral("one two three"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    QVERIFY(FakeIap::press());
    tick(1);
    QVERIFY(!m_edit->isSeeking());
    QCOMPARE(m_edit->getCurPosition(), 4);
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
}

void TestMyEditSeek::scanThatArrivesTakesTheCursor()
{
    open(QStringLiteral("one two "));
    swipeOver(u"new text"); // recognised by and by
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("one two new text "));
    QVERIFY(!m_edit->isSeeking());
    QTRY_COMPARE(lastSpoken(), QStringLiteral("new text"));
}

void TestMyEditSeek::tickWithoutAKeyDoesNothing()
{
    open(QStringLiteral("one two"));
    m_edit->gotoBeginEdit();
    tick(3);
    QCOMPARE(m_edit->getCurPosition(), 0);
}

void TestMyEditSeek::ticksComeFromATimer()
{
    open(QStringLiteral("one two three four"));
    m_edit->gotoBeginEdit();
    key(QEvent::KeyPress, Qt::Key_F8);
    QTRY_COMPARE(m_edit->getCurPosition(), 8);
    key(QEvent::KeyRelease, Qt::Key_F8);
}

TEST_OBJECT(TestMyEditSeek)
#include "tst_myedit_seek.moc"
