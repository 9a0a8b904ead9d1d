#include "widgets/rowlayout.h"
#include "widgets/valuelist.h"

#include <QTest>
#include <limits>

/* What stands behind a settings row: its values, and where they stand. */
class TestValueList : public QObject
{
    Q_OBJECT

private slots:
    void emptyListStaysAtNothing();
    void setIndexRefusesWhatIsOutside();
    void wrapsAroundBothEnds();
    void stopsAtBothEnds();
    void singleValueNeverChanges();
    void advanceStopsAtTheEnds();
    void windowHoldsTheChosenValue_data();
    void windowHoldsTheChosenValue();

    void shortValueStandsInItsColumn();
    void longValueBeginsBehindTheLabel();
    void longLabelNeverPushesTheValue();
    void narrowRowHasNoNegativeRoom();
};

using End = ValueList::End;

static ValueList listOf(int count, int index = 0)
{
    ValueList list;
    for (int i = 0; i < count; ++i)
        list.append(QString::number(i));
    list.setIndex(index);
    return list;
}

void TestValueList::emptyListStaysAtNothing()
{
    ValueList list;
    for (const End end : {End::Wrap, End::Stop}) {
        QVERIFY(!list.next(end));
        QVERIFY(!list.previous(end));
    }
    QVERIFY(!list.advance(1));
    QVERIFY(!list.setIndex(0));
    QCOMPARE(list.index(), 0);
    QCOMPARE(list.current(), QString());
    QCOMPARE(list.firstShown(3), 0);
}

void TestValueList::setIndexRefusesWhatIsOutside()
{
    ValueList list = listOf(3, 1);
    QVERIFY(!list.setIndex(-1));
    QVERIFY(!list.setIndex(3));
    QCOMPARE(list.index(), 1);
    QVERIFY(list.setIndex(2));
    QCOMPARE(list.current(), QStringLiteral("2"));
    QCOMPARE(list.at(3), QString());
    QCOMPARE(list.at(-1), QString());
}

void TestValueList::wrapsAroundBothEnds()
{
    ValueList list = listOf(3, 2);
    QVERIFY(list.next(End::Wrap));
    QCOMPARE(list.index(), 0);
    QVERIFY(list.previous(End::Wrap));
    QCOMPARE(list.index(), 2);
    QVERIFY(list.previous(End::Wrap));
    QCOMPARE(list.index(), 1);
}

void TestValueList::stopsAtBothEnds()
{
    ValueList list = listOf(2);
    QVERIFY(!list.previous(End::Stop));
    QCOMPARE(list.index(), 0);
    QVERIFY(list.next(End::Stop));
    QVERIFY(!list.next(End::Stop));
    QCOMPARE(list.index(), 1);
}

void TestValueList::singleValueNeverChanges()
{
    ValueList list = listOf(1);
    for (const End end : {End::Wrap, End::Stop}) {
        QVERIFY(!list.next(end));
        QVERIFY(!list.previous(end));
    }
    QCOMPARE(list.index(), 0);
}

void TestValueList::advanceStopsAtTheEnds()
{
    ValueList list = listOf(5, 1);
    QVERIFY(list.advance(2));
    QCOMPARE(list.index(), 3);
    QVERIFY(list.advance(std::numeric_limits<int>::max()));
    QCOMPARE(list.index(), 4);
    QVERIFY(!list.advance(1));
    QVERIFY(list.advance(std::numeric_limits<int>::min()));
    QCOMPARE(list.index(), 0);
    QVERIFY(!list.advance(0));
}

void TestValueList::windowHoldsTheChosenValue_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("first");
    QTest::newRow("start") << 5 << 0 << 3 << 0;
    QTest::newRow("middle") << 5 << 2 << 3 << 1;
    QTest::newRow("end") << 5 << 4 << 3 << 2;
    QTest::newRow("even window") << 5 << 2 << 2 << 1;
    QTest::newRow("all fit") << 2 << 1 << 3 << 0;
    QTest::newRow("one") << 5 << 3 << 1 << 3;
    QTest::newRow("none") << 5 << 3 << 0 << 0;
}

void TestValueList::windowHoldsTheChosenValue()
{
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(int, shown);
    QTEST(listOf(count, index).firstShown(shown), "first");
}

void TestValueList::shortValueStandsInItsColumn()
{
    const rowlayout::Place place = rowlayout::place(246, 88, 24, 8);
    QCOMPARE(place.valueX, 170);
    QCOMPARE(place.valueRoom, 71);
    QCOMPARE(place.labelRoom, 160);
}

void TestValueList::longValueBeginsBehindTheLabel()
{
    const rowlayout::Place partly = rowlayout::place(246, 40, 120, 8);
    QCOMPARE(partly.valueX, 121);
    QCOMPARE(partly.valueRoom, 120);
    const rowlayout::Place all = rowlayout::place(246, 40, 400, 8);
    QCOMPARE(all.valueX, 50);
    QCOMPARE(all.labelRoom, 40);
    const rowlayout::Place alone = rowlayout::place(246, 0, 400, 8);
    QCOMPARE(alone.valueX, 0);
    QCOMPARE(alone.valueRoom, 241);
}

void TestValueList::longLabelNeverPushesTheValue()
{
    for (const int valueWidth : {0, 30, 400}) {
        const rowlayout::Place place = rowlayout::place(246, 300, valueWidth, 8);
        QCOMPARE(place.valueX, 170);
        QCOMPARE(place.labelRoom, 160);
    }
}

void TestValueList::narrowRowHasNoNegativeRoom()
{
    for (const int width : {0, 1, 100}) {
        const rowlayout::Place place = rowlayout::place(width, 50, 50, 200);
        QVERIFY(place.labelRoom >= 0);
        QVERIFY(place.valueRoom >= 0);
        QVERIFY(place.valueX >= 0);
    }
}

QTEST_GUILESS_MAIN(TestValueList)
#include "tst_valuelist.moc"
