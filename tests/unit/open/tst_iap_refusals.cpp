#include "open/iap/legibility.h"
#include "open/iap/stitcher.h"
#include "tests/unit/open/iappictures.h"

#include <opencv2/imgproc.hpp>

#include <QGuiApplication>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <functional>
#include <random>

namespace {

constexpr double PageDpi = 300.0;

SwipePicture stitched(const std::vector<Frame>& frames)
{
    Stitcher stitcher({});
    for (const Frame& frame : frames)
        stitcher.feed(frame);
    return stitcher.finish();
}

/* The frames of a swipe across a page of which somebody paints something. */
std::vector<Frame> painted(const std::function<void(QPainter&)>& paint)
{
    QImage page(1100, 480, QImage::Format_Grayscale8);
    page.fill(Qt::white);
    QPainter painter(&page);
    paint(painter);
    painter.end();
    const PenCamera camera(page, PageDpi, {});
    const HandPath path = HandPath::sampled({20, 20}, {75, 20}, {});
    std::vector<Frame> frames;
    for (std::uint32_t i = 0; i / 150.0 < path.duration(); ++i)
        frames.push_back(
            frameOf(camera.frameAt(path.poseAt(i / 150.0), i), std::int64_t(i) * 6667, 300));
    return frames;
}

cv::Mat letterInk(int blurSide)
{
    cv::Mat ink = 255 - cleanLine();
    if (blurSide > 1)
        cv::GaussianBlur(ink, ink, cv::Size(blurSide, blurSide), 0.0);
    return ink;
}

} // namespace

/* A swipe that cannot be read gives no picture, and a reason. */
class TestIapRefusals : public QObject
{
    Q_OBJECT

private slots:
    void photograph();
    void rulesOfATable();
    void shakenPen();
    void framesThatDoNotOverlap();
    void partOfTheLineIsMissing();
    void blackArea();
    void lettersAreLegible();
    void rulesBlotsAndHazeAreNot();
};

void TestIapRefusals::photograph()
{
    std::mt19937 random(5);
    const SwipePicture picture = stitched(painted([&](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        for (int i = 0; i < 2500; ++i) {
            const int grey = int(random() % 256);
            painter.setBrush(QColor(grey, grey, grey, 90));
            painter.drawEllipse(int(random() % 1100) - 60, int(random() % 480) - 60,
                                6 + int(random() % 120), 6 + int(random() % 120));
        }
    }));
    QCOMPARE(picture.failure, SwipePicture::Failure::NoPrint);
    QVERIFY(!picture.reason.empty());
    QVERIFY(picture.pixels.empty());
}

void TestIapRefusals::rulesOfATable()
{
    const SwipePicture picture = stitched(painted([](QPainter& painter) {
        painter.setPen(QPen(Qt::black, 7));
        for (int y = 20; y < 480; y += 72)
            painter.drawLine(0, y, 1100, y);
        for (int x = 60; x < 1100; x += 210)
            painter.drawLine(x, 0, x, 480);
    }));
    QVERIFY(picture.failure != SwipePicture::Failure::None);
    QVERIFY(!picture.reason.empty());
    QVERIFY(picture.pixels.empty());
}

void TestIapRefusals::blackArea()
{
    const SwipePicture picture = stitched(
        painted([](QPainter& painter) { painter.fillRect(QRect(350, 200, 320, 80), Qt::black); }));
    QVERIFY(picture.failure != SwipePicture::Failure::None);
    QVERIFY(picture.pixels.empty());
}

void TestIapRefusals::shakenPen()
{
    std::vector<Frame> frames = swipeFrames(threeLines(), 1, {});
    std::mt19937 random(7);
    for (std::size_t i = frames.size() - 1; i > 0; --i)
        std::swap(frames[i].pixels, frames[random() % (i + 1)].pixels);
    const SwipePicture picture = stitched(frames);
    QCOMPARE(picture.failure, SwipePicture::Failure::BadMotion);
    QVERIFY(!picture.reason.empty());
}

void TestIapRefusals::framesThatDoNotOverlap()
{
    Swipe swipe;
    swipe.hand.speedMmPerS = 800;
    swipe.camera.framesPerSecond = 40;
    const SwipePicture picture = stitched(swipeFrames(threeLines(), 1, swipe));
    QCOMPARE(picture.failure, SwipePicture::Failure::BadMotion);
    QVERIFY(picture.pixels.empty());
}

void TestIapRefusals::partOfTheLineIsMissing()
{
    // As if frames had been lost on their way: some 25 mm of print.
    std::vector<Frame> frames = swipeFrames(threeLines(), 1, {});
    const auto first = frames.begin() + std::ptrdiff_t(frames.size() / 2) - 12;
    frames.erase(first, first + 25);
    const SwipePicture picture = stitched(frames);
    QCOMPARE(picture.failure, SwipePicture::Failure::BadMotion);
    QVERIFY(picture.pixels.empty());
}

void TestIapRefusals::lettersAreLegible()
{
    QVERIFY(isLegible(letterInk(1), 24));
    QVERIFY(isLegible(letterInk(5), 24));
}

void TestIapRefusals::rulesBlotsAndHazeAreNot()
{
    cv::Mat rule = cv::Mat::zeros(60, 600, CV_8U);
    rule.rowRange(28, 34).setTo(255);
    QVERIFY(!isLegible(rule, 24));
    QVERIFY(!isLegible(letterInk(61), 24)); // out of focus
    cv::Mat haze = letterInk(1) * 0.6;
    cv::GaussianBlur(haze, haze, cv::Size(5, 5), 0.0);
    QVERIFY(!isLegible(haze, 24));
    QVERIFY(!isLegible(cv::Mat::zeros(40, 300, CV_8U), 24));
}

QTEST_MAIN(TestIapRefusals)
#include "tst_iap_refusals.moc"
