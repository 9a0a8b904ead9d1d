#include "open/link/linkclient.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

int connectTo(const char* path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::size_t length = std::strlen(path);
    if (length == 0 || length >= sizeof address.sun_path)
        return -1;
    std::memcpy(address.sun_path, path, length);
    // Not blocking, so that a desk that hangs with a full backlog does not hang the engine.
    const int fd = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0)
        return -1;
    if (::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

} // namespace

LinkClient::LinkClient(desklink::Role role) : m_role(role) {}

LinkClient::~LinkClient()
{
    disconnectFromDesk();
}

bool LinkClient::connectToDesk()
{
    const std::lock_guard lock(m_mutex);
    if (m_fd >= 0)
        return true;
    const char* path = std::getenv(desklink::SocketVariable);
    if (!path)
        return false;
    m_fd = connectTo(path);
    if (m_fd < 0)
        return false;
    const desklink::Hello hello = {m_role, static_cast<std::uint32_t>(::getpid())};
    if (desklink::sendPacket(m_fd, desklink::Kind::Hello, desklink::bytesOf(hello), {}))
        return true;
    ::close(m_fd);
    m_fd = -1;
    return false;
}

void LinkClient::disconnectFromDesk()
{
    const std::lock_guard lock(m_mutex);
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

bool LinkClient::isConnected() const
{
    const std::lock_guard lock(m_mutex);
    return m_fd >= 0;
}

bool LinkClient::send(desklink::Kind kind, desklink::Bytes head, desklink::Bytes tail)
{
    const std::lock_guard lock(m_mutex);
    return m_fd >= 0 && desklink::sendPacket(m_fd, kind, head, tail);
}

bool LinkClient::receive(Packet& packet, int timeoutMs, int wakeFd)
{
    int fd = -1;
    {
        const std::lock_guard lock(m_mutex);
        fd = m_fd;
    }
    if (fd < 0)
        return false;
    std::array<pollfd, 2> polled = {pollfd{fd, POLLIN, 0}, pollfd{wakeFd, POLLIN, 0}};
    if (::poll(polled.data(), polled.size(), timeoutMs) <= 0 || polled[0].revents == 0)
        return false;

    m_receiveBuffer.resize(desklink::MaxPacketBytes);
    const ssize_t got = ::recv(fd, m_receiveBuffer.data(), m_receiveBuffer.size(), 0);
    if (got <= 0) {
        if (got == 0 || (errno != EINTR && errno != EAGAIN))
            disconnectFromDesk();
        return false;
    }
    const auto received =
        desklink::packetIn(desklink::Bytes(m_receiveBuffer).first(static_cast<std::size_t>(got)));
    if (!received)
        return false;
    packet.kind = received->kind;
    packet.body.assign(received->body.begin(), received->body.end());
    return true;
}
