#include "widgets/hintline.h"

#include <QTest>
#include <QTimerEvent>

class TestHintLine : public QObject
{
    Q_OBJECT

private slots:
    void liesOverTheBottomOfItsScreen();
    void goesWhenItsTimeIsOver();
    void otherTimersDoNotHideIt();
    void newerHintReplacesTheOlderAndItsTime();
    void hiddenHintHasNoTimer();
    void takesNoFocus();
};

void TestHintLine::liesOverTheBottomOfItsScreen()
{
    QWidget screen;
    HintLine hint(&screen);
    screen.show();
    QVERIFY(!hint.isVisible());
    hint.tell(QStringLiteral("text"));
    QVERIFY(hint.isVisible());
    QCOMPARE(hint.geometry(), QRect(0, 48, 256, 16));
    QCOMPARE(hint.text(), QStringLiteral("text"));
}

void TestHintLine::goesWhenItsTimeIsOver()
{
    QWidget screen;
    HintLine hint(&screen);
    screen.show();
    hint.tell(QStringLiteral("text"));
    QTimerEvent over(hint.timerId());
    QCoreApplication::sendEvent(&hint, &over);
    QVERIFY(!hint.isVisible());
}

void TestHintLine::otherTimersDoNotHideIt()
{
    QWidget screen;
    HintLine hint(&screen);
    screen.show();
    hint.tell(QStringLiteral("text"));
    QTimerEvent other(hint.timerId() + 1000);
    QCoreApplication::sendEvent(&hint, &other);
    QVERIFY(hint.isVisible());
}

void TestHintLine::newerHintReplacesTheOlderAndItsTime()
{
    QWidget screen;
    HintLine hint(&screen);
    screen.show();
    hint.tell(QStringLiteral("one"));
    const int first = hint.timerId();
    hint.tell(QStringLiteral("two"));
    QVERIFY(hint.timerId() != 0);
    if (hint.timerId() != first) { // numbers are used again
        QTimerEvent over(first);
        QCoreApplication::sendEvent(&hint, &over);
    }
    QVERIFY(hint.isVisible());
    QCOMPARE(hint.text(), QStringLiteral("two"));
}

void TestHintLine::hiddenHintHasNoTimer()
{
    QWidget screen;
    HintLine hint(&screen);
    screen.show();
    hint.tell(QStringLiteral("text"));
    hint.hide();
    QCOMPARE(hint.timerId(), 0);
}

void TestHintLine::takesNoFocus()
{
    QWidget screen;
    HintLine hint(&screen);
    QCOMPARE(hint.focusPolicy(), Qt::NoFocus);
    QVERIFY(!hint.isWindow());
}

QTEST_MAIN(TestHintLine)
#include "tst_hintline.moc"
