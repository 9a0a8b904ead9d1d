#include "tests/flows/scenarios/scenario.h"

#include "desk/penkeys.h"
#include "desk/scriptwords.h"

#include <QDate>
#include <algorithm>
#include <iterator>

namespace {

using Step = ScenarioStep;
using Verb = ScenarioStep::Verb;

constexpr int MaxDepth = 8;

/* The words of one line behind its command, taken one by one. The first thing that is wrong is
 * kept; what is taken after it is of no account. */
class Words
{
public:
    explicit Words(QStringList words) : m_words(std::move(words)) {}

    const QString& fault() const { return m_fault; }
    void fail(const QString& message)
    {
        if (m_fault.isEmpty())
            m_fault = message;
    }

    bool atEnd() const { return m_words.isEmpty(); }
    bool nextIs(const char* word) const
    {
        return !m_words.isEmpty() && m_words.first() == QLatin1String(word);
    }
    bool takeIf(const char* word)
    {
        const bool found = nextIs(word);
        if (found)
            m_words.removeFirst();
        return found;
    }
    QString take(const char* what)
    {
        if (m_words.isEmpty())
            fail(QStringLiteral("%1 is missing").arg(QLatin1String(what)));
        return m_words.isEmpty() ? QString() : m_words.takeFirst();
    }
    QStringList takeAll() { return std::exchange(m_words, {}); }

    qint64 number(const char* what)
    {
        const QString word = take(what);
        bool ok = false;
        const qint64 value = word.toLongLong(&ok);
        if (!ok)
            fail(QStringLiteral("\"%1\" is no number").arg(word));
        return value;
    }

    QString oneOf(const QStringList& choices)
    {
        const QString word = take("a word");
        if (!choices.contains(word))
            fail(QStringLiteral("\"%1\" should be one of %2")
                     .arg(word, choices.join(QLatin1String(", "))));
        return word;
    }

    void end()
    {
        if (!m_words.isEmpty())
            fail(QStringLiteral("\"%1\" is too much").arg(m_words.first()));
    }

private:
    QStringList m_words;
    QString m_fault;
};

std::optional<int> keyOf(const QString& name)
{
    if (const auto key = penkeys::fromName(name))
        return *key;
    static const QMap<QString, int> others = {{QStringLiteral("F9"), Qt::Key_F9},
                                              {QStringLiteral("F10"), Qt::Key_F10},
                                              {QStringLiteral("F11"), Qt::Key_F11},
                                              {QStringLiteral("Space"), Qt::Key_Space}};
    if (!others.contains(name))
        return std::nullopt;
    return others.value(name);
}

void readGiven(Step& step, Words& words)
{
    const QString what = words.oneOf({"file", "files", "setting", "free-space", "no-card", "raw",
                                      "dictionary", "damaged", "word", "language"});
    if (what == QLatin1String("file")) {
        step.name = words.take("the name");
        step.verb = words.takeIf("units") ? Verb::GivenUnits : Verb::GivenFile;
        if (step.verb == Verb::GivenUnits)
            step.number = words.number("the number of units");
        else
            step.text = words.take("the text");
    } else if (what == QLatin1String("files")) {
        step.verb = Verb::GivenFiles;
        step.number = words.number("how many");
    } else if (what == QLatin1String("setting")) {
        step.verb = Verb::GivenSetting;
        step.name = words.take("the key");
        step.number = words.number("the value");
    } else if (what == QLatin1String("free-space")) {
        step.verb = Verb::GivenFreeSpace;
        step.number = words.number("the bytes");
    } else if (what == QLatin1String("dictionary") || what == QLatin1String("damaged")) {
        step.verb = what == QLatin1String("damaged") ? Verb::GivenDamaged : Verb::GivenDictionary;
        step.name = words.take("the name");
        step.text = words.take("the languages");
    } else if (what == QLatin1String("word")) {
        step.verb = Verb::GivenWord;
        step.name = words.take("the dictionary");
        step.text = words.take("the word");
        step.texts = QStringList{words.take("the definition")};
    } else if (what == QLatin1String("language")) {
        step.verb = Verb::GivenLanguage;
        step.name = words.take("the name");
    } else if (what == QLatin1String("raw")) {
        step.verb = Verb::GivenRaw;
        step.name = words.take("the path");
        step.text = words.take("the text");
    } else {
        step.verb = Verb::GivenNoCard;
    }
}

void readKey(Step& step, Words& words)
{
    const QString name = words.take("the key");
    const std::optional<int> key = keyOf(name);
    if (!key)
        words.fail(QStringLiteral("there is no key \"%1\"").arg(name));
    step.key = key.value_or(0);
}

void readSwipe(Step& step, Words& words)
{
    if (words.takeIf("nothing"))
        step.verb = Verb::SwipeNothing;
    else if (words.takeIf("refused"))
        step.verb = Verb::SwipeRefused;
    else
        step.text = words.take("the recognised text");
}

void readTip(Step& step, Words& words)
{
    step.verb = words.oneOf({"down", "up"}) == QLatin1String("down") ? Verb::TipDown : Verb::TipUp;
    if (step.verb == Verb::TipUp)
        step.text = words.take("the recognised text");
}

void readRecognition(Step& step, Words& words)
{
    const bool hold = words.oneOf({"hold", "release"}) == QLatin1String("hold");
    step.verb = hold                   ? Verb::HoldRecognition
                : words.takeIf("soon") ? Verb::ReleaseSoon
                                       : Verb::ReleaseRecognition;
}

void readVoice(Step& step, Words& words)
{
    static const QMap<QString, Verb> verbs = {{QStringLiteral("hold"), Verb::HoldVoice},
                                              {QStringLiteral("run"), Verb::RunVoice},
                                              {QStringLiteral("word"), Verb::VoiceWord},
                                              {QStringLiteral("finish"), Verb::VoiceFinish}};
    step.verb = verbs.value(words.oneOf(verbs.keys()));
}

void readDictionary(Step& step, Words& words)
{
    const bool hold = words.oneOf({"hold", "release"}) == QLatin1String("hold");
    step.verb = hold ? Verb::HoldDictionary : Verb::ReleaseDictionary;
}

void readMessage(Step& step, Words& words)
{
    step.name = words.take("the message");
    step.text = words.take("the payload");
}

void readCard(Step& step, Words& words)
{
    step.verb = words.oneOf({"out", "in"}) == QLatin1String("out") ? Verb::TakeCard : Verb::PutCard;
}

void readScreen(Step& step, Words& words)
{
    if (words.takeIf("same")) {
        step.verb = Verb::SameScreen;
        return;
    }
    if (words.takeIf("remembered")) {
        step.verb = Verb::KnownScreen;
        return;
    }
    step.name = words.oneOf({"menu", "editor", "page", "message", "question", "input", "wordbook",
                             "translate", "selection", "none"});
    while (!words.atEnd()) {
        const QString field = words.oneOf(Scenario::screenFields());
        QStringList& values = step.fields[field];
        values.append(words.take("the value"));
        // Only rows are many; their texts end with the line or the next field.
        while (field == QLatin1String("rows") && !words.atEnd() && !words.nextIs("text")
               && !words.nextIs("busy") && !words.nextIs("frozen"))
            values.append(words.take("the value"));
    }
}

void readSpoken(Step& step, Words& words)
{
    if (words.takeIf("anything")) {
        step.verb = Verb::SpokenAnything;
        return;
    }
    if (words.takeIf("perhaps"))
        step.verb = Verb::SpokenPerhaps;
    step.text = words.take("the text");
    while (!words.atEnd()) {
        const QString what = words.oneOf({"lang", "speed", "volume"});
        const int value = static_cast<int>(words.number("the value"));
        (what == QLatin1String("lang")    ? step.language
         : what == QLatin1String("speed") ? step.speed
                                          : step.volume) = value;
    }
}

void readSent(Step& step, Words& words)
{
    words.oneOf({"mainprocess"});
    readMessage(step, words);
}

void readFile(Step& step, Words& words)
{
    step.name = words.take("the name");
    if (words.takeIf("missing")) {
        step.verb = Verb::NoFile;
    } else if (words.takeIf("units")) {
        step.verb = Verb::Units;
        step.number = words.number("the number of units");
    } else {
        step.text = words.take("the text");
    }
}

void readList(Step& step, Words& words)
{
    step.texts = words.takeAll();
}

void readSetting(Step& step, Words& words)
{
    step.name = words.take("the key");
    step.number = words.number("the value");
}

void readNumber(Step& step, Words& words)
{
    step.number = words.number("the number");
}

void readEnded(Step& step, Words& words)
{
    if (!words.atEnd())
        step.number = words.number("the result");
}

void readName(Step& step, Words& words)
{
    step.name = words.take("the name");
}

void readText(Step& step, Words& words)
{
    step.text = words.take("the text");
}

void readNothing(Step&, Words&) {}

struct Command
{
    const char* word;
    Verb verb;
    void (*read)(Step& step, Words& words);
};

constexpr Command Commands[] = {
    {"given", Verb::GivenFile, readGiven},
    {"start", Verb::Start, readNothing},
    {"key", Verb::Key, readKey},
    {"hold", Verb::Hold, readKey},
    {"release", Verb::Release, readKey},
    {"swipe", Verb::Swipe, readSwipe},
    {"tip", Verb::TipDown, readTip},
    {"recognition", Verb::HoldRecognition, readRecognition},
    {"dictionary", Verb::HoldDictionary, readDictionary},
    {"voice", Verb::HoldVoice, readVoice},
    {"send", Verb::Send, readMessage},
    {"time", Verb::Time, readName},
    {"free-space", Verb::FreeSpace, readNumber},
    {"card", Verb::TakeCard, readCard},
    {"remember", Verb::Remember, readNothing},
    {"screen", Verb::Screen, readScreen},
    {"spoken", Verb::Spoken, readSpoken},
    {"silent", Verb::Silent, readNothing},
    {"sent", Verb::Sent, readSent},
    {"file", Verb::File, readFile},
    {"list", Verb::List, readList},
    {"book", Verb::Book, readList},
    {"counted", Verb::Counted, readList},
    {"setting", Verb::Setting, readSetting},
    {"engine", Verb::Engine, readText},
    {"ended", Verb::Ended, readEnded},
};

/* Reads files line by line into one scenario. */
class Reader
{
public:
    Reader(Scenario& scenario, const Scenario::Loader& load) : m_scenario(scenario), m_load(load) {}

    void readFile(const QString& text, const QString& name, int depth)
    {
        const QStringList lines = text.split(u'\n');
        for (int i = 0; i < lines.size() && m_scenario.error.isEmpty(); ++i) {
            const QString place = QStringLiteral("%1:%2").arg(name).arg(i + 1);
            const QString fault = readLine(lines.at(i), place, depth);
            if (!fault.isEmpty())
                m_scenario.error = place + QLatin1String(": ") + fault;
        }
    }

private:
    // What is wrong with the line; empty when nothing is.
    QString readLine(QString line, const QString& place, int depth)
    {
        line.replace(QLatin1String("{today}"),
                     QDate::currentDate().toString(QStringLiteral("yyMMdd")));
        QStringList all;
        if (!scriptwords::split(line, all))
            return QStringLiteral("a quotation mark is missing");
        if (all.isEmpty())
            return {};
        const QString command = all.takeFirst();
        Words words(all);
        if (command == QLatin1String("do"))
            include(words, depth);
        else if (command == QLatin1String("at"))
            readPlaces(words);
        else
            readStep(command, words, line.trimmed(), place);
        return words.fault();
    }

    void include(Words& words, int depth)
    {
        const QString name = words.take("the name");
        words.end();
        const std::optional<QString> text = m_load ? m_load(name) : std::nullopt;
        if (!text)
            words.fail(QStringLiteral("there is no file \"%1\"").arg(name));
        else if (depth == MaxDepth)
            words.fail(QStringLiteral("\"%1\" includes itself").arg(name));
        if (words.fault().isEmpty())
            readFile(*text, name, depth + 1);
    }

    void readPlaces(Words& words)
    {
        words.oneOf({"every"});
        words.oneOf({"place"});
        words.end();
        if (!m_scenario.steps.isEmpty())
            words.fail(QStringLiteral("\"at every place\" stands before all else"));
        m_scenario.atEveryPlace = true;
    }

    void readStep(const QString& command, Words& words, const QString& source, const QString& place)
    {
        const auto* const known =
            std::find_if(std::begin(Commands), std::end(Commands),
                         [&](const Command& c) { return command == QLatin1String(c.word); });
        if (known == std::end(Commands)) {
            words.fail(QStringLiteral("there is no command \"%1\"").arg(command));
            return;
        }
        Step step;
        step.place = place;
        step.source = source;
        step.verb = known->verb;
        known->read(step, words);
        words.end();
        if (step.isGiven() && !m_scenario.steps.isEmpty() && !m_scenario.steps.last().isGiven())
            words.fail(QStringLiteral("what is given stands before all that is done"));
        m_scenario.steps.append(step);
    }

    Scenario& m_scenario;
    const Scenario::Loader& m_load;
};

} // namespace

Scenario Scenario::parse(const QString& text, const QString& name, const Loader& load)
{
    Scenario scenario;
    Reader(scenario, load).readFile(text, name, 0);
    if (scenario.error.isEmpty() && scenario.steps.isEmpty() && !scenario.atEveryPlace)
        scenario.error = name + QLatin1String(":1: nothing is told here");
    if (!scenario.error.isEmpty())
        scenario.steps.clear();
    return scenario;
}

const QStringList& Scenario::screenFields()
{
    static const QStringList fields = {
        QStringLiteral("title"),  QStringLiteral("current"), QStringLiteral("place"),
        QStringLiteral("choice"), QStringLiteral("cursor"),  QStringLiteral("word"),
        QStringLiteral("rows"),   QStringLiteral("text"),    QStringLiteral("trans"),
        QStringLiteral("busy"),   QStringLiteral("frozen")};
    return fields;
}
