#ifndef LINKPACKET_H
#define LINKPACKET_H

#include "desk/desklink.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <sys/socket.h>
#include <sys/uio.h>

/* How both ends of the link send and read packets. Holds no Qt. */
namespace desklink {

using Bytes = std::span<const std::byte>;

struct Packet
{
    Kind kind;
    Bytes body;
};

/* The time as messages give it: microseconds of CLOCK_MONOTONIC. */
inline std::int64_t nowUs()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

/* The bytes of a record. It outlives them. */
template <typename T> Bytes bytesOf(const T& record)
{
    return std::as_bytes(std::span(&record, 1));
}

/* The record at the start of a body; empty when the body is too short. */
template <typename T> std::optional<T> recordOf(Bytes body)
{
    if (body.size() < sizeof(T))
        return std::nullopt;
    T record;
    std::memcpy(&record, body.data(), sizeof record);
    return record;
}

/* Sends one packet, its body in two parts, and never waits. False, with errno, when it was not
 * sent: EAGAIN when the other end's queue is full. */
inline bool sendPacket(int socket, Kind kind, Bytes head, Bytes tail)
{
    const Header header = {Magic, Version, kind,
                           static_cast<std::uint32_t>(head.size() + tail.size())};
    const auto piece = [](Bytes bytes) {
        return iovec{const_cast<std::byte*>(bytes.data()), bytes.size()};
    };
    std::array<iovec, 3> pieces = {piece(bytesOf(header)), piece(head), piece(tail)};
    msghdr message = {};
    message.msg_iov = pieces.data();
    message.msg_iovlen = pieces.size();
    return ::sendmsg(socket, &message, MSG_DONTWAIT | MSG_NOSIGNAL) >= 0;
}

/* The packet that was received, as a view of the bytes; empty when they are none. */
inline std::optional<Packet> packetIn(Bytes received)
{
    const auto header = recordOf<Header>(received);
    if (!header || header->magic != Magic || header->version != Version
        || header->length != received.size() - sizeof(Header))
        return std::nullopt;
    return Packet{header->kind, received.subspan(sizeof(Header))};
}

} // namespace desklink

#endif
