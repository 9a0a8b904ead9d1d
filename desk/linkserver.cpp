#include "desk/linkserver.h"

#include <QFile>
#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using desklink::Bytes;
using desklink::Kind;

namespace {

constexpr int Backlog = 8;
constexpr int FramePatienceMs = 20;
constexpr int TipPatienceMs = 500;
constexpr int PacketsPerTurn = 64; // then the rest of the desk has its turn

QString utf16After(Bytes body, std::size_t offset)
{
    const std::size_t units = (body.size() - offset) / sizeof(char16_t);
    QString text(qsizetype(units), Qt::Uninitialized);
    std::memcpy(text.data(), body.data() + offset, units * sizeof(char16_t));
    return text;
}

} // namespace

class LinkServer::Descriptor
{
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() { ::close(m_fd); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return m_fd; }

private:
    const int m_fd;
};

LinkServer::LinkServer(QObject* parent) : QObject(parent), m_buffer(desklink::MaxPacketBytes) {}

LinkServer::~LinkServer()
{
    if (!m_path.isEmpty())
        ::unlink(QFile::encodeName(m_path).constData());
}

bool LinkServer::listen(const QString& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    if (name.isEmpty() || name.size() >= qsizetype(sizeof address.sun_path)) {
        errno = ENAMETOOLONG;
        return fail(path);
    }
    std::memcpy(address.sun_path, name.constData(), std::size_t(name.size()));
    const int fd = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0)
        return fail(path);
    m_listener = std::make_shared<Descriptor>(fd);
    ::unlink(name.constData());
    if (::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0
        || ::listen(fd, Backlog) != 0)
        return fail(path);
    m_path = path;
    m_listenNotifier = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
    connect(m_listenNotifier.get(), &QSocketNotifier::activated, this, &LinkServer::accept);
    return true;
}

bool LinkServer::fail(const QString& what)
{
    m_error = tr("The link to the pen cannot be opened at %1: %2")
                  .arg(what, QString::fromLocal8Bit(std::strerror(errno)));
    m_listener.reset();
    return false;
}

bool LinkServer::sendTip(Kind kind, qint64 timeUs)
{
    const desklink::Tip tip = {timeUs};
    return send(kind, desklink::bytesOf(tip), {}, TipPatienceMs);
}

bool LinkServer::sendFrame(const desklink::FrameHead& head, Bytes pixels)
{
    return send(Kind::Frame, desklink::bytesOf(head), pixels, FramePatienceMs);
}

bool LinkServer::send(Kind kind, Bytes head, Bytes tail, int patienceMs)
{
    std::shared_ptr<Descriptor> scan;
    {
        const std::lock_guard lock(m_scanMutex);
        scan = m_scan;
    }
    if (!scan)
        return false;
    const auto attempt = [&] { return desklink::sendPacket(scan->get(), kind, head, tail); };
    if (attempt())
        return true;
    if (errno != EAGAIN && errno != EWOULDBLOCK)
        return false;
    pollfd polled = {scan->get(), POLLOUT, 0};
    return ::poll(&polled, 1, patienceMs) > 0 && attempt();
}

void LinkServer::accept()
{
    const int fd = ::accept4(m_listener->get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (fd < 0)
        return;
    auto connection = std::make_unique<Connection>();
    connection->descriptor = std::make_shared<Descriptor>(fd);
    connection->notifier = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
    Connection* const raw = connection.get();
    connect(raw->notifier.get(), &QSocketNotifier::activated, this, [this, raw] { read(raw); });
    m_connections.push_back(std::move(connection));
}

void LinkServer::read(Connection* connection)
{
    for (int i = 0; i < PacketsPerTurn; ++i) {
        const ssize_t got =
            ::recv(connection->descriptor->get(), m_buffer.data(), m_buffer.size(), 0);
        if (got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR))
            return;
        if (got <= 0) {
            drop(connection);
            return;
        }
        if (const auto packet = desklink::packetIn(Bytes(m_buffer).first(std::size_t(got))))
            handle(*connection, packet->kind, packet->body);
    }
}

void LinkServer::handle(Connection& connection, Kind kind, Bytes body)
{
    if (kind == Kind::Hello) {
        greet(connection, body);
        return;
    }
    if (!connection.known)
        return;
    switch (kind) {
    case Kind::CameraOn:
    case Kind::CameraOff:
        switchCamera(kind == Kind::CameraOn);
        break;
    case Kind::SwipeResult:
        if (const auto head = desklink::recordOf<desklink::SwipeResultHead>(body)) {
            const Bytes reason = body.subspan(sizeof *head);
            emit swipeReported({head->outcome, head->frames,
                                QSize(int(head->width), int(head->height)),
                                QString::fromUtf8(reinterpret_cast<const char*>(reason.data()),
                                                  qsizetype(reason.size()))});
        }
        break;
    case Kind::Refresh:
        if (const auto refresh = desklink::recordOf<desklink::RefreshBody>(body))
            emit refreshSwitched(refresh->on != 0);
        break;
    default:
        handleSpeech(kind, body);
    }
}

void LinkServer::handleSpeech(Kind kind, Bytes body)
{
    if (kind == Kind::SpeechBegin) {
        if (const auto head = desklink::recordOf<desklink::SpeechBeginHead>(body))
            emit speechBegan(head->utterance, head->language, utf16After(body, sizeof *head),
                             head->timeUs);
    } else if (kind == Kind::SpeechWord) {
        if (const auto word = desklink::recordOf<desklink::SpeechWordBody>(body))
            emit wordSpoken(word->utterance, word->offset, word->length, word->timeUs);
    } else if (kind == Kind::SpeechEnd) {
        if (const auto end = desklink::recordOf<desklink::SpeechEndBody>(body))
            emit speechEnded(end->utterance, end->stopped != 0, end->timeUs);
    }
}

void LinkServer::greet(Connection& connection, Bytes body)
{
    const auto hello = desklink::recordOf<desklink::Hello>(body);
    if (!hello)
        return;
    connection.role = hello->role;
    connection.known = true;
    if (connection.role == desklink::Role::Scan) {
        const std::lock_guard lock(m_scanMutex);
        m_scan = connection.descriptor;
    }
    emit engineConnected(connection.role);
}

void LinkServer::drop(Connection* connection)
{
    const auto found =
        std::ranges::find(m_connections, connection, &std::unique_ptr<Connection>::get);
    const std::unique_ptr<Connection> gone = std::move(*found);
    m_connections.erase(found);
    // We may be inside a call from this notifier.
    gone->notifier->setEnabled(false);
    gone->notifier.release()->deleteLater();
    bool wasCamera = false;
    {
        const std::lock_guard lock(m_scanMutex);
        wasCamera = m_scan == gone->descriptor;
        if (wasCamera)
            m_scan.reset();
    }
    if (wasCamera)
        switchCamera(false);
    if (gone->known)
        emit engineDisconnected(gone->role);
}

void LinkServer::switchCamera(bool on)
{
    if (m_cameraOn == on)
        return;
    m_cameraOn = on;
    emit cameraSwitched(on);
}
