#include "open/iap/inkmap.h"
#include "open/iap/lineband.h"
#include "open/iap/linecutter.h"
#include "tests/unit/open/iappictures.h"

#include <opencv2/imgproc.hpp>

#include <QGuiApplication>
#include <QTest>

namespace {

constexpr double DotsPerMm = 300.0 / 25.4;

/* The swipe's strip as if it had been scanned flat: `halfMm` above and below the middle line. */
LineStrip scannedStrip(PrintSettings print, double halfMm = 5.0)
{
    print.dpi = 300;
    const PrintSheet page = threeLines(print);
    const QRectF line = page.lines()[1].inkMm;
    const int middle = int(line.center().y() * DotsPerMm);
    const int half = int(halfMm * DotsPerMm);
    LineStrip strip;
    strip.ink = inkMap(matOf(page.picture())).rowRange(middle - half, middle + half).clone();
    strip.seen = cv::Mat(strip.ink.size(), CV_8U, cv::Scalar(255));
    for (double x = line.left() * DotsPerMm; x < line.right() * DotsPerMm; x += 4.0)
        strip.path.emplace_back(x, half);
    return strip;
}

LineStrip turned(const LineStrip& strip, double degrees)
{
    const cv::Point2f middle(float(strip.ink.cols) / 2.0F, float(strip.ink.rows) / 2.0F);
    const int rim = 100;
    LineStrip result;
    cv::Mat turn = cv::getRotationMatrix2D(middle, -degrees, 1.0);
    turn.at<double>(1, 2) += rim;
    const cv::Size size(strip.ink.cols, strip.ink.rows + 2 * rim);
    cv::warpAffine(strip.ink, result.ink, turn, size);
    cv::warpAffine(strip.seen, result.seen, turn, size, cv::INTER_NEAREST);
    cv::transform(strip.path, result.path, turn);
    return result;
}

} // namespace

class TestLineCutter : public QObject
{
    Q_OBJECT

private slots:
    void neighboursAreCutOff_data();
    void neighboursAreCutOff();
    void linesThatNearlyTouch_data();
    void linesThatNearlyTouch();
    void twoSmallLinesOrOneLarge_data();
    void twoSmallLinesOrOneLarge();
    void tiltedLinesComeOutLevel_data();
    void tiltedLinesComeOutLevel();
    void bentLineComesOutStraight();
    void smallAndLargePrintIsScaled_data();
    void smallAndLargePrintIsScaled();
    void faintPrintComesOutDark();
    void smallPrintOutOfFocusIsNoBlot();
    void lettersCutByTheEndsAreLeftOut();
    void nothingToCut();
    void verticalCharactersComeOutUpright();
};

void TestLineCutter::neighboursAreCutOff_data()
{
    QTest::addColumn<double>("leading");
    QTest::addColumn<double>("halfMm");
    QTest::newRow("usual, both neighbours whole") << 1.25 << 7.0;
    QTest::newRow("usual, neighbours cut by the frame") << 1.25 << 4.4;
    QTest::newRow("tight") << 1.1 << 4.4;
    QTest::newRow("loose") << 1.6 << 4.4;
}

void TestLineCutter::neighboursAreCutOff()
{
    QFETCH(double, leading);
    QFETCH(double, halfMm);
    PrintSettings print;
    print.leading = leading;
    const cv::Mat line = cutLine(scannedStrip(print, halfMm), {});
    QVERIFY(!line.empty());
    QVERIFY(line.isContinuous());
    const cv::Mat clean = inkedPart(cleanLine(print));
    const cv::Mat found = inkedPart(line);
    QVERIFY2(std::abs(found.rows - clean.rows) <= 2, qPrintable(QString::number(found.rows)));
    QVERIFY2(std::abs(found.cols - clean.cols) <= 2, qPrintable(QString::number(found.cols)));
    QVERIFY(likeness(clean, line) > 0.97);
}

void TestLineCutter::linesThatNearlyTouch_data()
{
    QTest::addColumn<double>("points");
    QTest::newRow("6 points") << 6.0;
    QTest::newRow("7 points") << 7.0;
    QTest::newRow("9 points") << 9.0;
    QTest::newRow("12 points") << 12.0;
}

void TestLineCutter::linesThatNearlyTouch()
{
    QFETCH(double, points);
    PrintSettings print;
    print.family = QStringLiteral("AR PL SungtiL GB");
    print.points = points;
    print.leading = 1.0;
    const QString text = QStringLiteral("村里没有人知道那装满了门前的水桶");
    const PrintSheet page({text, text, text}, print);
    LineStrip strip;
    cv::resize(inkMap(matOf(page.picture())), strip.ink, cv::Size(), 0.5, 0.5, cv::INTER_AREA);
    const QPointF middle = page.lines()[1].inkMm.center() * DotsPerMm;
    const cv::Range rows(int(middle.y()) - 52, int(middle.y()) + 52);
    strip.ink = strip.ink.rowRange(rows).clone();
    strip.seen = cv::Mat(strip.ink.size(), CV_8U, cv::Scalar(255));
    strip.path = {{180.0, 52.0}, {double(strip.ink.cols) - 180.0, 52.0}};
    const cv::Mat line = cutLine(strip, {300, true, false});
    QVERIFY(!line.empty());
    const double side = points / 72.0 * 300.0;
    const cv::Mat ink = inkedPart(line);
    const double proportion = double(ink.cols) / ink.rows; // of one line, not of three
    QVERIFY2(std::abs(proportion - double(text.size())) < 0.2 * double(text.size()),
             qPrintable(QString("%1 by %2, type of %3").arg(ink.cols).arg(ink.rows).arg(side)));
}

void TestLineCutter::twoSmallLinesOrOneLarge_data()
{
    QTest::addColumn<float>("valley"); // ink in the middle rows, of the other rows'
    QTest::addColumn<bool>("isTwo");
    QTest::newRow("set solid, blurred") << 0.67F << true;
    QTest::newRow("set solid, sharp") << 0.45F << true;
    QTest::newRow("characters with little in their middle") << 0.87F << false;
}

void TestLineCutter::twoSmallLinesOrOneLarge()
{
    QFETCH(float, valley);
    QFETCH(bool, isTwo);
    constexpr int top = 27;
    constexpr int side = 25; // of a character of 6 points
    std::vector<float> profile(104, 0.0F);
    for (int y = 0; y < 2 * side; ++y)
        profile[top + y] = y >= side - 2 && y < side + 2 ? valley * 100.0F : 100.0F;
    const auto band = findLine(profile, top + 0.5 * side, DotsPerMm, true);
    QVERIFY(band);
    QCOMPARE(band->coreTop, top);
    QCOMPARE(band->coreHeight(), isTwo ? side - 2 : 2 * side);
}

void TestLineCutter::tiltedLinesComeOutLevel_data()
{
    QTest::addColumn<double>("degrees");
    for (const double degrees : {-12.0, -4.0, 1.0, 3.0, 10.0})
        QTest::addRow("%g", degrees) << degrees;
}

void TestLineCutter::tiltedLinesComeOutLevel()
{
    QFETCH(double, degrees);
    const cv::Mat line = cutLine(turned(scannedStrip({}), degrees), {});
    QVERIFY(!line.empty());
    const double like = likeness(cleanLine(), line);
    QVERIFY2(like > 0.93, qPrintable(QString::number(like)));
}

void TestLineCutter::bentLineComesOutStraight()
{
    const LineStrip strip = scannedStrip({});
    LineStrip bent = strip;
    bent.ink = cv::Mat(strip.ink.size(), CV_8U);
    for (int x = 0; x < strip.ink.cols; ++x) {
        const int bend = cvRound(7.0 * std::sin(x * 3.0 / strip.ink.cols));
        for (int y = 0; y < strip.ink.rows; ++y)
            bent.ink.at<uchar>(y, x) =
                strip.ink.at<uchar>(std::clamp(y - bend, 0, strip.ink.rows - 1), x);
    }
    const cv::Mat line = cutLine(bent, {});
    QVERIFY(!line.empty());
    QVERIFY(inkedPart(line).rows <= inkedPart(cleanLine()).rows + 4);
    const double like = likeness(cleanLine(), line);
    QVERIFY2(like > 0.85, qPrintable(QString::number(like)));
}

void TestLineCutter::smallAndLargePrintIsScaled_data()
{
    QTest::addColumn<double>("points");
    QTest::newRow("6") << 6.0;
    QTest::newRow("10") << 10.0;
    QTest::newRow("12") << 12.0;
    QTest::newRow("20") << 20.0;
}

void TestLineCutter::smallAndLargePrintIsScaled()
{
    QFETCH(double, points);
    PrintSettings print;
    print.points = points;
    const cv::Mat line = cutLine(scannedStrip(print, points * 0.4), {});
    QVERIFY(!line.empty());
    QVERIFY(likeness(cleanLine(print), line) > 0.9);
    // From the ascender to the descender it is about twice the height of an x.
    const int height = inkedPart(line).rows;
    QVERIFY2(height >= 36 && height <= 72, qPrintable(QString::number(height)));
}

void TestLineCutter::faintPrintComesOutDark()
{
    LineStrip strip = scannedStrip({});
    strip.ink *= 0.4;
    const cv::Mat line = cutLine(strip, {});
    QVERIFY(!line.empty());
    double darkest = 255.0;
    double lightest = 0.0;
    cv::minMaxLoc(line, &darkest, &lightest);
    QVERIFY(darkest < 30.0);
    QCOMPARE(lightest, 255.0);
    QVERIFY(likeness(cleanLine(), line) > 0.93);
}

void TestLineCutter::smallPrintOutOfFocusIsNoBlot()
{
    PrintSettings print;
    print.points = 6.0;
    print.family = QStringLiteral("Liberation Serif");
    LineStrip strip = scannedStrip(print, 2.4);
    cv::GaussianBlur(strip.ink, strip.ink, cv::Size(), 1.6);
    const cv::Mat line = cutLine(strip, {});
    QVERIFY(!line.empty());
    QVERIFY(likeness(cleanLine(print), line) > 0.75);
}

void TestLineCutter::lettersCutByTheEndsAreLeftOut()
{
    PrintSettings print;
    LineStrip strip = scannedStrip(print);
    const int left = int(strip.path.front().x) + 6; // in the middle of the first letter's stem
    strip.ink = strip.ink.colRange(left, strip.ink.cols).clone();
    strip.seen = strip.seen.colRange(left, strip.seen.cols).clone();
    for (cv::Point2d& point : strip.path)
        point.x -= left;
    const cv::Mat whole = inkedPart(cleanLine(print));
    const cv::Mat found = inkedPart(cutLine(strip, {}));
    QVERIFY2(found.cols < whole.cols - 20, qPrintable(QString::number(found.cols)));
    QVERIFY2(found.cols > whole.cols - 60, qPrintable(QString::number(found.cols)));
}

void TestLineCutter::nothingToCut()
{
    LineStrip strip;
    strip.ink = cv::Mat::zeros(104, 800, CV_8U);
    strip.seen = cv::Mat(strip.ink.size(), CV_8U, cv::Scalar(255));
    strip.path = {{80.0, 52.0}, {720.0, 52.0}};
    QVERIFY(cutLine(strip, {}).empty());
    // Dirt is no print either.
    strip.ink.at<uchar>(50, 300) = 255;
    strip.ink.at<uchar>(70, 500) = 255;
    QVERIFY(cutLine(strip, {}).empty());
}

void TestLineCutter::verticalCharactersComeOutUpright()
{
    const QString text = QStringLiteral("天还没有亮渡船就已经离开");
    PrintSettings print;
    print.family = QStringLiteral("AR PL SungtiL GB");
    print.dpi = 300;
    const QImage upright = PrintSheet({text}, print).picture();
    print.vertical = true;
    const PrintSheet page({text}, print);
    LineStrip strip;
    cv::rotate(inkMap(matOf(page.picture())), strip.ink, cv::ROTATE_90_COUNTERCLOCKWISE);
    strip.ink = strip.ink.rowRange(strip.ink.rows / 2 - 52, strip.ink.rows / 2 + 52).clone();
    strip.seen = cv::Mat(strip.ink.size(), CV_8U, cv::Scalar(255));
    strip.path = {{180.0, 52.0}, {strip.ink.cols - 180.0, 52.0}};
    const cv::Mat line = cutLine(strip, {300, true, true});
    QVERIFY(!line.empty());
    QVERIFY(line.cols > 8 * line.rows);
    const double like = likeness(matOf(upright), line);
    QVERIFY2(like > 0.5, qPrintable(QString::number(like)));
}

QTEST_MAIN(TestLineCutter)
#include "tst_iap_linecutter.moc"
