#include "open/tts/outputkeeper.h"
#include "open/tts/player.h"
#include "ttsfixture.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>

#include <pthread.h>

using namespace tts;
using namespace std::chrono_literals;

namespace {

/* What happens to the device that the outputs of a test play on. */
struct Device
{
    std::atomic<bool> missing = false;
    std::atomic<bool> broken = false;  // whoever opens it gets an exception
    std::atomic<bool> refuses = false; // whoever connects it does
    std::atomic<bool> lost = false;    // as of a sound server that has died: samples go nowhere
    std::atomic<bool> stuck = false;   // takes no samples
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
        if (m_device.refuses)
            throw std::system_error(std::make_error_code(std::errc::io_error));
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

/* While it lives no thread can be started: each would have a stack larger than any memory. */
class NoThreads
{
public:
    NoThreads()
    {
        pthread_attr_t huge;
        if (::pthread_getattr_default_np(&m_before) != 0 || ::pthread_attr_init(&huge) != 0
            || ::pthread_attr_setstacksize(&huge, std::size_t(1) << 48) != 0
            || ::pthread_setattr_default_np(&huge) != 0)
            qFatal("no size of stacks");
        ::pthread_attr_destroy(&huge);
    }
    ~NoThreads()
    {
        ::pthread_setattr_default_np(&m_before);
        ::pthread_attr_destroy(&m_before);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

private:
    pthread_attr_t m_before;
};

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
    void openingThrows();
    void connectingThrows();
    void withoutThreadsItDoesNotStart();
    void withoutThreadsNothingIsSpoken();

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
            if (device->broken)
                throw std::bad_alloc();
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

void TstTtsOutputs::openingThrows()
{
    make();
    m_device->broken = true;
    QVERIFY(!m_player->start({}));
    m_device->broken = false;
    QVERIFY(m_player->start({}));
    speaks(true);
}

// The text is given up; the next is spoken, and closing does not wait for the one for ever.
void TstTtsOutputs::connectingThrows()
{
    make();
    QVERIFY(m_player->start({}));
    m_device->lost = true;
    QTRY_VERIFY(!sounds(tag(10)));
    m_device->lost = false;
    m_device->refuses = true;
    QVERIFY_THROWS_EXCEPTION(std::system_error, m_player->play(u"Not heard."));
    m_device->refuses = false;
    speaks(true);
    auto closed = std::async(std::launch::async, [this] { return m_player->close(); });
    if (closed.wait_for(20s) != std::future_status::ready)
        qFatal("closing waits for a text that is over");
    QVERIFY(closed.get());
}

void TstTtsOutputs::withoutThreadsItDoesNotStart()
{
    make();
    {
        const NoThreads none;
        QVERIFY_THROWS_EXCEPTION(std::system_error, std::thread([] {}).join());
        QVERIFY(!m_player->start({}));
    }
    QVERIFY(m_player->start({}));
    speaks(true);
}

void TstTtsOutputs::withoutThreadsNothingIsSpoken()
{
    make();
    QVERIFY(m_player->start({}));
    m_device->lost = true;
    QTRY_VERIFY(!sounds(tag(10)));
    m_device->lost = false;
    {
        const NoThreads none;
        for (int i = 0; i < 2; ++i)
            QVERIFY_THROWS_EXCEPTION(std::system_error, m_player->play(u"Not heard."));
    }
    speaks(true);
}

QTEST_GUILESS_MAIN(TstTtsOutputs)
#include "tst_tts_outputs.moc"
