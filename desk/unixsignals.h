#ifndef UNIXSIGNALS_H
#define UNIXSIGNALS_H

#include <QObject>
#include <QSocketNotifier>
#include <memory>

/*
 * Turns SIGINT, SIGTERM and SIGHUP into a signal of Qt's, on the interface thread, so that the
 * pen can save and nothing is left behind. A second one ends the process as usual. One object a
 * process.
 */
class UnixSignals : public QObject
{
    Q_OBJECT

public:
    explicit UnixSignals(QObject* parent = nullptr);
    ~UnixSignals() override;

signals:
    void endWanted();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

#endif
