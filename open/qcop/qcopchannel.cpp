#include "platform/qcopchannel.h"

#include "open/qcop/qcopfolder.h"
#include "open/qcop/qcopmessage.h"

#include <QMutex>
#include <QMutexLocker>
#include <QSet>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

using qcop::Descriptor;

namespace {

// How long a sender waits for room in a full queue, once. Long enough for a receiver that is busy
// painting or loading, short enough for the scan engine's thread.
constexpr int SendTimeoutMs = 200;

// The channels whose receiver let a sender wait in vain.
class HungChannels
{
public:
    bool contains(const QString& channel)
    {
        QMutexLocker lock(&m_mutex);
        return m_channels.contains(channel);
    }
    void set(const QString& channel, bool hung)
    {
        QMutexLocker lock(&m_mutex);
        if (hung)
            m_channels.insert(channel);
        else
            m_channels.remove(channel);
    }

private:
    QMutex m_mutex;
    QSet<QString> m_channels;
};

HungChannels& hungChannels()
{
    static HungChannels channels;
    return channels;
}

QByteArray socketName(const QString& channel)
{
    return channel.toLatin1() + ".sock";
}

QByteArray lockName(const QString& channel)
{
    return channel.toLatin1() + ".lock";
}

// One datagram from a process of this user. Empty when there is none, or one to be ignored.
QByteArray receiveDatagram(int socket)
{
    QByteArray buffer(qcop::MaxDatagramBytes, Qt::Uninitialized);
    iovec part = {buffer.data(), static_cast<size_t>(buffer.size())};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(ucred))] = {};
    msghdr head = {};
    head.msg_iov = &part;
    head.msg_iovlen = 1;
    head.msg_control = control;
    head.msg_controllen = sizeof control;
    const ssize_t got = ::recvmsg(socket, &head, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    if (got <= 0 || (head.msg_flags & MSG_TRUNC) != 0)
        return {};
    const cmsghdr* item = CMSG_FIRSTHDR(&head);
    if (item == nullptr || item->cmsg_level != SOL_SOCKET || item->cmsg_type != SCM_CREDENTIALS)
        return {};
    ucred sender = {};
    std::memcpy(&sender, CMSG_DATA(item), sizeof sender);
    if (sender.uid != ::geteuid())
        return {};
    buffer.resize(got);
    return buffer;
}

} // namespace

class QCopChannelPrivate
{
public:
    explicit QCopChannelPrivate(const QString& channel) : m_channel(channel) {}
    ~QCopChannelPrivate();

    QString m_channel;
    Descriptor m_folder;
    Descriptor m_lock;
    Descriptor m_socket;
    std::optional<QSocketNotifier> m_notifier;

    bool listen();

private:
    bool takeLock();
};

QCopChannelPrivate::~QCopChannelPrivate()
{
    m_notifier.reset();
    // The lock file stays: removing it would let two listeners each hold a lock of their own. It
    // is released last, when the name is free for the next listener.
    if (m_socket.isOpen())
        ::unlinkat(m_folder.get(), socketName(m_channel).constData(), 0);
}

// The lock tells a live listener from the socket that a crash left behind: the system drops it
// with the process.
bool QCopChannelPrivate::takeLock()
{
    m_lock.reset(::openat(m_folder.get(), lockName(m_channel).constData(),
                          O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    return m_lock.isOpen() && ::flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0;
}

bool QCopChannelPrivate::listen()
{
    m_folder.reset(qcop::openFolder(true));
    if (!m_folder.isOpen() || !takeLock())
        return false;
    const QByteArray name = socketName(m_channel);
    ::unlinkat(m_folder.get(), name.constData(), 0);
    Descriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int on = 1;
    const sockaddr_un address = qcop::addressIn(m_folder.get(), name);
    if (!socket.isOpen() || ::setsockopt(socket.get(), SOL_SOCKET, SO_PASSCRED, &on, sizeof on) != 0
        || ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return false;
    m_socket.reset(socket.release());
    return true;
}

QCopChannel::QCopChannel(const QString& channel, QObject* parent)
    : QObject(parent), d(std::make_unique<QCopChannelPrivate>(channel))
{
    if (!qcop::isChannelName(channel)) {
        qWarning("QCopChannel: no channel can have this name");
        return;
    }
    if (!d->listen()) {
        qWarning("QCopChannel: cannot listen on %s: %s", qPrintable(channel), std::strerror(errno));
        return;
    }
    d->m_notifier.emplace(d->m_socket.get(), QSocketNotifier::Read);
    // One message a turn: what a handler starts (a nested event loop, a deletion of this channel)
    // finds the rest still queued in the system.
    connect(&*d->m_notifier, &QSocketNotifier::activated, this, [this] {
        QString message;
        QByteArray payload;
        if (qcop::unpack(receiveDatagram(d->m_socket.get()), message, payload))
            emit received(message, payload);
    });
}

QCopChannel::~QCopChannel() = default;

QString QCopChannel::channel() const
{
    return d->m_channel;
}

bool QCopChannel::isListening() const
{
    return d->m_notifier.has_value();
}

bool QCopChannel::send(const QString& channel, const QString& message, const QByteArray& payload)
{
    const QByteArray datagram = qcop::pack(message, payload);
    if (!qcop::isChannelName(channel) || datagram.isEmpty()) {
        qWarning("QCopChannel: a message outside the limits was dropped");
        return false;
    }
    const Descriptor folder(qcop::openFolder(false));
    if (!folder.isOpen())
        return false;
    // A socket for each message: what lies unread with one receiver does not count against the
    // next. Opening it costs a few microseconds.
    const Descriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const timeval timeout = {0, SendTimeoutMs * 1000};
    if (!socket.isOpen()
        || ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout) != 0)
        return false;
    const sockaddr_un address = qcop::addressIn(folder.get(), socketName(channel));
    const int flags = MSG_NOSIGNAL | (hungChannels().contains(channel) ? MSG_DONTWAIT : 0);
    ssize_t sent = -1;
    do {
        sent = ::sendto(socket.get(), datagram.constData(), static_cast<size_t>(datagram.size()),
                        flags, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    } while (sent < 0 && errno == EINTR);
    const bool full = sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    hungChannels().set(channel, full);
    return sent == datagram.size();
}
