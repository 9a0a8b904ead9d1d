#ifndef FAKEDESK_H
#define FAKEDESK_H

#include "desk/desklink.h"
#include "open/iap/frame.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <optional>
#include <span>
#include <vector>

/*
 * A desk of a few lines: listens on the link's socket, names it in the environment, and speaks the
 * protocol byte by byte. Waiting calls give up after some seconds.
 */
class FakeDesk
{
public:
    struct Message
    {
        desklink::Kind kind;
        QByteArray body;
    };

    FakeDesk();
    ~FakeDesk();
    FakeDesk(const FakeDesk&) = delete;
    FakeDesk& operator=(const FakeDesk&) = delete;

    /* Takes the connection of an engine that has connected; its Hello is the next message. */
    bool accept();
    /* The next message from the engine; nothing when it has hung up or stays silent. */
    std::optional<Message> receive();
    /* Breaks the connection. */
    void hangUp();

    void send(desklink::Kind kind, const QByteArray& body = {});
    void sendRaw(const QByteArray& packet);
    void sendFrame(const Frame& frame);
    /* Press, frames, lift. */
    void swipe(const std::vector<Frame>& frames);
    void press();
    void lift();

private:
    QTemporaryDir m_folder;
    int m_listening = -1;
    int m_connection = -1;
};

#endif
