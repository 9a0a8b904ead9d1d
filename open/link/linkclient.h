#ifndef LINKCLIENT_H
#define LINKCLIENT_H

#include "desk/linkpacket.h"

#include <cstddef>
#include <mutex>
#include <vector>

/*
 * An engine's end of the link to the desk (desk/desklink.h). Holds no Qt.
 *
 * Without a desk every call does nothing and tells so. Sending never blocks: a desk that does not
 * keep up misses messages, the engine's work goes on.
 */
class LinkClient
{
public:
    struct Packet
    {
        desklink::Kind kind;
        std::vector<std::byte> body;
    };

    explicit LinkClient(desklink::Role role);
    ~LinkClient();
    LinkClient(const LinkClient&) = delete;
    LinkClient& operator=(const LinkClient&) = delete;

    /* Connects to the socket that SWIPELINE_DESK names and says who this is. True when connected
     * (already). Any thread. */
    bool connectToDesk();
    void disconnectFromDesk();
    bool isConnected() const;

    /* Sends one message, its body in up to two parts. False without a desk or when the desk's
     * queue is full. Any thread. */
    bool send(desklink::Kind kind, desklink::Bytes head = {}, desklink::Bytes tail = {});

    /* Waits for the next well-formed packet, at most `timeoutMs` (-1: for ever), or until `wakeFd`
     * (-1: none) becomes readable. False when nothing came; when the desk has gone the client is
     * then no longer connected. One reading thread at a time. */
    bool receive(Packet& packet, int timeoutMs, int wakeFd = -1);

private:
    const desklink::Role m_role;
    mutable std::mutex m_mutex;
    int m_fd = -1;
    std::vector<std::byte> m_receiveBuffer;
};

#endif
