#include "open/iap/panorama.h"

#include <QTest>

#include <limits>
#include <numbers>

namespace {

const cv::Size FrameSize(160, 104);

/* A frame with a square of ink whose middle lies (x, y) from the frame's. */
cv::Mat frameWithMark(int x, int y)
{
    cv::Mat ink = cv::Mat::zeros(FrameSize, CV_8U);
    const int left = FrameSize.width / 2 + x - 4;
    const int top = FrameSize.height / 2 + y - 4;
    ink(cv::Rect(left, top, 8, 8)).setTo(250);
    return ink;
}

cv::Point2d middleOfInk(const cv::Mat& ink, const cv::Rect& area)
{
    double sum = 0.0;
    cv::Point2d middle;
    for (int y = 0; y < ink.rows; ++y)
        for (int x = 0; x < ink.cols; ++x) {
            const double value = ink.at<uchar>(y, x);
            middle += value * cv::Point2d(x + area.x, y + area.y);
            sum += value;
        }
    return middle * (1.0 / sum);
}

} // namespace

class TestPanorama : public QObject
{
    Q_OBJECT

private slots:
    void frameLandsAtItsPlace_data();
    void frameLandsAtItsPlace();
    void overlappingFramesAgree();
    void unseenIsEmpty();
    void memoryFollowsTheAreaSeen();
    void fullPanoramaTakesNoMore();
    void boundsAreLimited_data();
    void boundsAreLimited();
};

void TestPanorama::frameLandsAtItsPlace_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("markX");
    QTest::addColumn<double>("markY");
    QTest::newRow("origin") << 0.0 << 0.0 << 0.0 << 20.0 << 10.0;
    QTest::newRow("far right") << 1000.0 << 3.0 << 0.0 << 1020.0 << 13.0;
    QTest::newRow("to the left") << -700.5 << -8.25 << 0.0 << -680.5 << 1.75;
    QTest::newRow("quarter turn") << 50.0 << 60.0 << std::numbers::pi / 2 << 40.0 << 80.0;
    QTest::newRow("half turn") << 50.0 << 60.0 << std::numbers::pi << 30.0 << 50.0;
}

void TestPanorama::frameLandsAtItsPlace()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, angle);
    QFETCH(double, markX);
    QFETCH(double, markY);
    Panorama panorama(FrameSize);
    QVERIFY(panorama.isEmpty());
    QVERIFY(panorama.add(frameWithMark(20, 10), {x, y, angle}));
    const cv::Rect area = panorama.bounds();
    const cv::Point2d middle = middleOfInk(panorama.picture(area), area);
    // Pixel (0, 0) of the plane is the one right below the first frame's middle.
    QVERIFY2(std::abs(middle.x - markX) < 1.1 && std::abs(middle.y - markY) < 1.1,
             qPrintable(QString("%1 %2").arg(middle.x).arg(middle.y)));
}

void TestPanorama::overlappingFramesAgree()
{
    Panorama panorama(FrameSize);
    // The same mark of the paper, seen by three frames.
    panorama.add(frameWithMark(30, 0), {0.0, 0.0, 0.0});
    panorama.add(frameWithMark(10, 0), {20.0, 0.0, 0.0});
    panorama.add(frameWithMark(-10, 0), {40.0, 0.0, 0.0});
    const cv::Rect area = panorama.bounds();
    const cv::Mat picture = panorama.picture(area);
    QCOMPARE(area.width >= 200 && area.width <= 203, true);
    QCOMPARE(cv::countNonZero(picture > 125), 64);
    QVERIFY(std::abs(middleOfInk(picture, area).x - 30.0) < 1.0);
}

void TestPanorama::unseenIsEmpty()
{
    Panorama panorama(FrameSize);
    panorama.add(cv::Mat(FrameSize, CV_8U, cv::Scalar(100)), {0.0, 0.0, 0.0});
    cv::Mat seen;
    const cv::Rect area(-300, -200, 600, 400);
    const cv::Mat picture = panorama.picture(area, &seen);
    QCOMPARE(picture.size(), area.size());
    QCOMPARE(int(seen.at<uchar>(10, 10)), 0);
    QCOMPARE(int(picture.at<uchar>(10, 10)), 0);
    QCOMPARE(int(seen.at<uchar>(200, 300)), 255);
    QCOMPARE(int(picture.at<uchar>(200, 300)), 100);
}

void TestPanorama::memoryFollowsTheAreaSeen()
{
    Panorama panorama(FrameSize);
    for (int i = 0; i < 2000; ++i)
        QVERIFY(panorama.add(frameWithMark(0, 0), {double(i % 100), 0.0, 0.0}));
    QCOMPARE(panorama.bounds().width <= 264, true);
}

void TestPanorama::fullPanoramaTakesNoMore()
{
    Panorama panorama(FrameSize);
    int added = 0;
    while (added < 10000 && panorama.add(frameWithMark(0, 0), {added * 150.0, 0.0, 0.0}))
        ++added;
    QVERIFY(added > 100);
    QVERIFY(added < 1000);
    QVERIFY(!panorama.add(frameWithMark(0, 0), {added * 150.0, 0.0, 0.0}));
}

void TestPanorama::boundsAreLimited_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::newRow("far to the right") << 40000.0 << 0.0;
    QTest::newRow("far to the left") << -40000.0 << 0.0;
    QTest::newRow("far down") << 0.0 << 40000.0;
    QTest::newRow("far across") << 9000.0 << -9000.0;
    QTest::newRow("beyond all numbers") << 1e12 << 0.0;
    QTest::newRow("nowhere") << std::numeric_limits<double>::quiet_NaN() << 0.0;
}

// The tiles of two frames are few, wherever they lie.
void TestPanorama::boundsAreLimited()
{
    QFETCH(double, x);
    QFETCH(double, y);
    Panorama panorama(FrameSize);
    QVERIFY(panorama.add(frameWithMark(0, 0), {}));
    const cv::Rect before = panorama.bounds();
    QVERIFY(!panorama.add(frameWithMark(0, 0), {x, y, 0.0}));
    QCOMPARE(panorama.bounds() == before, true);
    QVERIFY(panorama.add(frameWithMark(0, 0), {1000.0, 0.0, 0.0}));
}

QTEST_APPLESS_MAIN(TestPanorama)
#include "tst_iap_panorama.moc"
