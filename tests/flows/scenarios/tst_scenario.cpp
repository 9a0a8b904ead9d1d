#include "tests/flows/scenarios/scenario.h"

#include <QDate>
#include <QTest>

using Verb = ScenarioStep::Verb;

/* The language in which scenarios are told. */
class TestScenario : public QObject
{
    Q_OBJECT

private slots:
    void readsEachCommand_data();
    void readsEachCommand();
    void keepsPlaceAndSource();
    void readsKeysAndValues();
    void readsWhatIsSpokenAndHow();
    void readsTheFieldsOfAScreen();
    void todayStandsForTheDate();
    void includesAnotherFile();
    void refuses_data();
    void refuses();
};

void TestScenario::readsEachCommand_data()
{
    QTest::addColumn<Verb>("verb");
    const auto row = [](const char* line, Verb verb) { QTest::newRow(line) << verb; };
    row("given file notes \"a text\"", Verb::GivenFile);
    row("given file notes units 32768", Verb::GivenUnits);
    row("given files 1000", Verb::GivenFiles);
    row("given setting SystemSet/Delay 2", Verb::GivenSetting);
    row("given free-space 1048575", Verb::GivenFreeSpace);
    row("given no-card", Verb::GivenNoCard);
    row("given dictionary Small eng-deu", Verb::GivenDictionary);
    row("given damaged Broken eng-deu", Verb::GivenDamaged);
    row("given word Small house Haus", Verb::GivenWord);
    row("given language \"Traditional Chinese\"", Verb::GivenLanguage);
    row("given raw /apps/config/filelist.cfg \"0\\n\"", Verb::GivenRaw);
    row("start", Verb::Start);
    row("key OK", Verb::Key);
    row("hold F8", Verb::Hold);
    row("release F8", Verb::Release);
    row("swipe \"one line\"", Verb::Swipe);
    row("swipe nothing", Verb::SwipeNothing);
    row("swipe refused", Verb::SwipeRefused);
    row("tip down", Verb::TipDown);
    row("tip up \"one line\"", Verb::TipUp);
    row("recognition hold", Verb::HoldRecognition);
    row("recognition release", Verb::ReleaseRecognition);
    row("recognition release soon", Verb::ReleaseSoon);
    row("dictionary hold", Verb::HoldDictionary);
    row("dictionary release", Verb::ReleaseDictionary);
    row("voice hold", Verb::HoldVoice);
    row("voice run", Verb::RunVoice);
    row("voice word", Verb::VoiceWord);
    row("voice finish", Verb::VoiceFinish);
    row("send USB(QString) plug", Verb::Send);
    row("time message", Verb::Time);
    row("free-space 0", Verb::FreeSpace);
    row("card out", Verb::TakeCard);
    row("card in", Verb::PutCard);
    row("remember", Verb::Remember);
    row("screen menu", Verb::Screen);
    row("screen same", Verb::SameScreen);
    row("screen remembered", Verb::KnownScreen);
    row("spoken \"words\"", Verb::Spoken);
    row("spoken perhaps \"words\"", Verb::SpokenPerhaps);
    row("spoken anything", Verb::SpokenAnything);
    row("silent", Verb::Silent);
    row("sent mainprocess Show(QString) scan", Verb::Sent);
    row("file notes \"a text\"", Verb::File);
    row("file notes units 32768", Verb::Units);
    row("file notes missing", Verb::NoFile);
    row("list two one", Verb::List);
    row("book house", Verb::Book);
    row("counted house", Verb::Counted);
    row("setting SystemSet/Speed 7", Verb::Setting);
    row("engine \"ZEMBRA_IAP_SetStopSignal(1)\"", Verb::Engine);
    row("ended", Verb::Ended);
}

void TestScenario::readsEachCommand()
{
    QFETCH(Verb, verb);
    const Scenario scenario = Scenario::parse(QString::fromUtf8(QTest::currentDataTag()), "s");
    QCOMPARE(scenario.error, QString());
    QCOMPARE(scenario.steps.size(), 1);
    QCOMPARE(scenario.steps.first().verb, verb);
}

void TestScenario::keepsPlaceAndSource()
{
    const Scenario scenario = Scenario::parse("# a story\n\n  key OK # now\n", "tale.scenario");
    QCOMPARE(scenario.error, QString());
    QCOMPARE(scenario.steps.size(), 1);
    QCOMPARE(scenario.steps[0].place, "tale.scenario:3");
    QCOMPARE(scenario.steps[0].source, "key OK # now");
}

void TestScenario::readsKeysAndValues()
{
    const Scenario scenario = Scenario::parse("given setting SystemSet/Speed 10\n"
                                              "key OK\nkey F10\nkey Space\n"
                                              "send USB(QString) plug\nended -1\n",
                                              "s");
    QCOMPARE(scenario.error, QString());
    QCOMPARE(scenario.steps[0].name, "SystemSet/Speed");
    QCOMPARE(scenario.steps[0].number, 10);
    QCOMPARE(scenario.steps[1].key, int(Qt::Key_Return));
    QCOMPARE(scenario.steps[2].key, int(Qt::Key_F10));
    QCOMPARE(scenario.steps[3].key, int(Qt::Key_Space));
    QCOMPARE(scenario.steps[4].name, "USB(QString)");
    QCOMPARE(scenario.steps[4].text, "plug");
    QCOMPARE(scenario.steps[5].number, -1);
}

void TestScenario::readsWhatIsSpokenAndHow()
{
    const Scenario scenario = Scenario::parse("spoken \"New file\"\n"
                                              "spoken Hallo lang 104 speed 48 volume 80\n",
                                              "s");
    QCOMPARE(scenario.error, QString());
    QVERIFY(!scenario.steps[0].language);
    QCOMPARE(scenario.steps[1].text, "Hallo");
    QCOMPARE(scenario.steps[1].language, 104);
    QCOMPARE(scenario.steps[1].speed, 48);
    QCOMPARE(scenario.steps[1].volume, 80);
}

void TestScenario::readsTheFieldsOfAScreen()
{
    const Scenario scenario = Scenario::parse(
        "screen menu title \"Scan to file\" place 1/2 rows \"New file\" \"Open file\" busy yes",
        "s");
    QCOMPARE(scenario.error, QString());
    const ScenarioStep& step = scenario.steps.first();
    QCOMPARE(step.name, "menu");
    QCOMPARE(step.fields.value("title"), QStringList("Scan to file"));
    QCOMPARE(step.fields.value("place"), QStringList("1/2"));
    QCOMPARE(step.fields.value("rows"), QStringList({"New file", "Open file"}));
    QCOMPARE(step.fields.value("busy"), QStringList("yes"));
    QVERIFY(!step.fields.contains("text"));
}

void TestScenario::todayStandsForTheDate()
{
    const Scenario scenario = Scenario::parse("file {today}_1 \"\"", "s");
    QCOMPARE(scenario.steps.first().name, QDate::currentDate().toString("yyMMdd") + "_1");
}

void TestScenario::includesAnotherFile()
{
    const auto load = [](const QString& name) -> std::optional<QString> {
        if (name != QLatin1String("new-file"))
            return std::nullopt;
        return QStringLiteral("key OK\nsilent\n");
    };
    const Scenario scenario = Scenario::parse("start\ndo new-file\nkey Esc\n", "s", load);
    QCOMPARE(scenario.error, QString());
    QCOMPARE(scenario.steps.size(), 4);
    QCOMPARE(scenario.steps[1].place, "new-file:1");
    QCOMPARE(scenario.steps[3].place, "s:3");
    QVERIFY(Scenario::parse("at every place\nkey OK", "s").atEveryPlace);
}

void TestScenario::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("nothing") << "# only a story"
                             << "s:1: nothing is told here";
    QTest::newRow("command") << "\njump"
                             << "s:2: there is no command \"jump\"";
    QTest::newRow("quote") << "key OK\nspoken \"a"
                           << "s:2: a quotation mark is missing";
    QTest::newRow("key") << "key Fn"
                         << "s:1: there is no key \"Fn\"";
    QTest::newRow("missing") << "swipe"
                             << "s:1: the recognised text is missing";
    QTest::newRow("too much") << "key OK now"
                              << "s:1: \"now\" is too much";
    QTest::newRow("number") << "given files many"
                            << "s:1: \"many\" is no number";
    QTest::newRow("voice") << "voice loud"
                           << "s:1: \"loud\" should be one of finish, hold, run, word";
    QTest::newRow("definition") << "given word Small house"
                                << "s:1: the definition is missing";
    QTest::newRow("channel") << "sent scanprocess a b"
                             << "s:1: \"scanprocess\" should be one of mainprocess";
    QTest::newRow("given too late") << "key OK\ngiven no-card"
                                    << "s:2: what is given stands before all that is done";
    QTest::newRow("no such file") << "do nothing"
                                  << "s:1: there is no file \"nothing\"";
    QTest::newRow("endless") << "do again"
                             << "again:1: \"again\" includes itself";
    QTest::newRow("inside") << "key OK\ndo wrong"
                            << "wrong:2: there is no key \"x\"";
    QTest::newRow("places late") << "key OK\nat every place"
                                 << "s:2: \"at every place\" stands before all else";
}

void TestScenario::refuses()
{
    QFETCH(QString, text);
    const auto load = [](const QString& name) -> std::optional<QString> {
        if (name == QLatin1String("again"))
            return QStringLiteral("do again");
        if (name == QLatin1String("wrong"))
            return QStringLiteral("key OK\nkey x");
        return std::nullopt;
    };
    const Scenario scenario = Scenario::parse(text, "s", load);
    QTEST(scenario.error, "error");
    QVERIFY(scenario.steps.isEmpty());
}

QTEST_APPLESS_MAIN(TestScenario)
#include "tst_scenario.moc"
