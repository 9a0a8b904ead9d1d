#include "desk/framerecorder.h"

#include <QDir>
#include <QFile>

FrameRecorder::FrameRecorder(QString folder, int intervalMs, std::function<QImage()> draw,
                             QObject* parent)
    : QObject(parent), m_folder(std::move(folder)), m_draw(std::move(draw))
{
    m_timer.setInterval(intervalMs);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &FrameRecorder::take);
}

FrameRecorder::~FrameRecorder()
{
    m_writers.waitForDone();
}

void FrameRecorder::setOn(bool on)
{
    if (on == m_timer.isActive())
        return;
    if (!on) {
        take();
        m_timer.stop();
        return;
    }
    m_clock.start();
    m_timer.start();
    take();
}

void FrameRecorder::take()
{
    const qint64 passed = m_clock.restart();
    if (!m_durations.isEmpty())
        m_durations.last() += passed;
    const QImage picture = m_draw();
    if (picture == m_last)
        return;
    m_last = picture;
    const QString name =
        QStringLiteral("frame-%1.png").arg(m_names.size() + 1, 4, 10, QLatin1Char('0'));
    m_names.append(name);
    m_durations.append(0);
    m_writers.start([this, picture, path = QDir(m_folder).filePath(name)] {
        if (!picture.save(path))
            m_failed = true;
    });
}

bool FrameRecorder::finish()
{
    setOn(false);
    m_writers.waitForDone();
    QFile list(QDir(m_folder).filePath(QStringLiteral("frames.txt")));
    if (!list.open(QIODevice::WriteOnly))
        return false;
    QByteArray lines;
    for (qsizetype i = 0; i < m_names.size(); ++i)
        lines += m_names.at(i).toUtf8() + ' ' + QByteArray::number(m_durations.at(i)) + '\n';
    return list.write(lines) == lines.size() && list.flush() && !m_failed;
}
