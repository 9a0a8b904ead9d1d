#include "engines/csoundtransthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictfixture.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

/* What the translate screen marks of the text that is being spoken. */
class TestDictScanEditMarking : public DictFixture
{
    Q_OBJECT

private slots:
    void theSpokenWordIsMarked_data();
    void theSpokenWordIsMarked();
    void theWordItselfReportsNothing();
    void marksOfTheSecondEntry();
    void thePaneGoesAlongAndBack_data();
    void thePaneGoesAlongAndBack();
    void lateReportsMarkNothing();
    void reportsOfWhatIsNoWordMarkNothing();
};

void TestDictScanEditMarking::theSpokenWordIsMarked_data()
{
    QTest::addColumn<int>("wordPause");
    QTest::newRow("punctuation pauses") << 0;
    QTest::newRow("word pauses") << 2;
}

void TestDictScanEditMarking::theSpokenWordIsMarked()
{
    QFETCH(int, wordPause);
    m_state->root.setSetting(QStringLiteral("SystemSet/WORDPAUSE"), wordPause);
    open(101, 104, {{"ran", "1. laufen [v], rennen 2. Lauf [m]\n[ran]", "run"}});
    holdEntry(QStringLiteral("ran"));
    const QStringList words = {"1", "laufen", ",", "rennen", "2", "Lauf"};
    for (const QString& word : words) {
        QVERIFY(FakeTts::speakWord());
        QTRY_VERIFY2(marked().startsWith(word), qPrintable(word + u'/' + marked()));
    }
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(marked(), QString());
    waitUntilSilent();
}

void TestDictScanEditMarking::theWordItselfReportsNothing()
{
    openEnglish();
    FakeTts::setPace(FakeTts::Pace::Held);
    QSignalSpy reports(m_edit.get(), &DictScanEdit::signalTTShignlight);
    m_edit->setScanText(QStringLiteral("house"), true);
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(FakeTts::speakWord());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(m_edit->transThread()->isRunning() && FakeTts::isSpeaking());
    QCOMPARE(reports.count(), 0);
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(reports.count(), 1);
    QVERIFY(FakeTts::finish());
    waitUntilSilent();
}

void TestDictScanEditMarking::marksOfTheSecondEntry()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    waitUntilSilent();
    FakeTts::setPace(FakeTts::Pace::Held);
    press(Qt::Key_F8);
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(marked(), QStringLiteral("Lauf"));
    QVERIFY(FakeTts::finish());
    waitUntilSilent();
    press(Qt::Key_Down); // one entry on the whole screen
    press(Qt::Key_Return);
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(m_edit->transThread()->isRunning() && FakeTts::isSpeaking());
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(marked(), QStringLiteral("Lauf"));
    QVERIFY(FakeTts::finish());
    waitUntilSilent();
}

void TestDictScanEditMarking::thePaneGoesAlongAndBack_data()
{
    QTest::addColumn<bool>("stopped");
    QTest::newRow("read to its end") << false;
    QTest::newRow("stopped") << true;
}

void TestDictScanEditMarking::thePaneGoesAlongAndBack()
{
    QFETCH(bool, stopped);
    open(101, 104, {{"a", QStringLiteral("word after word ").repeated(12)}});
    const QScrollBar* bar =
        m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans"))->verticalScrollBar();
    holdEntry(QStringLiteral("a"));
    for (int i = 0; i < 30; ++i)
        QVERIFY(FakeTts::speakWord());
    QTRY_VERIFY(bar->value() > 0);
    if (stopped)
        press(Qt::Key_Return);
    else
        QVERIFY(FakeTts::finish());
    QTRY_COMPARE(bar->value(), 0);
    waitUntilSilent();
}

void TestDictScanEditMarking::lateReportsMarkNothing()
{
    openEnglish();
    holdEntry(QStringLiteral("house"));
    QVERIFY(FakeTts::speakWord()); // its report is on its way
    m_edit->stopReading();
    QCoreApplication::processEvents();
    QCOMPARE(marked(), QString());
    waitUntilSilent();
    m_edit->TTShignlightFun(0, 4, 0);
    QCOMPARE(marked(), QString());
}

void TestDictScanEditMarking::reportsOfWhatIsNoWordMarkNothing()
{
    openEnglish();
    holdEntry(QStringLiteral("house"));
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(marked(), QStringLiteral("Haus"));
    m_edit->TTShignlightFun(7, 4, 1);    // no word
    m_edit->TTShignlightFun(9999, 4, 0); // outside the text
    m_edit->TTShignlightFun(-1, 4, 0);
    m_edit->TTShignlightFun(0, 0, 0);
    QCOMPARE(marked(), QStringLiteral("Haus"));
    QVERIFY(FakeTts::finish());
    waitUntilSilent();
}

TEST_OBJECT(TestDictScanEditMarking)
#include "tst_dictscanedit_marking.moc"
