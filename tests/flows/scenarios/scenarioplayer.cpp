#include "tests/flows/scenarios/scenarioplayer.h"

#include "desk/scriptwords.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakesystem.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/penlanguage.h"

#include <QDir>

namespace {

const QString Card = QStringLiteral("/mnt/mmc");
const QString CardInAPc = QStringLiteral("/mnt/taken-out");

} // namespace

QString ScenarioPlayer::scanPath(const QString& name)
{
    return QStringLiteral("/mnt/mmc/e_ScanFile/%1.txt").arg(name);
}

QString ScenarioPlayer::toldAs(const Utterance& utterance)
{
    return QStringLiteral("spoken %1 lang %2 speed %3 volume %4")
        .arg(scriptwords::quoted(utterance.text))
        .arg(utterance.language)
        .arg(utterance.speed)
        .arg(utterance.volume);
}

QString ScenarioPlayer::toldAs(const QString& message)
{
    return QLatin1String("sent mainprocess ") + message;
}

ScenarioPlayer::ScenarioPlayer(Scenario scenario, Mode mode)
    : m_scenario(std::move(scenario)), m_mode(mode)
{
}

bool ScenarioPlayer::play()
{
    prepare();
    while (!m_over && m_failure.isEmpty()) {
        m_story.append(QStringLiteral("(the application starts)"));
        Stage::News last;
        const int result = m_stage.run([this](const Stage::News& news) { atRest(news); }, last);
        if (!m_stage.problem().isEmpty())
            fail(m_stage.problem());
        else if (m_over && result != 0)
            fail(QStringLiteral("The application ends with %1").arg(result));
        absorb(last);
        if (!m_over && m_failure.isEmpty())
            afterRun(result);
    }
    return m_failure.isEmpty();
}

void ScenarioPlayer::prepare()
{
    while (!atEnd() && m_scenario.steps.at(m_next).isGiven())
        given(m_scenario.steps.at(m_next++));
    dictionaryhost::install(m_dictionaries, m_stage.state().root);
    if (!atEnd() && m_scenario.steps.at(m_next).verb == Verb::Start)
        ++m_next;
}

void ScenarioPlayer::given(const Step& step)
{
    const TestRoot& root = m_stage.state().root;
    m_story.append(step.source);
    switch (step.verb) {
    case Verb::GivenFile:
        writeText(step.name, step.text);
        break;
    case Verb::GivenUnits:
        writeText(step.name, QString(step.number, u'a'));
        break;
    case Verb::GivenFiles:
        for (int i = 0; i < step.number; ++i)
            writeText(QStringLiteral("f%1").arg(i, 3, 10, QChar(u'0')), QStringLiteral("t"));
        break;
    case Verb::GivenSetting:
        root.setSetting(step.name, static_cast<int>(step.number));
        break;
    case Verb::GivenFreeSpace:
        FakeSystem::setFreeBytes(step.number);
        break;
    case Verb::GivenNoCard:
        moveCard(Card, CardInAPc);
        break;
    case Verb::GivenDictionary:
    case Verb::GivenDamaged:
        m_dictionaries.append({step.name, step.text, step.verb == Verb::GivenDamaged, {}});
        break;
    case Verb::GivenWord:
        for (GivenDictionary& dictionary : m_dictionaries) {
            if (dictionary.name == step.name)
                dictionary.entries.append({step.text, step.texts.first()});
        }
        break;
    case Verb::GivenLanguage:
        if (!setPenLanguage(root, step.name))
            fail(QStringLiteral("there is no interface in %1").arg(step.name));
        break;
    default:
        root.write(step.name, step.text.toUtf8());
    }
}

void ScenarioPlayer::writeText(const QString& name, const QString& text)
{
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    m_stage.state().root.write(
        scanPath(name),
        QByteArray(reinterpret_cast<const char*>(marked.utf16()), 2 * marked.size()));
}

bool ScenarioPlayer::moveCard(const QString& from, const QString& to)
{
    const TestRoot& root = m_stage.state().root;
    return QDir().rename(root.path(from), root.path(to))
           || fail(QStringLiteral("the card is not there"));
}

// The application has ended by itself: what the scenario says about that, and a new start.
void ScenarioPlayer::afterRun(int result)
{
    m_story.append(QStringLiteral("ended %1").arg(result));
    bool ended = false;
    while (!atEnd() && m_failure.isEmpty()) {
        const Step& step = m_scenario.steps.at(m_next);
        if (step.verb == Verb::Start && ended)
            break;
        if (step.verb == Verb::Ended) {
            ended = true;
            if (step.number != result)
                differs(QStringLiteral("result"), QString::number(step.number),
                        QString::number(result));
        } else if (step.isAction() || step.verb == Verb::Screen || step.verb == Verb::List) {
            fail(step.place + QLatin1String(": the application has ended before"));
        } else {
            expect(step);
        }
        ++m_next;
    }
    if (m_mode == Mode::Compare && m_failure.isEmpty() && !ended)
        fail(QStringLiteral("the application has ended, and nobody expects it"));
    allListed(QStringLiteral("at the end"));
    m_over = atEnd();
    if (!m_over)
        ++m_next; // the new start
}

void ScenarioPlayer::absorb(const Stage::News& news)
{
    if (m_over)
        return;
    for (const Utterance& utterance : news.spoken)
        m_story.append(QLatin1String("    ") + toldAs(utterance));
    for (const QString& message : news.sent)
        m_story.append(QLatin1String("    ") + toldAs(message));
    m_spoken += news.spoken;
    m_sent += news.sent;
    m_engines += news.engines;
    m_somethingSpoken |= !news.spoken.isEmpty();
}

void ScenarioPlayer::atRest(const Stage::News& news)
{
    absorb(news);
    if (m_over)
        return;
    tellScreen();
    while (!atEnd() && m_failure.isEmpty()) {
        const Step& step = m_scenario.steps.at(m_next++);
        if (step.isAction()) {
            begin(step);
            return;
        }
        expect(step);
    }
    if (m_failure.isEmpty())
        allListed(QStringLiteral("at the end"));
    m_over = true;
}

void ScenarioPlayer::tellScreen()
{
    m_story.append(QLatin1String("    screen ") + describeScreen().toString());
}

void ScenarioPlayer::begin(const Step& step)
{
    if (!allListed(QLatin1String("before ") + step.place))
        return;
    m_story.append(QStringLiteral("%1  (%2)").arg(step.source, step.place));
    m_before = describeScreen();
    m_engines.clear();
    m_somethingSpoken = false;
    perform(step);
}

void ScenarioPlayer::perform(const Step& step)
{
    bool done = true;
    if (std::exchange(m_releaseSoon, false))
        m_stage.releaseRecognitionSoon();
    switch (step.verb) {
    case Verb::ReleaseSoon:
        m_releaseSoon = true;
        m_stage.act([] {});
        break;
    case Verb::Key:
        m_stage.press(step.key);
        m_stage.release(step.key);
        break;
    case Verb::Hold:
        m_stage.press(step.key);
        break;
    case Verb::Release:
        m_stage.release(step.key);
        break;
    case Verb::Send:
        m_stage.send(step.name, step.text.toLatin1());
        break;
    case Verb::Time:
        done = m_stage.endTimer(step.name);
        break;
    case Verb::TakeCard:
    case Verb::PutCard:
        done = step.verb == Verb::TakeCard ? moveCard(Card, CardInAPc) : moveCard(CardInAPc, Card);
        m_stage.act([] {});
        break;
    case Verb::Remember:
        m_remembered = m_before;
        m_stage.act([] {});
        break;
    case Verb::Start:
        done = false;
        break;
    default:
        performOnPen(step);
    }
    if (!done)
        fail(step.place + QLatin1String(": this cannot be done now"));
}

void ScenarioPlayer::performOnPen(const Step& step)
{
    switch (step.verb) {
    case Verb::HoldRecognition:
    case Verb::ReleaseRecognition:
        m_stage.act(
            [this, on = step.verb == Verb::HoldRecognition] { m_stage.holdRecognition(on); });
        break;
    case Verb::HoldVoice:
    case Verb::RunVoice:
        m_stage.act([this, on = step.verb == Verb::HoldVoice] { m_stage.holdVoice(on); });
        break;
    case Verb::VoiceWord:
        m_stage.act([this] { FakeTts::speakWord() || fail(QStringLiteral("no word is spoken")); });
        break;
    case Verb::VoiceFinish:
        m_stage.act([this] { FakeTts::finish() || fail(QStringLiteral("nothing is spoken")); });
        break;
    case Verb::HoldDictionary:
    case Verb::ReleaseDictionary:
        m_stage.act([this, on = step.verb == Verb::HoldDictionary] { m_stage.holdDictionary(on); });
        break;
    case Verb::FreeSpace:
        m_stage.act([bytes = step.number] { FakeSystem::setFreeBytes(bytes); });
        break;
    default:
        performSwipe(step);
    }
}

void ScenarioPlayer::performSwipe(const Step& step)
{
    bool taken = true;
    if (step.verb != Verb::TipUp)
        taken = m_stage.tipDown();
    if (step.verb == Verb::TipDown)
        m_stage.act([] {});
    else
        m_stage.tipUp(step.text);
    if (taken == (step.verb == Verb::SwipeRefused))
        fail(step.place
             + (taken ? QLatin1String(": the pen takes the swipe")
                      : QLatin1String(": the pen takes no swipe now")));
}

bool ScenarioPlayer::differs(const QString& what, const QString& expected, const QString& found)
{
    return fail(
        QStringLiteral("another %1\n  expected: %2\n  found:    %3").arg(what, expected, found));
}

bool ScenarioPlayer::allListed(const QString& when)
{
    if (m_mode == Mode::Tell) {
        m_spoken.clear();
        m_sent.clear();
    }
    if (!m_spoken.isEmpty())
        return fail(QStringLiteral("%1: not listed: %2").arg(when, toldAs(m_spoken.first())));
    if (!m_sent.isEmpty())
        return fail(QStringLiteral("%1: not listed: %2").arg(when, toldAs(m_sent.first())));
    return true;
}

bool ScenarioPlayer::fail(const QString& what)
{
    if (m_failure.isEmpty())
        m_failure = what;
    return false;
}
