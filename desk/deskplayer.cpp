#include "desk/deskplayer.h"

#include "desk/desksession.h"

#include <QFileInfo>
#include <QTimer>

namespace {

constexpr int LeaveMs = 10'000;

} // namespace

DeskPlayer::DeskPlayer(DeskSession& session, std::function<QImage()> picture, QObject* parent)
    : QObject(parent), m_session(session), m_picture(std::move(picture))
{
    connect(&session, &DeskSession::penEnded, this, [this] {
        if (std::exchange(m_closing, false))
            start();
    });
}

DeskPlayer::~DeskPlayer() = default;

QString DeskPlayer::play(const QString& path)
{
    if (isPlaying())
        return tr("A script is being played.");
    const DeskScript script = DeskScript::read(path);
    if (!script.error.isEmpty())
        return script.error;
    const QFileInfo file(path);
    m_name = file.fileName();
    m_runner = std::make_unique<ScriptRunner>(m_session, script,
                                              file.absolutePath() + QLatin1Char('/')
                                                  + file.completeBaseName() + QLatin1String("-out"),
                                              ScriptRunner::Window{m_picture, {}, true});
    connect(m_runner.get(), &ScriptRunner::finished, this, [this](bool ok) {
        const QString told = ok ? tr("%1 was played to its end").arg(m_name)
                                : tr("%1 ended early: %2").arg(m_name, m_runner->failure());
        m_closing = false;
        m_runner.release()->deleteLater();
        emit finished(ok, told);
    });
    emit began();
    m_closing = m_session.pen().isRunning();
    if (!m_closing) {
        start();
        return QString();
    }
    m_session.launcher().stop();
    // One that does not hear is switched off.
    QTimer::singleShot(LeaveMs, this, [this] {
        if (m_closing)
            m_session.pen().stop();
    });
    return QString();
}

void DeskPlayer::start()
{
    m_runner->start();
    m_session.startPen();
}

void DeskPlayer::stop()
{
    if (m_runner)
        m_runner->breakOff();
}
