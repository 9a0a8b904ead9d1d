#ifndef QCOPRECORDER_H
#define QCOPRECORDER_H

#include "platform/qcopchannel.h"

#include <QObject>
#include <QStringList>

/*
 * Listens on a channel as the launcher does, and keeps what is sent to it: "execute(QString)
 * trigger". Made after the TestRoot, on the test's thread.
 */
class QCopRecorder : public QObject
{
    Q_OBJECT

public:
    explicit QCopRecorder(const QString& channel = QStringLiteral("mainprocess"));

    QStringList messages() const;
    void clear();

    /* Runs the event loop until `count` messages have come. */
    bool waitFor(int count);

    /* Runs the event loop until the message has come. */
    bool waitFor(const QString& message);

signals:
    void recorded();

private:
    QCopChannel m_channel;
    QStringList m_messages;
};

#endif
