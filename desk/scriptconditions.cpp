#include "desk/scriptconditions.h"

#include "desk/desksession.h"
#include "desk/penfiles.h"

#include <QElapsedTimer>

using Verb = DeskCommand::Verb;

namespace {

constexpr int IdleMs = 500;  // nothing has happened for so long
constexpr int StillMs = 500; // the display has not changed for so long

} // namespace

ScriptConditions::ScriptConditions(DeskSession& session) : m_session(session) {}

void ScriptConditions::mark()
{
    m_mark = {m_session.screen(), m_session.transcript().utterances().size(),
              m_session.launcher().log().size(), m_session.swipeReports().size()};
}

std::function<bool()> ScriptConditions::of(const DeskCommand& command) const
{
    switch (command.verb) {
    case Verb::WaitScreen:
        return [this] { return m_session.screen() != m_mark.screen; };
    case Verb::WaitSilence:
        return [this] { return !m_session.transcript().isSpeaking(); };
    case Verb::WaitCamera:
        return [this, on = command.number == 1] { return m_session.link().isCameraOn() == on; };
    case Verb::WaitSwipe:
        return [this, name = command.name] {
            const auto& reports = m_session.swipeReports();
            return reports.size() > m_mark.swipes
                   && (name.isEmpty() || reports.last().outcomeName() == name);
        };
    case Verb::WaitIdle:
        return [this] { return m_session.quietMs() >= IdleMs; };
    case Verb::WaitStill:
        return stillness();
    case Verb::WaitExit:
        return [this] { return !m_session.pen().isRunning(); };
    case Verb::WaitSpoken:
    case Verb::WaitHeard:
    case Verb::WaitText:
    case Verb::WaitFile:
    case Verb::WaitMessage:
        return [this, command] { return holds(command, true); };
    default:
        return {};
    }
}

std::function<bool()> ScriptConditions::stillness() const
{
    QElapsedTimer since;
    since.start();
    return [this, since, seen = m_session.screenChanges()]() mutable {
        if (seen != m_session.screenChanges()) {
            seen = m_session.screenChanges();
            since.restart();
        }
        return since.elapsed() >= StillMs;
    };
}

bool ScriptConditions::holds(const DeskCommand& command, bool sinceMark) const
{
    const QString& root = m_session.setting().root;
    switch (command.verb) {
    case Verb::WaitSpoken:
    case Verb::ExpectSpoken:
        return m_session.transcript().contains(command.text, sinceMark ? m_mark.utterances : 0);
    case Verb::WaitHeard:
    case Verb::ExpectHeard:
        return m_session.transcript().containsHeard(command.text,
                                                    sinceMark ? m_mark.utterances : 0);
    case Verb::WaitText:
    case Verb::ExpectText:
        return penfiles::contains(root, QStringLiteral("*"), command.text);
    case Verb::WaitFile:
    case Verb::ExpectFile:
        return penfiles::contains(root, command.name, command.text);
    case Verb::WaitMessage:
    case Verb::ExpectMessage:
        return m_session.launcher().hasHeard(command.message, command.payload,
                                             sinceMark ? m_mark.messages : 0);
    case Verb::ExpectRunning:
        return m_session.pen().isRunning();
    default:
        return false;
    }
}
