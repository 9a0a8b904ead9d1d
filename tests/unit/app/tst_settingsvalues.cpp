#include "app/settingsvalues.h"

#include <QTest>
#include <limits>

using namespace settingsvalues;

class TestSettingsValues : public QObject
{
    Q_OBJECT

private slots:
    void eachListOffersItsValues_data();
    void eachListOffersItsValues();
    void storedNumberShowsThePlaceNextToIt_data();
    void storedNumberShowsThePlaceNextToIt();
    void onlyAnotherPlaceIsAChange_data();
    void onlyAnotherPlaceIsAChange();
};

void TestSettingsValues::eachListOffersItsValues_data()
{
    QTest::addColumn<QStringList>("offered");
    QTest::addColumn<QString>("expected");
    QTest::newRow("reading") << numbers(reading()) << "0 1";
    QTest::newRow("speed") << numbers(speed()) << "0 1 2 3 4 5 6 7 8 9 10";
    QTest::newRow("volume") << numbers(volume()) << "0 1 2 3 4 5";
    QTest::newRow("pauses") << numbers(pauses()) << "0 1 2 3 4 5 6 7 8 9 10 12 18 24 30";
    QTest::newRow("read delays") << numbers(readDelays()) << "0 1 2 3";
    QTest::newRow("voices") << numbers(voices()) << "0 1";
    QTest::newRow("directions") << numbers(directions()) << "0 1";
}

void TestSettingsValues::eachListOffersItsValues()
{
    QFETCH(QStringList, offered);
    QFETCH(QString, expected);
    QCOMPARE(offered.join(u' '), expected);
}

void TestSettingsValues::storedNumberShowsThePlaceNextToIt_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("place");
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("offered") << 18 << 12;
    QTest::newRow("last") << 30 << 14;
    QTest::newRow("nearer above") << 17 << 12;
    QTest::newRow("nearer below") << 13 << 11;
    QTest::newRow("as near to both") << 21 << 12;
    QTest::newRow("below all") << -3 << 0;
    QTest::newRow("above all") << 99 << 14;
    QTest::newRow("lowest number") << std::numeric_limits<int>::min() << 0;
    QTest::newRow("highest number") << std::numeric_limits<int>::max() << 14;
}

void TestSettingsValues::storedNumberShowsThePlaceNextToIt()
{
    QFETCH(int, stored);
    QFETCH(int, place);
    QCOMPARE(nearestIndex(pauses(), stored), place);
}

void TestSettingsValues::onlyAnotherPlaceIsAChange_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("stored");
    QTest::addColumn<bool>("expected");
    QTest::newRow("the same") << 2 << 2 << false;
    QTest::newRow("another") << 1 << 2 << true;
    QTest::newRow("shown for a number not offered") << 3 << 40 << false;
    QTest::newRow("another than shown for it") << 0 << 40 << true;
    QTest::newRow("before the list") << -1 << 2 << false;
    QTest::newRow("behind the list") << 4 << 2 << false;
}

void TestSettingsValues::onlyAnotherPlaceIsAChange()
{
    QFETCH(int, index);
    QFETCH(int, stored);
    QFETCH(bool, expected);
    QCOMPARE(changes(readDelays(), index, stored), expected);
}

QTEST_APPLESS_MAIN(TestSettingsValues)
#include "tst_settingsvalues.moc"
