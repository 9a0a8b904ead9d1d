#include "deskprogram.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

constexpr int LongMs = 60'000;

} // namespace

DeskProgram::DeskProgram()
{
    const QDir dir(m_dir.path());
    if (!dir.mkpath(QStringLiteral("root/mnt/mmc/e_ScanFile"))
        || !dir.mkpath(QStringLiteral("root/apps/config"))
        || !QFile::copy(QStringLiteral(SWIPELINE_SOURCE_DIR "/device/apps/config/menulan.cfg"),
                        path(QStringLiteral("root/apps/config/menulan.cfg"))))
        qWarning("the run root cannot be made");
}

bool DeskProgram::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

void DeskProgram::setVariable(const QString& name, const QString& value)
{
    if (value.isNull())
        m_environment.remove(name);
    else
        m_environment.insert(name, value);
}

QStringList DeskProgram::options() const
{
    return {"--root", path("root"), "--pen", TESTPEN};
}

QStringList DeskProgram::scriptOptions() const
{
    return options() + QStringList({"--headless", path("script.desk"), "--out", path("out")});
}

void DeskProgram::start(QProcess& desk, const QStringList& options) const
{
    desk.setProcessEnvironment(m_environment);
    desk.setProcessChannelMode(QProcess::MergedChannels);
    desk.start(DESK, options);
}

int DeskProgram::takeEnd(QProcess& desk)
{
    const bool ended = desk.state() == QProcess::NotRunning || desk.waitForFinished(LongMs);
    m_output += desk.readAll();
    return ended && desk.exitStatus() == QProcess::NormalExit ? desk.exitCode() : -1;
}

int DeskProgram::run(const QStringList& options)
{
    QProcess desk;
    m_output.clear();
    start(desk, options);
    return takeEnd(desk);
}

int DeskProgram::play(const QByteArray& script, const QStringList& options)
{
    return write("script.desk", script) ? run(scriptOptions() + options) : -1;
}

int DeskProgram::openUntil(const QByteArray& text, const QStringList& options)
{
    QProcess desk;
    m_output.clear();
    start(desk, this->options() + options);
    const bool told = QTest::qWaitFor(
        [&] {
            m_output += desk.readAll();
            return m_output.contains(text) || desk.state() == QProcess::NotRunning;
        },
        LongMs);
    desk.terminate();
    const int code = takeEnd(desk);
    return told && m_output.contains(text) ? code : -1;
}
