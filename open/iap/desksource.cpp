#include "open/iap/desksource.h"

#include "open/iap/scanlog.h"

#include <cstring>

namespace {

static_assert(sizeof(desklink::Header) + sizeof(desklink::FrameHead) + MaxFrameSide * MaxFrameSide
              <= desklink::MaxPacketBytes);

desklink::SwipeOutcome onTheLink(SwipeReport::Outcome outcome)
{
    switch (outcome) {
    case SwipeReport::Outcome::Delivered:
        return desklink::SwipeOutcome::Delivered;
    case SwipeReport::Outcome::NoPrint:
        return desklink::SwipeOutcome::NoPrint;
    case SwipeReport::Outcome::BadMotion:
        return desklink::SwipeOutcome::BadMotion;
    case SwipeReport::Outcome::Stopped:
        break;
    }
    return desklink::SwipeOutcome::Stopped;
}

/* A frame out of a packet's body; an invalid one when the body does not hold what it says. */
Frame unpacked(const std::vector<std::byte>& body)
{
    const auto head = desklink::recordOf<desklink::FrameHead>(body);
    if (!head)
        return {};
    Frame frame;
    frame.timeUs = head->timeUs;
    frame.width = head->width;
    frame.height = head->height;
    frame.dpi = head->dpi;
    frame.pixels.resize(body.size() - sizeof *head);
    if (!frame.pixels.empty())
        std::memcpy(frame.pixels.data(), body.data() + sizeof *head, frame.pixels.size());
    return frame;
}

} // namespace

DeskSource::~DeskSource()
{
    stop();
}

bool DeskSource::start(FrameListener& listener)
{
    if (m_wake.fd() < 0 || !m_link.connectToDesk() || !m_link.send(desklink::Kind::CameraOn))
        return false;
    m_thread = std::thread([this, &listener] { receiveAll(listener); });
    return true;
}

void DeskSource::stop()
{
    if (!m_thread.joinable())
        return;
    m_stopping = true;
    m_wake.raise();
    m_thread.join();
    m_link.send(desklink::Kind::CameraOff);
    m_link.disconnectFromDesk();
}

void DeskSource::receiveAll(FrameListener& listener)
{
    LinkClient::Packet packet;
    while (!m_stopping) {
        if (m_link.receive(packet, -1, m_wake.fd())) {
            handle(packet, listener);
        } else if (!m_link.isConnected()) {
            scanLog("the desk has gone");
            listener.sourceLost();
            return;
        }
    }
}

void DeskSource::handle(const LinkClient::Packet& packet, FrameListener& listener)
{
    switch (packet.kind) {
    case desklink::Kind::TipDown:
        listener.tipDown();
        break;
    case desklink::Kind::TipUp:
        listener.tipUp();
        break;
    case desklink::Kind::Frame: {
        Frame frame = unpacked(packet.body);
        if (isValidFrame(frame))
            listener.frame(std::move(frame));
        else
            scanLog("a frame of " + std::to_string(packet.body.size()) + " bytes is no picture");
        break;
    }
    default:
        scanLog("a message of an unknown kind");
    }
}

void DeskSource::report(const SwipeReport& report)
{
    const desklink::SwipeResultHead head = {
        onTheLink(report.outcome), static_cast<std::uint32_t>(report.frames),
        static_cast<std::uint32_t>(report.width), static_cast<std::uint32_t>(report.height)};
    m_link.send(desklink::Kind::SwipeResult, desklink::bytesOf(head),
                std::as_bytes(std::span(report.reason)));
}
