#include "deskprogram.h"

#include "desk/desklink.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>
#include <memory>

namespace {

/* A PDF file of one empty sheet that is locked with a password nobody knows. */
QByteArray lockedPdf()
{
    const QByteArray parts[] = {
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 200] >>",
        "<< /Filter /Standard /V 1 /R 2 /Length 40 /P -4 /O (" + QByteArray(32, 'o') + ") /U ("
            + QByteArray(32, 'u') + ") >>"};
    QByteArray pdf = "%PDF-1.4\n";
    QByteArray places = "0000000000 65535 f \n";
    int number = 0;
    for (const QByteArray& part : parts) {
        places += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += QByteArray::number(++number) + " 0 obj\n" + part + "\nendobj\n";
    }
    const QByteArray start = QByteArray::number(pdf.size());
    const QByteArray id = "<" + QByteArray(32, '0') + ">";
    return pdf + "xref\n0 5\n" + places + "trailer\n<< /Size 5 /Root 1 0 R /Encrypt 4 0 R /ID ["
           + id + id + "] >>\nstartxref\n" + start + "\n%%EOF\n";
}

constexpr int Ended = 0;
constexpr int Failed = 1;
constexpr int CannotBegin = 2;

} // namespace

/* Whatever the desk's program does not find is told in a sentence, and nothing crashes. */
class TestDeskMissing : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_desk = std::make_unique<DeskProgram>();
        m_desk->setVariable("XDG_CONFIG_HOME", m_desk->path("config"));
    }

    void whatThePenLacksIsToldAtTheStart()
    {
        QVERIFY(QDir(m_desk->path(QString())).mkpath("silence"));
        m_desk->setVariable("ESPEAK_DATA_PATH", m_desk->path("silence"));
        QCOMPARE(m_desk->play("wait idle\n"), Ended);
        QVERIFY(tells("Print cannot be recognised (languages in Latin letters): "));
        QVERIFY(tells("It comes with the package tesseract-ocr-script-latn."));
        QVERIFY(tells("Print cannot be recognised (Chinese): "));
        QVERIFY(tells("The pen cannot speak: the voices are missing."));
        QVERIFY(tells("Words cannot be looked up: there is no dictionary on the pen."));
        QVERIFY(tells("The pen's display will look wrong: its font "));
    }

    void theWindowTellsTheFirstOfThem()
    {
        QCOMPARE(m_desk->openUntil("the test pen is up", {"--desk-shot", m_desk->path("end.png")}),
                 Ended);
        QVERIFY(tells("swipeline-desk: Print cannot be recognised"));
        QVERIFY(!QImage(m_desk->path("end.png")).isNull());
    }

    void options_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QByteArray>("told");
        const QStringList pen = {"--pen", TESTPEN};
        QTest::newRow("no root") << pen << QByteArray("--root is missing");
        QTest::newRow("root that is not there") << pen + QStringList({"--root", "/no/such"})
                                                << QByteArray("There is no folder /no/such");
        QTest::newRow("root of something else")
            << pen + QStringList({"--root", "/tmp"}) << QByteArray("no files of a pen in /tmp");
        QTest::newRow("script that is not there")
            << pen
                   + QStringList(
                       {"--root", SWIPELINE_SOURCE_DIR "/device", "--headless", "/no.desk"})
            << QByteArray("There is no script /no.desk");
        QTest::newRow("pen that is not there")
            << QStringList({"--root", SWIPELINE_SOURCE_DIR "/device", "--pen", "/no/pen"})
            << QByteArray("/no/pen (--pen) is no program");
    }

    void options()
    {
        QFETCH(QStringList, options);
        QFETCH(QByteArray, told);
        QCOMPARE(m_desk->run(options), CannotBegin);
        QVERIFY(tells(told));
        QCOMPARE(m_desk->output().count('\n'), 1);
    }

    void aFaultyScriptDoesNotBegin()
    {
        QCOMPARE(m_desk->play("key Up\nkye Down\n"), CannotBegin);
        QVERIFY(tells("line 2: there is no command \"kye\""));
        QCOMPARE(m_desk->play(QByteArray("key Up\0\xff\xfe\n", 10)), CannotBegin);
        QVERIFY(tells("line 1"));
    }

    void pages_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("told");
        QTest::newRow("missing") << "none.png" << QByteArray() << QByteArray("There is no file");
        QTest::newRow("no picture")
            << "notes.png" << QByteArray("no picture") << QByteArray("notes.png cannot be read");
        QTest::newRow("no PDF") << "notes.pdf" << QByteArray("no PDF")
                                << QByteArray("notes.pdf is no PDF file that can be read.");
        QTest::newRow("cut PDF") << "cut.pdf" << lockedPdf().left(200)
                                 << QByteArray("cut.pdf is no PDF file that can be read.");
        QTest::newRow("locked PDF")
            << "locked.pdf" << lockedPdf() << QByteArray("locked.pdf asks for a password.");
    }

    void pages()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, told);
        if (!bytes.isEmpty())
            QVERIFY(m_desk->write(name, bytes));
        QCOMPARE(m_desk->play("wait spoken nonsense\n", {"--page", m_desk->path(name)}), Failed);
        QVERIFY(tells(told));
        QVERIFY(!m_desk->output().contains("Error: ")); // of a library
    }

    void aSecondDeskDoesNotTakeThePensFiles()
    {
        QVERIFY(m_desk->write("script.desk", "card out\nstorage full\nwait spoken nonsense\n"));
        QVERIFY(QDir(m_desk->path("root")).mkpath("mnt/mmc"));
        QProcess first;
        m_desk->start(first, m_desk->scriptOptions());
        QByteArray output;
        QTRY_VERIFY_WITH_TIMEOUT((output += first.readAll()).contains("nonsense"), 20000);
        QCOMPARE(m_desk->run(m_desk->options() << "--language"
                                               << "German"),
                 CannotBegin);
        QVERIFY(tells("Another desk uses the pen's files in " + m_desk->path("root").toUtf8()));
        QVERIFY(QFile::exists(m_desk->path("root/mnt/mmc.out")));
        QVERIFY(QFile::exists(m_desk->path("root/") + desklink::FullMarker));
        first.kill();
        QVERIFY(first.waitForFinished());
        // One that was killed does not stand in the way.
        QCOMPARE(m_desk->play("wait idle\n"), Ended);
        QVERIFY(!QFile::exists(m_desk->path("root/.desk.lock")));
    }

    void filesThatCannotBeWritten()
    {
        QVERIFY(QDir(m_desk->path("root")).mkpath(".desk.lock")); // where a file should be
        QCOMPARE(m_desk->play("wait idle\n"), CannotBegin);
        QVERIFY(tells("The pen's files in"));
        QVERIFY(tells("cannot be written"));
        QVERIFY(QDir(m_desk->path("root")).rmdir(".desk.lock"));
        QVERIFY(m_desk->write("file", "in the way"));
        QCOMPARE(m_desk->play("wait idle\n", {"--out", m_desk->path("file/out")}), CannotBegin);
        QVERIFY(tells("file/out cannot be made"));
        QCOMPARE(m_desk->play("wait idle\n", {"--frames", m_desk->path("file/film")}), CannotBegin);
        QVERIFY(tells("file/film cannot be made"));
        QCOMPARE(m_desk->play("wait idle\n", {"--record", m_desk->path("file/x.desk")}),
                 CannotBegin);
        QVERIFY(tells("file/x.desk cannot be written"));
        m_desk->setVariable("XDG_CONFIG_HOME", m_desk->path("file"));
        QCOMPARE(m_desk->openUntil("the test pen is up"), CannotBegin);
        QVERIFY(tells("What the desk should remember cannot be written"));
    }

    void displays_data()
    {
        QTest::addColumn<QString>("platform");
        QTest::addColumn<QString>("x");
        QTest::addColumn<QString>("wayland");
        QTest::addColumn<QByteArray>("told");
        const QString none;
        QTest::newRow("none") << none << none << none << QByteArray("There is no display for");
        QTest::newRow("X that is away") << none << ":987" << none << QByteArray("display :987");
        QTest::newRow("Wayland that is away")
            << "wayland" << none << "nowhere" << QByteArray("There is no display on which");
        QTest::newRow("platform that is not there")
            << "nonsense" << none << none << QByteArray("platform plugin \"nonsense\"");
    }

    void displays()
    {
        QFETCH(QString, platform);
        QFETCH(QString, x);
        QFETCH(QString, wayland);
        QFETCH(QByteArray, told);
        m_desk->setVariable("QT_QPA_PLATFORM", platform);
        m_desk->setVariable("DISPLAY", x);
        m_desk->setVariable("WAYLAND_DISPLAY", wayland);
        m_desk->setVariable("XDG_RUNTIME_DIR");
        QVERIFY(QDir(m_desk->path(QString())).mkpath("t"));
        m_desk->setVariable("TMPDIR", m_desk->path("t"));
        QCOMPARE(m_desk->run(m_desk->options()), CannotBegin);
        QVERIFY(tells("swipeline-desk: There is no display"));
        QVERIFY(tells(told));
        QVERIFY(tells("--headless"));
        QVERIFY(QDir(m_desk->path("t")).isEmpty());
    }

    void aPenThatEndsAtItsStartIsTold()
    {
        QCOMPARE(m_desk->play("wait idle\n", {"--pen", "/bin/false"}), Failed);
        QVERIFY(tells("The pen ended with code 1."));
        QVERIFY(m_desk->write("pen", "#!/bin/sh\nkill -SEGV $$\n"));
        QFile::setPermissions(m_desk->path("pen"), QFile::ReadOwner | QFile::ExeOwner);
        QCOMPARE(m_desk->play("wait idle\n", {"--pen", m_desk->path("pen")}), Failed);
        QVERIFY(tells("The pen crashed (signal 11)."));
        QVERIFY(m_desk->write("nonsense", "no program\n"));
        QFile::setPermissions(m_desk->path("nonsense"), QFile::ReadOwner | QFile::ExeOwner);
        QCOMPARE(m_desk->play("wait idle\n", {"--pen", m_desk->path("nonsense")}), Failed);
        QVERIFY(tells("The pen "));
    }

#ifdef PEN
    void soundThatIsAwayIsTold()
    {
        const QString root = m_desk->path("pen");
        QCOMPARE(QProcess::execute(SWIPELINE_SOURCE_DIR "/scripts/make-run-root", {root}), 0);
        m_desk->setVariable("SDL_AUDIODRIVER", "nonsense");
        QCOMPARE(m_desk->openUntil("speaking without sound", {"--root", root, "--pen", PEN}),
                 Ended);
        QVERIFY(tells("pen: speech: no sound device"));
    }
#endif

    void aWindowIsAsItWasLeft()
    {
        QVERIFY(QDir(m_desk->path(QString())).mkpath("config/swipeline"));
        QVERIFY(m_desk->write("config/swipeline/desk.ini",
                              "[window]\ndark=true\ntab=3\n[page]\nruler=false\nkind=sample\n"
                              "name=german\n[hand]\ntilt=7\n"));
        QCOMPARE(m_desk->openUntil("the test pen is up", {"--desk-shot", m_desk->path("1.png")}),
                 Ended);
        QVERIFY(QImage(m_desk->path("1.png")).pixelColor(3, 3).lightness() < 60);
        QFile file(m_desk->path("config/swipeline/desk.ini"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray kept = file.readAll();
        for (const char* line :
             {"\ndark=true\n", "\ntab=3\n", "\nruler=false\n", "\nname=german\n", "\ntilt=7\n"})
            QVERIFY2(kept.contains(line), kept.constData());
        // What is not wanted is neither recalled nor changed.
        QCOMPARE(m_desk->openUntil("the test pen is up",
                                   {"--forget", "--desk-shot", m_desk->path("2.png")}),
                 Ended);
        QVERIFY(QImage(m_desk->path("2.png")).pixelColor(3, 3).lightness() > 200);
        QVERIFY(file.seek(0));
        QCOMPARE(file.readAll(), kept);
    }

private:
    /* Whether the desk has said it; what it said instead is printed. */
    bool tells(const QByteArray& text) const
    {
        const bool told = m_desk->output().contains(text);
        if (!told)
            qWarning().noquote() << m_desk->output();
        return told;
    }

    std::unique_ptr<DeskProgram> m_desk;
};

QTEST_GUILESS_MAIN(TestDeskMissing)
#include "tst_deskmissing.moc"
