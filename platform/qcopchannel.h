/* SPDX-License-Identifier: 0BSD */
/*
 * Short messages between the processes of a pen: the launcher ("mainprocess") and its
 * applications (this one listens on "scanprocess").
 */
#ifndef QCOPCHANNEL_H
#define QCOPCHANNEL_H

#include <QByteArray>
#include <QObject>
#include <QString>
#include <memory>

class QCopChannelPrivate;

/*
 * A channel that this process listens on, and the way to send to any channel.
 *
 * A message is a name (a signature such as "execute(QString)") and a payload of bytes. Messages
 * are delivered in the order in which they arrive, one for each turn of the event loop, on the
 * thread that created the object.
 *
 * Limits: a channel name has 1 to 64 characters out of letters, digits, "-" and "_"; a message
 * name has 1 to 255 bytes in UTF-8; a payload at most 32,768 bytes. What is outside is dropped
 * with a warning.
 */
class QCopChannel : public QObject
{
    Q_OBJECT

public:
    /* Starts to listen. Only processes of the same user are heard. When another live process (or
     * object) listens on the name already, this one hears nothing: isListening() is false. */
    explicit QCopChannel(const QString& channel, QObject* parent = nullptr);
    ~QCopChannel() override;

    QString channel() const;

    /* Whether messages reach this object. */
    bool isListening() const;

    /* Sends without waiting for anything but room in the receiver's queue, and that only for a
     * moment; a receiver that hangs costs one such wait and is then skipped until it reads again.
     * Any thread. False when nobody listens, when the receiver hangs or a limit is passed;
     * nothing is printed when nobody listens. */
    static bool send(const QString& channel, const QString& message,
                     const QByteArray& payload = QByteArray());

signals:
    /* One message: its name and payload as they were sent. */
    void received(const QString& message, const QByteArray& payload);

private:
    std::unique_ptr<QCopChannelPrivate> d;
};

#endif
