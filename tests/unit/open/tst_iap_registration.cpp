#include "open/iap/inkmap.h"
#include "open/iap/motiontracker.h"
#include "open/iap/registration.h"
#include "tests/unit/open/iappictures.h"

#include <QGuiApplication>
#include <QTest>

#include <cmath>
#include <numbers>

namespace {

constexpr double MmPerPixel = 25.4 / 300.0;
constexpr double Degree = std::numbers::pi / 180.0;

QPointF middleOfLine(const PrintSheet& page)
{
    return page.lines()[1].inkMm.center();
}

FramePyramid seenAt(const PrintSheet& page, QPointF mm, double degrees, std::uint32_t index)
{
    const PenCamera camera(page.picture(), page.dpi());
    return FramePyramid(inkMap(matOf(camera.frameAt({mm, degrees, {}}, index))));
}

} // namespace

class TestRegistration : public QObject
{
    Q_OBJECT

private slots:
    void knownMotion_data();
    void knownMotion();
    void framesThatShareNothing();
    void repeatedPrintGoesWhereExpected();
    void blankPaperHasNoPrint();
    void composedUndoesTurns();
    void oddSizes();
    void trackerCountsBlankAndLostFrames();
    void trackerGoesOnAfterAGap();
};

void TestRegistration::knownMotion_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("degrees");
    QTest::newRow("rest") << 0.0 << 0.0 << 0.0;
    QTest::newRow("small step") << 2.35 << 0.4 << 0.0;
    QTest::newRow("step to the left") << -17.6 << -2.2 << 0.3;
    QTest::newRow("wide step") << 63.3 << 4.7 << 0.5;
    QTest::newRow("half the frame") << 80.5 << -6.2 << -0.6;
    QTest::newRow("turn") << 21.0 << 1.5 << 2.0;
    QTest::newRow("turn back") << 8.0 << -3.5 << -2.5;
    QTest::newRow("two thirds") << -104.0 << 3.0 << 0.0;
}

void TestRegistration::knownMotion()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, degrees);
    const PrintSheet page = threeLines();
    const QPointF mm = middleOfLine(page);
    const FramePyramid key = seenAt(page, mm, 0.0, 1);
    const FramePyramid frame = seenAt(page, mm + QPointF(x, y) * MmPerPixel, degrees, 2);
    const Registration found = registerFrame(key, frame, {});
    QVERIFY2(found.score > 0.7, qPrintable(QString::number(found.score)));
    const QString told =
        QString("%1 %2 %3").arg(found.shift.x).arg(found.shift.y).arg(found.shift.angle / Degree);
    QVERIFY2(std::abs(found.shift.x - x) < 0.25, qPrintable(told));
    QVERIFY2(std::abs(found.shift.y - y) < 0.25, qPrintable(told));
    QVERIFY2(std::abs(found.shift.angle - degrees * Degree) < 0.15 * Degree, qPrintable(told));
}

void TestRegistration::framesThatShareNothing()
{
    const PrintSheet page = threeLines();
    const QPointF mm = middleOfLine(page);
    const FramePyramid key = seenAt(page, mm - QPointF(30.0, 0.0), 0.0, 1);
    const FramePyramid frame = seenAt(page, mm + QPointF(25.0, 2.0), 8.0, 2);
    QVERIFY(registerFrame(key, frame, {}).score < 0.6);
}

void TestRegistration::repeatedPrintGoesWhereExpected()
{
    const QString same(60, QLatin1Char('n'));
    const PrintSheet page({QString(), same, QString()}, {});
    const QPointF mm = middleOfLine(page);
    const FramePyramid key = seenAt(page, mm, 0.0, 1);
    const FramePyramid frame = seenAt(page, mm + QPointF(50.0 * MmPerPixel, 0.0), 0.0, 2);
    const Registration found = registerFrame(key, frame, {47.0, 0.0, 0.0});
    QVERIFY2(std::abs(found.shift.x - 50.0) < 0.3, qPrintable(QString::number(found.shift.x)));
}

void TestRegistration::blankPaperHasNoPrint()
{
    const PrintSheet page = threeLines();
    QVERIFY(!seenAt(blankPage(), {20.0, 20.0}, 0.0, 1).hasPrint());
    QVERIFY(seenAt(page, middleOfLine(page), 0.0, 1).hasPrint());
}

void TestRegistration::composedUndoesTurns()
{
    const Shift quarter = {10.0, 0.0, 90.0 * Degree};
    const Shift result = composed(quarter, {5.0, 0.0, -90.0 * Degree});
    QVERIFY(std::abs(result.x - 10.0) < 1e-9);
    QVERIFY(std::abs(result.y - 5.0) < 1e-9);
    QVERIFY(std::abs(result.angle) < 1e-9);
}

void TestRegistration::oddSizes()
{
    for (const cv::Size size : {cv::Size(16, 16), cv::Size(17, 31), cv::Size(320, 320)}) {
        cv::Mat ink(size, CV_8U);
        cv::RNG random(3);
        random.fill(ink, cv::RNG::UNIFORM, 0, 255);
        const FramePyramid frame(ink);
        const Registration found = registerFrame(frame, frame, {});
        QVERIFY(std::abs(found.shift.x) < 0.2 && std::abs(found.shift.y) < 0.2);
    }
}

void TestRegistration::trackerCountsBlankAndLostFrames()
{
    const PrintSheet page = threeLines();
    const PenCamera camera(page.picture(), page.dpi());
    const QPointF start = middleOfLine(page) - QPointF(20.0, 0.0);
    const auto ink = [&](QPointF mm) { return inkMap(matOf(camera.frameAt({mm, 0.0, {}}, 1))); };
    MotionTracker tracker;
    QVERIFY(!tracker.track(inkMap(cv::Mat(104, 160, CV_8U, cv::Scalar(200))), 0));
    QVERIFY(tracker.track(ink(start), 7000));
    const auto second = tracker.track(ink(start + QPointF(2.0, 0.0)), 14000);
    QVERIFY(second);
    QVERIFY(std::abs(second->x - 2.0 / MmPerPixel) < 0.3);
    cv::Mat noise(104, 160, CV_8U);
    cv::RNG random(5);
    random.fill(noise, cv::RNG::UNIFORM, 0, 255);
    QVERIFY(!tracker.track(inkMap(noise), 21000));
    QCOMPARE(tracker.counts().blank, 1);
    QCOMPARE(tracker.counts().tracked, 2);
    QCOMPARE(tracker.counts().lost, 1);
}

void TestRegistration::trackerGoesOnAfterAGap()
{
    const PrintSheet page(
        {QString(),
         QStringLiteral("left") + QString(24, QLatin1Char(' ')) + QStringLiteral("right"),
         QString()},
        {});
    const PenCamera camera(page.picture(), page.dpi());
    const QRectF line = page.lines()[1].inkMm;
    MotionTracker tracker;
    std::optional<Shift> last;
    double lastMm = 0.0;
    const double start = line.left() + 3.0;
    for (int i = 0; start + i < line.right() - 3.0; ++i) {
        const double mm = start + i;
        const cv::Mat ink = inkMap(matOf(camera.frameAt({{mm, line.center().y()}, 0.0, {}}, i)));
        if (const auto place = tracker.track(ink, i * 7000)) {
            last = place;
            lastMm = mm;
        }
    }
    QVERIFY(tracker.counts().blank > 0);
    QVERIFY(last);
    // Across the gap the speed alone leads; it was even here.
    QVERIFY2(
        std::abs(last->x * MmPerPixel - (lastMm - start)) < 1.0,
        qPrintable(QString("%1 mm instead of %2").arg(last->x * MmPerPixel).arg(lastMm - start)));
}

QTEST_MAIN(TestRegistration)
#include "tst_iap_registration.moc"
