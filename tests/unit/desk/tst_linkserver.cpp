#include "desk/linkserver.h"
#include "open/link/linkclient.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <cstring>
#include <thread>
#include <vector>

using desklink::Kind;
using desklink::Role;

Q_DECLARE_METATYPE(SwipeReport)

class TestLinkServer : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_path = m_dir->filePath("link");
        qputenv(desklink::SocketVariable, m_path.toLocal8Bit());
        m_server = std::make_unique<LinkServer>();
        QVERIFY(m_server->listen(m_path));
    }

    void cleanup()
    {
        m_server.reset();
        QVERIFY(!QFile::exists(m_path));
    }

    void tellsWhenItCannotListen()
    {
        LinkServer server;
        QVERIFY(!server.listen("/nowhere/at/all/link"));
        QVERIFY(server.errorString().contains("/nowhere/at/all/link"));
        QVERIFY(!server.listen(m_dir->filePath(QString(120, 'x'))));
        QVERIFY(!server.errorString().isEmpty());
    }

    void replacesASocketLeftBehind()
    {
        const QString path = m_dir->filePath("old");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        LinkServer server;
        QVERIFY(server.listen(path));
    }

    void cameraGoesOnAndOff()
    {
        QSignalSpy camera(m_server.get(), &LinkServer::cameraSwitched);
        LinkClient scan(Role::Scan);
        QVERIFY(scan.connectToDesk());
        QVERIFY(scan.send(Kind::CameraOn));
        QTRY_VERIFY(m_server->isCameraOn());
        QVERIFY(scan.send(Kind::CameraOn));
        QVERIFY(scan.send(Kind::CameraOff));
        QTRY_VERIFY(!m_server->isCameraOn());
        QCOMPARE(camera.size(), 2);
    }

    void cameraGoesOffWithItsEngine()
    {
        QSignalSpy gone(m_server.get(), &LinkServer::engineDisconnected);
        LinkClient scan(Role::Scan);
        QVERIFY(scan.connectToDesk());
        QVERIFY(scan.send(Kind::CameraOn));
        QTRY_VERIFY(m_server->isCameraOn());
        scan.disconnectFromDesk();
        QTRY_VERIFY(!m_server->isCameraOn());
        QCOMPARE(gone.size(), 1);
        QVERIFY(!m_server->sendTip(Kind::TipDown, 1));
    }

    void framesReachTheScanEngine()
    {
        LinkClient scan(Role::Scan);
        QVERIFY(scan.connectToDesk());
        LinkClient speech(Role::Speech);
        QVERIFY(speech.connectToDesk());
        QVERIFY(scan.send(Kind::CameraOn));
        QTRY_VERIFY(m_server->isCameraOn());
        std::vector<std::byte> pixels(160 * 104);
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = std::byte(i % 251);
        QVERIFY(m_server->sendTip(Kind::TipDown, 41));
        QVERIFY(m_server->sendFrame({42, 160, 104, 300, 0}, pixels));
        QVERIFY(m_server->sendTip(Kind::TipUp, 43));

        LinkClient::Packet packet;
        QVERIFY(scan.receive(packet, 5000));
        QVERIFY(packet.kind == Kind::TipDown);
        QVERIFY(scan.receive(packet, 5000));
        QVERIFY(packet.kind == Kind::Frame);
        desklink::FrameHead head = {};
        QCOMPARE(packet.body.size(), sizeof head + pixels.size());
        std::memcpy(&head, packet.body.data(), sizeof head);
        QCOMPARE(head.timeUs, 42);
        QCOMPARE(head.width, quint16(160));
        QCOMPARE(std::memcmp(packet.body.data() + sizeof head, pixels.data(), pixels.size()), 0);
        QVERIFY(scan.receive(packet, 5000));
        QVERIFY(packet.kind == Kind::TipUp);
        QVERIFY(!speech.receive(packet, 0));
    }

    void everyFrameArrivesWhenTheEngineReads()
    {
        LinkClient scan(Role::Scan);
        QVERIFY(scan.connectToDesk());
        QVERIFY(scan.send(Kind::CameraOn));
        QTRY_VERIFY(m_server->isCameraOn());
        int received = 0;
        std::thread reader([&] {
            LinkClient::Packet packet;
            while (scan.receive(packet, 10000) && packet.kind == Kind::Frame)
                ++received;
        });
        const std::vector<std::byte> pixels(160 * 104);
        int sent = 0;
        for (int i = 0; i < 200; ++i)
            sent += m_server->sendFrame({i, 160, 104, 300, 0}, pixels) ? 1 : 0;
        QVERIFY(m_server->sendTip(Kind::TipUp, 1));
        reader.join();
        QCOMPARE(received, sent);
        QVERIFY(sent > 0);
    }

    void aHungEngineLosesFramesOnly()
    {
        LinkClient scan(Role::Scan);
        QVERIFY(scan.connectToDesk());
        QVERIFY(scan.send(Kind::CameraOn));
        QTRY_VERIFY(m_server->isCameraOn());
        const std::vector<std::byte> pixels(160 * 104);
        bool refused = false;
        for (int i = 0; i < 200 && !refused; ++i)
            refused = !m_server->sendFrame({i, 160, 104, 300, 0}, pixels);
        QVERIFY(refused);
        LinkClient::Packet packet;
        while (scan.receive(packet, 0)) {}
        QVERIFY(m_server->sendTip(Kind::TipUp, 1));
    }

    void reportsOfASwipe()
    {
        QSignalSpy reports(m_server.get(), &LinkServer::swipeReported);
        LinkClient scan(Role::Scan);
        QVERIFY(scan.connectToDesk());
        const desklink::SwipeResultHead head = {desklink::SwipeOutcome::BadMotion, 70, 0, 0};
        const QByteArray reason = "die Bilder hängen nicht zusammen";
        QVERIFY(
            scan.send(Kind::SwipeResult, desklink::bytesOf(head),
                      std::as_bytes(std::span(reason.constData(), std::size_t(reason.size())))));
        QTRY_COMPARE(reports.size(), 1);
        const auto report = reports[0][0].value<SwipeReport>();
        QVERIFY(report.outcome == desklink::SwipeOutcome::BadMotion);
        QCOMPARE(report.frames, 70U);
        QCOMPARE(report.reason, QString::fromUtf8(reason));
    }

    void speechIsHeard()
    {
        QSignalSpy began(m_server.get(), &LinkServer::speechBegan);
        QSignalSpy word(m_server.get(), &LinkServer::wordSpoken);
        QSignalSpy ended(m_server.get(), &LinkServer::speechEnded);
        LinkClient speech(Role::Speech);
        QVERIFY(speech.connectToDesk());
        const std::u16string text = u"Größe 大";
        const desklink::SpeechBeginHead begin = {7, 3, 104, 5, 60};
        QVERIFY(speech.send(Kind::SpeechBegin, desklink::bytesOf(begin),
                            std::as_bytes(std::span(text))));
        const desklink::SpeechWordBody body = {8, 3, 6, 1, 0};
        QVERIFY(speech.send(Kind::SpeechWord, desklink::bytesOf(body)));
        const desklink::SpeechEndBody end = {9, 3, 1};
        QVERIFY(speech.send(Kind::SpeechEnd, desklink::bytesOf(end)));
        QTRY_COMPARE(ended.size(), 1);
        QCOMPARE(began[0], QVariantList({3U, 104, QString::fromStdU16String(text), qint64(7)}));
        QCOMPARE(word[0], QVariantList({3U, 6, 1, qint64(8)}));
        QCOMPARE(ended[0], QVariantList({3U, true, qint64(9)}));
    }

    void refreshIsHeard()
    {
        QSignalSpy refresh(m_server.get(), &LinkServer::refreshSwitched);
        LinkClient display(Role::Display);
        QVERIFY(display.connectToDesk());
        const desklink::RefreshBody off = {0};
        QVERIFY(display.send(Kind::Refresh, desklink::bytesOf(off)));
        QTRY_COMPARE(refresh.size(), 1);
        QCOMPARE(refresh[0][0].toBool(), false);
    }

    void shortAndUnknownPacketsAreIgnored()
    {
        QSignalSpy began(m_server.get(), &LinkServer::speechBegan);
        QSignalSpy refresh(m_server.get(), &LinkServer::refreshSwitched);
        LinkClient speech(Role::Speech);
        QVERIFY(speech.connectToDesk());
        const quint16 tooShort = 1;
        for (const Kind kind : {Kind::Hello, Kind::SpeechBegin, Kind::SpeechWord, Kind::SpeechEnd,
                                Kind::SwipeResult, Kind::Refresh, Kind(999), Kind::Frame})
            QVERIFY(speech.send(kind, desklink::bytesOf(tooShort)));
        const desklink::RefreshBody on = {1};
        QVERIFY(speech.send(Kind::Refresh, desklink::bytesOf(on)));
        QTRY_COMPARE(refresh.size(), 1);
        QVERIFY(began.isEmpty());
    }

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_path;
    std::unique_ptr<LinkServer> m_server;
};

QTEST_GUILESS_MAIN(TestLinkServer)
#include "tst_linkserver.moc"
