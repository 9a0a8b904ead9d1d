#include "widgets/talkinglist.h"

#include <QTest>

class TestTalkingList : public QObject
{
    Q_OBJECT

private slots:
    void startsEmptyAtIndexZero();
    void setCurrentRefusesWhatIsOutside();
    void stopsAtBothEnds();
    void countsFromTheEnd();
    void rowsScrollNoMoreThanNeeded();
    void marksTellWhatIsHidden_data();
    void marksTellWhatIsHidden();
    void shorterListKeepsTheCurrentEntryInside();
    void positionCountsFromOne();
    void textThatFitsNeverScrolls();
    void scrollRestsMovesRestsAndBeginsAnew();
    void scrollNeverPassesTheEndOfTheText();
};

static TalkingList listOf(int count, int current = 0)
{
    TalkingList list;
    list.setCount(count);
    list.setCurrent(current);
    return list;
}

void TestTalkingList::startsEmptyAtIndexZero()
{
    TalkingList list;
    QCOMPARE(list.current(), 0);
    QVERIFY(!list.hasCurrent());
    QCOMPARE(list.visibleCount(), 0);
    QVERIFY(!list.moveUp());
    QVERIFY(!list.moveDown());
    QVERIFY(!list.setCurrent(0));
    QVERIFY(!list.moreAbove());
    QVERIFY(!list.moreBelow());
    QCOMPARE(list.positionText(), QString());
}

void TestTalkingList::setCurrentRefusesWhatIsOutside()
{
    TalkingList list = listOf(5, 2);
    QVERIFY(!list.setCurrent(-1));
    QVERIFY(!list.setCurrent(5));
    QCOMPARE(list.current(), 2);
    QVERIFY(list.setCurrent(4));
    QVERIFY(list.setCurrent(0));
}

void TestTalkingList::stopsAtBothEnds()
{
    TalkingList list = listOf(2);
    QVERIFY(!list.moveUp());
    QCOMPARE(list.current(), 0);
    QVERIFY(list.moveDown());
    QVERIFY(!list.moveDown());
    QCOMPARE(list.current(), 1);
}

void TestTalkingList::countsFromTheEnd()
{
    QCOMPARE(listOf(5, 1).fromEnd(), 3);
    QCOMPARE(listOf(5, 4).fromEnd(), 0);
    QCOMPARE(listOf(1, 0).fromEnd(), 0);
}

void TestTalkingList::rowsScrollNoMoreThanNeeded()
{
    TalkingList list = listOf(6);
    QList<int> firsts;
    while (list.moveDown())
        firsts.append(list.firstVisible());
    QCOMPARE(firsts, (QList<int>{0, 0, 1, 2, 3}));
    firsts.clear();
    while (list.moveUp())
        firsts.append(list.firstVisible());
    QCOMPARE(firsts, (QList<int>{3, 3, 2, 1, 0}));
}

void TestTalkingList::marksTellWhatIsHidden_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("above");
    QTest::addColumn<bool>("below");
    QTest::newRow("three fit") << 3 << 2 << false << false;
    QTest::newRow("four at the start") << 4 << 0 << false << true;
    QTest::newRow("four at the end") << 4 << 3 << true << false;
    QTest::newRow("five in the middle") << 5 << 3 << true << true;
}

void TestTalkingList::marksTellWhatIsHidden()
{
    QFETCH(int, count);
    QFETCH(int, current);
    const TalkingList list = listOf(count, current);
    QTEST(list.moreAbove(), "above");
    QTEST(list.moreBelow(), "below");
}

void TestTalkingList::shorterListKeepsTheCurrentEntryInside()
{
    TalkingList list = listOf(6, 5);
    list.setCount(5);
    QCOMPARE(list.current(), 4);
    QCOMPARE(list.firstVisible(), 2);
    list.setCount(2);
    QCOMPARE(list.current(), 1);
    QCOMPARE(list.firstVisible(), 0);
    QCOMPARE(list.visibleCount(), 2);
    list.setCount(-1);
    QCOMPARE(list.count(), 0);
    QCOMPARE(list.current(), 0);
}

void TestTalkingList::positionCountsFromOne()
{
    QCOMPARE(listOf(12, 9).positionText(), QStringLiteral("10/12"));
}

void TestTalkingList::textThatFitsNeverScrolls()
{
    for (int tick = 0; tick < 200; ++tick)
        QCOMPARE(slowscroll::offset(tick, 100, 100), 0);
}

void TestTalkingList::scrollRestsMovesRestsAndBeginsAnew()
{
    using namespace slowscroll;
    const int moving = 5; // ten pixels too long
    for (int tick = 0; tick < RestTicks; ++tick)
        QCOMPARE(offset(tick, 110, 100), 0);
    QCOMPARE(offset(RestTicks, 110, 100), 2);
    QCOMPARE(offset(RestTicks + 1, 110, 100), 4);
    for (int tick = RestTicks + moving - 1; tick < RestTicks + moving + RestTicks; ++tick)
        QCOMPARE(offset(tick, 110, 100), 10);
    QCOMPARE(offset(RestTicks + moving + RestTicks, 110, 100), 0);
    QCOMPARE(offset(-1, 110, 100), 0);
}

void TestTalkingList::scrollNeverPassesTheEndOfTheText()
{
    for (int tick = 0; tick < 300; ++tick)
        QVERIFY(slowscroll::offset(tick, 111, 100) <= 11);
}

QTEST_GUILESS_MAIN(TestTalkingList)
#include "tst_talkinglist.moc"
