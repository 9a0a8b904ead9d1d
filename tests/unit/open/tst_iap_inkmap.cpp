#include "open/iap/inkmap.h"

#include <opencv2/imgproc.hpp>

#include <QTest>

namespace {

/* White paper with upright black strokes of 5 pixels every 20. */
cv::Mat stripes(int paper, int ink)
{
    cv::Mat picture(104, 160, CV_8U, cv::Scalar(paper));
    for (int x = 8; x + 5 < picture.cols; x += 20)
        picture.colRange(x, x + 5).setTo(ink);
    return picture;
}

} // namespace

class TestInkMap : public QObject
{
    Q_OBJECT

private slots:
    void paperIsZeroAndPrintIsItsDarkness();
    void unevenLightLeavesNoTrace();
    void plainPaperHasNoInk();
    void darknessWithoutLightIsNoInk();
    void smallestFrame();
};

void TestInkMap::paperIsZeroAndPrintIsItsDarkness()
{
    const cv::Mat ink = inkMap(stripes(200, 40));
    QCOMPARE(ink.size(), cv::Size(160, 104));
    QVERIFY(std::abs(ink.at<uchar>(50, 50) - 204) <= 4); // 1 - 40 / 200 of 255
    QVERIFY(ink.at<uchar>(50, 60) <= 3);
}

void TestInkMap::unevenLightLeavesNoTrace()
{
    cv::Mat picture = stripes(240, 24);
    for (int x = 0; x < picture.cols; ++x)
        picture.col(x) *= 1.0 - 0.6 * x / picture.cols;
    const cv::Mat ink = inkMap(picture);
    for (int x = 10; x < 150; x += 20) {
        QVERIFY2(std::abs(ink.at<uchar>(50, x) - 229) <= 12, qPrintable(QString::number(x)));
        QVERIFY2(ink.at<uchar>(50, x + 9) <= 8, qPrintable(QString::number(x)));
    }
}

void TestInkMap::plainPaperHasNoInk()
{
    const cv::Mat ink = inkMap(cv::Mat(104, 160, CV_8U, cv::Scalar(180)));
    QCOMPARE(cv::countNonZero(ink), 0);
}

void TestInkMap::darknessWithoutLightIsNoInk()
{
    cv::Mat picture(104, 160, CV_8U);
    cv::RNG random(7);
    random.fill(picture, cv::RNG::UNIFORM, 0, 5);
    double most = 0.0;
    cv::minMaxLoc(inkMap(picture), nullptr, &most);
    QVERIFY(most < 60.0);
}

void TestInkMap::smallestFrame()
{
    QCOMPARE(inkMap(cv::Mat(16, 16, CV_8U, cv::Scalar(0))).size(), cv::Size(16, 16));
}

QTEST_APPLESS_MAIN(TestInkMap)
#include "tst_iap_inkmap.moc"
