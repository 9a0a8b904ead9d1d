#include "desk/deskoptions.h"
#include "desk/penfiles.h"
#include "desk/penkeys.h"
#include "desk/penpicture.h"
#include "desk/penprocess.h"
#include "desk/transcript.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace {

/* Holds what a run root must have. */
constexpr const char* Root = SWIPELINE_SOURCE_DIR "/device";

} // namespace

/* The small plain parts: keys, pictures, transcript, files, command line. */
class TestDeskParts : public QObject
{
    Q_OBJECT

private slots:
    void keysOfThePen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("key");
        QTest::newRow("Up") << "Up" << 0x01000013;
        QTest::newRow("Down") << "down" << 0x01000015;
        QTest::newRow("Left") << "LEFT" << 0x01000012;
        QTest::newRow("Right") << "Right" << 0x01000014;
        QTest::newRow("OK") << "ok" << 0x01000004;
        QTest::newRow("Return") << "Return" << 0x01000004;
        QTest::newRow("Esc") << "Esc" << 0x01000000;
        QTest::newRow("Escape") << "escape" << 0x01000000;
        QTest::newRow("F7") << "F7" << 0x01000036;
        QTest::newRow("F8") << "f8" << 0x01000037;
        QTest::newRow("F9") << "F9" << 0x01000038;
        QTest::newRow("F10") << "f10" << 0x01000039;
        QTest::newRow("F11") << "F11" << 0x0100003a;
        QTest::newRow("F12") << "F12" << 0x0100003b;
        QTest::newRow("Space") << "space" << 0x20;
    }

    void keysOfThePen()
    {
        QFETCH(QString, name);
        QFETCH(int, key);
        QCOMPARE(int(penkeys::fromName(name).value()), key);
        QCOMPARE(int(penkeys::fromKeyboard(key).value()), key);
    }

    void otherKeysAreNotThePens()
    {
        QVERIFY(!penkeys::fromName("F6"));
        QVERIFY(!penkeys::fromName(""));
        QVERIFY(!penkeys::fromKeyboard(Qt::Key_Tab));
        QVERIFY(!penkeys::fromKeyboard(Qt::Key_A));
        QCOMPARE(penkeys::fromKeyboard(Qt::Key_Enter).value(), Qt::Key_Return);
        QCOMPARE(penkeys::names().size(), 13);
    }

    void oneBitAboveHalfBrightness()
    {
        QImage frame(256, 64, QImage::Format_RGB32);
        frame.fill(Qt::black);
        frame.setPixel(0, 0, qRgb(127, 127, 127));
        frame.setPixel(1, 0, qRgb(128, 128, 128));
        frame.setPixel(255, 63, qRgb(255, 255, 255));
        const QImage oneBit = penpicture::toOneBit(frame);
        QCOMPARE(oneBit.format(), QImage::Format_Mono);
        QCOMPARE(oneBit.pixelIndex(0, 0), 0);
        QCOMPARE(oneBit.pixelIndex(1, 0), 1);
        QCOMPARE(oneBit.pixelIndex(255, 63), 1);
        QCOMPARE(oneBit.pixelIndex(128, 32), 0);
    }

    void otherSizesAreCutOrFilled()
    {
        QImage small(10, 10, QImage::Format_RGB32);
        small.fill(Qt::white);
        const QImage oneBit = penpicture::toOneBit(small);
        QCOMPARE(oneBit.size(), QSize(256, 64));
        QCOMPARE(oneBit.pixelIndex(9, 9), 1);
        QCOMPARE(oneBit.pixelIndex(10, 9), 0);
        QCOMPARE(penpicture::toOneBit(QImage()).size(), QSize(256, 64));
        QImage large(300, 100, QImage::Format_ARGB32);
        large.fill(Qt::white);
        QCOMPARE(penpicture::toOneBit(large).size(), QSize(256, 64));
    }

    void magnifiedKeepsPixelsSquare()
    {
        QImage frame(256, 64, QImage::Format_RGB32);
        frame.fill(Qt::black);
        frame.setPixel(1, 1, qRgb(255, 255, 255));
        const QImage big = penpicture::magnified(penpicture::toOneBit(frame), 4);
        QCOMPARE(big.size(), QSize(1024, 256));
        QCOMPARE(big.pixel(4, 4), qRgb(255, 255, 255));
        QCOMPARE(big.pixel(7, 7), qRgb(255, 255, 255));
        QCOMPARE(big.pixel(8, 7), qRgb(0, 0, 0));
        QCOMPARE(big.pixel(3, 4), qRgb(0, 0, 0));
    }

    void luminousShowsLitPixelsBright()
    {
        QImage frame(256, 64, QImage::Format_RGB32);
        frame.fill(Qt::black);
        frame.setPixel(100, 30, qRgb(255, 255, 255));
        const QImage panel = penpicture::luminous(penpicture::toOneBit(frame), 4);
        QCOMPARE(panel.size(), QSize(1024, 256));
        QVERIFY(qGray(panel.pixel(401, 121)) > 200);
        QVERIFY(qGray(panel.pixel(40, 40)) < 40);
    }

    void transcriptFollowsTheWords()
    {
        Transcript transcript;
        QVERIFY(!transcript.isSpeaking());
        transcript.word(1, 0, 3, 5);
        transcript.begin(1, 101, "New <vtml_pause time=\"200\"/>file.", 10);
        QVERIFY(transcript.isSpeaking());
        transcript.word(1, 0, 3, 11);
        transcript.word(2, 0, 3, 12);
        transcript.word(1, 28, 4, 13);
        transcript.word(1, 33, 4, 14);
        transcript.word(1, -1, 2, 15);
        transcript.end(2, false, 16);
        QVERIFY(transcript.isSpeaking());
        transcript.end(1, false, 17);
        QVERIFY(!transcript.isSpeaking());
        const Transcript::Utterance& said = transcript.utterances().first();
        QCOMPARE(said.words.size(), 2);
        QCOMPARE(said.heard(), "New file");
        QCOMPARE(said.plain(), "New file.");
        QVERIFY(transcript.contains("new  FILE"));
        QVERIFY(!transcript.contains("new file", 1));
        QVERIFY(!transcript.contains("old file"));
        QVERIFY(transcript.containsHeard("new file"));
        QVERIFY(!transcript.containsHeard("file."));
        QVERIFY(!transcript.containsHeard("new file", 1));
    }

    void aNewTextBreaksTheOldOneOff()
    {
        Transcript transcript;
        transcript.begin(1, 101, "One", 10);
        transcript.begin(2, 101, "Two", 20);
        QVERIFY(transcript.utterances()[0].stopped);
        QCOMPARE(transcript.utterances()[0].endUs, 20);
        QVERIFY(transcript.isSpeaking());
        transcript.breakOff(30);
        QVERIFY(!transcript.isSpeaking());
    }

    void filesOnThePen()
    {
        QTemporaryDir root;
        QVERIFY(QDir(root.path()).mkpath("mnt/mmc/e_ScanFile"));
        QVERIFY(penfiles::list(root.path()).isEmpty());
        QFile file(root.filePath("mnt/mmc/e_ScanFile/Scan1"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromHex("fffe47006100 72 00740065006e00"));
        file.close();
        const auto files = penfiles::list(root.path());
        QCOMPARE(files.size(), 1);
        QCOMPARE(files[0].path, "mnt/mmc/e_ScanFile/Scan1");
        QCOMPARE(files[0].bytes, 14);
        QCOMPARE(files[0].text, "Garten");
        QVERIFY(penfiles::contains(root.path(), "*", "art"));
        QVERIFY(penfiles::contains(root.path(), "Scan*", "Garten"));
        QVERIFY(!penfiles::contains(root.path(), "Other*", "Garten"));
        QVERIFY(!penfiles::contains(root.path(), "*", "garden"));
    }

    void textOfAFile()
    {
        QCOMPARE(penfiles::decode(QByteArray::fromHex("fffe41002d4e")), QString::fromUtf8("A中"));
        QCOMPARE(penfiles::decode(QByteArray::fromHex("feff00414e2d")), QString::fromUtf8("A中"));
        QCOMPARE(penfiles::decode("abc"), "abc");
        QCOMPARE(penfiles::decode(""), "");
    }

    void environmentOfThePen()
    {
        PenProcess::Setting setting;
        setting.root = "/r";
        setting.waylandDisplay = "w";
        setting.link = "/l";
        const QProcessEnvironment environment = PenProcess::environment(setting);
        QCOMPARE(environment.value("QT_QPA_PLATFORM"), "wayland");
        QCOMPARE(environment.value("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"), "none");
        QCOMPARE(environment.value("SWIPELINE_ROOT"), "/r");
        QCOMPARE(environment.value("SWIPELINE_DESK"), "/l");
        QCOMPARE(environment.value("WAYLAND_DISPLAY"), "w");
        QVERIFY(!environment.contains("SWIPELINE_WAV"));
    }

    void commandLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("part");
        QTest::newRow("no root") << QStringList() << "--root is missing";
        QTest::newRow("root") << QStringList({"--root", "/no/such"}) << "no folder /no/such";
        QTest::newRow("other root")
            << QStringList({"--root", "/tmp"}) << "no files of a pen in /tmp";
        QTest::newRow("pen") << QStringList({"--root", Root}) << "\"swipeline\" was not found";
        QTest::newRow("given pen")
            << QStringList({"--root", Root, "--pen", "/no/pen"}) << "/no/pen (--pen) is no program";
        QTest::newRow("script") << QStringList(
            {"--root", Root, "--pen", "/bin/true", "--headless", "/no/script"})
                                << "no script /no/script";
        QTest::newRow("option") << QStringList({"--rot", "/tmp"}) << "rot";
        QTest::newRow("stray") << QStringList({"--root", "/tmp", "stray"}) << "\"stray\"";
        QTest::newRow("two pages")
            << QStringList({"--root", "/tmp", "--page", "german", "--text", "a"}) << "Only one";
        QTest::newRow("language") << QStringList({"--root", "/tmp", "--text", "a"}) << "--lang";
        QTest::newRow("dpi") << QStringList({"--root", "/tmp", "--dpi", "ten"}) << "--dpi";
        QTest::newRow("pdf page") << QStringList({"--root", "/tmp", "--pdf-page", "0"})
                                  << "--pdf-page";
        QTest::newRow("sound") << QStringList({"--root", Root, "--pen", "/bin/true"}) << "";
    }

    void commandLine()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, part);
        const DeskOptions options =
            DeskOptions::parse(QStringList("swipeline-desk") + arguments, "/nowhere");
        QVERIFY2(options.error.contains(part), qPrintable(options.error));
        QCOMPARE(options.error.isEmpty(), part.isEmpty());
    }

    void headlessRecordsTheSound()
    {
        const DeskOptions options = DeskOptions::parse({"swipeline-desk", "--root", "/tmp", "--pen",
                                                        "/bin/true", "--headless", "/dev/null",
                                                        "--out", "/tmp/out", "--page", "chinese"},
                                                       "/nowhere");
        QVERIFY(options.isHeadless());
        QCOMPARE(options.wav, "/tmp/out/speech.wav");
        QCOMPARE(options.page.name, "chinese");
        QVERIFY(options.page.kind == PageSource::Kind::Sample);
    }

    void helpNamesEveryOption()
    {
        const DeskOptions options = DeskOptions::parse({"swipeline-desk", "--help"}, "/nowhere");
        QVERIFY(options.helpWanted);
        QVERIFY(options.error.isEmpty());
        for (const char* option : {"--root", "--pen", "--page", "--text", "--lang", "--headless",
                                   "--out", "--desk-shot", "--wav", "--fonts"})
            QVERIFY2(options.help.contains(option), option);
    }
};

QTEST_GUILESS_MAIN(TestDeskParts)
#include "tst_deskparts.moc"
