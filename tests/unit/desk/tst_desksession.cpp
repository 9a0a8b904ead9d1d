#include "desk/desksession.h"
#include "desk/penlanguages.h"
#include "desk/penpicture.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cmath>

namespace {

/* Whether the left or right half of the screen is lit. */
bool isLit(const QImage& screen, bool right)
{
    return screen.pixelIndex(right ? 192 : 64, 32) == 1;
}

} // namespace

/* The desk against a real process of its own: display, keys, messages, link, ends. */
class TestDeskSession : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        DeskSetting setting;
        setting.penProgram = TESTPEN;
        setting.root = m_root->path();
        m_desk = std::make_unique<DeskSession>(setting);
        QVERIFY2(m_desk->open(), qPrintable(m_desk->errorString()));
    }

    void cleanup()
    {
        if (QTest::currentTestFailed())
            qInfo().noquote() << "The pen's output:" << m_desk->pen().lastOutput().join('\n');
        m_desk.reset();
    }

    void showsWhatThePenDraws()
    {
        startPen();
        QVERIFY(isLit(m_desk->screen(), false));
        QVERIFY(!isLit(m_desk->screen(), true));
        QTRY_VERIFY(m_desk->launcher().hasHeard("Show(QString)", "scan"));
    }

    void keysReachThePen()
    {
        startPen();
        type(Qt::Key_Down);
        QTRY_VERIFY(isLit(m_desk->screen(), true));
        QVERIFY(!isLit(m_desk->screen(), false));
        QTRY_VERIFY(m_desk->transcript().contains("second half"));
        QTRY_VERIFY(!m_desk->transcript().isSpeaking());
        QCOMPARE(m_desk->transcript().utterances().last().heard(), "Second");
        QTRY_VERIFY(m_desk->launcher().isPenSounding());
    }

    void aDialogIsOnTopAndHasTheKeys()
    {
        startPen();
        type(Qt::Key_F12);
        QTRY_VERIFY(isLit(m_desk->screen(), true));
        QVERIFY(isLit(m_desk->screen(), false));
        // The dialog takes Escape, so the pen stays; the window below comes back.
        type(Qt::Key_Escape);
        QTRY_VERIFY(!isLit(m_desk->screen(), true));
        QVERIFY(m_desk->pen().isRunning());
        QVERIFY(!m_desk->launcher().hasHeard("ESC(QString)", "escpressed"));
        type(Qt::Key_Down);
        QTRY_VERIFY(isLit(m_desk->screen(), true));
    }

    void theUserLeavesAndStartsAgain()
    {
        startPen();
        QSignalSpy left(&m_desk->launcher(), &Launcher::penLeft);
        QSignalSpy ended(m_desk.get(), &DeskSession::penEnded);
        type(Qt::Key_Escape);
        QVERIFY(ended.wait());
        QTRY_COMPARE(left.size(), 1);
        QVERIFY(ended[0][1].toBool());
        QVERIFY(!m_desk->hasWindow());
        QTRY_VERIFY(!isLit(m_desk->screen(), false));
        startPen();
        QCOMPARE(m_desk->penRuns(), 2U);
    }

    void anotherLanguageStartsThePenAnew()
    {
        startPen();
        QTRY_VERIFY(m_desk->launcher().hasHeard("Show(QString)", "scan"));
        QSignalSpy ended(m_desk.get(), &DeskSession::penEnded);
        QSignalSpy failed(m_desk.get(), &DeskSession::languageFailed);
        m_desk->chooseLanguage(2);
        m_desk->chooseLanguage(4); // the last word counts
        QCOMPARE(penlanguages::chosen(m_root->path()), 0);
        QVERIFY(ended.wait());
        QVERIFY(ended[0][1].toBool());
        QCOMPARE(penlanguages::chosen(m_root->path()), 4);
        QCOMPARE(m_desk->penRuns(), 2U);
        const qsizetype seen = m_desk->launcher().log().size();
        QTRY_VERIFY(m_desk->launcher().hasHeard("Show(QString)", "scan", seen));
        QVERIFY(failed.isEmpty());
    }

    void aPenThatIsOffOnlyRemembersTheLanguage()
    {
        m_desk->chooseLanguage(6);
        QCOMPARE(penlanguages::chosen(m_root->path()), 6);
        QCOMPARE(m_desk->penRuns(), 0U);
    }

    void settingsThatCannotBeWrittenAreTold()
    {
        QFile file(m_root->filePath("apps")); // where a folder should be
        QVERIFY(file.open(QIODevice::WriteOnly));
        QSignalSpy failed(m_desk.get(), &DeskSession::languageFailed);
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
        startPen();
        QFETCH(int, key);
        QSignalSpy ended(m_desk.get(), &DeskSession::penEnded);
        type(Qt::Key(key));
        QVERIFY(ended.wait());
        QFETCH(QString, part);
        QVERIFY2(ended[0][0].toString().contains(part), qPrintable(ended[0][0].toString()));
        QVERIFY(!ended[0][1].toBool());
    }

    void launcherStopsThePen()
    {
        startPen();
        QSignalSpy ended(m_desk.get(), &DeskSession::penEnded);
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
        startPen();
        loadPage();
        QTRY_VERIFY(m_desk->link().isCameraOn());
        QSignalSpy ended(m_desk.get(), &DeskSession::swipeEnded);
        QSignalSpy reported(m_desk.get(), &DeskSession::swipeReported);
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
        startPen();
        loadPage();
        QTRY_VERIFY(m_desk->link().isCameraOn());
        HandModel model;
        model.wobbleMm = wobble;
        m_desk->setHand(model);
        QSignalSpy looks(m_desk.get(), &DeskSession::swipeLooksAt);
        QSignalSpy reported(m_desk.get(), &DeskSession::swipeReported);
        QVERIFY(m_desk->beginSwipe(QPointF(20, 40)));
        QVERIFY(!m_desk->beginSwipe(QPointF(20, 40)));
        double x = 20.0;
        QTimer hand;
        connect(&hand, &QTimer::timeout, m_desk.get(), [&] { m_desk->moveSwipe({x += 1.0, 40}); });
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
        DeskSetting setting;
        setting.penProgram = "/nowhere/pen";
        m_desk.reset();
        m_desk = std::make_unique<DeskSession>(setting);
        QVERIFY(m_desk->open());
        QSignalSpy ended(m_desk.get(), &DeskSession::penEnded);
        m_desk->startPen();
        QTRY_COMPARE(ended.size(), 1);
        QVERIFY(ended[0][0].toString().contains("could not be started"));
        QVERIFY(!ended[0][1].toBool());
    }

private:
    void startPen()
    {
        m_desk->startPen();
        QTRY_VERIFY_WITH_TIMEOUT(isLit(m_desk->screen(), false), 20000);
    }

    void type(Qt::Key key)
    {
        m_desk->sendKey(key, true);
        m_desk->sendKey(key, false);
    }

    void loadPage()
    {
        QSignalSpy changed(m_desk.get(), &DeskSession::pageChanged);
        PageSource source;
        source.name = "english";
        m_desk->pageLoader().load(source);
        QVERIFY(changed.wait(30000));
    }

    std::unique_ptr<QTemporaryDir> m_root;
    std::unique_ptr<DeskSession> m_desk;
};

QTEST_MAIN(TestDeskSession)
#include "tst_desksession.moc"
