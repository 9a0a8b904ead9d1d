#include "testdesk.h"

#include "desk/penlanguages.h"
#include "desk/pensettings.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cmath>

/* The desk against a real process of its own: display, keys, messages, link, ends. */
class TestDeskSession : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_test = std::make_unique<TestDesk>();
        m_desk = &m_test->session();
        QVERIFY2(m_test->open(), qPrintable(m_desk->errorString()));
    }

    void cleanup()
    {
        if (QTest::currentTestFailed())
            qInfo().noquote() << "The pen's output:" << m_desk->pen().lastOutput().join('\n');
        m_test.reset();
    }

    void showsWhatThePenDraws()
    {
        QVERIFY(m_test->startPen());
        QVERIFY(m_test->isLeftLit());
        QVERIFY(!m_test->isRightLit());
        QTRY_VERIFY(m_desk->launcher().hasHeard("Show(QString)", "scan"));
    }

    void keysReachThePen()
    {
        QVERIFY(m_test->startPen());
        type(Qt::Key_Down);
        QTRY_VERIFY(m_test->isRightLit());
        QVERIFY(!m_test->isLeftLit());
        QTRY_VERIFY(m_desk->transcript().contains("second half"));
        QTRY_VERIFY(!m_desk->transcript().isSpeaking());
        QCOMPARE(m_desk->transcript().utterances().last().heard(), "Second");
        QTRY_VERIFY(m_desk->launcher().isPenSounding());
    }

    void aDialogIsOnTopAndHasTheKeys()
    {
        QVERIFY(m_test->startPen());
        type(Qt::Key_F12);
        QTRY_VERIFY(m_test->isRightLit());
        QVERIFY(m_test->isLeftLit());
        // The dialog takes Escape, so the pen stays; the window below comes back.
        type(Qt::Key_Escape);
        QTRY_VERIFY(!m_test->isRightLit());
        QVERIFY(m_desk->pen().isRunning());
        QVERIFY(!m_desk->launcher().hasHeard("ESC(QString)", "escpressed"));
        type(Qt::Key_Down);
        QTRY_VERIFY(m_test->isRightLit());
    }

    void theUserLeavesAndStartsAgain()
    {
        QVERIFY(m_test->startPen());
        QSignalSpy left(&m_desk->launcher(), &Launcher::penLeft);
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        type(Qt::Key_Escape);
        QVERIFY(ended.wait());
        QTRY_COMPARE(left.size(), 1);
        QVERIFY(ended[0][1].toBool());
        QVERIFY(!m_desk->hasWindow());
        QTRY_VERIFY(!m_test->isLeftLit());
        QVERIFY(m_test->startPen());
        QCOMPARE(m_desk->penRuns(), 2U);
    }

    void anotherLanguageStartsThePenAnew()
    {
        QVERIFY(m_test->startPen());
        QTRY_VERIFY(m_desk->launcher().hasHeard("Show(QString)", "scan"));
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        QSignalSpy failed(m_desk, &DeskSession::settingFailed);
        m_desk->chooseLanguage(2);
        m_desk->chooseLanguage(4); // the last word counts
        QCOMPARE(penlanguages::chosen(m_test->path(QString())), 0);
        QVERIFY(ended.wait());
        QVERIFY(ended[0][1].toBool());
        QCOMPARE(penlanguages::chosen(m_test->path(QString())), 4);
        QCOMPARE(m_desk->penRuns(), 2U);
        const qsizetype seen = m_desk->launcher().log().size();
        QTRY_VERIFY(m_desk->launcher().hasHeard("Show(QString)", "scan", seen));
        QVERIFY(failed.isEmpty());
    }

    void aPenThatIsOffOnlyRemembersTheLanguage()
    {
        m_desk->chooseLanguage(6);
        QCOMPARE(penlanguages::chosen(m_test->path(QString())), 6);
        QCOMPARE(m_desk->penRuns(), 0U);
    }

    void thePenIsToldWhichHandHoldsIt()
    {
        const auto told = [&] {
            return pensettings::value(m_test->path(QString()), pensettings::HandKey);
        };
        HandModel hand;
        hand.left = true;
        m_desk->setHand(hand);
        QCOMPARE(told(), 1);
        hand.left = false;
        m_desk->setHand(hand);
        QCOMPARE(told(), 0);
        // Files that come from another desk.
        QVERIFY(pensettings::store(m_test->path(QString()), pensettings::HandKey, 1));
        QVERIFY(m_test->startPen());
        QCOMPARE(told(), 0);
    }

    void settingsThatCannotBeWrittenAreTold()
    {
        QVERIFY(QDir().mkpath(m_test->path("apps/config/config.ini"))); // where a file should be
        QSignalSpy failed(m_desk, &DeskSession::settingFailed);
        m_desk->chooseLanguage(6);
        QCOMPARE(failed.size(), 1);
    }

    void endsAreToldPlainly_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("part");
        QTest::newRow("exit code") << int(Qt::Key_F7) << "code 3";
        QTest::newRow("crash") << int(Qt::Key_F8) << "crashed";
    }

    void endsAreToldPlainly()
    {
        QVERIFY(m_test->startPen());
        QFETCH(int, key);
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        type(Qt::Key(key));
        QVERIFY(ended.wait());
        QFETCH(QString, part);
        QVERIFY2(ended[0][0].toString().contains(part), qPrintable(ended[0][0].toString()));
        QVERIFY(!ended[0][1].toBool());
    }

    void launcherStopsThePen()
    {
        QVERIFY(m_test->startPen());
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        m_desk->launcher().plugUsb();
        QVERIFY(m_desk->launcher().isUsbPlugged());
        const auto& log = m_desk->launcher().log();
        QCOMPARE(log.at(log.size() - 2).message, "execute(QString)");
        QCOMPARE(log.at(log.size() - 2).payload, "plugusb");
        QCOMPARE(log.last().message, "USB(QString)");
        QCOMPARE(log.last().payload, "plug");
        QVERIFY(log.last().delivered);
        m_desk->launcher().stop();
        QVERIFY(ended.wait());
        QVERIFY(!m_desk->launcher().isUsbPlugged());
        QVERIFY(!m_desk->launcher().send("execute(QString)", "save"));
        QVERIFY(!m_desk->launcher().log().last().delivered);
    }

    void aLineIsSwiped()
    {
        QVERIFY(m_test->startPen());
        QVERIFY(m_test->layPageForSwipes());
        QSignalSpy ended(m_desk, &DeskSession::swipeEnded);
        QSignalSpy reported(m_desk, &DeskSession::swipeReported);
        QVERIFY(!m_desk->swipeLine(-1, 300));
        QVERIFY(!m_desk->swipeLine(500, 300));
        QVERIFY(m_desk->swipeLine(1, 300));
        QVERIFY(!m_desk->swipeLine(1, 300));
        QVERIFY(reported.wait(20000));
        QTRY_COMPARE(ended.size(), 1);
        const int frames = ended[0][0].toInt();
        const int lost = ended[0][1].toInt();
        QVERIFY(frames > 40);
        QCOMPARE(int(m_desk->swipeReports().last().frames), frames - lost);
    }

    void aHandSwipes_data()
    {
        QTest::addColumn<double>("wobble");
        QTest::newRow("steady") << 0.0;
        QTest::newRow("wobbling") << 1.0;
    }

    void aHandSwipes()
    {
        QFETCH(double, wobble);
        QVERIFY(m_test->startPen());
        QVERIFY(m_test->layPageForSwipes());
        HandModel model;
        model.wobbleMm = wobble;
        m_desk->setHand(model);
        QSignalSpy looks(m_desk, &DeskSession::swipeLooksAt);
        QSignalSpy reported(m_desk, &DeskSession::swipeReported);
        QVERIFY(m_desk->beginSwipe(QPointF(20, 40)));
        QVERIFY(!m_desk->beginSwipe(QPointF(20, 40)));
        double x = 20.0;
        QTimer hand;
        connect(&hand, &QTimer::timeout, m_desk, [&] { m_desk->moveSwipe({x += 1.0, 40}); });
        hand.start(5);
        QTRY_VERIFY(looks.size() > 60);
        hand.stop();
        m_desk->endSwipe({x + 1.0, 40});
        QVERIFY(reported.wait(20000));
        QTRY_VERIFY(!m_desk->isSwiping());
        const QPointF last = looks.last()[0].toPointF();
        QVERIFY(last.x() > 30.0 && last.x() <= x + 1.0 + 1.1 * wobble);
        double farthest = 0.0;
        for (const QList<QVariant>& look : looks)
            farthest = std::max(farthest, std::abs(look[0].toPointF().y() - 40.0));
        QVERIFY(wobble == 0.0 ? farthest < 1e-9 : farthest > 0.2 && farthest <= 1.1 * wobble);
        QVERIFY(m_desk->swipeReports().last().frames > 0);
    }

    void aMissingProgramIsTold()
    {
        m_test.reset();
        m_test = std::make_unique<TestDesk>("/nowhere/pen");
        m_desk = &m_test->session();
        QVERIFY(m_test->open());
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        m_desk->startPen();
        QTRY_COMPARE(ended.size(), 1);
        QVERIFY(ended[0][0].toString().contains("could not be started"));
        QVERIFY(!ended[0][1].toBool());
    }

private:
    void type(Qt::Key key)
    {
        m_desk->sendKey(key, true);
        m_desk->sendKey(key, false);
    }

    std::unique_ptr<TestDesk> m_test;
    DeskSession* m_desk = nullptr;
};

QTEST_MAIN(TestDeskSession)
#include "tst_desksession.moc"
