#ifndef TESTS_QCOPFIXTURE_H
#define TESTS_QCOPFIXTURE_H

#include <QByteArray>
#include <QObject>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <optional>

/* The payload of message number `i` that a spy on QCopChannel::received saw. */
QByteArray payloadAt(const QSignalSpy& spy, int i);

/* Tests of messages: each with a folder for sockets of its own. */
class QCopFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();

protected:
    std::optional<QTemporaryDir> m_dir;
};

#endif
