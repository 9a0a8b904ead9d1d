#include "desk/penprocess.h"

#include "desk/desklink.h"

#include <QFileInfo>

#include <unistd.h>

namespace {

constexpr int KillAfterMs = 3000;
constexpr int MaxOutputLines = 200;
constexpr int MaxLineBytes = 4096;

/* The private runtime folder hides the sound servers of the user's own; name them outright. */
void keepSoundServers(QProcessEnvironment& environment, const QString& hostRuntimeDir)
{
    if (hostRuntimeDir.isEmpty())
        return;
    const QString pulse = hostRuntimeDir + QLatin1String("/pulse/native");
    const QString pulseServer = QStringLiteral("PULSE_SERVER");
    if (QFileInfo::exists(pulse) && !environment.contains(pulseServer))
        environment.insert(pulseServer, QLatin1String("unix:") + pulse);
    const QString pipewireDir = QStringLiteral("PIPEWIRE_RUNTIME_DIR");
    if (!environment.contains(pipewireDir))
        environment.insert(pipewireDir, hostRuntimeDir);
}

} // namespace

PenProcess::PenProcess(Setting setting, QObject* parent)
    : QObject(parent), m_setting(std::move(setting))
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setInputChannelMode(QProcess::ManagedInputChannel);
    // In a group of its own: what is typed at the desk's terminal (Ctrl+C) does not end the pen
    // before it has saved.
    m_process.setChildProcessModifier([] { ::setpgid(0, 0); });
    m_killTimer.setSingleShot(true);
    m_killTimer.setInterval(KillAfterMs);
    connect(&m_killTimer, &QTimer::timeout, &m_process, &QProcess::kill);
    connect(&m_process, &QProcess::started, this, &PenProcess::started);
    connect(&m_process, &QProcess::readyRead, this, &PenProcess::readOutput);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            takeEnd(tr("The pen could not be started: %1").arg(m_process.errorString()), false);
    });
    connect(&m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        readOutput();
        if (m_stopping)
            takeEnd(tr("The pen was switched off."), true);
        else if (status == QProcess::CrashExit)
            takeEnd(tr("The pen crashed (signal %1).").arg(code), false);
        else if (code != 0)
            takeEnd(tr("The pen ended with code %1.").arg(code), false);
        else
            takeEnd(tr("The pen has left its application."), true);
    });
}

PenProcess::~PenProcess()
{
    // Whoever wanted the pen to save has stopped it before.
    m_process.disconnect(this);
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void PenProcess::start()
{
    if (isRunning())
        return;
    m_stopping = false;
    m_output.clear();
    m_partialLine.clear();
    m_process.setProcessEnvironment(environment(m_setting));
    m_process.start(m_setting.program, QStringList());
}

void PenProcess::stop()
{
    if (!isRunning())
        return;
    m_stopping = true;
    m_process.terminate();
    m_killTimer.start();
}

bool PenProcess::isRunning() const
{
    return m_process.state() != QProcess::NotRunning;
}

QProcessEnvironment PenProcess::environment(const Setting& setting)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const auto set = [&environment](const char* name, const QString& value) {
        if (value.isEmpty())
            environment.remove(QLatin1String(name));
        else
            environment.insert(QLatin1String(name), value);
    };
    set("QT_QPA_PLATFORM", QStringLiteral("wayland"));
    // Shared memory needs no graphics driver; without this the pen would load one.
    set("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", QStringLiteral("none"));
    set("QT_WAYLAND_DISABLE_WINDOWDECORATION", QStringLiteral("1"));
    set("QT_SCALE_FACTOR", QString());
    set("QT_STYLE_OVERRIDE", QString());
    set("QT_QPA_PLATFORMTHEME", QString());
    set("WAYLAND_DISPLAY", setting.waylandDisplay);
    set("SWIPELINE_ROOT", setting.root);
    set(desklink::SocketVariable, setting.link);
    set(desklink::WavVariable, setting.wav);
    // The panel has no resolution of its own; the pen lays out for this one.
    set("QT_FONT_DPI", QStringLiteral("96"));
    if (!setting.fontConfig.isEmpty())
        set("FONTCONFIG_FILE", setting.fontConfig);
    keepSoundServers(environment, setting.hostRuntimeDir);
    return environment;
}

void PenProcess::readOutput()
{
    m_partialLine += m_process.readAll();
    const QList<QByteArray> lines = m_partialLine.split('\n');
    m_partialLine = lines.last().right(MaxLineBytes);
    for (qsizetype i = 0; i + 1 < lines.size(); ++i) {
        const QString line = QString::fromUtf8(lines.at(i).left(MaxLineBytes));
        m_output.append(line);
        emit outputLine(line);
    }
    while (m_output.size() > MaxOutputLines)
        m_output.removeFirst();
}

void PenProcess::takeEnd(const QString& how, bool well)
{
    m_killTimer.stop();
    m_lastEnd = how;
    m_endedWell = well;
    emit ended(how, well);
}
