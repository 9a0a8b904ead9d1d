#include "dict/enterdebounce.h"

#include <QTest>

namespace {

constexpr long long Start = 5'000'000; // microseconds

} // namespace

/* Presses of Enter and bounces of its contact. */
class TestEnterDebounce : public QObject
{
    Q_OBJECT

private slots:
    void secondPress_data();
    void secondPress();
    void aBounceIsWhatTheNextPressIsMeasuredFrom();
    void theFirstPressCountsAtAnyTime();
};

void TestEnterDebounce::secondPress_data()
{
    QTest::addColumn<long long>("later"); // microseconds
    QTest::addColumn<bool>("counts");
    QTest::newRow("at once") << 0LL << true;
    QTest::newRow("within a millisecond") << 999LL << true;
    QTest::newRow("1 ms") << 1'000LL << false;
    QTest::newRow("150 ms") << 150'000LL << false;
    QTest::newRow("299 ms") << 299'999LL << false;
    QTest::newRow("300 ms") << 300'000LL << true;
    QTest::newRow("400 ms") << 400'000LL << true;
    QTest::newRow("a day") << 86'400'000'000LL << true;
    QTest::newRow("clock set back") << -4'000'000LL << true;
}

void TestEnterDebounce::secondPress()
{
    QFETCH(long long, later);
    QFETCH(bool, counts);
    EnterDebounce enter;
    QVERIFY(enter.counts(Start));
    QCOMPARE(enter.counts(Start + later), counts);
}

void TestEnterDebounce::aBounceIsWhatTheNextPressIsMeasuredFrom()
{
    EnterDebounce enter;
    QVERIFY(enter.counts(Start));
    QVERIFY(!enter.counts(Start + 200'000));
    QVERIFY(!enter.counts(Start + 400'000));
    QVERIFY(enter.counts(Start + 800'000));
}

void TestEnterDebounce::theFirstPressCountsAtAnyTime()
{
    EnterDebounce enter;
    QVERIFY(enter.counts(100'000));
}

QTEST_APPLESS_MAIN(TestEnterDebounce)
#include "tst_enterdebounce.moc"
