#include "open/tts/outputkeeper.h"
#include "open/tts/player.h"
#include "open/tts/wavfile.h"
#include "ttsfixture.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

using namespace tts;
using namespace std::chrono_literals;

namespace {

/* What happens to the device that the outputs of a test play on. */
struct Device
{
    std::atomic<bool> missing = false;
    std::atomic<bool> lost = false;  // as of a sound server that has died: samples go nowhere
    std::atomic<bool> stuck = false; // takes no samples
    std::atomic<int> opened = 0;
    std::atomic<int> closed = 0;
    std::atomic<int> heard = 0; // samples that are not silent

    void hangOpening(bool hangs) { set(m_openingHangs, hangs); }
    void hangClosing(bool hangs) { set(m_closingHangs, hangs); }
    void passOpening() { pass(m_openingHangs); }
    void passClosing() { pass(m_closingHangs); }

private:
    void set(bool& hangs, bool value)
    {
        const std::lock_guard lock(m_mutex);
        hangs = value;
        m_changed.notify_all();
    }
    void pass(const bool& hangs)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&hangs] { return !hangs; });
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_openingHangs = false;
    bool m_closingHangs = false;
};

/* Plays on it, at twenty-three times the pace of speech. */
class DeviceOutput : public AudioOutput
{
public:
    DeviceOutput(SampleQueue& queue, Device& device)
        : AudioOutput(queue), m_device(device), m_thread([this] { work(); })
    {
    }
    ~DeviceOutput() override
    {
        m_device.passClosing();
        m_closing = true;
        m_thread.join();
        ++m_device.closed;
    }
    void connect() override
    {
        AudioOutput::connect();
        queue().setPace(23);
    }
    bool isLost() const override { return m_lost; }

private:
    void work()
    {
        std::array<std::int16_t, BlockSamples> block;
        while (!m_closing) {
            m_lost = m_lost || m_device.lost;
            if (!m_device.stuck) {
                take(block);
                if (!m_lost)
                    m_device.heard += static_cast<int>(
                        block.size()
                        - static_cast<std::size_t>(std::count(block.begin(), block.end(), 0)));
            }
            std::this_thread::sleep_for(1ms); // of the device's clock
        }
    }

    Device& m_device;
    std::atomic<bool> m_lost = false;
    std::atomic<bool> m_closing = false;
    std::thread m_thread;
};

int receive(int offset, int length, int kind)
{
    const std::lock_guard lock(s_reports.mutex);
    s_reports.all.append({offset, length, kind});
    s_reports.changed.notify_all();
    return 0;
}

constexpr OutputKeeper::Patience Soon{200ms, 100ms, 100ms, 0ms};

} // namespace

/* When the device of the output vanishes, hangs or comes back. */
class TstTtsOutputs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void lostDeviceIsOpenedAnew();
    void deviceIsLostWhileSpeaking();
    void missingDeviceIsReplacedBySilence();
    void missingDeviceIsNotTriedAllTheTime();
    void stuckDeviceIsGivenUp();
    void stopWhileTheDeviceIsStuck();
    void openingHangs();
    void closingHangs();
    void withoutAnyOutputItDoesNotStart();
    void soundFileEndsAtItsLimit_data();
    void soundFileEndsAtItsLimit();
    void fullSoundFileStaysValid();

private:
    void make(const OutputKeeper::Patience& patience = Soon);
    bool sounds(const QString& text);
    void speaks(bool aloud);

    std::unique_ptr<Device> m_device;
    std::unique_ptr<Player> m_player;
};

void TstTtsOutputs::init()
{
    s_reports.clear();
    m_device = std::make_unique<Device>();
}

void TstTtsOutputs::cleanup()
{
    m_device->hangOpening(false);
    m_device->hangClosing(false);
    if (m_player) {
        m_player->close();
        QTRY_COMPARE(m_device->closed.load(), m_device->opened.load());
    }
    m_player.reset();
}

void TstTtsOutputs::make(const OutputKeeper::Patience& patience)
{
    m_player = std::make_unique<Player>(
        [device = m_device.get()](SampleQueue& queue) -> std::unique_ptr<AudioOutput> {
            device->passOpening();
            if (device->missing)
                return nullptr;
            ++device->opened;
            return std::make_unique<DeviceOutput>(queue, *device);
        },
        patience);
    m_player->setCallback(receive);
    m_player->setSpeed(96);
}

/* Speaks a text to its end; whether the device got anything of it. */
bool TstTtsOutputs::sounds(const QString& text)
{
    s_reports.clear();
    const int before = m_device->heard;
    const std::u16string units = text.toStdU16String();
    if (m_player->play(units) != Player::Outcome::Spoken)
        qFatal("not spoken");
    return m_device->heard > before;
}

/* Speaks, with every word reported whether it can be heard or not. */
void TstTtsOutputs::speaks(bool aloud)
{
    const QString text = QStringLiteral("One two three.");
    QCOMPARE(sounds(text), aloud);
    QCOMPARE(s_reports.words(text), QStringList({"One", "two", "three"}));
}

void TstTtsOutputs::lostDeviceIsOpenedAnew()
{
    make();
    QVERIFY(m_player->start({}));
    speaks(true);
    m_device->lost = true;
    QTRY_VERIFY(!sounds(tag(10)));
    m_device->lost = false;
    speaks(true);
    QVERIFY(m_device->opened >= 2);
    QCOMPARE(m_device->closed.load(), m_device->opened - 1);
}

void TstTtsOutputs::deviceIsLostWhileSpeaking()
{
    make();
    QVERIFY(m_player->start({}));
    const QString text = QStringLiteral("and so it goes on ").repeated(40).trimmed();
    std::thread puller([this] {
        s_reports.waitFor(5);
        m_device->lost = true;
    });
    QVERIFY(sounds(text));
    puller.join();
    QCOMPARE(s_reports.words(text), text.split(QLatin1Char(' ')));
    QCOMPARE(m_device->opened.load(), 1);
    m_device->lost = false;
    speaks(true);
    QCOMPARE(m_device->opened.load(), 2);
}

void TstTtsOutputs::missingDeviceIsReplacedBySilence()
{
    make();
    QVERIFY(m_player->start({}));
    m_device->missing = true;
    m_device->lost = true;
    QTRY_VERIFY(!sounds(tag(10)));
    speaks(false);
    QCOMPARE(m_device->closed.load(), 1);
    m_device->missing = false;
    m_device->lost = false;
    speaks(true);
    QCOMPARE(m_device->opened.load(), 2);
}

void TstTtsOutputs::missingDeviceIsNotTriedAllTheTime()
{
    make({200ms, 100ms, 100ms, 1h});
    QVERIFY(m_player->start({}));
    m_device->lost = true;
    for (int i = 0; i < 5; ++i)
        sounds(tag(100));
    QCOMPARE(m_device->opened.load(), 1);
}

void TstTtsOutputs::stuckDeviceIsGivenUp()
{
    make();
    QVERIFY(m_player->start({}));
    m_device->hangClosing(true);
    std::thread breaker([this] {
        s_reports.waitFor(2);
        m_device->stuck = true;
    });
    const QString text = QStringLiteral("one two three four five six seven eight nine ten");
    sounds(text);
    breaker.join();
    QCOMPARE(s_reports.words(text), text.split(QLatin1Char(' ')));
    speaks(false);
    QCOMPARE(m_device->opened.load(), 1);
    m_device->stuck = false;
    m_device->hangClosing(false);
    QTRY_COMPARE(m_device->opened.load(), 2);
    QTRY_VERIFY(sounds(QStringLiteral("Back.")));
    speaks(true);
}

void TstTtsOutputs::stopWhileTheDeviceIsStuck()
{
    make();
    QVERIFY(m_player->start({}));
    m_device->stuck = true;
    std::atomic<bool> ended = false;
    std::thread speaker([this, &ended] {
        m_player->play(u"Not heard.");
        ended = true;
    });
    while (!ended) {
        m_player->stop();
        std::this_thread::yield();
    }
    speaker.join();
    m_device->stuck = false;
    speaks(true);
}

void TstTtsOutputs::openingHangs()
{
    make();
    m_device->hangOpening(true);
    QVERIFY(m_player->start({}));
    speaks(false);
    m_device->hangOpening(false);
    QTRY_COMPARE(m_device->opened.load(), 1);
    QTRY_VERIFY(sounds(QStringLiteral("Here.")));
    speaks(true);
}

void TstTtsOutputs::closingHangs()
{
    make();
    QVERIFY(m_player->start({}));
    m_device->hangClosing(true);
    QVERIFY(m_player->close());
    QVERIFY(m_player->start({}));
    speaks(false);
    QCOMPARE(m_device->opened.load(), 1); // never two at a time
    QVERIFY(m_player->close());
    m_device->hangClosing(false);
    QTRY_COMPARE(m_device->closed.load(), 1);
    QVERIFY(m_player->start({}));
    speaks(true);
}

void TstTtsOutputs::withoutAnyOutputItDoesNotStart()
{
    make();
    m_device->missing = true;
    QVERIFY(!m_player->start({}));
    QVERIFY(!m_player->close());
    QCOMPARE(m_player->play(u"Nobody."), Player::Outcome::Failed);
    m_device->missing = false;
    QVERIFY(m_player->start({}));
    speaks(true);
}

void TstTtsOutputs::soundFileEndsAtItsLimit_data()
{
    QTest::addColumn<quint32>("bytes");
    QTest::addColumn<quint32>("samples");
    QTest::addColumn<quint32>("fitting");
    QTest::newRow("empty") << 0u << 512u << 512u;
    QTest::newRow("nothing") << 100u << 0u << 0u;
    QTest::newRow("just fits") << 4294966234u << 512u << 512u;
    QTest::newRow("a sample too many") << 4294966236u << 512u << 511u;
    QTest::newRow("one") << 4294967256u << 512u << 1u;
    QTest::newRow("full") << 4294967258u << 512u << 0u;
    QTest::newRow("more than full") << 4294967295u << 512u << 0u;
}

void TstTtsOutputs::soundFileEndsAtItsLimit()
{
    QFETCH(quint32, bytes);
    QFETCH(quint32, samples);
    QFETCH(quint32, fitting);
    QCOMPARE(samplesThatFit(bytes, samples), std::size_t(fitting));
    // The length of the whole file, less eight bytes, is in the header, too.
    QVERIFY(std::uint64_t(bytes) + 2 * fitting + 36 <= 0xffffffffu || fitting == 0);
}

/* Almost full from the start; but for its ends the file is a hole and takes no room. */
void TstTtsOutputs::fullSoundFileStaysValid()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("full.wav"));
    const std::string name = QFile::encodeName(path).toStdString();
    constexpr quint32 Most = 4294967258u;
    WavFile::open(name).reset();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const quint32 bytes = qToLittleEndian(Most - 1000);
    QVERIFY(file.seek(40));
    QCOMPARE(file.write(reinterpret_cast<const char*>(&bytes), 4), 4);
    QVERIFY(file.resize(44 + qint64(Most) - 1000));
    file.close();

    const auto wav = WavFile::open(name);
    QVERIFY(wav);
    const std::vector<std::int16_t> samples(400, 1234);
    for (int i = 0; i < 3; ++i)
        wav->write(samples);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.size(), 44 + qint64(Most));
    const QByteArray header = file.read(44);
    QCOMPARE(qFromLittleEndian<quint32>(header.constData() + 4), Most + 36);
    QCOMPARE(qFromLittleEndian<quint32>(header.constData() + 40), Most);
    QVERIFY(file.seek(file.size() - 2));
    const QByteArray last = file.read(2);
    QCOMPARE(qFromLittleEndian<qint16>(last.constData()), qint16(1234));
}

QTEST_GUILESS_MAIN(TstTtsOutputs)
#include "tst_tts_outputs.moc"
