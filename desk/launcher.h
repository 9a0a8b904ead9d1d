#ifndef LAUNCHER_H
#define LAUNCHER_H

#include "platform/qcopchannel.h"

#include <QDateTime>
#include <QObject>
#include <QVector>

/*
 * Plays the pen's launcher: the process that owns the device and hears of everything that the
 * application does. Keeps a log of the messages in both directions.
 */
class Launcher : public QObject
{
    Q_OBJECT

public:
    struct Entry
    {
        QTime time;
        bool sent; // by the launcher to the pen
        QString message;
        QByteArray payload;
        bool delivered; // for sent ones
    };

    explicit Launcher(QObject* parent = nullptr);

    /* False when another process plays the launcher for this user already. */
    bool isListening() const { return m_channel.isListening(); }

    /* Sends a message to the pen and logs it. False when the pen does not listen. */
    bool send(const QString& message, const QByteArray& payload);

    void pressPower();
    /* A cable is plugged in, or pulled out. */
    void plugUsb();
    void unplugUsb();
    bool isUsbPlugged() const { return m_usbPlugged; }
    void save();
    void stop();
    /* Back to no cable, for a pen that starts anew. */
    void reset();

    /* The pen says that it speaks. */
    bool isPenSounding() const { return m_sounding; }

    const QVector<Entry>& log() const { return m_log; }
    /* Whether the pen has sent this message since entry number `first` of the log. */
    bool hasHeard(const QString& message, const QByteArray& payload, qsizetype first = 0) const;

signals:
    void logged(const Launcher::Entry& entry);
    void usbChanged(bool plugged);
    void soundingChanged(bool sounding);
    /* The user left the application. */
    void penLeft();

private:
    void receive(const QString& message, const QByteArray& payload);
    void append(bool sent, const QString& message, const QByteArray& payload, bool delivered);

    QCopChannel m_channel;
    QVector<Entry> m_log;
    bool m_usbPlugged = false;
    bool m_sounding = false;
};

#endif
