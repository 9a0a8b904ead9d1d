#include "open/iap/stitcher.h"
#include "tests/unit/open/iappictures.h"

#include <QGuiApplication>
#include <QTest>

namespace {

SwipePicture stitched(const std::vector<Frame>& frames, const ScanSettings& settings = {})
{
    Stitcher stitcher(settings);
    for (const Frame& frame : frames)
        stitcher.feed(frame);
    return stitcher.finish();
}

cv::Mat matOf(SwipePicture& picture)
{
    return cv::Mat(picture.height, picture.width, CV_8U, picture.pixels.data()).clone();
}

/* The widest stretch of columns without print. */
cv::Range widestGap(const cv::Mat& line)
{
    cv::Mat darkest;
    cv::reduce(line, darkest, 0, cv::REDUCE_MIN);
    cv::Range widest(0, 0);
    int start = 0;
    for (int x = 0; x < line.cols; ++x) {
        if (darkest.at<uchar>(0, x) < 128)
            start = x + 1;
        else if (x + 1 - start > widest.size())
            widest = cv::Range(start, x + 1);
    }
    return widest;
}

} // namespace

Q_DECLARE_METATYPE(Swipe)

class TestStitcher : public QObject
{
    Q_OBJECT

private slots:
    void swipeGivesTheLine_data();
    void swipeGivesTheLine();
    void toneOfThePrint_data();
    void toneOfThePrint();
    void verticalSwipe_data();
    void verticalSwipe();
    void noFrames();
    void blankPaper();
    void framesThatDoNotJoin();
    void oddFramesAreLeftOut();
    void oneFrameIsAPictureToo();
    void restOnABlank_data();
    void restOnABlank();
    void swipeLongerThanAnyLine();
};

void TestStitcher::swipeGivesTheLine_data()
{
    QTest::addColumn<Swipe>("swipe");
    const auto row = [](const char* name, auto change) {
        Swipe swipe;
        change(swipe);
        QTest::newRow(name) << swipe;
    };
    row("right hand", [](Swipe&) {});
    row("right hand, backwards", [](Swipe& s) { s.backwards = true; });
    row("left hand", [](Swipe& s) { s.camera.mount.leftHand = true; });
    row("left hand, backwards", [](Swipe& s) {
        s.camera.mount.leftHand = true;
        s.backwards = true;
    });
    row("slow", [](Swipe& s) { s.hand.speedMmPerS = 50; });
    row("fast", [](Swipe& s) { s.hand.speedMmPerS = 400; });
    row("turned pen", [](Swipe& s) { s.camera.rotationDeg = 4; });
    row("the hand stops", [](Swipe& s) { s.hand.stopAt = 0.5; });
    row("uneven light", [](Swipe& s) { s.camera.lightGradient = 0.5; });
    row("noise", [](Swipe& s) { s.camera.noise = 5; });
    row("aimed too high", [](Swipe& s) { s.aimMm = -0.5; });
}

void TestStitcher::swipeGivesTheLine()
{
    QFETCH(Swipe, swipe);
    SwipePicture picture =
        stitched(swipeFrames(threeLines(), 1, swipe), {swipe.camera.mount.leftHand});
    QVERIFY2(picture.failure == SwipePicture::Failure::None, picture.reason.c_str());
    QCOMPARE(picture.pixels.size(), std::size_t(picture.width) * picture.height);
    const cv::Mat clean = inkedPart(cleanLine());
    const cv::Mat line = matOf(picture);
    const cv::Mat found = inkedPart(line);
    QVERIFY2(std::abs(found.cols - clean.cols) <= clean.cols / 100,
             qPrintable(QString("%1 columns, printed %2").arg(found.cols).arg(clean.cols)));
    QVERIFY2(std::abs(found.rows - clean.rows) <= 4,
             qPrintable(QString("%1 rows, printed %2").arg(found.rows).arg(clean.rows)));
    const double like = likeness(clean, line);
    QVERIFY2(like > 0.85, qPrintable(QString::number(like)));
    QVERIFY(picture.framesUsed * 10 > picture.framesFed * 9);
}

void TestStitcher::toneOfThePrint_data()
{
    QTest::addColumn<int>("paper");
    QTest::addColumn<int>("ink");
    QTest::newRow("faint") << 255 << 204;
    QTest::newRow("white on black") << 25 << 235;
    QTest::newRow("black on grey") << 140 << 20;
}

void TestStitcher::toneOfThePrint()
{
    QFETCH(int, paper);
    QFETCH(int, ink);
    PrintSettings print;
    print.paper = paper;
    print.ink = ink;
    SwipePicture picture = stitched(swipeFrames(threeLines(print), 1, {}));
    QVERIFY2(picture.failure == SwipePicture::Failure::None, picture.reason.c_str());
    const double like = likeness(cleanLine(), matOf(picture));
    QVERIFY2(like > 0.85, qPrintable(QString::number(like)));
}

void TestStitcher::verticalSwipe_data()
{
    QTest::addColumn<bool>("leftHand");
    QTest::addColumn<bool>("backwards");
    QTest::newRow("right hand") << false << false;
    QTest::newRow("left hand") << true << false;
    QTest::newRow("upwards") << false << true;
}

void TestStitcher::verticalSwipe()
{
    QFETCH(bool, leftHand);
    QFETCH(bool, backwards);
    const QString text = QStringLiteral("天还没有亮渡船就已经离开");
    PrintSettings print;
    print.family = QStringLiteral("AR PL SungtiL GB");
    print.vertical = true;
    print.leading = 1.6;
    const PrintSheet page({text, text, text}, print);
    Swipe swipe;
    swipe.camera.mount = {leftHand, true};
    swipe.backwards = backwards;
    SwipePicture picture = stitched(swipeFrames(page, 1, swipe), {leftHand, true, true});
    QVERIFY2(picture.failure == SwipePicture::Failure::None, picture.reason.c_str());
    print.vertical = false;
    const double like = likeness(cleanLine(print, text), matOf(picture));
    QVERIFY2(like > 0.4, qPrintable(QString::number(like)));
}

void TestStitcher::noFrames()
{
    const SwipePicture picture = stitched({});
    QCOMPARE(picture.failure, SwipePicture::Failure::NoPrint);
    QVERIFY(!picture.reason.empty());
    QCOMPARE(picture.width, 0);
    QVERIFY(picture.pixels.empty());
}

void TestStitcher::blankPaper()
{
    const SwipePicture picture = stitched(swipeFrames(blankPage(), 1, {}));
    QCOMPARE(picture.failure, SwipePicture::Failure::NoPrint);
    QVERIFY(picture.framesFed > 10);
    QVERIFY(picture.pixels.empty());
}

void TestStitcher::framesThatDoNotJoin()
{
    std::vector<Frame> frames;
    cv::RNG random(11);
    for (int i = 0; i < 60; ++i) {
        cv::Mat blocks(13, 20, CV_8U);
        random.fill(blocks, cv::RNG::UNIFORM, 0, 2);
        Frame frame = {i * 7000, 160, 104, 300, std::vector<std::uint8_t>(160 * 104)};
        for (int p = 0; p < 160 * 104; ++p)
            frame.pixels[p] = blocks.at<uchar>(p / 160 / 8, p % 160 / 8) ? 220 : 30;
        frames.push_back(frame);
    }
    const SwipePicture picture = stitched(frames);
    QCOMPARE(picture.failure, SwipePicture::Failure::BadMotion);
    QVERIFY(!picture.reason.empty());
    QVERIFY(picture.pixels.empty());
}

void TestStitcher::oddFramesAreLeftOut()
{
    std::vector<Frame> frames = swipeFrames(threeLines(), 1, {});
    const std::size_t good = frames.size();
    frames.insert(frames.begin(), Frame());                           // empty
    frames.insert(frames.begin() + 5, {0, 100, 100, 300, {1, 2, 3}}); // torn
    frames.insert(frames.begin() + 9, {0, 100, 100, 300, std::vector<std::uint8_t>(10000, 9)});
    frames.insert(frames.begin() + 12, {0, 4000, 4, 300, std::vector<std::uint8_t>(16000)});
    SwipePicture picture = stitched(frames);
    QVERIFY2(picture.failure == SwipePicture::Failure::None, picture.reason.c_str());
    QCOMPARE(picture.framesUsed, int(good));
    QCOMPARE(picture.framesFed, int(good) + 4);
    QVERIFY(likeness(cleanLine(), matOf(picture)) > 0.85);
}

void TestStitcher::oneFrameIsAPictureToo()
{
    std::vector<Frame> frames = swipeFrames(threeLines(), 1, {});
    SwipePicture picture = stitched({frames[frames.size() / 2]});
    QVERIFY2(picture.failure == SwipePicture::Failure::None, picture.reason.c_str());
    QVERIFY(picture.width > 60 && picture.width < 200);
    QVERIFY(picture.height < 90);
}

void TestStitcher::restOnABlank_data()
{
    QTest::addColumn<double>("speed");
    QTest::addColumn<int>("seconds");
    QTest::newRow("slow") << 60.0 << 60;
    QTest::newRow("usual") << 200.0 << 15;
    QTest::newRow("fast, for two minutes") << 800.0 << 120;
}

// Without print in view nothing tells a hand that rests from one that moves on.
void TestStitcher::restOnABlank()
{
    QFETCH(double, speed);
    QFETCH(int, seconds);
    const QString left = QStringLiteral("Nobody knew who");
    const QString right = QStringLiteral("built the bridge");
    const std::vector<Frame> frames = swipeWithRest(partedLine(left, right), speed, seconds);
    QVERIFY(int(frames.size()) > seconds * 10);
    SwipePicture picture = stitched(frames);
    QVERIFY2(picture.failure == SwipePicture::Failure::None, picture.reason.c_str());
    const cv::Mat line = inkedPart(matOf(picture));
    const cv::Range gap = widestGap(line);
    QVERIFY2(gap.size() < 4 * frames.front().width,
             qPrintable(QString("a gap of %1 pixels").arg(gap.size())));
    const double likeLeft = likeness(cleanLine({}, left), line.colRange(0, gap.start));
    const double likeRight = likeness(cleanLine({}, right), line.colRange(gap.end, line.cols));
    QVERIFY2(likeLeft > 0.8 && likeRight > 0.8,
             qPrintable(QString("%1 %2").arg(likeLeft).arg(likeRight)));
}

void TestStitcher::swipeLongerThanAnyLine()
{
    SwipePicture picture = stitched(endlessSwipe(36000));
    QVERIFY2(picture.failure != SwipePicture::Failure::BadMotion, picture.reason.c_str());
    QVERIFY2(picture.reason.find("longer than any line") != std::string::npos,
             picture.reason.c_str());
    QVERIFY(picture.width < 2 * Panorama::MostSide);
}

QTEST_MAIN(TestStitcher)
#include "tst_stitcher.moc"
