#include "bench/handmodel/videofile.h"
#include "open/iap/camerasource.h"
#include "open/iap/tipswitch.h"
#include "open/iap/y4mparser.h"
#include "tests/unit/open/framerecorder.h"
#include "tests/unit/open/tippipe.h"

#include <QTest>

namespace {

/* `count` frames of 32 x 20 pixels; all of number i are grey of i. */
std::vector<Frame> plainFrames(int count)
{
    std::vector<Frame> frames;
    frames.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i)
        frames.push_back({i * 5000, 32, 20, 300, std::vector<std::uint8_t>(32 * 20, uint8_t(i))});
    return frames;
}

void add(Y4mParser& parser, const QByteArray& bytes)
{
    parser.add(reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size()));
}

/* Reads the video that the environment names. */
struct Reader
{
    bool start() { return source.start(recorder); }

    FrameRecorder recorder;
    DeviceCalls calls;
    CameraSource source{calls};
};

} // namespace

/* Videos in place of a camera: their form, files, pipes, the times of the tip. */
class TestIapVideo : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void forms_data();
    void forms();
    void piecesOfAnyLength();
    void rubbish_data();
    void rubbish();
    void fileIsOneSwipe();
    void fileWithTipTimes();
    void wrongTipTimes_data();
    void wrongTipTimes();
    void unusableFile_data();
    void unusableFile();
    void fileThatEndsTooSoon();
    void fileWithRubbishInside();
    void fileStopsInTheMiddle();
    void pipe();
    void pipeOfRubbish();
    void switchInPieces();

private:
    QByteArray write(const QByteArray& video);
    QByteArray makePipe(const char* name, const TipPipe& tip);

    QTemporaryDir m_folder;
};

void TestIapVideo::cleanup()
{
    for (const char* variable : {"SWIPELINE_CAMERA", "SWIPELINE_CAMERA_MM", "SWIPELINE_TIP"})
        qunsetenv(variable);
    QFile::remove(m_folder.filePath("video.y4m.tip"));
}

/* As the camera that the environment names. */
QByteArray TestIapVideo::write(const QByteArray& video)
{
    QFile file(m_folder.filePath("video.y4m"));
    if (!file.open(QIODevice::WriteOnly) || file.write(video) != video.size())
        qFatal("cannot write a video");
    qputenv("SWIPELINE_CAMERA", QFile::encodeName(file.fileName()));
    return QFile::encodeName(file.fileName());
}

/* In place of the camera, with its tip. */
QByteArray TestIapVideo::makePipe(const char* name, const TipPipe& tip)
{
    const QByteArray path = QFile::encodeName(m_folder.filePath(name));
    if (::mkfifo(path.constData(), 0600) != 0)
        qFatal("cannot make a pipe");
    qputenv("SWIPELINE_CAMERA", path);
    qputenv("SWIPELINE_TIP", tip.path());
    return path;
}

void TestIapVideo::forms_data()
{
    QTest::addColumn<QByteArray>("colours");
    QTest::addColumn<int>("others"); // samples beside the 33 x 21 of brightness
    QTest::newRow("grey") << QByteArray(" Cmono") << 0;
    QTest::newRow("not said") << QByteArray() << 2 * 17 * 11;
    QTest::newRow("420") << QByteArray(" C420jpeg") << 2 * 17 * 11;
    QTest::newRow("422") << QByteArray(" C422") << 2 * 17 * 21;
    QTest::newRow("411") << QByteArray(" C411") << 2 * 9 * 21;
    QTest::newRow("444") << QByteArray(" C444") << 2 * 33 * 21;
}

void TestIapVideo::forms()
{
    QFETCH(QByteArray, colours);
    QFETCH(int, others);
    Y4mParser parser;
    add(parser, "YUV4MPEG2 W33 H21 F30000:1001" + colours + " Ip XYSCSS=420 XDPI=203.5\n");
    for (const char level : {'a', 'b'})
        add(parser, "FRAME Ip\n" + QByteArray(33 * 21, level) + QByteArray(others, 'x'));
    QCOMPARE(parser.next(), Y4mParser::Found::Picture);
    QCOMPARE(parser.picture().width, 33);
    QCOMPARE(parser.picture().height, 21);
    QCOMPARE(parser.picture().rowBytes, std::size_t(33));
    QCOMPARE(parser.picture().pixels[33 * 21 - 1], std::uint8_t('a'));
    QCOMPARE(parser.dpi(), 203.5);
    QVERIFY(qAbs(parser.picturesPerSecond() - 29.97) < 0.01);
    QCOMPARE(parser.next(), Y4mParser::Found::Picture);
    QCOMPARE(parser.picture().pixels[0], std::uint8_t('b'));
    QCOMPARE(parser.next(), Y4mParser::Found::Nothing);
    QVERIFY(!parser.isInPicture());
}

void TestIapVideo::piecesOfAnyLength()
{
    const QByteArray video = videoOf(plainFrames(4), 200);
    for (const int length : {1, 7, 100, 641, 5000}) {
        Y4mParser parser;
        int pictures = 0;
        for (qsizetype at = 0; at < video.size(); at += length) {
            add(parser, video.mid(at, length));
            while (parser.next() == Y4mParser::Found::Picture)
                QCOMPARE(parser.picture().pixels[100], std::uint8_t(pictures++));
        }
        QCOMPARE(pictures, 4);
    }
}

void TestIapVideo::rubbish_data()
{
    QTest::addColumn<QByteArray>("video");
    const auto row = [](const char* name, const QByteArray& video) {
        QTest::newRow(name) << video;
    };
    row("another file", "RIFF....AVI LIST");
    row("nearly", "YUV4MPEG3 W32 H20 F30:1\n");
    row("no size", "YUV4MPEG2 F30:1 Cmono\n");
    row("no height", "YUV4MPEG2 W32 F30:1 Cmono\n");
    row("tiny", "YUV4MPEG2 W15 H20 F30:1 Cmono\n");
    row("huge", "YUV4MPEG2 W100000 H20 F30:1 Cmono\n");
    row("size beyond numbers", "YUV4MPEG2 W99999999999999 H20 F30:1 Cmono\n");
    row("size that is no number", "YUV4MPEG2 Wx H20 F30:1 Cmono\n");
    row("rate that is none", "YUV4MPEG2 W32 H20 F30 Cmono\n");
    row("rate below nothing", "YUV4MPEG2 W32 H20 F-30:1 Cmono\n");
    row("ten bits", "YUV4MPEG2 W32 H20 F30:1 C420p10\n");
    row("sixteen bits", "YUV4MPEG2 W32 H20 F30:1 Cmono16\n");
    row("unknown colours", "YUV4MPEG2 W32 H20 F30:1 Cpink\n");
    row("endless head", "YUV4MPEG2 " + QByteArray(2000, 'X'));
    row("no picture behind the head", "YUV4MPEG2 W32 H20 F30:1 Cmono\nFRAMING\n");
    row("endless head of a picture",
        "YUV4MPEG2 W32 H20 F30:1 Cmono\nFRAME" + QByteArray(2000, ' '));
}

void TestIapVideo::rubbish()
{
    QFETCH(QByteArray, video);
    Y4mParser parser;
    add(parser, video);
    QCOMPARE(parser.next(), Y4mParser::Found::Rubbish);
    QVERIFY(!parser.problem().empty());
    add(parser, videoOf(plainFrames(1), 30));
    QCOMPARE(parser.next(), Y4mParser::Found::Rubbish); // and so it stays
}

void TestIapVideo::fileIsOneSwipe()
{
    write(videoOf(plainFrames(5), 500));
    Reader reader;
    QVERIFY(reader.start());
    QVERIFY(reader.recorder.waitFor('u'));
    QVERIFY(reader.source.isAlive()); // as a camera that nobody moves
    reader.source.stop();
    QCOMPARE(reader.recorder.told(), std::string("dfffffu"));
    const std::vector<Frame> frames = reader.recorder.frames();
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(frames[std::size_t(i)].timeUs, std::int64_t(i * 2000));
        QCOMPARE(frames[std::size_t(i)].pixels[0], std::uint8_t(i));
        QCOMPARE(frames[std::size_t(i)].dpi, 300);
    }
}

void TestIapVideo::fileWithTipTimes()
{
    QFile tip(QFile::decodeName(write(videoOf(plainFrames(10), 500))) + ".tip");
    QVERIFY(tip.open(QIODevice::WriteOnly));
    tip.write("# two swipes\n2 6 # the first\n\n 10\t14\n");
    tip.close();
    Reader reader;
    QVERIFY(reader.start());
    QVERIFY(reader.recorder.waitFor('f', 10));
    reader.source.stop();
    QCOMPARE(reader.recorder.told(), std::string("fdffuffdffufff"));
}

void TestIapVideo::wrongTipTimes_data()
{
    QTest::addColumn<QByteArray>("times");
    QTest::newRow("one time only") << QByteArray("100\n");
    QTest::newRow("three") << QByteArray("100 200 300\n");
    QTest::newRow("words") << QByteArray("100 200\nfrom 300 to 400\n");
    QTest::newRow("release before press") << QByteArray("200 100\n");
    QTest::newRow("before the beginning") << QByteArray("-5 100\n");
    QTest::newRow("not in order") << QByteArray("300 400\n100 200\n");
    QTest::newRow("beyond numbers") << QByteArray("1 99999999999999999999\n");
    QTest::newRow("beyond a day") << QByteArray("1 99999999999\n");
}

void TestIapVideo::wrongTipTimes()
{
    QFETCH(QByteArray, times);
    QFile tip(QFile::decodeName(write(videoOf(plainFrames(3), 500))) + ".tip");
    QVERIFY(tip.open(QIODevice::WriteOnly));
    tip.write(times);
    tip.close();
    Reader reader;
    QVERIFY(!reader.start());
    QCOMPARE(reader.recorder.told(), std::string());
}

void TestIapVideo::unusableFile_data()
{
    QTest::addColumn<QByteArray>("video");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("another form") << QByteArray("\x1a\x45\xdf\xa3 and so on");
    QTest::newRow("half a head") << QByteArray("YUV4MPEG2 W32 H20");
    QTest::newRow("no rate") << QByteArray("YUV4MPEG2 W32 H20 Cmono\nFRAME\n");
    QTest::newRow("unknown rate") << QByteArray("YUV4MPEG2 W32 H20 F0:0 Cmono\nFRAME\n");
    QTest::newRow("rate beyond sense") << QByteArray("YUV4MPEG2 W32 H20 F5000:1 Cmono\nFRAME\n");
    QTest::newRow("unknown scale") << QByteArray("YUV4MPEG2 W640 H480 F30:1 Cmono\nFRAME\n");
    QTest::newRow("too coarse") << QByteArray("YUV4MPEG2 W64 H48 F30:1 Cmono XDPI=20\nFRAME\n");
}

void TestIapVideo::unusableFile()
{
    QFETCH(QByteArray, video);
    write(video);
    Reader reader;
    QVERIFY(!reader.start());
    QCOMPARE(reader.recorder.told(), std::string());
}

void TestIapVideo::fileThatEndsTooSoon()
{
    write(videoOf(plainFrames(4), 500).chopped(100));
    Reader reader;
    QVERIFY(reader.start());
    QVERIFY(reader.recorder.waitFor('u'));
    QCOMPARE(reader.recorder.told(), std::string("dfffu"));
}

void TestIapVideo::fileWithRubbishInside()
{
    write(videoOf(plainFrames(3), 500) + "FRAGMENT" + videoOf(plainFrames(3), 500));
    Reader reader;
    QVERIFY(reader.start());
    QVERIFY(reader.recorder.waitFor('l'));
    QCOMPARE(reader.recorder.told(), std::string("dfffl"));
    QVERIFY(!reader.source.isAlive());
}

void TestIapVideo::fileStopsInTheMiddle()
{
    write(videoOf(plainFrames(200), 100));
    Reader reader;
    QVERIFY(reader.start());
    QVERIFY(reader.recorder.waitFor('f'));
    reader.source.stop();
    const std::string told = reader.recorder.told();
    QVERIFY(told.size() < 150);
    QCOMPARE(told.find('u'), std::string::npos);
}

void TestIapVideo::pipe()
{
    TipPipe tip;
    const QByteArray path = makePipe("pipe", tip);
    Reader reader;
    QVERIFY(reader.start()); // nobody writes yet
    const int writer = ::open(path.constData(), O_WRONLY | O_CLOEXEC);
    QVERIFY(writer >= 0);
    const QByteArray video = videoOf(plainFrames(3), 30);
    QCOMPARE(::write(writer, video.constData(), 1000), ssize_t(1000));
    QVERIFY(reader.recorder.waitFor('f', 1));
    tip.send(330, 1);
    QVERIFY(reader.recorder.waitFor('d'));
    QCOMPARE(::write(writer, video.constData() + 1000, std::size_t(video.size() - 1000)),
             ssize_t(video.size() - 1000));
    QVERIFY(reader.recorder.waitFor('f', 3));
    ::close(writer);
    QVERIFY(reader.recorder.waitFor('l'));
    QVERIFY(!reader.source.isAlive());
    QCOMPARE(reader.recorder.told(), std::string("fdffl"));
}

void TestIapVideo::pipeOfRubbish()
{
    TipPipe tip;
    const QByteArray path = makePipe("rubbish", tip);
    Reader reader;
    QVERIFY(reader.start());
    const int writer = ::open(path.constData(), O_WRONLY | O_CLOEXEC);
    QCOMPARE(::write(writer, "no video", 8), ssize_t(8));
    QVERIFY(reader.recorder.waitFor('l'));
    QVERIFY(!reader.source.isAlive());
    ::close(writer);
}

void TestIapVideo::switchInPieces()
{
    TipPipe pipe;
    TipSwitch tip;
    QCOMPARE(tip.open(pipe.path().toStdString(), 330), std::string());
    std::string told;
    const auto note = [&](bool isDown) { told += isDown ? 'd' : 'u'; };
    QVERIFY(tip.read(note)); // nothing there
    input_event press = {};
    press.type = EV_KEY;
    press.code = 330;
    press.value = 1;
    const char* bytes = reinterpret_cast<const char*>(&press);
    pipe.sendBytes(bytes, 5);
    QVERIFY(tip.read(note));
    QCOMPARE(told, std::string());
    pipe.sendBytes(bytes + 5, sizeof press - 5);
    input_event dropped = {};
    dropped.type = EV_SYN;
    dropped.code = SYN_DROPPED;
    pipe.sendBytes(&dropped, sizeof dropped); // a pipe cannot tell the state
    pipe.send(330, 77);                       // no value of a key
    pipe.send(330, 0);
    QVERIFY(tip.read(note));
    QCOMPARE(told, std::string("du"));
}

QTEST_GUILESS_MAIN(TestIapVideo)
#include "tst_iap_video.moc"
