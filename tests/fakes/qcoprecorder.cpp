#include "tests/fakes/qcoprecorder.h"

#include "tests/fakes/calllog.h"

#include <QTest>

QCopRecorder::QCopRecorder(const QString& channel) : m_channel(channel)
{
    connect(&m_channel, &QCopChannel::received, this,
            [this](const QString& message, const QByteArray& payload) {
                m_messages.append(message + u' ' + QString::fromLatin1(payload));
                emit recorded();
            });
}

QStringList QCopRecorder::messages() const
{
    return m_messages;
}

void QCopRecorder::clear()
{
    m_messages.clear();
}

bool QCopRecorder::waitFor(int count)
{
    return QTest::qWaitFor([this, count] { return m_messages.size() >= count; },
                           static_cast<int>(FakePatience.count()));
}

bool QCopRecorder::waitFor(const QString& message)
{
    return QTest::qWaitFor([this, message] { return m_messages.contains(message); },
                           static_cast<int>(FakePatience.count()));
}
