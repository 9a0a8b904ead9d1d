#include "tests/unit/open/fakedesk.h"

#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr int PatienceMs = 60000; // a sanitizer on a busy machine takes its time

template <typename T> QByteArray bytesOf(const T& value)
{
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}

bool becomesReadable(int fd)
{
    pollfd polled = {fd, POLLIN, 0};
    return ::poll(&polled, 1, PatienceMs) == 1;
}

} // namespace

FakeDesk::FakeDesk()
{
    const QByteArray path = m_folder.filePath("desk").toUtf8();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), std::size_t(path.size()));
    m_listening = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    if (::bind(m_listening, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0
        || ::listen(m_listening, 4) != 0)
        qFatal("the fake desk cannot listen");
    qputenv(desklink::SocketVariable, path);
}

FakeDesk::~FakeDesk()
{
    hangUp();
    ::close(m_listening);
    qunsetenv(desklink::SocketVariable);
}

bool FakeDesk::accept()
{
    hangUp();
    if (becomesReadable(m_listening))
        m_connection = ::accept(m_listening, nullptr, nullptr);
    return m_connection >= 0;
}

std::optional<FakeDesk::Message> FakeDesk::receive()
{
    if (m_connection < 0 || !becomesReadable(m_connection))
        return std::nullopt;
    QByteArray packet(desklink::MaxPacketBytes, '\0');
    const ssize_t got = ::recv(m_connection, packet.data(), std::size_t(packet.size()), 0);
    desklink::Header header = {};
    if (got < ssize_t(sizeof header))
        return std::nullopt;
    std::memcpy(&header, packet.constData(), sizeof header);
    return Message{header.kind, packet.mid(sizeof header, int(got) - int(sizeof header))};
}

void FakeDesk::hangUp()
{
    if (m_connection >= 0)
        ::close(m_connection);
    m_connection = -1;
}

void FakeDesk::send(desklink::Kind kind, const QByteArray& body)
{
    const desklink::Header header = {desklink::Magic, desklink::Version, kind,
                                     std::uint32_t(body.size())};
    sendRaw(bytesOf(header) + body);
}

void FakeDesk::sendRaw(const QByteArray& packet)
{
    // An engine that has hung up misses it, as on the real desk.
    ::send(m_connection, packet.constData(), std::size_t(packet.size()), MSG_NOSIGNAL);
}

void FakeDesk::sendFrame(const Frame& frame)
{
    const desklink::FrameHead head = {frame.timeUs, std::uint16_t(frame.width),
                                      std::uint16_t(frame.height), std::uint16_t(frame.dpi), 0};
    send(desklink::Kind::Frame, bytesOf(head)
                                    + QByteArray(reinterpret_cast<const char*>(frame.pixels.data()),
                                                 qsizetype(frame.pixels.size())));
}

void FakeDesk::swipe(const std::vector<Frame>& frames)
{
    press();
    for (const Frame& frame : frames)
        sendFrame(frame);
    lift();
}

void FakeDesk::press()
{
    send(desklink::Kind::TipDown, bytesOf(desklink::Tip{0}));
}

void FakeDesk::lift()
{
    send(desklink::Kind::TipUp, bytesOf(desklink::Tip{0}));
}
