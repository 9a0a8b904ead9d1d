#ifndef DESKSOURCE_H
#define DESKSOURCE_H

#include "open/iap/framesource.h"
#include "open/iap/wakesignal.h"
#include "open/link/linkclient.h"

#include <atomic>
#include <thread>

/* The pen that lies on the desk: frames and the tip come over the link (desk/desklink.h). */
class DeskSource : public FrameSource
{
public:
    DeskSource() : m_link(desklink::Role::Scan) {}
    ~DeskSource() override;
    DeskSource(const DeskSource&) = delete;
    DeskSource& operator=(const DeskSource&) = delete;

    bool start(FrameListener& listener) override;
    void stop() override;
    bool isAlive() const override { return m_link.isConnected(); }
    void report(const SwipeReport& report) override;

private:
    void receiveAll(FrameListener& listener);
    static void handle(const LinkClient::Packet& packet, FrameListener& listener);

    LinkClient m_link;
    WakeSignal m_wake;
    std::atomic<bool> m_stopping = false;
    std::thread m_thread;
};

#endif
