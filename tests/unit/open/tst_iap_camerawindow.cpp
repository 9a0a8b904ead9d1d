#include "open/iap/camerawindow.h"

#include <QTest>

namespace {

/* Brightness that tells the place: columns of ten pixels, rows of ten. */
std::vector<std::uint8_t> chequered(int width, int height)
{
    std::vector<std::uint8_t> pixels;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            pixels.push_back(std::uint8_t(x / 10 * 3 + y / 10 * 40));
    return pixels;
}

CameraPicture pictureOf(const std::vector<std::uint8_t>& pixels, int width, int height)
{
    CameraPicture picture;
    picture.pixels = pixels.data();
    picture.width = width;
    picture.height = height;
    picture.rowBytes = std::size_t(width);
    picture.timeUs = 77;
    return picture;
}

} // namespace

/* What becomes of a camera's picture. */
class TestCameraWindow : public QObject
{
    Q_OBJECT

private slots:
    void sizes_data();
    void sizes();
    void middleOfThePicture();
    void turned_data();
    void turned();
    void unusable_data();
    void unusable();
    void picturesOfAnotherSize();
};

void TestCameraWindow::sizes_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<double>("dpi");
    QTest::addColumn<int>("turn");
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<int>("frameDpi");
    QTest::newRow("as a frame") << QSize(159, 104) << 300.0 << 0 << QSize(159, 104) << 300;
    QTest::newRow("larger") << QSize(320, 240) << 300.0 << 0 << QSize(159, 104) << 300;
    QTest::newRow("smaller") << QSize(120, 80) << 300.0 << 0 << QSize(120, 80) << 300;
    QTest::newRow("coarser") << QSize(320, 240) << 200.0 << 0 << QSize(106, 69) << 200;
    QTest::newRow("finer") << QSize(640, 480) << 600.0 << 0 << QSize(160, 104) << 300;
    QTest::newRow("much finer") << QSize(1920, 1080) << 1234.5 << 0 << QSize(159, 104) << 300;
    QTest::newRow("lying") << QSize(240, 320) << 300.0 << 90 << QSize(159, 104) << 300;
    QTest::newRow("lying the other way")
        << QSize(480, 640) << 600.0 << 270 << QSize(160, 104) << 300;
}

void TestCameraWindow::sizes()
{
    QFETCH(QSize, picture);
    QFETCH(double, dpi);
    QFETCH(int, turn);
    QFETCH(QSize, frame);
    QFETCH(int, frameDpi);
    std::string why;
    const auto window = CameraWindow::of(picture.width(), picture.height(), dpi, turn, why);
    QVERIFY2(window, why.c_str());
    const auto pixels = chequered(picture.width(), picture.height());
    const Frame made = window->frameOf(pictureOf(pixels, picture.width(), picture.height()));
    QVERIFY(isValidFrame(made));
    QCOMPARE(QSize(made.width, made.height), frame);
    QCOMPARE(made.dpi, frameDpi);
    QCOMPARE(made.timeUs, std::int64_t(77));
}

void TestCameraWindow::middleOfThePicture()
{
    std::string why;
    const auto window = CameraWindow::of(319, 204, 300.0, 0, why);
    QVERIFY(window);
    const auto pixels = chequered(319, 204);
    const Frame frame = window->frameOf(pictureOf(pixels, 319, 204));
    for (int y = 0; y < 104; ++y)
        for (int x = 0; x < 159; ++x)
            QCOMPARE(frame.pixels[std::size_t(y * 159 + x)],
                     pixels[std::size_t((y + 50) * 319 + x + 80)]);
}

void TestCameraWindow::turned_data()
{
    QTest::addColumn<int>("turn");
    QTest::addColumn<QPoint>("corner"); // of the picture that is the frame's first pixel
    QTest::newRow("0") << 0 << QPoint(0, 0);
    QTest::newRow("90") << 90 << QPoint(0, 99);
    QTest::newRow("180") << 180 << QPoint(99, 99);
    QTest::newRow("270") << 270 << QPoint(99, 0);
}

void TestCameraWindow::turned()
{
    QFETCH(int, turn);
    QFETCH(QPoint, corner);
    std::string why;
    const auto window = CameraWindow::of(100, 100, 300.0, turn, why);
    QVERIFY(window);
    const auto pixels = chequered(100, 100);
    const Frame frame = window->frameOf(pictureOf(pixels, 100, 100));
    QCOMPARE(QSize(frame.width, frame.height), QSize(100, 100));
    QCOMPARE(frame.pixels[0], pixels[std::size_t(corner.y() * 100 + corner.x())]);
    const QPoint opposite(99 - corner.x(), 99 - corner.y());
    QCOMPARE(frame.pixels.back(), pixels[std::size_t(opposite.y() * 100 + opposite.x())]);
}

void TestCameraWindow::unusable_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<double>("dpi");
    QTest::newRow("too coarse") << QSize(640, 480) << 49.0;
    QTest::newRow("no resolution") << QSize(640, 480) << 0.0;
    QTest::newRow("less than none") << QSize(640, 480) << -300.0;
    QTest::newRow("no number") << QSize(640, 480) << qQNaN();
    QTest::newRow("less than a letter in view") << QSize(64, 48) << 1200.0;
    QTest::newRow("beyond all sense") << QSize(64, 48) << 1e18;
}

void TestCameraWindow::unusable()
{
    QFETCH(QSize, picture);
    QFETCH(double, dpi);
    std::string why;
    QVERIFY(!CameraWindow::of(picture.width(), picture.height(), dpi, 0, why));
    QVERIFY(!why.empty());
}

void TestCameraWindow::picturesOfAnotherSize()
{
    std::string why;
    const auto window = CameraWindow::of(320, 240, 300.0, 0, why);
    QVERIFY(window);
    const auto pixels = chequered(320, 240);
    QVERIFY(window->fits(pictureOf(pixels, 320, 240)));
    QVERIFY(!window->fits(pictureOf(pixels, 240, 320)));
}

QTEST_GUILESS_MAIN(TestCameraWindow)
#include "tst_iap_camerawindow.moc"
