#include "desk/deskscript.h"
#include "desk/sessionscript.h"

#include <QTest>
#include <cmath>

namespace {

QStringList lines(const SessionScript& script)
{
    return script.text().trimmed().split('\n');
}

} // namespace

/* What was done, as a script: the waits between the actions. */
class TestSessionScript : public QObject
{
    Q_OBJECT

private slots:
    void waitsForWhatWasHeard()
    {
        SessionScript script;
        script.begin({"# head"});
        script.set("page english");
        script.spoke("New file. Press OK to select, or down", 500);
        script.act("key Down", 4000, true);
        script.spoke("Open file", 4100);
        script.act("key OK", 4600, false);
        QCOMPARE(lines(script), QStringList({"# head", "page english",
                                             "wait spoken \"New file. Press OK to select,\"",
                                             "wait idle", "key Down", "wait spoken \"Open file\"",
                                             "pause 0.5", "key OK", "wait idle", "quit"}));
        QCOMPARE(DeskScript::parse(script.text()).error, QString());
    }

    void keysInQuickSuccessionNeedNoPause()
    {
        SessionScript script;
        script.act("key Down", 1000, true);
        script.act("key Down", 1100, false);
        script.act("key Down", 1350, false);
        QCOMPARE(lines(script), QStringList({"key Down", "key Down", "pause 0.3", "key Down",
                                             "wait idle", "quit"}));
    }

    void waitsForTheSwipeAndTheEnd()
    {
        SessionScript script;
        script.act("swipe line 2", 1000, true);
        script.swiped("delivered");
        script.spoke("On the north", 3000);
        script.act("key Esc", 9000, true);
        script.ended();
        script.act("start", 9500, false);
        QCOMPARE(lines(script),
                 QStringList({"swipe line 2", "wait swipe delivered",
                              "wait spoken \"On the north\"", "wait idle", "key Esc", "wait exit",
                              "pause 0.5", "start", "wait idle", "quit"}));
    }

    void stopAtTheEndIsQuit()
    {
        SessionScript script;
        script.act("key Down", 1000, true);
        script.act("send execute(QString) stop", 2000, true);
        script.ended();
        QCOMPARE(lines(script), QStringList({"key Down", "wait idle", "quit"}));
    }

    void longAbsenceIsNotRepeated()
    {
        SessionScript script;
        script.act("key Down", 0, true);
        script.act("key Up", 3'600'000, false);
        QCOMPARE(lines(script)[1], "pause 60");
    }

    void takesSteadyWords_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("words");
        QTest::newRow("short") << "Open file"
                               << "Open file";
        QTest::newRow("long") << "one two three four five six seven"
                              << "one two three four five six";
        QTest::newRow("digit in the middle") << "Continue scan 261122 Press OK"
                                             << "Continue scan";
        QTest::newRow("digit first") << "5 files left"
                                     << "files left";
        QTest::newRow("digits only") << "1 2 3"
                                     << "";
        QTest::newRow("nothing") << ""
                                 << "";
        QTest::newRow("blanks") << "  a \n b "
                                << "a b";
    }

    void takesSteadyWords()
    {
        QFETCH(QString, text);
        QTEST(SessionScript::steadyWords(text), "words");
    }

    void aStraightWayHasTwoPoints()
    {
        std::vector<PathPoint> path;
        for (int i = 0; i <= 100; ++i)
            path.push_back({i * 0.01, QPointF(20.0 + i, 35.0)});
        QCOMPARE(SessionScript::pathLine(path), "swipe path 20,35@0 120,35@1");
    }

    void aBentWayStaysClose()
    {
        std::vector<PathPoint> path;
        for (int i = 0; i <= 200; ++i) {
            const double s = i * 0.008;
            path.push_back(
                {s, QPointF(20.0 + 60.0 * s + 4.0 * std::sin(5.0 * s), 35.0 + std::sin(3.0 * s))});
        }
        const QString line = SessionScript::pathLine(path);
        const DeskScript script = DeskScript::parse(line);
        QCOMPARE(script.error, QString());
        const std::vector<PathPoint>& kept = script.commands[0].path;
        QVERIFY2(kept.size() > 5 && kept.size() < 60, qPrintable(line));
        const HandPath again = HandPath::through(kept);
        for (const PathPoint& point : path)
            QVERIFY(QLineF(again.poseAt(point.seconds).mm, point.mm).length() < 0.2);
    }

    void oddWaysDoNoHarm()
    {
        QCOMPARE(SessionScript::pathLine({}), "swipe path");
        QCOMPARE(SessionScript::pathLine({{0.0, {1, 2}}}), "swipe path 1,2@0");
        QCOMPARE(SessionScript::pathLine({{0.0, {1, 2}}, {0.0, {5, 2}}, {0.0, {1, 2}}}),
                 "swipe path 1,2@0");
    }
};

QTEST_APPLESS_MAIN(TestSessionScript)
#include "tst_sessionscript.moc"
