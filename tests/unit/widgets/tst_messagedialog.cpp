#include "tests/fakes/testroot.h"
#include "widgets/announcer.h"
#include "widgets/messagedialog.h"
#include "widgets/sandglass.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLabel>
#include <QMovie>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>

/* The timed message and the busy indicator. */
class TestMessageDialog : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void fillsTheScreenAsAWindow();
    void endsByItselfWithOne();
    void timerRunsForTheTimeGiven();
    void aShortTimeReallyRunsOut();
    void enterEndsWithOne();
    void escapeEndsWithZero();
    void otherKeysDoNotEnd();
    void otherTimersDoNotEnd();
    void timerRunsOnlyWhileShown();
    void canBeShownAgain();
    void keysReachADialogWithAParent();
    void eachShowingIsSpokenOnce();

    void sandGlassRunsTheDevicesAnimation();
    void sandGlassWithoutItsFileStandsStill();
    void sandGlassWithADamagedFileStandsStill();
};

namespace {

// Runs the dialog; `act` is called when it is shown.
template <class Act> int run(MessageDialog& dialog, Act act)
{
    QTimer::singleShot(0, &dialog, act);
    return dialog.exec();
}

void sendTimer(QWidget& widget, int id)
{
    QTimerEvent event(id);
    QCoreApplication::sendEvent(&widget, &event);
}

QByteArray animation()
{
    QFile file(QStringLiteral(SWIPELINE_SOURCE_DIR "/device/apps/res/sandglass.gif"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void TestMessageDialog::cleanup()
{
    announcer::setSpeaker(nullptr);
}

void TestMessageDialog::fillsTheScreenAsAWindow()
{
    QWidget parent;
    const MessageDialog dialog(&parent, QStringLiteral("Text"), 2000);
    QCOMPARE(dialog.objectName(), QStringLiteral("MessageDialog"));
    QVERIFY(dialog.isWindow());
    QVERIFY(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(dialog.size(), QSize(256, 64));
    QCOMPARE(dialog.text(), QStringLiteral("Text"));
}

void TestMessageDialog::endsByItselfWithOne()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 2000);
    QCOMPARE(run(dialog, [&dialog] { sendTimer(dialog, dialog.timerId()); }), 1);
    QVERIFY(!dialog.isVisible());
}

void TestMessageDialog::timerRunsForTheTimeGiven()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 2000);
    dialog.show();
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(&dialog);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().timerId, dialog.timerId());
    QCOMPARE(timers.first().interval, 2000);
}

void TestMessageDialog::aShortTimeReallyRunsOut()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 1);
    QCOMPARE(dialog.exec(), 1);
    MessageDialog negative(nullptr, QStringLiteral("Text"), -5);
    QCOMPARE(negative.exec(), 1);
}

void TestMessageDialog::enterEndsWithOne()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 60000);
    QCOMPARE(run(dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Return); }), 1);
}

void TestMessageDialog::escapeEndsWithZero()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 60000);
    QCOMPARE(run(dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Escape); }), 0);
}

void TestMessageDialog::otherKeysDoNotEnd()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 60000);
    dialog.show();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_F7})
        QTest::keyClick(&dialog, key);
    QVERIFY(dialog.isVisible());
}

void TestMessageDialog::otherTimersDoNotEnd()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 60000);
    dialog.show();
    sendTimer(dialog, dialog.timerId() + 1);
    QVERIFY(dialog.isVisible());
}

void TestMessageDialog::timerRunsOnlyWhileShown()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 60000);
    QCOMPARE(dialog.timerId(), 0);
    dialog.show();
    QVERIFY(dialog.timerId() != 0);
    dialog.hide();
    QCOMPARE(dialog.timerId(), 0);
}

void TestMessageDialog::canBeShownAgain()
{
    MessageDialog dialog(nullptr, QStringLiteral("Text"), 60000);
    QCOMPARE(run(dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Escape); }), 0);
    QCOMPARE(run(dialog, [&dialog] { sendTimer(dialog, dialog.timerId()); }), 1);
}

void TestMessageDialog::keysReachADialogWithAParent()
{
    QWidget parent;
    parent.setFixedSize(256, 64);
    parent.show();
    MessageDialog dialog(&parent, QStringLiteral("Text"), 60000);
    const int result = run(dialog, [&dialog] {
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    });
    QCOMPARE(result, 1);
}

void TestMessageDialog::eachShowingIsSpokenOnce()
{
    QStringList spoken;
    announcer::setSpeaker([&spoken](const QString& text) { spoken.append(text); });
    QWidget parent;
    MessageDialog ofAScreen(&parent, QStringLiteral("of a screen"));
    MessageDialog ofAStore(nullptr, QStringLiteral("of a store"));
    QCOMPARE(spoken, QStringList());
    ofAScreen.show();
    ofAStore.show();
    QCOMPARE(spoken, (QStringList{"of a screen", "of a store"}));
    ofAStore.hide();
    ofAStore.show();
    QCOMPARE(spoken, (QStringList{"of a screen", "of a store", "of a store"}));
}

void TestMessageDialog::sandGlassRunsTheDevicesAnimation()
{
    const TestRoot root;
    QVERIFY(!animation().isEmpty());
    root.write(QStringLiteral("/apps/res/sandglass.gif"), animation());
    SandGlass glass;
    QCOMPARE(glass.objectName(), QStringLiteral("SandGlass"));
    auto* const label = glass.findChild<QLabel*>(QStringLiteral("label"));
    QVERIFY(label);
    QCOMPARE(label->geometry(), QRect(0, 0, 33, 33));
    QVERIFY(label->movie());
    QCOMPARE(label->movie()->state(), QMovie::Running);
    QCOMPARE(label->movie()->frameCount(), 10);
    QCOMPARE(label->movie()->frameRect().size(), QSize(33, 33));
}

void TestMessageDialog::sandGlassWithoutItsFileStandsStill()
{
    const TestRoot root;
    const SandGlass glass;
    auto* const label = glass.findChild<QLabel*>(QStringLiteral("label"));
    QVERIFY(!label->movie());
    QCOMPARE(label->pixmap(Qt::ReturnByValue).size(), QSize(33, 33));
}

void TestMessageDialog::sandGlassWithADamagedFileStandsStill()
{
    const TestRoot root;
    for (const QByteArray& bytes : {QByteArray(), QByteArray("no picture"), animation().left(9)}) {
        root.write(QStringLiteral("/apps/res/sandglass.gif"), bytes);
        const SandGlass glass;
        auto* const label = glass.findChild<QLabel*>(QStringLiteral("label"));
        const bool still = !label->movie() && !label->pixmap(Qt::ReturnByValue).isNull();
        QVERIFY(still);
    }
}

QTEST_MAIN(TestMessageDialog)
#include "tst_messagedialog.moc"
