#include "editor/quickseek.h"

#include <QTest>

class TestQuickSeek : public QObject
{
    Q_OBJECT

private slots:
    void beginsWordByWord();
    void goesOnLineByLine();
    void linesDoubleUpToALimit();
    void neverGetsSlower();
    void crossesTheLongestFileInReasonableTime();
    void startingBeginsAnew();
};

void TestQuickSeek::beginsWordByWord()
{
    for (int tick = 0; tick < QuickSeek::WordTicks; ++tick) {
        QCOMPARE(QuickSeek::stepAt(tick).unit, QuickSeek::Unit::Word);
        QCOMPARE(QuickSeek::stepAt(tick).count, 1);
    }
}

void TestQuickSeek::goesOnLineByLine()
{
    for (int i = 0; i < QuickSeek::LineTicks; ++i) {
        const QuickSeek::Step step = QuickSeek::stepAt(QuickSeek::WordTicks + i);
        QCOMPARE(step.unit, QuickSeek::Unit::Line);
        QCOMPARE(step.count, 1);
    }
}

void TestQuickSeek::linesDoubleUpToALimit()
{
    const int first = QuickSeek::WordTicks + QuickSeek::LineTicks;
    QCOMPARE(QuickSeek::stepAt(first).count, 2);
    QCOMPARE(QuickSeek::stepAt(first + QuickSeek::DoublingTicks - 1).count, 2);
    QCOMPARE(QuickSeek::stepAt(first + QuickSeek::DoublingTicks).count, 4);
    QCOMPARE(QuickSeek::stepAt(100'000).count, QuickSeek::MaxLines);
}

void TestQuickSeek::neverGetsSlower()
{
    int before = 0;
    for (int tick = QuickSeek::WordTicks; tick < 200; ++tick) {
        const QuickSeek::Step step = QuickSeek::stepAt(tick);
        QCOMPARE(step.unit, QuickSeek::Unit::Line);
        QVERIFY(step.count >= before);
        before = step.count;
    }
}

// A file of the greatest size that is nothing but line ends.
void TestQuickSeek::crossesTheLongestFileInReasonableTime()
{
    int lines = 0;
    int ticks = 0;
    for (; lines < 16'384; ++ticks) {
        const QuickSeek::Step step = QuickSeek::stepAt(ticks);
        lines += step.unit == QuickSeek::Unit::Line ? step.count : 0;
    }
    QVERIFY2(ticks * QuickSeek::IntervalMs < 20'000, qPrintable(QString::number(ticks)));
}

void TestQuickSeek::startingBeginsAnew()
{
    QuickSeek seek;
    QVERIFY(!seek.isActive());
    seek.start(QuickSeek::Direction::Back);
    for (int i = 0; i < 50; ++i)
        seek.next();
    seek.stop();
    QVERIFY(!seek.isActive());
    seek.start(QuickSeek::Direction::Forward);
    QVERIFY(seek.isActive());
    QCOMPARE(seek.direction(), QuickSeek::Direction::Forward);
    QCOMPARE(seek.next().unit, QuickSeek::Unit::Word);
}

QTEST_GUILESS_MAIN(TestQuickSeek)
#include "tst_quickseek.moc"
