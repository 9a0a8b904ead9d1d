#include "tests/flows/scenarios/launcherear.h"

#include "open/qcop/qcopfolder.h"
#include "open/qcop/qcopmessage.h"
#include "platform/qcopchannel.h"
#include "tests/fakes/calllog.h"

#include <condition_variable>
#include <mutex>
#include <sys/socket.h>
#include <thread>

namespace {

const QString Channel = QStringLiteral("mainprocess");
const QString Mark = QStringLiteral("allHeardSoFar");
const QString End = QStringLiteral("listenNoMore");

} // namespace

// A QCopChannel needs the event loop of an application; here there may be none.
struct LauncherEar::Private
{
    void listen()
    {
        QByteArray buffer(qcop::MaxDatagramBytes, Qt::Uninitialized);
        QString message;
        do {
            const ssize_t got = ::recv(socket.get(), buffer.data(), size_t(buffer.size()), 0);
            QByteArray payload;
            if (got <= 0 || !qcop::unpack(buffer.first(got), message, payload))
                qFatal("the launcher got something that is no message");
            hear(message, payload);
        } while (message != End);
    }

    void hear(const QString& message, const QByteArray& payload)
    {
        const std::lock_guard lock(mutex);
        if (message == Mark)
            lastMark = payload.toInt();
        else
            messages.append(message + u' ' + QString::fromLatin1(payload));
        changed.notify_all();
    }

    qcop::Descriptor folder;
    qcop::Descriptor socket;
    std::thread thread;
    std::mutex mutex;
    std::condition_variable changed;
    QStringList messages;
    int lastMark = 0;
    int marks = 0;
};

LauncherEar::LauncherEar() : d(std::make_unique<Private>())
{
    d->folder.reset(qcop::openFolder(true));
    d->socket.reset(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const sockaddr_un address = qcop::addressIn(d->folder.get(), Channel.toLatin1() + ".sock");
    if (::bind(d->socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        qFatal("the launcher cannot listen");
    d->thread = std::thread([this] { d->listen(); });
}

LauncherEar::~LauncherEar()
{
    QCopChannel::send(Channel, End, {});
    d->thread.join();
}

QStringList LauncherEar::take()
{
    QCopChannel::send(Channel, Mark, QByteArray::number(++d->marks));
    std::unique_lock lock(d->mutex);
    if (!d->changed.wait_for(lock, FakePatience, [this] { return d->lastMark == d->marks; }))
        qFatal("the launcher has stopped hearing");
    return std::exchange(d->messages, {});
}
