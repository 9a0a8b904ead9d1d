#include "desk/deskscript.h"
#include "desk/scriptwords.h"

#include <QTest>

using Verb = DeskCommand::Verb;

class TestDeskScript : public QObject
{
    Q_OBJECT

private slots:
    void splitsWords_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("words");
        QTest::newRow("empty") << "" << QStringList();
        QTest::newRow("blanks") << "  key \t Down " << QStringList({"key", "Down"});
        QTest::newRow("quoted") << "echo \"a b\"" << QStringList({"echo", "a b"});
        QTest::newRow("empty quotes") << "send X \"\"" << QStringList({"send", "X", ""});
        QTest::newRow("escapes") << "echo \"a\\\"b\\\\c\\nd\""
                                 << QStringList({"echo", "a\"b\\c\nd"});
        QTest::newRow("comment") << "key Up # and on" << QStringList({"key", "Up"});
        QTest::newRow("hash in a word") << "echo a#b" << QStringList({"echo", "a#b"});
        QTest::newRow("hash in quotes") << "echo \"# 1\"" << QStringList({"echo", "# 1"});
    }

    void splitsWords()
    {
        QFETCH(QString, line);
        QStringList words;
        QVERIFY(scriptwords::split(line, words));
        QTEST(words, "words");
    }

    void refusesAnOpenQuote()
    {
        QStringList words;
        QVERIFY(!scriptwords::split("echo \"abc", words));
        QCOMPARE(DeskScript::parse("\necho \"abc").error, "line 2: a quotation mark is missing");
    }

    void readsKeys()
    {
        const DeskScript script = DeskScript::parse("key down\n\n  # nothing\nhold F8 700\n");
        QCOMPARE(script.error, QString());
        QCOMPARE(script.commands.size(), 2);
        QVERIFY(script.commands[0].verb == Verb::Key);
        QCOMPARE(script.commands[0].key, Qt::Key_Down);
        QVERIFY(script.commands[1].verb == Verb::Hold);
        QCOMPARE(script.commands[1].key, Qt::Key_F8);
        QCOMPARE(script.commands[1].number, 700);
        QCOMPARE(script.commands[1].line, 4);
        QCOMPARE(script.commands[1].source, "hold F8 700");
    }

    void readsSwipes()
    {
        const DeskScript script = DeskScript::parse(
            "swipe line 3\nswipe line 1 speed 400\nswipe 20,35.5 120,36 speed 150");
        QCOMPARE(script.error, QString());
        QVERIFY(script.commands[0].verb == Verb::SwipeLine);
        QCOMPARE(script.commands[0].number, 3);
        QCOMPARE(script.commands[0].speed, 0.0);
        QCOMPARE(script.commands[1].speed, 400.0);
        QVERIFY(script.commands[2].verb == Verb::SwipeWay);
        QCOMPARE(script.commands[2].from, QPointF(20, 35.5));
        QCOMPARE(script.commands[2].to, QPointF(120, 36));
        QCOMPARE(script.commands[2].speed, 150.0);
    }

    void readsConditions()
    {
        const DeskScript script = DeskScript::parse(
            "wait screen-change\nwait spoken \"New file\"\nwait text abc\n"
            "wait file *.txt contains \"x y\"\nwait message mainprocess execute(QString) soundyes\n"
            "wait idle\nwait camera off\nwait swipe no-print\nwait swipe\nwait exit\nwait "
            "silence\nwait heard h\nwait still\n"
            "expect spoken a\nexpect heard i\nexpect text b\nexpect file F contains c\n"
            "expect message mainprocess ESC(QString) escpressed\nexpect running");
        QCOMPARE(script.error, QString());
        const QList<Verb> verbs = {
            Verb::WaitScreen,  Verb::WaitSpoken,    Verb::WaitText,     Verb::WaitFile,
            Verb::WaitMessage, Verb::WaitIdle,      Verb::WaitCamera,   Verb::WaitSwipe,
            Verb::WaitSwipe,   Verb::WaitExit,      Verb::WaitSilence,  Verb::WaitHeard,
            Verb::WaitStill,   Verb::ExpectSpoken,  Verb::ExpectHeard,  Verb::ExpectText,
            Verb::ExpectFile,  Verb::ExpectMessage, Verb::ExpectRunning};
        QCOMPARE(script.commands.size(), verbs.size());
        for (qsizetype i = 0; i < verbs.size(); ++i)
            QVERIFY2(script.commands[i].verb == verbs[i], qPrintable(script.commands[i].source));
        QCOMPARE(script.commands[3].name, "*.txt");
        QCOMPARE(script.commands[3].text, "x y");
        QCOMPARE(script.commands[4].message, "execute(QString)");
        QCOMPARE(script.commands[4].payload, "soundyes");
        QCOMPARE(script.commands[6].number, 0);
        QCOMPARE(script.commands[7].name, "no-print");
    }

    void readsTheRest()
    {
        const DeskScript script = DeskScript::parse(
            "send execute(QString) save\nusb plug\nusb unplug\npower\nhand left\npage german\n"
            "text /a/b.txt fr\nstart\nscreenshot menu\ndesk-shot desk\ntimeout 2.5\necho hello\n"
            "language \"Traditional Chinese\"\nquit");
        QCOMPARE(script.error, QString());
        QCOMPARE(script.commands.size(), 14);
        QCOMPARE(script.commands[0].payload, "save");
        QCOMPARE(script.commands[1].number, 1);
        QCOMPARE(script.commands[2].number, 0);
        QCOMPARE(script.commands[5].page.name, "german");
        QVERIFY(script.commands[5].page.kind == PageSource::Kind::Sample);
        QCOMPARE(script.commands[6].page.name, "/a/b.txt");
        QCOMPARE(script.commands[6].page.language, "fr");
        QCOMPARE(script.commands[10].number, 2500);
        QCOMPARE(script.commands[12].name, "Traditional Chinese");
    }

    void readsTheWayOfAHand()
    {
        const DeskScript script = DeskScript::parse("swipe path 20,35.5@0 30,35@0.05 120,36@0.9");
        QCOMPARE(script.error, QString());
        QVERIFY(script.commands[0].verb == Verb::SwipePath);
        const std::vector<PathPoint>& path = script.commands[0].path;
        QCOMPARE(path.size(), std::size_t(3));
        QCOMPARE(path[1].mm, QPointF(30, 35));
        QCOMPARE(path[1].seconds, 0.05);
        QCOMPARE(path[2].seconds, 0.9);
    }

    void readsHandAndPenSwitches()
    {
        const DeskScript script = DeskScript::parse("hand right\nhand usual\nhand wobble 0.4\n"
                                                    "hand tilt -5\ncard out\ncard in\n"
                                                    "storage full\nstorage free\npause 0.5\n"
                                                    "frames on\nframes off");
        QCOMPARE(script.error, QString());
        QCOMPARE(script.commands[0].name, "right");
        QCOMPARE(script.commands[1].name, "usual");
        QCOMPARE(script.commands[2].name, "wobble");
        QCOMPARE(script.commands[2].value, 0.4);
        QCOMPARE(script.commands[3].value, -5.0);
        const QVector<Verb> verbs = {Verb::Card,  Verb::Card,   Verb::Storage, Verb::Storage,
                                     Verb::Pause, Verb::Frames, Verb::Frames};
        const QVector<int> numbers = {1, 0, 1, 0, 500, 1, 0};
        for (int i = 0; i < verbs.size(); ++i) {
            QVERIFY(script.commands[i + 4].verb == verbs[i]);
            QCOMPARE(script.commands[i + 4].number, numbers[i]);
        }
    }

    void readsPagesAsTheyAreWritten_data()
    {
        QTest::addColumn<QString>("line");
        for (const char* line :
             {"page french", "page /a/b.png", "page \"/a b.pdf\" sheet 3", "page /a.png dpi 200",
              "text /a/b.txt ru", "type \"One line.\\nTwo \\\"lines\\\".\" en size 12",
              "type Wort de font \"DejaVu Sans\" size 9.5"})
            QTest::newRow(line) << line;
    }

    void readsPagesAsTheyAreWritten()
    {
        QFETCH(QString, line);
        const DeskScript script = DeskScript::parse(line);
        QCOMPARE(script.error, QString());
        QVERIFY(script.commands[0].verb == Verb::Page);
        QCOMPARE(script.commands[0].page.scriptLine(), line);
    }

    void tellsWhatIsWrong_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("part");
        QTest::newRow("unknown") << "jump"
                                 << "no command \"jump\"";
        QTest::newRow("key") << "key Tab"
                             << "no key \"Tab\"";
        QTest::newRow("no key") << "key"
                                << "no key \"\"";
        QTest::newRow("too much") << "key Up Down"
                                  << "\"Down\" is too much";
        QTest::newRow("line 0") << "swipe line 0"
                                << "no number from 1";
        QTest::newRow("place") << "swipe 10 20,30"
                               << "\"10\" is no place";
        QTest::newRow("speed 0") << "swipe line 1 speed 0"
                                 << "no speed";
        QTest::newRow("speed word") << "swipe line 1 speed fast"
                                    << "no speed";
        QTest::newRow("hold") << "hold Up -1"
                              << "no number from 1";
        QTest::newRow("wait") << "wait long"
                              << "\"long\" is nothing to wait for";
        QTest::newRow("contains") << "wait file a b"
                                  << "\"contains\" is missing";
        QTest::newRow("channel") << "wait message scanprocess a b"
                                 << "only \"mainprocess\"";
        QTest::newRow("outcome") << "wait swipe perhaps"
                                 << "no outcome \"perhaps\"";
        QTest::newRow("timeout") << "timeout 0"
                                 << "no time";
        QTest::newRow("long timeout") << "timeout 9999"
                                      << "no time";
        QTest::newRow("language") << "text a.txt"
                                  << "language is missing";
        QTest::newRow("hand") << "hand steady"
                              << "a hand has no \"steady\"";
        QTest::newRow("hand range") << "hand tilt 90"
                                    << "no number from -20 to 20";
        QTest::newRow("hand value") << "hand wobble"
                                    << "no number from 0 to 1";
        QTest::newRow("way back in time") << "swipe path 1,1@0.5 2,1@0.4"
                                          << "\"2,1@0.4\" is no step";
        QTest::newRow("way without time") << "swipe path 1,1 2,1"
                                          << "\"1,1\" is no step";
        QTest::newRow("way without end") << "swipe path 1,1@0.5"
                                         << "two steps";
        QTest::newRow("place that is none") << "swipe nan,1 2,1"
                                            << "is no place";
        QTest::newRow("no page") << "page"
                                 << "page is missing";
        QTest::newRow("sheet 0") << "page a.pdf sheet 0"
                                 << "no number from 1";
        QTest::newRow("dpi") << "page a.png dpi 5"
                             << "no number from 50";
        QTest::newRow("type") << "type \"\" en"
                              << "text is missing";
        QTest::newRow("type size") << "type a en size 100"
                                   << "no number from 5 to 36";
        QTest::newRow("card") << "card lost"
                              << "out or in";
        QTest::newRow("storage") << "storage big"
                                 << "full or free";
        QTest::newRow("language") << "language"
                                  << "text is missing";
        QTest::newRow("usb") << "usb in"
                             << "plug or unplug";
    }

    void tellsWhatIsWrong()
    {
        QFETCH(QString, line);
        QFETCH(QString, part);
        const DeskScript script = DeskScript::parse("key Up\n" + line);
        QVERIFY2(script.error.startsWith("line 2: "), qPrintable(script.error));
        QVERIFY2(script.error.contains(part), qPrintable(script.error));
        QVERIFY(script.commands.isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestDeskScript)
#include "tst_deskscript.moc"
