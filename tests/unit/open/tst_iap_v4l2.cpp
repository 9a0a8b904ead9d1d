#include "open/iap/camerasource.h"
#include "tests/unit/open/fakecamera.h"
#include "tests/unit/open/framerecorder.h"
#include "tests/unit/open/tippipe.h"

#include <QTest>

#include <cerrno>

namespace {

using Change = void (*)(FakeCamera&);

constexpr const char* Variables[] = {"SWIPELINE_CAMERA",      "SWIPELINE_CAMERA_MM",
                                     "SWIPELINE_CAMERA_MODE", "SWIPELINE_CAMERA_TURN",
                                     "SWIPELINE_TIP",         "SWIPELINE_TIP_KEY"};

/* A picture in the camera's form: each brightness is its place's number, colours are 200. */
std::vector<std::uint8_t> numbered(const FakeCamera& camera)
{
    const bool isMixed = camera.form() == V4L2_PIX_FMT_YUYV || camera.form() == V4L2_PIX_FMT_UYVY;
    const unsigned first = camera.form() == V4L2_PIX_FMT_UYVY ? 1 : 0;
    std::vector<std::uint8_t> bytes(std::size_t(camera.rowLength()) * camera.height, 200);
    for (unsigned y = 0; y < camera.height; ++y)
        for (unsigned x = 0; x < camera.width; ++x)
            bytes[y * camera.rowLength() + first + x * (isMixed ? 2 : 1)] =
                std::uint8_t((x + 3 * y) % 200);
    return bytes;
}

bool isNumbered(const Frame& frame)
{
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x)
            if (frame.pixels[std::size_t(y) * std::size_t(frame.width) + std::size_t(x)]
                != (x + 3 * y) % 200)
                return false;
    return true;
}

/* A camera whose pictures are taken. */
struct RunningCamera
{
    RunningCamera() { QVERIFY(source.start(recorder)); }

    /* The source gives it up by itself. */
    void isLost()
    {
        QVERIFY(recorder.waitFor('l'));
        QVERIFY(!source.isAlive());
        source.stop();
        QVERIFY(camera.isClosed());
    }

    FakeCamera camera;
    FrameRecorder recorder;
    CameraSource source{camera};
};

} // namespace

Q_DECLARE_METATYPE(Change)

/* The camera of the kernel's, which a fake stands for. */
class TestIapV4l2 : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pictures_data();
    void pictures();
    void tipSwitch();
    void cannotBegin_data();
    void cannotBegin();
    void wrongSettings_data();
    void wrongSettings();
    void damagedPictures();
    void brokenPictures_data();
    void brokenPictures();
    void unplugged();
    void tipSwitchUnplugged();
    void stopsWhileTheCameraIsSilent();

private:
    std::optional<TipPipe> m_tip;
};

void TestIapV4l2::init()
{
    m_tip.emplace();
    for (const char* variable : Variables)
        qunsetenv(variable);
    qputenv("SWIPELINE_CAMERA", "/dev/null"); // of the right kind; the fake answers in its place
    qputenv("SWIPELINE_TIP", m_tip->path());
}

void TestIapV4l2::cleanup()
{
    for (const char* variable : Variables)
        qunsetenv(variable);
}

void TestIapV4l2::pictures_data()
{
    QTest::addColumn<unsigned>("form");
    QTest::addColumn<unsigned>("rowBytes");
    QTest::newRow("grey") << unsigned(V4L2_PIX_FMT_GREY) << 0U;
    QTest::newRow("grey, longer rows") << unsigned(V4L2_PIX_FMT_GREY) << 32U;
    QTest::newRow("YUYV") << unsigned(V4L2_PIX_FMT_YUYV) << 0U;
    QTest::newRow("YUYV, longer rows") << unsigned(V4L2_PIX_FMT_YUYV) << 6U;
    QTest::newRow("UYVY") << unsigned(V4L2_PIX_FMT_UYVY) << 0U;
    QTest::newRow("NV12") << unsigned(V4L2_PIX_FMT_NV12) << 0U;
    QTest::newRow("YU12") << unsigned(V4L2_PIX_FMT_YUV420) << 0U;
}

void TestIapV4l2::pictures()
{
    QFETCH(unsigned, form);
    QFETCH(unsigned, rowBytes);
    FakeCamera camera;
    camera.forms = {V4L2_PIX_FMT_MJPEG, form};
    camera.rowBytes = rowBytes;
    FrameRecorder recorder;
    {
        CameraSource source(camera);
        QVERIFY(source.start(recorder));
        for (int i = 1; i <= 10; ++i) { // more than there is memory for
            camera.expose(numbered(camera));
            QVERIFY(recorder.waitFor('f', i));
        }
        source.stop();
    }
    QVERIFY(camera.isClosed());
    const std::vector<Frame> frames = recorder.frames();
    QCOMPARE(frames.size(), std::size_t(10));
    for (const Frame& frame : frames) {
        QVERIFY(isValidFrame(frame));
        QCOMPARE(frame.dpi, 300);
        QCOMPARE(frame.width, 159); // 13.5 mm
        QCOMPARE(frame.height, 104);
        QVERIFY(isNumbered(frame));
    }
    QCOMPARE(frames[9].timeUs - frames[0].timeUs, std::int64_t(9 * 5000));
}

void TestIapV4l2::tipSwitch()
{
    RunningCamera running;
    running.camera.expose(numbered(running.camera));
    QVERIFY(running.recorder.waitFor('f'));
    m_tip->send(330, 1);
    QVERIFY(running.recorder.waitFor('d'));
    m_tip->send(330, 2); // repeated by the kernel
    m_tip->send(28, 0);  // another key
    running.camera.expose(numbered(running.camera));
    QVERIFY(running.recorder.waitFor('f', 2));
    m_tip->send(330, 0);
    QVERIFY(running.recorder.waitFor('u'));
    m_tip->send(330, 0); // contacts bounce
    m_tip->send(330, 1);
    QVERIFY(running.recorder.waitFor('d', 2));
    QCOMPARE(running.recorder.told(), std::string("fdfud"));
    running.source.stop();
    QCOMPARE(running.recorder.told(), std::string("fdfud"));
}

void TestIapV4l2::cannotBegin_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, Change change) { QTest::newRow(name) << change; };
    row("busy", [](FakeCamera& c) { c.openFails = true; });
    row("no camera at all", [](FakeCamera& c) { c.refused = {VIDIOC_QUERYCAP}; });
    row("takes no pictures", [](FakeCamera& c) { c.capabilities = V4L2_CAP_STREAMING; });
    row("shares no memory", [](FakeCamera& c) { c.capabilities = V4L2_CAP_VIDEO_CAPTURE; });
    row("compressed pictures only", [](FakeCamera& c) { c.forms = {V4L2_PIX_FMT_MJPEG}; });
    row("no form can be set", [](FakeCamera& c) { c.refused = {VIDIOC_S_FMT}; });
    row("tiny pictures", [](FakeCamera& c) { c.width = 8; });
    row("huge pictures", [](FakeCamera& c) { c.height = 100'000; });
    row("pictures of unknown scale", [](FakeCamera& c) { c.width = 640; });
    row("no memory asked for", [](FakeCamera& c) { c.refused = {VIDIOC_REQBUFS}; });
    row("one picture's memory", [](FakeCamera& c) { c.buffers = 1; });
    row("memory that is too small", [](FakeCamera& c) { c.bufferBytes = 160 * 104 - 1; });
    row("memory not described", [](FakeCamera& c) { c.refused = {VIDIOC_QUERYBUF}; });
    row("memory not mapped", [](FakeCamera& c) { c.mapFails = true; });
    row("memory not taken", [](FakeCamera& c) { c.refused = {VIDIOC_QBUF}; });
    row("does not begin", [](FakeCamera& c) { c.refused = {VIDIOC_STREAMON}; });
}

void TestIapV4l2::cannotBegin()
{
    QFETCH(Change, change);
    FakeCamera camera;
    change(camera);
    FrameRecorder recorder;
    CameraSource source(camera);
    QVERIFY(!source.start(recorder));
    QVERIFY(!source.isAlive());
    source.stop();
    QVERIFY(camera.isClosed());
    QCOMPARE(recorder.told(), std::string());
}

void TestIapV4l2::wrongSettings_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char* variable, const char* value) {
        QTest::addRow("%s=%s", variable, value) << QByteArray(variable) << QByteArray(value);
    };
    row("SWIPELINE_CAMERA", "/nowhere/at/all");
    row("SWIPELINE_CAMERA", "/dev");
    row("SWIPELINE_CAMERA_MM", "wide");
    row("SWIPELINE_CAMERA_MM", "-3");
    row("SWIPELINE_CAMERA_MM", "nan");
    row("SWIPELINE_CAMERA_MM", "13.5mm");
    row("SWIPELINE_CAMERA_MM", "400"); // 10 dpi
    row("SWIPELINE_CAMERA_MM", "2");   // hardly a letter in view, and scaled down
    row("SWIPELINE_CAMERA_TURN", "45");
    row("SWIPELINE_CAMERA_TURN", "-90");
    row("SWIPELINE_CAMERA_MODE", "320");
    row("SWIPELINE_CAMERA_MODE", "320x");
    row("SWIPELINE_CAMERA_MODE", "320x240@");
    row("SWIPELINE_CAMERA_MODE", "320x240@fast");
    row("SWIPELINE_CAMERA_MODE", "320x240@120fps");
    row("SWIPELINE_CAMERA_MODE", "99999x240");
    row("SWIPELINE_TIP", "");
    row("SWIPELINE_TIP", "/nowhere/at/all");
    row("SWIPELINE_TIP", "/etc/passwd");
    row("SWIPELINE_TIP_KEY", "tip");
    row("SWIPELINE_TIP_KEY", "9999");
}

void TestIapV4l2::wrongSettings()
{
    QFETCH(QByteArray, variable);
    QFETCH(QByteArray, value);
    qputenv(variable.constData(), value);
    FakeCamera camera;
    FrameRecorder recorder;
    CameraSource source(camera);
    QVERIFY(!source.start(recorder));
    QVERIFY(camera.isClosed());
}

void TestIapV4l2::damagedPictures()
{
    RunningCamera running;
    const std::vector<std::uint8_t> whole = numbered(running.camera);
    running.camera.expose(whole, V4L2_BUF_FLAG_ERROR);
    running.camera.expose({whole.begin(), whole.end() - 1});
    running.camera.failNext(EIO);
    running.camera.failNext(EAGAIN);
    running.camera.expose(whole);
    QVERIFY(running.recorder.waitFor('f'));
    QVERIFY(isNumbered(running.recorder.frames().front()));
    QVERIFY(running.source.isAlive());
    QCOMPARE(running.recorder.told(), std::string("f"));
}

void TestIapV4l2::brokenPictures_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("lost on their way, always") << EIO;
    QTest::newRow("an error that does not pass") << EINVAL;
}

void TestIapV4l2::brokenPictures()
{
    QFETCH(int, error);
    RunningCamera running;
    for (int i = 0; i < 100; ++i)
        running.camera.failNext(error);
    running.isLost();
}

void TestIapV4l2::unplugged()
{
    RunningCamera running;
    m_tip->send(330, 1);
    QVERIFY(running.recorder.waitFor('d'));
    running.camera.expose(numbered(running.camera));
    QVERIFY(running.recorder.waitFor('f'));
    running.camera.unplug();
    running.isLost();
    QCOMPARE(running.recorder.told(), std::string("dfl"));
}

void TestIapV4l2::tipSwitchUnplugged()
{
    // A device that ends at once, as one does that is unplugged.
    qputenv("SWIPELINE_TIP", "/dev/null");
    RunningCamera running;
    QVERIFY(running.recorder.waitFor('l'));
    QVERIFY(!running.source.isAlive());
}

void TestIapV4l2::stopsWhileTheCameraIsSilent()
{
    RunningCamera running;
    m_tip->send(330, 1);
    QVERIFY(running.recorder.waitFor('d'));
    running.source.stop();
    running.source.stop();
    QVERIFY(running.camera.isClosed());
    QCOMPARE(running.recorder.told(), std::string("d"));
}

QTEST_GUILESS_MAIN(TestIapV4l2)
#include "tst_iap_v4l2.moc"
