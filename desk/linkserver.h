#ifndef LINKSERVER_H
#define LINKSERVER_H

#include "desk/linkpacket.h"
#include "desk/swipereport.h"

#include <QObject>
#include <QString>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

class QSocketNotifier;

/*
 * The desk's end of the link (desk/desklink.h): listens, takes the engines' reports and sends
 * camera frames to the scan engine.
 *
 * Lives on the interface thread, where nothing of it waits; sendTip() and sendFrame() are for the
 * thread that cuts the frames.
 */
class LinkServer : public QObject
{
    Q_OBJECT

public:
    explicit LinkServer(QObject* parent = nullptr);
    ~LinkServer() override;

    /* Listens at `path` (at most 107 bytes; a file left there is replaced). False: see
     * errorString(). */
    bool listen(const QString& path);
    QString errorString() const { return m_error; }

    /* Whether the scan engine is connected and wants frames. */
    bool isCameraOn() const { return m_cameraOn; }

    /* Sends TipDown or TipUp, or a frame of width x height bytes, to the scan engine. They wait
     * a moment for room in its queue (tips 500 ms, frames 20 ms). False: the message was lost.
     * Any thread. */
    bool sendTip(desklink::Kind kind, qint64 timeUs);
    bool sendFrame(const desklink::FrameHead& head, desklink::Bytes pixels);

signals:
    void engineConnected(desklink::Role role);
    void engineDisconnected(desklink::Role role);
    void cameraSwitched(bool on);
    void swipeReported(const SwipeReport& report);
    void speechBegan(quint32 utterance, int language, const QString& text, qint64 timeUs);
    void wordSpoken(quint32 utterance, int offset, int length, qint64 timeUs);
    void speechEnded(quint32 utterance, bool stopped, qint64 timeUs);
    void refreshSwitched(bool on);

private:
    /* A descriptor that closes when the last user lets go of it: the thread that sends may still
     * hold it when the engine has gone. */
    class Descriptor;
    struct Connection
    {
        std::shared_ptr<Descriptor> descriptor;
        std::unique_ptr<QSocketNotifier> notifier;
        desklink::Role role = {};
        bool known = false;
    };

    bool fail(const QString& what);
    void accept();
    void read(Connection* connection);
    void handle(Connection& connection, desklink::Kind kind, desklink::Bytes body);
    void handleSpeech(desklink::Kind kind, desklink::Bytes body);
    void greet(Connection& connection, desklink::Bytes body);
    void drop(Connection* connection);
    void switchCamera(bool on);
    bool send(desklink::Kind kind, desklink::Bytes head, desklink::Bytes tail, int patienceMs);

    QString m_error;
    QString m_path;
    std::shared_ptr<Descriptor> m_listener;
    std::unique_ptr<QSocketNotifier> m_listenNotifier;
    std::vector<std::unique_ptr<Connection>> m_connections;
    std::vector<std::byte> m_buffer;
    bool m_cameraOn = false;
    std::mutex m_scanMutex;
    std::shared_ptr<Descriptor> m_scan;
};

#endif
