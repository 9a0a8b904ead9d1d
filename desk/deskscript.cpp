#include "desk/deskscript.h"

#include "desk/penkeys.h"
#include "desk/scriptwords.h"
#include "desk/swipereport.h"

#include <QCoreApplication>
#include <QStringList>
#include <array>

namespace {

using Verb = DeskCommand::Verb;

constexpr int MaxMs = 600'000;
constexpr double MaxSpeed = 2000.0;

QString tr(const char* text)
{
    return QCoreApplication::translate("DeskScript", text);
}

/* Reads the arguments of one command; each reader returns an error or nothing. */
class Arguments
{
public:
    Arguments(QStringList words, DeskCommand& command)
        : m_words(std::move(words)), m_command(command)
    {
    }

    bool atEnd() const { return m_words.isEmpty(); }
    QString take() { return m_words.isEmpty() ? QString() : m_words.takeFirst(); }
    bool takeIf(const char* word)
    {
        if (m_words.isEmpty() || m_words.first() != QLatin1String(word))
            return false;
        m_words.removeFirst();
        return true;
    }

    QString text(QString DeskCommand::*field)
    {
        m_command.*field = take();
        return (m_command.*field).isEmpty() ? tr("a text is missing") : QString();
    }

    QString key()
    {
        const QString name = take();
        const auto key = penkeys::fromName(name);
        if (!key)
            return tr("there is no key \"%1\"; there are %2")
                .arg(name, penkeys::names().join(QLatin1String(", ")));
        m_command.key = *key;
        return QString();
    }

    QString number(int least, int most)
    {
        bool ok = false;
        const QString word = take();
        m_command.number = word.toInt(&ok);
        if (!ok || m_command.number < least || m_command.number > most)
            return tr("\"%1\" is no number from %2 to %3").arg(word).arg(least).arg(most);
        return QString();
    }

    QString seconds()
    {
        bool ok = false;
        const QString word = take();
        const double seconds = word.toDouble(&ok);
        if (!ok || seconds <= 0.0 || seconds * 1000.0 > MaxMs)
            return tr("\"%1\" is no time in seconds").arg(word);
        m_command.number = int(seconds * 1000.0);
        return QString();
    }

    QString choice(const char* one, const char* zero)
    {
        const QString word = take();
        if (word != QLatin1String(one) && word != QLatin1String(zero))
            return tr("\"%1\" should be %2 or %3")
                .arg(word, QLatin1String(one), QLatin1String(zero));
        m_command.number = word == QLatin1String(one) ? 1 : 0;
        return QString();
    }

    QString point(QPointF DeskCommand::*field)
    {
        const QString word = take();
        const QStringList parts = word.split(QLatin1Char(','));
        bool okX = false;
        bool okY = false;
        if (parts.size() == 2)
            m_command.*field = QPointF(parts[0].toDouble(&okX), parts[1].toDouble(&okY));
        return okX && okY ? QString() : tr("\"%1\" is no place; write X,Y in mm").arg(word);
    }

    QString speed()
    {
        if (!takeIf("speed"))
            return QString();
        bool ok = false;
        const QString word = take();
        m_command.speed = word.toDouble(&ok);
        return ok && m_command.speed > 0.0 && m_command.speed <= MaxSpeed
                   ? QString()
                   : tr("\"%1\" is no speed in mm a second").arg(word);
    }

    QString message()
    {
        m_command.message = take();
        m_command.payload = take().toUtf8();
        return m_command.message.isEmpty() ? tr("the message is missing") : QString();
    }

private:
    QStringList m_words;
    DeskCommand& m_command;
};

/* The first error of several steps. */
template <typename... Steps> QString inTurn(Steps... steps)
{
    QString error;
    const auto step = [&error](auto&& one) {
        error = one();
        return error.isEmpty();
    };
    (step(steps) && ...);
    return error;
}

QString readSwipe(DeskCommand& command, Arguments& arguments)
{
    if (arguments.takeIf("line")) {
        command.verb = Verb::SwipeLine;
        return inTurn([&] { return arguments.number(1, 1000); }, [&] { return arguments.speed(); });
    }
    command.verb = Verb::SwipePath;
    return inTurn([&] { return arguments.point(&DeskCommand::from); },
                  [&] { return arguments.point(&DeskCommand::to); },
                  [&] { return arguments.speed(); });
}

/* What stands behind "wait" and "expect" alike. */
QString readCondition(DeskCommand& command, Arguments& arguments, bool wait)
{
    if (arguments.takeIf("spoken")) {
        command.verb = wait ? Verb::WaitSpoken : Verb::ExpectSpoken;
        return arguments.text(&DeskCommand::text);
    }
    if (arguments.takeIf("heard")) {
        command.verb = wait ? Verb::WaitHeard : Verb::ExpectHeard;
        return arguments.text(&DeskCommand::text);
    }
    if (arguments.takeIf("text")) {
        command.verb = wait ? Verb::WaitText : Verb::ExpectText;
        return arguments.text(&DeskCommand::text);
    }
    if (arguments.takeIf("file")) {
        command.verb = wait ? Verb::WaitFile : Verb::ExpectFile;
        return inTurn([&] { return arguments.text(&DeskCommand::name); },
                      [&] {
                          return arguments.takeIf("contains") ? QString()
                                                              : tr("\"contains\" is missing");
                      },
                      [&] { return arguments.text(&DeskCommand::text); });
    }
    if (arguments.takeIf("message")) {
        command.verb = wait ? Verb::WaitMessage : Verb::ExpectMessage;
        return inTurn(
            [&] {
                command.name = arguments.take();
                return command.name == QLatin1String("mainprocess")
                           ? QString()
                           : tr("only \"mainprocess\" is heard here");
            },
            [&] { return arguments.message(); });
    }
    return tr("\"%1\" is nothing to wait for or expect").arg(arguments.take());
}

QString readWait(DeskCommand& command, Arguments& arguments)
{
    const auto plain = [&command](Verb verb) {
        command.verb = verb;
        return QString();
    };
    if (arguments.takeIf("screen-change"))
        return plain(Verb::WaitScreen);
    if (arguments.takeIf("silence"))
        return plain(Verb::WaitSilence);
    if (arguments.takeIf("idle"))
        return plain(Verb::WaitIdle);
    if (arguments.takeIf("still"))
        return plain(Verb::WaitStill);
    if (arguments.takeIf("exit"))
        return plain(Verb::WaitExit);
    if (arguments.takeIf("camera")) {
        command.verb = Verb::WaitCamera;
        return arguments.choice("on", "off");
    }
    if (arguments.takeIf("swipe")) {
        command.verb = Verb::WaitSwipe;
        command.name = arguments.take();
        const bool known =
            command.name.isEmpty() || SwipeReport::outcomeNames().contains(command.name);
        return known ? QString() : tr("there is no outcome \"%1\"").arg(command.name);
    }
    return readCondition(command, arguments, true);
}

QString readExpect(DeskCommand& command, Arguments& arguments)
{
    if (arguments.takeIf("running")) {
        command.verb = Verb::ExpectRunning;
        return QString();
    }
    return readCondition(command, arguments, false);
}

struct Reader
{
    const char* word;
    Verb verb;
    QString (*read)(DeskCommand& command, Arguments& arguments);
};

QString readNothing(DeskCommand&, Arguments&)
{
    return QString();
}

QString readName(DeskCommand&, Arguments& arguments)
{
    return arguments.text(&DeskCommand::name);
}

QString readText(DeskCommand&, Arguments& arguments)
{
    return arguments.text(&DeskCommand::text);
}

constexpr std::array<Reader, 17> Readers = {{
    {"key", Verb::Key, [](DeskCommand&, Arguments& a) { return a.key(); }},
    {"hold", Verb::Hold,
     [](DeskCommand&, Arguments& a) {
         return inTurn([&] { return a.key(); }, [&] { return a.number(1, MaxMs); });
     }},
    {"swipe", Verb::SwipePath, readSwipe},
    {"send", Verb::Send, [](DeskCommand&, Arguments& a) { return a.message(); }},
    {"usb", Verb::Usb, [](DeskCommand&, Arguments& a) { return a.choice("plug", "unplug"); }},
    {"power", Verb::Power, readNothing},
    {"hand", Verb::Hand, [](DeskCommand&, Arguments& a) { return a.choice("left", "right"); }},
    {"page", Verb::Page, readText},
    {"text", Verb::Text,
     [](DeskCommand& command, Arguments& a) {
         return inTurn([&] { return a.text(&DeskCommand::text); },
                       [&] {
                           command.name = a.take();
                           return command.name.size() == 2
                                      ? QString()
                                      : tr("the language is missing, as two letters");
                       });
     }},
    {"start", Verb::Start, readNothing},
    {"screenshot", Verb::Screenshot, readName},
    {"desk-shot", Verb::DeskShot, readName},
    {"timeout", Verb::TimeOut, [](DeskCommand&, Arguments& a) { return a.seconds(); }},
    {"echo", Verb::Echo, readText},
    {"wait", Verb::WaitIdle, readWait},
    {"expect", Verb::ExpectSpoken, readExpect},
    {"quit", Verb::Quit, readNothing},
}};

QString readCommand(QStringList words, DeskCommand& command)
{
    const QString first = words.takeFirst();
    for (const Reader& reader : Readers) {
        if (first != QLatin1String(reader.word))
            continue;
        command.verb = reader.verb;
        Arguments arguments(std::move(words), command);
        const QString error = reader.read(command, arguments);
        if (error.isEmpty() && !arguments.atEnd())
            return tr("\"%1\" is too much").arg(arguments.take());
        return error;
    }
    return tr("there is no command \"%1\"").arg(first);
}

} // namespace

DeskScript DeskScript::parse(const QString& text)
{
    DeskScript script;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        DeskCommand command;
        command.line = i + 1;
        command.source = lines.at(i).trimmed();
        QStringList words;
        QString error;
        if (!scriptwords::split(lines.at(i), words))
            error = tr("a quotation mark is missing");
        else if (words.isEmpty())
            continue;
        else
            error = readCommand(words, command);
        if (!error.isEmpty()) {
            script.error = tr("line %1: %2").arg(QString::number(i + 1), error);
            script.commands.clear();
            return script;
        }
        script.commands.append(command);
    }
    return script;
}
