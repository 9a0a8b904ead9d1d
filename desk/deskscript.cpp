#include "desk/deskscript.h"

#include "desk/handmodel.h"
#include "desk/pageloader.h"
#include "desk/scriptarguments.h"
#include "desk/scriptwords.h"
#include "desk/swipereport.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <array>

namespace {

using Verb = DeskCommand::Verb;

constexpr qint64 MaxScriptBytes = 4 * 1024 * 1024;

QString tr(const char* text)
{
    return QCoreApplication::translate("DeskScript", text);
}

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

QString readSwipe(DeskCommand& command, ScriptArguments& arguments)
{
    if (arguments.takeIf("line")) {
        command.verb = Verb::SwipeLine;
        return inTurn([&] { return arguments.number(1, 1000); }, [&] { return arguments.speed(); });
    }
    if (arguments.takeIf("path")) {
        command.verb = Verb::SwipePath;
        return arguments.path();
    }
    command.verb = Verb::SwipeWay;
    return inTurn([&] { return arguments.point(&DeskCommand::from); },
                  [&] { return arguments.point(&DeskCommand::to); },
                  [&] { return arguments.speed(); });
}

/* What stands behind "wait" and "expect" alike. */
QString readCondition(DeskCommand& command, ScriptArguments& arguments, bool wait)
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

QString readWait(DeskCommand& command, ScriptArguments& arguments)
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

QString readExpect(DeskCommand& command, ScriptArguments& arguments)
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
    QString (*read)(DeskCommand& command, ScriptArguments& arguments);
};

QString readNothing(DeskCommand&, ScriptArguments&)
{
    return QString();
}

QString readName(DeskCommand&, ScriptArguments& arguments)
{
    return arguments.text(&DeskCommand::name);
}

QString readText(DeskCommand&, ScriptArguments& arguments)
{
    return arguments.text(&DeskCommand::text);
}

QString readHand(DeskCommand& command, ScriptArguments& arguments)
{
    command.name = arguments.take();
    if (command.name == QLatin1String("left") || command.name == QLatin1String("right")
        || command.name == QLatin1String("usual"))
        return QString();
    const HandModel::Trait* const trait = HandModel::trait(command.name);
    if (!trait)
        return tr("a hand has no \"%1\"; it has left, right, usual, %2")
            .arg(command.name, HandModel::traitNames().join(QLatin1String(", ")));
    return arguments.real(command.value, trait->least, trait->most);
}

QString readPage(DeskCommand& command, ScriptArguments& arguments)
{
    const QString name = arguments.take();
    command.page = PageLoader::named(name);
    QString error = name.isEmpty() ? tr("the page is missing") : QString();
    if (error.isEmpty() && arguments.takeIf("sheet")) {
        error = arguments.number(1, 100'000);
        command.page.pdfPage = command.number - 1;
    }
    if (error.isEmpty() && arguments.takeIf("dpi"))
        error = arguments.real(command.page.pictureDpi, PageSource::LeastDpi, PageSource::MostDpi);
    return error;
}

QString readTextFile(DeskCommand& command, ScriptArguments& arguments)
{
    command.page.kind = PageSource::Kind::Text;
    return inTurn([&] { return arguments.text(command.page.name); },
                  [&] { return arguments.language(command.page.language); });
}

QString readTyped(DeskCommand& command, ScriptArguments& arguments)
{
    PageSource& page = command.page;
    page.kind = PageSource::Kind::Typed;
    return inTurn(
        [&] { return arguments.text(page.text); },
        [&] { return arguments.language(page.language); },
        [&] { return arguments.takeIf("font") ? arguments.text(page.family) : QString(); },
        [&] {
            return arguments.takeIf("size")
                       ? arguments.real(page.sizePt, PageSource::LeastPt, PageSource::MostPt)
                       : QString();
        });
}

constexpr auto Readers = std::to_array<Reader>({
    {"key", Verb::Key, [](DeskCommand&, ScriptArguments& a) { return a.key(); }},
    {"hold", Verb::Hold,
     [](DeskCommand&, ScriptArguments& a) {
         return inTurn([&] { return a.key(); }, [&] { return a.number(1, DeskCommand::MaxMs); });
     }},
    {"swipe", Verb::SwipeWay, readSwipe},
    {"send", Verb::Send, [](DeskCommand&, ScriptArguments& a) { return a.message(); }},
    {"usb", Verb::Usb, [](DeskCommand&, ScriptArguments& a) { return a.choice("plug", "unplug"); }},
    {"power", Verb::Power, readNothing},
    {"card", Verb::Card, [](DeskCommand&, ScriptArguments& a) { return a.choice("out", "in"); }},
    {"storage", Verb::Storage,
     [](DeskCommand&, ScriptArguments& a) { return a.choice("full", "free"); }},
    {"hand", Verb::Hand, readHand},
    {"page", Verb::Page, readPage},
    {"type", Verb::Page, readTyped},
    {"text", Verb::Page, readTextFile},
    {"start", Verb::Start, readNothing},
    {"language", Verb::Language, readName},
    {"screenshot", Verb::Screenshot, readName},
    {"desk-shot", Verb::DeskShot, readName},
    {"timeout", Verb::TimeOut, [](DeskCommand&, ScriptArguments& a) { return a.seconds(); }},
    {"pause", Verb::Pause, [](DeskCommand&, ScriptArguments& a) { return a.seconds(); }},
    {"frames", Verb::Frames,
     [](DeskCommand&, ScriptArguments& a) { return a.choice("on", "off"); }},
    {"echo", Verb::Echo, readText},
    {"wait", Verb::WaitIdle, readWait},
    {"expect", Verb::ExpectSpoken, readExpect},
    {"quit", Verb::Quit, readNothing},
});

QString readCommand(QStringList words, DeskCommand& command)
{
    const QString first = words.takeFirst();
    for (const Reader& reader : Readers) {
        if (first != QLatin1String(reader.word))
            continue;
        command.verb = reader.verb;
        ScriptArguments arguments(std::move(words), command);
        const QString error = reader.read(command, arguments);
        if (error.isEmpty() && !arguments.atEnd())
            return tr("\"%1\" is too much").arg(arguments.take());
        return error;
    }
    return tr("there is no command \"%1\"").arg(first);
}

} // namespace

bool DeskScript::isFilmedFromTheStart() const
{
    return commands.isEmpty() || commands.first().verb != DeskCommand::Verb::Frames
           || commands.first().number == 1;
}

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

DeskScript DeskScript::read(const QString& path)
{
    DeskScript script;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        script.error = tr("%1 cannot be read: %2").arg(path, file.errorString());
    else if (file.size() > MaxScriptBytes)
        script.error = tr("%1 is too long for a script").arg(path);
    else
        script = parse(QString::fromUtf8(file.readAll()));
    if (file.isOpen() && !script.error.isEmpty() && !script.error.startsWith(path))
        script.error.prepend(path + QLatin1String(", "));
    return script;
}
