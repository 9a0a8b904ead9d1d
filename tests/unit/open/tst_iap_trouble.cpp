#include "tests/unit/open/iapfixture.h"

#include <QTest>

/* Swipes that ask for more than there can be: each ends with a callback, and the next one is read.
 */
class TestIapTrouble : public IapFixture
{
    Q_OBJECT

private slots:
    void restOnABlank();
    void swipeLongerThanAnyLine();

private:
    void theNextSwipeIsRead(Receiver& receiver);
};

void TestIapTrouble::theNextSwipeIsRead(Receiver& receiver)
{
    const std::size_t before = receiver.count();
    m_desk->swipe(lineFrames());
    const auto delivery = receiver.delivery(before + 1);
    QVERIFY(delivery && !delivery->isNull);
    QVERIFY(likeness(cleanLine(), delivery->image) > 0.85);
}

void TestIapTrouble::restOnABlank()
{
    Receiver receiver;
    start();
    m_desk->swipe(swipeWithRest(partedLine("Nobody knew who", "built the bridge"), 200.0, 15));
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    theNextSwipeIsRead(receiver);
}

void TestIapTrouble::swipeLongerThanAnyLine()
{
    Receiver receiver;
    start();
    m_desk->swipe(endlessSwipe(36000));
    QVERIFY(receiver.delivery());
    theNextSwipeIsRead(receiver);
}

QTEST_MAIN(TestIapTrouble)
#include "tst_iap_trouble.moc"
