#include "widgets/heldkeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

/* Keys that are held down: which of the repeated presses reach a screen. */
class TestHeldKeys : public QObject
{
    Q_OBJECT

private slots:
    void heldKeyActsOnce_data();
    void heldKeyActsOnce();
    void heldArrowsGoOn_data();
    void heldArrowsGoOn();
};

namespace {

class Screen : public QWidget
{
public:
    int presses = 0;
    int releases = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++presses; }
    void keyReleaseEvent(QKeyEvent*) override { ++releases; }
};

void send(QWidget& screen, QEvent::Type type, Qt::Key key, bool repeated)
{
    QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(&screen, &event);
}

// As the system does it: a repetition is a release and a press.
void hold(QWidget& screen, Qt::Key key)
{
    send(screen, QEvent::KeyPress, key, false);
    for (int i = 0; i < 2; ++i) {
        send(screen, QEvent::KeyRelease, key, true);
        send(screen, QEvent::KeyPress, key, true);
    }
    send(screen, QEvent::KeyRelease, key, false);
}

} // namespace

void TestHeldKeys::heldKeyActsOnce_data()
{
    QTest::addColumn<Qt::Key>("key");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_F7, Qt::Key_F8, Qt::Key_F10,
                              Qt::Key_F12, Qt::Key_Space})
        QTest::addRow("key %x", unsigned(key)) << key;
}

void TestHeldKeys::heldKeyActsOnce()
{
    QFETCH(Qt::Key, key);
    HeldKeys filter;
    qApp->installEventFilter(&filter);
    Screen screen;
    hold(screen, key);
    QCOMPARE(screen.presses, 1);
    QCOMPARE(screen.releases, 3);
}

void TestHeldKeys::heldArrowsGoOn_data()
{
    QTest::addColumn<Qt::Key>("key");
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right})
        QTest::addRow("key %x", unsigned(key)) << key;
}

void TestHeldKeys::heldArrowsGoOn()
{
    QFETCH(Qt::Key, key);
    HeldKeys filter;
    qApp->installEventFilter(&filter);
    Screen screen;
    hold(screen, key);
    QCOMPARE(screen.presses, 3);
}

QTEST_MAIN(TestHeldKeys)
#include "tst_heldkeys.moc"
