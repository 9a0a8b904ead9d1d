#include "deskprogram.h"
#include "twosheets.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSettings>
#include <QTest>
#include <memory>

/* The desk's program, driven by scripts. */
class TestDeskHeadless : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_desk = std::make_unique<DeskProgram>(); }

    void carriesOutAScript()
    {
        const int code = run("wait message mainprocess Show(QString) scan\n"
                             "key Down\n"
                             "wait screen-change\n"
                             "wait spoken \"second half\"\n"
                             "expect heard second\n"
                             "wait still\n"
                             "screenshot half\n"
                             "swipe line 2 speed 400\n"
                             "wait swipe delivered\n"
                             "desk-shot desk\n"
                             "quit\n");
        QVERIFY2(code == 0, m_output.constData());
        const QImage screen(m_desk->path("out/half.png"));
        QCOMPARE(screen.size(), QSize(256, 64));
        QCOMPARE(qGray(screen.pixel(192, 32)), 255);
        QCOMPARE(qGray(screen.pixel(64, 32)), 0);
        QCOMPARE(QImage(m_desk->path("out/half-4x.png")).size(), QSize(1024, 256));
        QVERIFY(QImage(m_desk->path("out/desk.png")).width() > 1000);
        QVERIFY(m_output.contains("says \"Second half\""));
        QVERIFY(m_output.contains("scan engine: delivered"));
        QVERIFY(m_output.contains("Second"));
        QVERIFY(m_output.contains("half-4x.png"));
    }

    void endsWithoutQuit()
    {
        QVERIFY2(run("wait idle\n") == 0, m_output.constData());
        QVERIFY(m_output.contains("The pen has left"));
    }

    void aVainWaitFailsWithAReport()
    {
        QCOMPARE(run("wait message mainprocess Show(QString) scan\n"
                     "key Down\n"
                     "wait spoken half\n"
                     "timeout 0.3\n"
                     "wait spoken nonsense\n"),
                 1);
        QVERIFY2(m_output.contains("FAILED: line 5: \"wait spoken nonsense\""),
                 m_output.constData());
        QVERIFY(m_output.contains("Second half"));
        QVERIFY(m_output.contains("the test pen is up"));
        QVERIFY(m_output.contains("soundyes"));
        QCOMPARE(QImage(m_desk->path("out/failed-screen.png")).size(), QSize(1024, 256));
    }

    void aFalseExpectationFails()
    {
        QCOMPARE(run("wait idle\nexpect spoken nonsense\n"), 1);
        QVERIFY(m_output.contains("FAILED: line 2"));
    }

    void aCrashFails()
    {
        QCOMPARE(run("key F8\nwait spoken nonsense\n"), 1);
        QVERIFY2(m_output.contains("FAILED: The pen crashed"), m_output.constData());
    }

    void leavingAndStartingAgain()
    {
        QVERIFY2(run("key Esc\nwait exit\nexpect message mainprocess ESC(QString) escpressed\n"
                     "start\nkey Down\nwait spoken half\n")
                     == 0,
                 m_output.constData());
    }

    void anotherLanguage()
    {
        QVERIFY2(run("language Italian\nkey Down\nwait spoken half\nlanguage Deutsch\n"
                     "key Down\nwait spoken half\n")
                     == 0,
                 m_output.constData());
        QCOMPARE(language(), 2);
        QCOMPARE(m_output.count("The pen has left"), 2);
        QCOMPARE(run("language Elvish\n"), 1);
        QVERIFY2(m_output.contains("no language \"Elvish\"; it has English, French"),
                 m_output.constData());
    }

    void aLanguageToBeginWith()
    {
        QCOMPARE(run("wait idle\n", {"--language", "russian"}), 0);
        QCOMPARE(language(), 5);
        QCOMPARE(run("wait idle\n", {"--language", "Elvish"}), 2);
        QVERIFY2(m_output.contains("no language \"Elvish\"; it has English, French"),
                 m_output.constData());
        QCOMPARE(language(), 5);
    }

    void aSheetOfAPdf()
    {
        const QString path = m_desk->path("two sheets.pdf");
        writeTwoSheets(path);
        const QString script = "page \"" + path + "\" sheet %1\nwait camera on\nswipe line 2\n";
        QVERIFY2(run(script.arg(2).toUtf8()) == 0, m_output.constData());
        QCOMPARE(run(script.arg(1).toUtf8()), 1);
        QVERIFY2(m_output.contains("no such way on this page"), m_output.constData());
    }

    void aMissingLineFails()
    {
        QCOMPARE(run("swipe line 900\n"), 1);
        QVERIFY2(m_output.contains("no such way on this page"), m_output.constData());
    }

    void anUnsoundScriptDoesNotStart()
    {
        QCOMPARE(run("key Up\nkye Down\n"), 2);
        QVERIFY2(m_output.contains("line 2: there is no command \"kye\""), m_output.constData());
    }

    void aSessionIsRecordedAndPlayedAgain()
    {
        const QString recorded = m_desk->path("recorded.desk");
        QVERIFY2(run("page german\n"
                     "wait message mainprocess Show(QString) scan\n"
                     "hand tilt 3\n"
                     "key Down\n"
                     "wait spoken \"second half\"\n"
                     "wait idle\n"
                     "hold Up 600\n"
                     "swipe line 2 speed 400\n"
                     "wait swipe delivered\n"
                     "swipe path 20,60@0 60,61@0.3 100,60@0.6\n"
                     "wait swipe delivered\n"
                     "usb plug\nusb unplug\npower\ncard out\ncard in\nstorage full\n"
                     "type \"Two words\" en size 14\n"
                     "send execute(QString) save\n"
                     "language German\nkey Esc\nwait exit\nstart\nwait idle\n"
                     "screenshot end\n",
                     {"--record", recorded})
                     == 0,
                 m_output.constData());
        QFile file(recorded);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray script = file.readAll();
        for (const char* part :
             {"\npage german\n", "\nhand tilt 3\n", "\nkey Down\nwait spoken \"Second half\"\n",
              "\nhold Up 6", "\nswipe line 2 speed 400\nwait swipe delivered\n",
              "\nswipe path 20,60@0 60,61@0.3 100,60@0.6\nwait swipe delivered\n", "\nusb plug\n",
              "\nusb unplug\n", "\npower\n", "\ncard out\n", "\ncard in\n", "\nstorage full\n",
              "\ntype \"Two words\" en size 14\n", "\nsend execute(QString) save\n",
              "\nlanguage German\n", "\nkey Esc\nwait exit\n", "\nstart\n", "\nquit\n"})
            QVERIFY2(script.contains(part), (QByteArray(part) + "\n--\n" + script).constData());

        // What the recorded script does is recorded as the same.
        QVERIFY(QFile::remove(m_desk->path("root/apps/config/config.ini"))); // in English again
        const QString again = m_desk->path("again.desk");
        QVERIFY2(run(script, {"--record", again}) == 0, m_output.constData());
        QFile second(again);
        QVERIFY(second.open(QIODevice::ReadOnly));
        QCOMPARE(actions(second.readAll()), actions(script));
    }

    void aRecordThatCannotBeWrittenFails()
    {
        QCOMPARE(run("wait idle\n", {"--record", m_desk->path("nowhere/x.desk")}), 2);
        QVERIFY2(m_output.contains("nowhere/x.desk cannot be written"), m_output.constData());
    }

    void aFilmIsMade()
    {
        QVERIFY2(
            run("wait message mainprocess Show(QString) scan\nframes off\npause 0.2\n"
                "frames on\nkey Down\nwait idle\n",
                {"--frames", m_desk->path("film"), "--frames-of", "pen", "--frames-every", "50"})
                == 0,
            m_output.constData());
        const QImage first(m_desk->path("film/frame-0001.png"));
        QVERIFY(first.width() > 1000);
        QVERIFY(first.height() < 500);
        QVERIFY(QFile::exists(m_desk->path("film/frames.txt")));
    }

    void aFilmBeginsWhenTheScriptSays()
    {
        QVERIFY2(run("frames off\nwait message mainprocess Show(QString) scan\n",
                     {"--frames", m_desk->path("film")})
                     == 0,
                 m_output.constData());
        QCOMPARE(QDir(m_desk->path("film")).entryList(QDir::Files), QStringList("frames.txt"));
    }

    void aSignalLeavesNothingBehind()
    {
        QVERIFY(m_desk->write("script.desk", "wait spoken nonsense\n"));
        QVERIFY(QDir(m_desk->path(QString())).mkpath("t"));
        m_desk->setVariable("TMPDIR", m_desk->path("t"));
        QProcess desk;
        m_desk->start(desk, m_desk->scriptOptions());
        QByteArray output;
        QTRY_VERIFY_WITH_TIMEOUT((output += desk.readAllStandardOutput()).contains("nonsense"),
                                 20000);
        QVERIFY(!QDir(m_desk->path("t")).isEmpty());
        desk.terminate();
        QVERIFY(desk.waitForFinished());
        QCOMPARE(desk.exitStatus(), QProcess::NormalExit);
        QCOMPARE(desk.exitCode(), 1);
        QVERIFY(desk.readAllStandardOutput().contains("broken off"));
        QVERIFY(QDir(m_desk->path("t")).isEmpty());
    }

    void helpNeedsNothing()
    {
        QCOMPARE(m_desk->run({"--help"}), 0);
        QVERIFY(m_desk->output().contains("--headless"));
    }

private:
    int language() const
    {
        return QSettings(m_desk->path("root/apps/config/config.ini"), QSettings::IniFormat)
            .value("SystemSet/Lan", -1)
            .toInt();
    }

    /* The lines that are no waits and no times. */
    static QList<QByteArray> actions(const QByteArray& script)
    {
        QList<QByteArray> result;
        for (const QByteArray& line : script.split('\n')) {
            if (line.startsWith("hold "))
                result.append(line.left(line.lastIndexOf(' '))); // the time is the clock's
            else if (!line.startsWith('#') && !line.startsWith("wait ")
                     && !line.startsWith("pause "))
                result.append(line);
        }
        return result;
    }

    int run(const QByteArray& script, const QStringList& options = {})
    {
        const int code = m_desk->play(script, options);
        m_output = m_desk->output();
        return code;
    }

    std::unique_ptr<DeskProgram> m_desk;
    QByteArray m_output;
};

QTEST_MAIN(TestDeskHeadless)
#include "tst_deskheadless.moc"
