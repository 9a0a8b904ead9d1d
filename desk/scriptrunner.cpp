#include "desk/scriptrunner.h"

#include "desk/desksession.h"
#include "desk/penlanguages.h"
#include "desk/penpicture.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using Verb = DeskCommand::Verb;

namespace {

constexpr int UsualTimeOutMs = 30'000;
constexpr int PollMs = 50; // for files on the pen and for quiet
constexpr int LeaveMs = 10'000;
constexpr int Magnification = 4;

} // namespace

ScriptRunner::ScriptRunner(DeskSession& session, DeskScript script, QString outDir, Window window,
                           QObject* parent)
    : QObject(parent),
      m_session(session),
      m_script(std::move(script)),
      m_outDir(std::move(outDir)),
      m_window(std::move(window)),
      m_conditions(session),
      m_timeOutMs(UsualTimeOutMs)
{
    m_timeOut.setSingleShot(true);
    connect(&m_timeOut, &QTimer::timeout, this, [this] {
        const DeskCommand& command = m_script.commands.at(m_next - 1);
        fail(tr("line %1: \"%2\": waited in vain for %3 s")
                 .arg(QString::number(command.line), command.source,
                      QString::number(m_timeOut.interval() / 1000.0)));
    });
    m_poll.setInterval(PollMs);
    connect(&m_poll, &QTimer::timeout, this, &ScriptRunner::check);
    connectSession();
}

void ScriptRunner::connectSession()
{
    connect(&m_session, &DeskSession::screenChanged, this, &ScriptRunner::check);
    connect(&m_session, &DeskSession::speechChanged, this, [this] {
        const auto& utterances = m_session.transcript().utterances();
        while (m_toldUtterances < utterances.size() && utterances.at(m_toldUtterances).endUs >= 0)
            m_report.spoken(utterances.at(m_toldUtterances++));
        check();
    });
    connect(&m_session, &DeskSession::cameraSwitched, this, &ScriptRunner::check);
    connect(&m_session, &DeskSession::swipeEnded, this, &ScriptRunner::check);
    connect(&m_session, &DeskSession::swipeReported, this, [this](const SwipeReport& report) {
        m_report.event(QStringLiteral("          scan engine: ") + report.told());
        check();
    });
    connect(&m_session, &DeskSession::pageChanged, this, &ScriptRunner::check);
    connect(&m_session, &DeskSession::pageFailed, this, &ScriptRunner::fail);
    connect(&m_session, &DeskSession::settingFailed, this, &ScriptRunner::fail);
    connect(&m_session, &DeskSession::penEnded, this, [this](const QString& how, bool well) {
        m_report.event(how);
        if (well)
            check();
        else
            fail(how);
    });
    connect(&m_session.launcher(), &Launcher::logged, this, &ScriptRunner::check);
}

void ScriptRunner::start()
{
    m_conditions.mark();
    next();
}

void ScriptRunner::breakOff()
{
    fail(tr("The script was broken off."));
}

void ScriptRunner::next()
{
    if (m_finished)
        return;
    if (m_next == m_script.commands.size()) {
        quit();
        return;
    }
    const DeskCommand& command = m_script.commands.at(m_next++);
    m_report.event(command.source);
    carryOut(command);
}

void ScriptRunner::goOn()
{
    // By the event loop: what an action set off is taken in before the next command acts.
    QMetaObject::invokeMethod(this, &ScriptRunner::next, Qt::QueuedConnection);
}

void ScriptRunner::carryOut(const DeskCommand& command)
{
    if (carryOutAction(command) || carryOutSetting(command))
        return;
    if (command.verb == Verb::Quit) {
        quit();
        return;
    }
    if (Condition condition = m_conditions.of(command)) {
        wait(std::move(condition), [this] { goOn(); });
        return;
    }
    if (m_conditions.expected(command))
        goOn();
    else
        fail(
            tr("line %1: \"%2\" does not hold").arg(QString::number(command.line), command.source));
}

/* What is done to the pen. */
bool ScriptRunner::carryOutAction(const DeskCommand& command)
{
    switch (command.verb) {
    case Verb::Key:
        pressKey(command, 0);
        return true;
    case Verb::Hold:
        pressKey(command, command.number);
        return true;
    case Verb::SwipeLine:
    case Verb::SwipeWay:
    case Verb::SwipePath:
        swipe(command);
        return true;
    case Verb::Send:
        m_conditions.mark();
        m_session.launcher().send(command.message, command.payload);
        break;
    case Verb::Usb:
        m_conditions.mark();
        if (command.number == 1)
            m_session.launcher().plugUsb();
        else
            m_session.launcher().unplugUsb();
        break;
    case Verb::Card:
    case Verb::Storage:
        if (!changeStorage(command))
            return true;
        break;
    case Verb::Power:
        m_conditions.mark();
        m_session.launcher().pressPower();
        break;
    case Verb::Language:
        changeLanguage(command);
        return true;
    case Verb::Start:
        m_conditions.mark();
        m_session.startPen();
        break;
    default:
        return false;
    }
    goOn();
    return true;
}

/* What is done to the desk and the script. */
bool ScriptRunner::carryOutSetting(const DeskCommand& command)
{
    switch (command.verb) {
    case Verb::Page:
        loadPage(command);
        return true;
    case Verb::Hand:
        changeHand(command);
        break;
    case Verb::Screenshot:
        takeScreenshot(command);
        return true;
    case Verb::DeskShot:
        takeDeskShot(command);
        return true;
    case Verb::TimeOut:
        m_timeOutMs = command.number;
        break;
    case Verb::Pause:
        QTimer::singleShot(command.number, this, &ScriptRunner::next);
        return true;
    case Verb::Frames:
        if (m_window.switchFrames)
            m_window.switchFrames(command.number == 1);
        break;
    case Verb::Echo:
        m_report.event(command.text);
        break;
    default:
        return false;
    }
    goOn();
    return true;
}

bool ScriptRunner::changeStorage(const DeskCommand& command)
{
    m_conditions.mark();
    PenStorage& storage = m_session.storage();
    const bool on = command.number == 1;
    const bool done = command.verb == Verb::Card ? storage.setCardOut(on) : storage.setFull(on);
    if (!done)
        fail(storage.errorString());
    return done;
}

void ScriptRunner::changeLanguage(const DeskCommand& command)
{
    const QVector<penlanguages::Language> languages = penlanguages::list(m_session.setting().root);
    const int row = penlanguages::rowOf(languages, command.name);
    if (row < 0) {
        QStringList names;
        for (const penlanguages::Language& language : languages)
            names.append(language.name);
        fail(
            tr("line %1: the pen has no language \"%2\"; it has %3")
                .arg(QString::number(command.line), command.name, names.join(QLatin1String(", "))));
        return;
    }
    // A pen that has just been started does not hear yet.
    wait([this] { return !m_session.pen().isRunning() || m_session.hasWindow(); },
         [this, row] {
             m_conditions.mark();
             const bool running = m_session.pen().isRunning();
             const qsizetype messages = m_session.launcher().log().size();
             m_session.chooseLanguage(row);
             wait(
                 [this, running, messages] {
                     return !running
                            || m_session.launcher().hasHeard(QStringLiteral("Show(QString)"),
                                                             "scan", messages);
                 },
                 [this] { goOn(); });
         });
}

void ScriptRunner::pressKey(const DeskCommand& command, int holdMs)
{
    wait([this] { return m_session.hasWindow(); },
         [this, key = command.key, holdMs] {
             m_conditions.mark();
             m_session.sendKey(key, true);
             QTimer::singleShot(holdMs, this, [this, key] {
                 m_session.sendKey(key, false);
                 goOn();
             });
         });
}

bool ScriptRunner::beginSwipe(const DeskCommand& command)
{
    switch (command.verb) {
    case Verb::SwipeLine:
        return m_session.swipeLine(command.number - 1, command.speed);
    case Verb::SwipePath:
        return m_session.swipe(command.path);
    default:
        return m_session.swipe(command.from, command.to, command.speed);
    }
}

void ScriptRunner::changeHand(const DeskCommand& command)
{
    HandModel hand = m_session.hand();
    if (command.name == QLatin1String("usual"))
        hand = HandModel();
    else if (const HandModel::Trait* const trait = HandModel::trait(command.name))
        hand.set(*trait, command.value);
    else
        hand.left = command.name == QLatin1String("left");
    m_session.setHand(hand);
}

void ScriptRunner::swipe(const DeskCommand& command)
{
    // A hand waits for the camera's light, too.
    wait([this] { return m_session.link().isCameraOn() && !m_session.page().isEmpty(); },
         [this, command] {
             m_conditions.mark();
             if (!beginSwipe(command)) {
                 fail(tr("line %1: \"%2\": there is no such way on this page (it has %3 lines)")
                          .arg(QString::number(command.line), command.source,
                               QString::number(m_session.page().lines.size())));
                 return;
             }
             wait([this] { return !m_session.isSwiping(); }, [this] { goOn(); });
         });
}

void ScriptRunner::loadPage(const DeskCommand& command)
{
    m_session.pageLoader().load(command.page);
    wait([this] { return !m_session.pageLoader().isLoading(); }, [this] { goOn(); });
}

QString ScriptRunner::savePicture(const QString& name, const QImage& picture)
{
    static const QRegularExpression unsafe(QStringLiteral("[^A-Za-z0-9_.-]"));
    QString safe = name;
    safe.replace(unsafe, QStringLiteral("_"));
    QDir().mkpath(m_outDir);
    const QString path = QDir(m_outDir).absoluteFilePath(safe + QLatin1String(".png"));
    if (!picture.save(path))
        return QString();
    m_pictures.append(path);
    return path;
}

void ScriptRunner::takeScreenshot(const DeskCommand& command)
{
    const QImage screen = m_session.screen();
    if (savePicture(command.name, screen).isEmpty()
        || savePicture(command.name + QLatin1String("-4x"),
                       penpicture::luminous(screen, Magnification))
               .isEmpty())
        fail(tr("The picture %1 cannot be written to %2.").arg(command.name, m_outDir));
    else
        goOn();
}

void ScriptRunner::takeDeskShot(const DeskCommand& command)
{
    if (savePicture(command.name, m_window.picture()).isEmpty())
        fail(tr("The picture %1 cannot be written to %2.").arg(command.name, m_outDir));
    else
        goOn();
}

void ScriptRunner::wait(Condition condition, std::function<void()> then)
{
    if (condition()) {
        then();
        return;
    }
    m_condition = std::move(condition);
    m_then = std::move(then);
    m_timeOut.start(m_timeOutMs);
    m_poll.start();
}

void ScriptRunner::check()
{
    if (m_finished || !m_condition || !m_condition())
        return;
    m_timeOut.stop();
    m_poll.stop();
    m_condition = nullptr;
    const auto then = std::exchange(m_then, nullptr);
    then();
}

void ScriptRunner::quit()
{
    m_next = m_script.commands.size();
    if (m_window.keepsPen || !m_session.pen().isRunning()) {
        finish(true);
        return;
    }
    // The launcher's "stop" lets the pen save; one that does not hear is switched off.
    m_session.launcher().stop();
    QTimer::singleShot(LeaveMs, this, [this] { m_session.pen().stop(); });
    connect(&m_session, &DeskSession::penEnded, this, [this] { finish(true); });
}

void ScriptRunner::finish(bool ok)
{
    if (m_finished)
        return;
    m_finished = true;
    m_timeOut.stop();
    m_poll.stop();
    m_report.summary(m_session, m_pictures);
    emit finished(ok);
}

void ScriptRunner::fail(const QString& reason)
{
    if (m_finished)
        return;
    const QString picture = savePicture(QStringLiteral("failed-screen"),
                                        penpicture::magnified(m_session.screen(), Magnification));
    m_failure = reason;
    m_report.failure(m_session, reason, picture);
    finish(false);
}
