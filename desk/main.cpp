/*
 * The desk: a pen, a page of print and the launcher, on one screen or driven by a script.
 */
#include "desk/desklook.h"
#include "desk/deskmemory.h"
#include "desk/deskoptions.h"
#include "desk/desksession.h"
#include "desk/deskwindow.h"
#include "desk/framerecorder.h"
#include "desk/pencheck.h"
#include "desk/penlanguages.h"
#include "desk/platformcheck.h"
#include "desk/scriptrunner.h"
#include "desk/unixsignals.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace {

constexpr int BadUsage = 2;
constexpr int Failed = 1;

QString tr(const char* text)
{
    return QCoreApplication::translate("Desk", text);
}

bool isGiven(std::span<char* const> arguments, std::string_view option)
{
    return std::ranges::any_of(arguments, [option](std::string_view argument) {
        return argument.starts_with(option)
               && (argument.size() == option.size() || argument[option.size()] == '=');
    });
}

int complain(const QString& error)
{
    const QByteArray text = error.toLocal8Bit();
    std::fprintf(stderr, "swipeline-desk: %s\n", text.constData());
    return BadUsage;
}

void note(const QStringList& sentences)
{
    for (const QString& sentence : sentences)
        std::fprintf(stderr, "swipeline-desk: %s\n", sentence.toLocal8Bit().constData());
}

DeskSetting settingOf(const DeskOptions& options)
{
    DeskSetting setting;
    setting.penProgram = options.pen;
    setting.root = options.root;
    setting.fontConfig = options.fonts;
    setting.wav = options.wav;
    return setting;
}

/* Sets the language of the pen that is to be started. What went wrong; empty when nothing. */
QString setLanguage(const DeskOptions& options)
{
    if (options.language.isEmpty())
        return QString();
    const auto languages = penlanguages::list(options.root);
    const int row = penlanguages::rowOf(languages, options.language);
    if (row < 0) {
        QStringList names;
        for (const penlanguages::Language& language : languages)
            names.append(language.name);
        return tr("The pen has no language \"%1\"; it has %2.")
            .arg(options.language, names.join(QLatin1String(", ")));
    }
    return penlanguages::choose(options.root, row)
               ? QString()
               : tr("The pen's settings below %1 cannot be written.").arg(options.root);
}

/* Runs the event loop and draws the desk at its end, if that is wanted. */
int runLoop(DeskWindow& window, const DeskOptions& options)
{
    const int result = QApplication::exec();
    if (!options.deskShot.isEmpty() && !window.picture().save(options.deskShot))
        return complain(tr("The picture %1 cannot be written.").arg(options.deskShot));
    const QString error =
        options.record.isEmpty() ? QString() : window.recorder().save(options.record);
    return error.isEmpty() ? result : complain(error);
}

int runWindow(DeskSession& session, const DeskOptions& options)
{
    DeskWindow window(session);
    const QString memoryFile = options.forget ? QString() : DeskMemory::usualPath();
    const DeskMemory memory = options.forget ? DeskMemory() : DeskMemory::read(memoryFile);
    window.recall(memory);
    window.show();
    const UnixSignals signalsOfTheSystem;
    QObject::connect(&signalsOfTheSystem, &UnixSignals::endWanted, &window, &QWidget::close);
    QObject::connect(&session.pen(), &PenProcess::outputLine, [](const QString& line) {
        std::fprintf(stderr, "pen: %s\n", qUtf8Printable(line));
    });
    const QStringList missing = pencheck::missing(options.root);
    note(missing);
    if (!missing.isEmpty())
        window.tell(missing.constFirst(), true);
    session.pageLoader().load(options.pageGiven || options.forget ? options.page : memory.page);
    session.startPen();
    const int result = runLoop(window, options);
    if (!options.forget && !window.memory().write(memoryFile))
        return complain(
            tr("What the desk should remember cannot be written to %1.").arg(memoryFile));
    return result;
}

int runScript(DeskSession& session, const DeskOptions& options)
{
    const DeskScript script = DeskScript::read(options.script);
    if (!script.error.isEmpty())
        return complain(script.error);
    if (!QDir().mkpath(options.out))
        return complain(tr("The folder %1 cannot be made.").arg(options.out));

    QFile penLog(options.out + QLatin1String("/pen.log"));
    if (!penLog.open(QIODevice::WriteOnly))
        return complain(tr("%1 cannot be written.").arg(penLog.fileName()));

    DeskWindow window(session);
    window.setAttribute(Qt::WA_DontShowOnScreen); // drawn for pictures only
    window.show();
    QObject::connect(&session.pen(), &PenProcess::outputLine, &window,
                     [&penLog](const QString& line) {
                         penLog.write(line.toUtf8() + '\n');
                         penLog.flush();
                     });
    if (!options.frames.isEmpty() && !QDir().mkpath(options.frames))
        return complain(tr("The folder %1 cannot be made.").arg(options.frames));
    FrameRecorder frames(options.frames, options.framesMs, [&window, &options] {
        return options.framesOfPen ? window.penPicture() : window.picture();
    });
    const bool filming = !options.frames.isEmpty();
    frames.setOn(filming && script.isFilmedFromTheStart());
    ScriptRunner runner(session, script, options.out,
                        {[&window] { return window.picture(); },
                         [&frames, filming](bool on) { frames.setOn(filming && on); }});
    QObject::connect(&runner, &ScriptRunner::finished, qApp,
                     [](bool ok) { QApplication::exit(ok ? 0 : Failed); });
    const UnixSignals signalsOfTheSystem;
    QObject::connect(&signalsOfTheSystem, &UnixSignals::endWanted, &runner,
                     &ScriptRunner::breakOff);
    note(pencheck::missing(options.root));
    session.pageLoader().load(options.page);
    QTimer::singleShot(0, &runner, [&] {
        runner.start();
        session.startPen();
    });
    const int result = runLoop(window, options);
    if (filming && !frames.finish())
        return complain(tr("The film cannot be written to %1.").arg(options.frames));
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    const std::span<char* const> arguments(argv, std::size_t(argc));
    QCoreApplication::setApplicationName(QStringLiteral("swipeline-desk"));
    const bool windowed = !isGiven(arguments, "--headless");
    if (isGiven(arguments, "--help") || isGiven(arguments, "-h")) {
        const QCoreApplication application(argc, argv);
        std::fputs(qPrintable(DeskOptions::parse(QCoreApplication::arguments(), QString()).help),
                   stdout);
        return 0;
    }
    const bool chosen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (!windowed && !chosen)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (windowed && !chosen && qEnvironmentVariableIsEmpty("DISPLAY")
        && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return complain(tr("There is no display for the window. "
                           "Use --headless SCRIPT to run without one."));

    // Said once by a library that looks for a graphics driver, which is not needed here.
    QLoggingCategory::setFilterRules(
        QStringLiteral("qt.waylandcompositor.hardwareintegration=false"));
    // A machine without a session of the user's has no runtime folder; Qt wants one.
    std::optional<RuntimeDir> runtimeDir;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        runtimeDir.emplace();

    std::optional<PlatformCheck> platformCheck;
    platformCheck.emplace([&runtimeDir] { runtimeDir.reset(); });
    const QApplication application(argc, argv);
    platformCheck.reset();
    desklook::apply(windowed && desklook::isDesktopDark());
    const DeskOptions options =
        DeskOptions::parse(QCoreApplication::arguments(), QCoreApplication::applicationDirPath());
    if (!options.error.isEmpty())
        return complain(options.error);
    DeskSession session(settingOf(options));
    if (!session.open())
        return complain(session.errorString());
    if (const QString error = setLanguage(options); !error.isEmpty())
        return complain(error);
    return options.isHeadless() ? runScript(session, options) : runWindow(session, options);
}
