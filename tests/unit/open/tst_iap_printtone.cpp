#include "open/iap/printtone.h"
#include "tests/unit/open/iappictures.h"

#include <opencv2/imgproc.hpp>

#include <QGuiApplication>
#include <QTest>

namespace {

/* A frame in the middle of a line of print. */
cv::Mat printedFrame(int paper, int ink, double noise = 2.0)
{
    PrintSettings print;
    print.paper = paper;
    print.ink = ink;
    Swipe swipe;
    swipe.camera.noise = noise;
    const std::vector<Frame> frames = swipeFrames(threeLines(print), 1, swipe);
    const Frame& frame = frames[frames.size() / 2];
    return cv::Mat(frame.height, frame.width, CV_8U, const_cast<std::uint8_t*>(frame.pixels.data()))
        .clone();
}

} // namespace

class TestPrintTone : public QObject
{
    Q_OBJECT

private slots:
    void tells_data();
    void tells();
    void firstLettersAtTheMargin_data();
    void firstLettersAtTheMargin();
    void noiseIsNoPrint();
    void emptyPaperIsNoPrint();
    void inkIsStrengthened();
    void becomesCertain();
    void smallestFrame();
};

void TestPrintTone::tells_data()
{
    QTest::addColumn<int>("paper");
    QTest::addColumn<int>("ink");
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<bool>("isStrengthened");
    QTest::newRow("black on white") << 255 << 20 << false << false;
    QTest::newRow("grey on white") << 255 << 204 << false << true;
    QTest::newRow("white on black") << 25 << 235 << true << false;
    QTest::newRow("grey on black") << 25 << 90 << true << true;
    QTest::newRow("black on grey") << 150 << 20 << false << false;
}

void TestPrintTone::tells()
{
    QFETCH(int, paper);
    QFETCH(int, ink);
    QFETCH(bool, inverted);
    QFETCH(bool, isStrengthened);
    ToneFinder finder;
    QVERIFY(finder.look(printedFrame(paper, ink)));
    QCOMPARE(finder.tone().inverted, inverted);
    QCOMPARE(finder.tone().gain > 1.0, isStrengthened);
}

void TestPrintTone::firstLettersAtTheMargin_data()
{
    QTest::addColumn<int>("paper");
    QTest::addColumn<int>("ink");
    QTest::newRow("black on white") << 255 << 20;
    QTest::newRow("white on black") << 25 << 235;
}

void TestPrintTone::firstLettersAtTheMargin()
{
    QFETCH(int, paper);
    QFETCH(int, ink);
    PrintSettings print;
    print.paper = paper;
    print.ink = ink;
    for (const double points : {6.0, 9.5, 14.0})
        for (const double leading : {1.0, 1.6}) {
            print.points = points;
            print.leading = leading;
            ToneFinder finder;
            for (Frame& frame : swipeFrames(threeLines(print), 1, {}))
                if (!finder.isCertain())
                    finder.look(cv::Mat(frame.height, frame.width, CV_8U, frame.pixels.data()));
            QVERIFY(finder.isCertain());
            QCOMPARE(finder.tone().inverted, paper < ink);
            QCOMPARE(finder.tone().gain, 1.0);
        }
}

void TestPrintTone::noiseIsNoPrint()
{
    cv::RNG random(3);
    for (const int sigma : {2, 6, 12, 20}) {
        cv::Mat noise(104, 160, CV_8U);
        random.fill(noise, cv::RNG::NORMAL, 200, sigma);
        ToneFinder finder;
        QVERIFY2(!finder.look(noise), qPrintable(QString::number(sigma)));
    }
}

void TestPrintTone::emptyPaperIsNoPrint()
{
    cv::Mat paper(104, 160, CV_8U);
    for (int x = 0; x < paper.cols; ++x) // in uneven light
        paper.col(x).setTo(230 - x);
    ToneFinder finder;
    QVERIFY(!finder.look(paper));
    QVERIFY(!finder.isCertain());
}

void TestPrintTone::inkIsStrengthened()
{
    const cv::Mat faint = printedFrame(255, 204);
    ToneFinder finder;
    QVERIFY(finder.look(faint));
    double plain = 0.0;
    double strong = 0.0;
    cv::minMaxLoc(tonedInk(faint, {}), nullptr, &plain);
    cv::minMaxLoc(tonedInk(faint, finder.tone()), nullptr, &strong);
    QVERIFY2(plain < 80, qPrintable(QString::number(plain)));
    QVERIFY2(strong > 160, qPrintable(QString::number(strong)));
}

void TestPrintTone::becomesCertain()
{
    const cv::Mat frame = printedFrame(255, 20);
    ToneFinder finder;
    int looked = 0;
    while (!finder.isCertain() && looked < 100) {
        finder.look(frame);
        ++looked;
    }
    QVERIFY(looked >= 2 && looked <= 12);
}

void TestPrintTone::smallestFrame()
{
    cv::Mat frame(16, 16, CV_8U, cv::Scalar(200));
    ToneFinder finder;
    QVERIFY(!finder.look(frame));
    QCOMPARE(tonedInk(frame, {true, 8.0}).size(), cv::Size(16, 16));
}

QTEST_MAIN(TestPrintTone)
#include "tst_iap_printtone.moc"
