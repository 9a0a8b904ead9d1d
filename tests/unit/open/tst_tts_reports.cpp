#include "platform/zembra_tts.h"

#include "desk/desklink.h"

#include <QFile>
#include <QList>
#include <QTemporaryDir>
#include <QTest>

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

struct Packet
{
    desklink::Kind kind;
    QByteArray body;

    template <typename Body> Body as() const
    {
        Body result = {};
        std::memcpy(&result, body.constData(), sizeof result);
        return result;
    }
};

/* The desk's end of the link: accepts one engine and keeps what it says. */
class Desk
{
public:
    explicit Desk(const QByteArray& path)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
        m_listener = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
        if (::bind(m_listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0
            || ::listen(m_listener, 4) != 0)
            qFatal("no socket");
    }
    ~Desk()
    {
        close();
        ::close(m_listener);
    }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    /* Everything that has been sent so far. */
    QList<Packet> read()
    {
        if (m_engine < 0)
            m_engine = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        QList<Packet> packets;
        std::vector<char> buffer(desklink::MaxPacketBytes);
        while (true) {
            const auto got = ::recv(m_engine, buffer.data(), buffer.size(), MSG_DONTWAIT);
            if (got < static_cast<ssize_t>(sizeof(desklink::Header)))
                return packets;
            desklink::Header header = {};
            std::memcpy(&header, buffer.data(), sizeof header);
            if (header.magic != desklink::Magic || header.version != desklink::Version
                || header.length != static_cast<std::size_t>(got) - sizeof header)
                qFatal("malformed packet");
            packets.append({header.kind, QByteArray(buffer.data() + sizeof header,
                                                    static_cast<qsizetype>(header.length))});
        }
    }

    void close()
    {
        if (m_engine >= 0)
            ::close(m_engine);
        m_engine = -1;
    }

private:
    int m_listener = -1;
    int m_engine = -1;
};

int play(const QString& text)
{
    return ZEMBRA_TTS_Play(text.utf16(), static_cast<int>(text.size() * 2), 0);
}

int stopAtOnce(int, int, int)
{
    ZEMBRA_TTS_Stop();
    return 0;
}

} // namespace

/* What the desk hears of speech. The engine keeps its connection, so one desk serves all tests, in
 * this order. */
class TstTtsReports : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void tellsTextWordsAndEnd();
    void tellsWhenStopped();
    void longTextIsCutToAPacket();
    void emptyTextIsNotTold();
    void speaksOnWithoutDesk();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Desk> m_desk;
    std::uint32_t m_utterance = 0;
};

void TstTtsReports::initTestCase()
{
    const QByteArray path = QFile::encodeName(m_folder.filePath(QStringLiteral("desk")));
    m_desk = std::make_unique<Desk>(path);
    qputenv(desklink::SocketVariable, path);
    qputenv(desklink::WavVariable,
            QFile::encodeName(m_folder.filePath(QStringLiteral("speech.wav"))));
    qputenv("SWIPELINE_WAV_SPEED", "5000");
    QCOMPARE(ZEMBRA_TTS_Initialize(nullptr, 0, 80), 0);
}

void TstTtsReports::cleanupTestCase()
{
    ZEMBRA_TTS_Uninitialize();
}

void TstTtsReports::tellsTextWordsAndEnd()
{
    ZEMBRA_TTS_SetLang(104);
    ZEMBRA_TTS_SetSpeed(40);
    ZEMBRA_TTS_SetVolume(60);
    const QString text = QStringLiteral("Über<vtml_pause time=\"10\"/> uns.");
    QCOMPARE(play(text), 0);
    const QList<Packet> packets = m_desk->read();
    QCOMPARE(packets.size(), 5);
    QCOMPARE(packets[0].kind, desklink::Kind::Hello);
    QCOMPARE(packets[0].as<desklink::Hello>().role, desklink::Role::Speech);

    QCOMPARE(packets[1].kind, desklink::Kind::SpeechBegin);
    const auto begin = packets[1].as<desklink::SpeechBeginHead>();
    QCOMPARE(begin.language, 104);
    QCOMPARE(begin.speed, 40);
    QCOMPARE(begin.volume, 60);
    const QByteArray units = packets[1].body.mid(sizeof begin);
    QCOMPARE(
        QString::fromUtf16(reinterpret_cast<const char16_t*>(units.constData()), units.size() / 2),
        text);
    m_utterance = begin.utterance;
    QCOMPARE(m_utterance, 1u);

    QStringList words;
    qint64 time = begin.timeUs;
    for (const Packet& packet : packets.mid(2, 2)) {
        QCOMPARE(packet.kind, desklink::Kind::SpeechWord);
        const auto word = packet.as<desklink::SpeechWordBody>();
        QCOMPARE(word.utterance, m_utterance);
        QVERIFY(word.timeUs >= time);
        time = word.timeUs;
        words.append(text.mid(word.offset, word.length));
    }
    QCOMPARE(words, QStringList({"Über", "uns"}));
    QCOMPARE(packets[4].kind, desklink::Kind::SpeechEnd);
    const auto end = packets[4].as<desklink::SpeechEndBody>();
    QCOMPARE(end.utterance, m_utterance);
    QCOMPARE(end.stopped, 0u);
    QVERIFY(end.timeUs >= time);
}

void TstTtsReports::tellsWhenStopped()
{
    ZEMBRA_TTS_SetHighlight_CallBack(stopAtOnce);
    QCOMPARE(play(QStringLiteral("One two three.")), 1);
    ZEMBRA_TTS_SetHighlight_CallBack(nullptr);
    const QList<Packet> packets = m_desk->read();
    QCOMPARE(packets.size(), 3);
    QCOMPARE(packets[2].kind, desklink::Kind::SpeechEnd);
    QCOMPARE(packets[2].as<desklink::SpeechEndBody>().utterance, m_utterance + 1);
    QCOMPARE(packets[2].as<desklink::SpeechEndBody>().stopped, 1u);
}

void TstTtsReports::longTextIsCutToAPacket()
{
    ZEMBRA_TTS_SetHighlight_CallBack(stopAtOnce);
    QCOMPARE(play(QStringLiteral("word ").repeated(20000)), 1);
    ZEMBRA_TTS_SetHighlight_CallBack(nullptr);
    const QList<Packet> packets = m_desk->read();
    QCOMPARE(packets.size(), 3);
    QVERIFY(packets[0].body.size() > 90 * 1024);
    QCOMPARE(packets[0].body.size() % 2, 0);
}

void TstTtsReports::emptyTextIsNotTold()
{
    QCOMPARE(play(QStringLiteral(" ")), 0);
    QVERIFY(m_desk->read().isEmpty());
}

void TstTtsReports::speaksOnWithoutDesk()
{
    m_desk.reset();
    QCOMPARE(play(QStringLiteral("Alone now.")), 0);
}

QTEST_GUILESS_MAIN(TstTtsReports)
#include "tst_tts_reports.moc"
