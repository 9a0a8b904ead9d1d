#include "platform/zembra_ocr.h"

#include "ocrengine.h"
#include "printedline.h"
#include "tests/shared/asleep.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/* A folder in which one model is a pipe: whoever loads it waits until the test ends that. */
class PipedModel
{
public:
    explicit PipedModel(const char* piped, const char* real = nullptr)
        : m_pipe(QFile::encodeName(m_folder.filePath(QLatin1String(piped))))
    {
        if (::mkfifo(m_pipe.constData(), 0600) != 0)
            qFatal("no pipe");
        if (real
            && !QFile::link(QLatin1String(InstalledModels) + QLatin1String(real),
                            m_folder.filePath(QLatin1String(real))))
            qFatal("no link to a model");
    }
    ~PipedModel() { endLoading(); }
    PipedModel(const PipedModel&) = delete;
    PipedModel& operator=(const PipedModel&) = delete;

    QString path() const { return m_folder.path(); }

    /* A pipe can be opened for writing without waiting only once somebody reads it; the writing end
     * stays open, so that the reader goes on waiting. */
    bool waitUntilLoading()
    {
        return QTest::qWaitFor([this] {
            m_end = ::open(m_pipe.constData(), O_WRONLY | O_NONBLOCK);
            return m_end >= 0;
        });
    }

    void endLoading()
    {
        // Whoever opens it again meanwhile finds a writer, and no model.
        const int keeper = ::open(m_pipe.constData(), O_RDWR | O_NONBLOCK);
        ::unlink(m_pipe.constData());
        if (m_end >= 0)
            ::close(std::exchange(m_end, -1));
        if (keeper >= 0)
            ::close(keeper);
    }

private:
    QTemporaryDir m_folder;
    const QByteArray m_pipe;
    int m_end = -1;
};

} // namespace

/* Handles, arguments, languages and models. */
class TstOcrEngine : public QObject
{
    Q_OBJECT

private slots:
    void changesLanguageFromAnotherThread();
    void impossibleSizesAreRefused_data();
    void impossibleSizesAreRefused();
    void wrongArgumentsAreRefused();
    void languageListIsChecked();
    void missingModelIsReported();
    void brokenModelIsReported();
    void modelIsFoundInScriptFolder();
    void modelAddedLaterIsFound();
    void noLanguageWaitsForTheModelOfAnother();
    void modelIsKeptWhenTheLanguageChanges();
    void exitDuringLoadReturns();
    void exitEndsAWaitingRecognition();
    void foreignPointersAreNotFreed();
    void resultOutlivesEngine();
};

void TstOcrEngine::changesLanguageFromAnotherThread()
{
    OcrEngine engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    const QImage image = printedLine(QStringLiteral("Steady as she goes."), SerifFont, 44);
    std::atomic<bool> done = false;
    std::thread changer([&] {
        while (!done) {
            engine.setLanguage(ZEMBRA_OCR_LANG_CYRILLIC);
            engine.setLanguage(ZEMBRA_OCR_LANG_LATIN);
            std::this_thread::yield();
        }
    });
    for (int round = 0; round < 5; ++round) {
        QString read;
        QVERIFY(engine.read(image, &read) >= 0);
    }
    done = true;
    changer.join();
    engine.setLanguage(ZEMBRA_OCR_LANG_LATIN);
    QString read;
    engine.read(image, &read);
    QCOMPARE(read, QStringLiteral("Steady as she goes."));
}

void TstOcrEngine::impossibleSizesAreRefused_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("nothing") << 0 << 0;
    QTest::newRow("no height") << 100 << 0;
    QTest::newRow("no width") << 0 << 100;
    QTest::newRow("negative width") << -100 << 100;
    QTest::newRow("negative height") << 100 << -100;
    QTest::newRow("both negative") << -100 << -100;
    QTest::newRow("absurdly wide") << 2147483647 << 1;
    QTest::newRow("absurdly large") << 2147483647 << 2147483647;
    QTest::newRow("area overflows") << 65536 << 65536;
    QTest::newRow("too much area") << 32767 << 32767;
}

void TstOcrEngine::impossibleSizesAreRefused()
{
    QFETCH(int, width);
    QFETCH(int, height);
    OcrEngine engine;
    QString read;
    QCOMPARE(engine.read({1, 2, 3, 4}, width, height, &read), ZEMBRA_OCR_ERROR);
    QVERIFY(read.isEmpty());
}

void TstOcrEngine::wrongArgumentsAreRefused()
{
    QCOMPARE(ZEMBRA_OCR_Initialize(nullptr, nullptr), ZEMBRA_OCR_ERROR);
    void* handle = &handle;
    QCOMPARE(ZEMBRA_OCR_Initialize(&handle, nullptr), ZEMBRA_OCR_ERROR);
    QVERIFY(!handle);
    QCOMPARE(ZEMBRA_OCR_ExitEngine(nullptr), ZEMBRA_OCR_ERROR);
    QCOMPARE(ZEMBRA_OCR_FreeEngine(nullptr), ZEMBRA_OCR_ERROR);

    OcrEngine engine;
    unsigned char pixel = 0;
    unsigned short* text = reinterpret_cast<unsigned short*>(&pixel);
    int length = 7;
    QCOMPARE(ZEMBRA_OCR_Recognize(nullptr, &pixel, 1, 1, &text, &length, 0, 0), ZEMBRA_OCR_ERROR);
    QVERIFY(!text);
    QCOMPARE(length, 0);
    void* good = engine.handle();
    QCOMPARE(ZEMBRA_OCR_Recognize(good, nullptr, 1, 1, &text, &length, 0, 0), ZEMBRA_OCR_ERROR);
    QCOMPARE(ZEMBRA_OCR_Recognize(good, &pixel, 1, 1, nullptr, &length, 0, 0), ZEMBRA_OCR_ERROR);
    QCOMPARE(ZEMBRA_OCR_Recognize(good, &pixel, 1, 1, &text, nullptr, 0, 0), ZEMBRA_OCR_ERROR);
}

void TstOcrEngine::languageListIsChecked()
{
    OcrEngine engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_END), ZEMBRA_OCR_ERROR);
    QCOMPARE(engine.setLanguage(0), ZEMBRA_OCR_ERROR);
    QCOMPARE(engine.setLanguage(4), ZEMBRA_OCR_ERROR);
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(engine.handle(), nullptr), ZEMBRA_OCR_ERROR);
    int list[] = {ZEMBRA_OCR_LANG_CYRILLIC, 99, ZEMBRA_OCR_LANG_END};
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(engine.handle(), list), ZEMBRA_OCR_ERROR);
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(nullptr, list), ZEMBRA_OCR_ERROR);

    // The choice is unchanged: Latin print is still read as such.
    QString read;
    engine.read(printedLine(QStringLiteral("Kept as it was."), SerifFont, 44), &read);
    QCOMPARE(read, QStringLiteral("Kept as it was."));
}

void TstOcrEngine::missingModelIsReported()
{
    QTemporaryDir folder;
    OcrEngine empty(folder.path());
    QCOMPARE(empty.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    QString read;
    QCOMPARE(empty.read({0}, 1, 1, &read), ZEMBRA_OCR_NO_MODEL);
    OcrEngine nowhere(folder.filePath(QStringLiteral("not/there")));
    QCOMPARE(nowhere.read({0}, 1, 1, &read), ZEMBRA_OCR_NO_MODEL);
}

void TstOcrEngine::brokenModelIsReported()
{
    QTemporaryDir folder;
    QFile model(folder.filePath(QStringLiteral("chi_sim.traineddata")));
    QVERIFY(model.open(QIODevice::WriteOnly));
    QVERIFY(model.write(QByteArray(5000, 'x')) == 5000);
    model.close();
    OcrEngine engine(folder.path());
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE), ZEMBRA_OCR_OK);
    QString read;
    QCOMPARE(engine.read({0}, 1, 1, &read), ZEMBRA_OCR_NO_MODEL);
}

void TstOcrEngine::modelIsFoundInScriptFolder()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("script")));
    QVERIFY(QFile::link(QString::fromLatin1(InstalledModels) + QStringLiteral("Latin.traineddata"),
                        folder.filePath(QStringLiteral("script/Latin.traineddata"))));
    OcrEngine engine(folder.path());
    QString read;
    engine.read(printedLine(QStringLiteral("In its own drawer."), SerifFont, 44), &read);
    QCOMPARE(read, QStringLiteral("In its own drawer."));
}

void TstOcrEngine::modelAddedLaterIsFound()
{
    QTemporaryDir folder;
    OcrEngine engine(folder.path());
    QString read;
    QCOMPARE(engine.read({0}, 1, 1, &read), ZEMBRA_OCR_NO_MODEL);
    QVERIFY(QFile::link(QString::fromLatin1(InstalledModels) + QStringLiteral("Latin.traineddata"),
                        folder.filePath(QStringLiteral("Latin.traineddata"))));
    QCOMPARE(engine.read(printedLine(QStringLiteral("Now it works."), SerifFont, 44), &read),
             ZEMBRA_OCR_OK);
    QCOMPARE(read, QStringLiteral("Now it works."));
}

// The model of one language is a pipe on which nothing comes: its loading lasts until the test ends
// it. With that, to wait for it is to hang.
void TstOcrEngine::noLanguageWaitsForTheModelOfAnother()
{
    PipedModel folder("chi_sim.traineddata", "Latin.traineddata");
    OcrEngine engine(folder.path());
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE), ZEMBRA_OCR_OK);
    std::atomic<int> first = 99;
    std::atomic<pid_t> firstId = 0;
    std::thread firstScan([&] {
        firstId = ::gettid();
        QString read;
        first = engine.read({0}, 1, 1, &read);
    });
    QVERIFY(folder.waitUntilLoading());
    QVERIFY(waitUntilAsleep(firstId)); // else it could begin after the change of language

    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    const QString text = QStringLiteral("The second need not wait.");
    QString read;
    QCOMPARE(engine.read(printedLine(text, SerifFont, 44), &read), ZEMBRA_OCR_OK);
    QCOMPARE(read, text);
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE), ZEMBRA_OCR_OK);
    QCOMPARE(first.load(), 99);

    folder.endLoading();
    firstScan.join();
    QCOMPARE(first.load(), ZEMBRA_OCR_NO_MODEL);
}

void TstOcrEngine::modelIsKeptWhenTheLanguageChanges()
{
    QTemporaryDir folder;
    const QString model = folder.filePath(QStringLiteral("Latin.traineddata"));
    QVERIFY(QFile::link(QString::fromLatin1(InstalledModels) + QStringLiteral("Latin.traineddata"),
                        model));
    OcrEngine engine(folder.path());
    const QImage line = printedLine(QStringLiteral("Once is enough."), SerifFont, 44);
    QString read;
    QCOMPARE(engine.read(line, &read), ZEMBRA_OCR_OK);
    QVERIFY(QFile::remove(model));
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE), ZEMBRA_OCR_OK);
    QCOMPARE(engine.read(line, &read), ZEMBRA_OCR_NO_MODEL);
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    QCOMPARE(engine.read(line, &read), ZEMBRA_OCR_OK);
    QCOMPARE(read, QStringLiteral("Once is enough."));
}

void TstOcrEngine::exitDuringLoadReturns()
{
    for (int round = 0; round < 4; ++round) {
        OcrEngine engine;
        engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE);
        engine.setLanguage(ZEMBRA_OCR_LANG_LATIN);
        engine.setLanguage(ZEMBRA_OCR_LANG_CYRILLIC);
    }
}

void TstOcrEngine::exitEndsAWaitingRecognition()
{
    PipedModel folder("chi_sim.traineddata");
    QByteArray path = QFile::encodeName(folder.path());
    void* handle = nullptr;
    QCOMPARE(ZEMBRA_OCR_Initialize(&handle, path.data()), ZEMBRA_OCR_OK);
    int chinese[] = {ZEMBRA_OCR_LANG_CHINESE, ZEMBRA_OCR_LANG_END};
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(handle, chinese), ZEMBRA_OCR_OK);
    int code = 99;
    std::thread scan([&] {
        unsigned char pixel = 0;
        unsigned short* text = nullptr;
        int length = 0;
        code = ZEMBRA_OCR_Recognize(handle, &pixel, 1, 1, &text, &length, 0, 0);
    });
    QVERIFY(folder.waitUntilLoading());
    std::thread exit([handle] { ZEMBRA_OCR_ExitEngine(handle); });
    scan.join(); // though the model is still being loaded
    QCOMPARE(code, ZEMBRA_OCR_NO_MODEL);
    folder.endLoading();
    exit.join();
    QCOMPARE(ZEMBRA_OCR_FreeEngine(handle), ZEMBRA_OCR_OK);
}

void TstOcrEngine::foreignPointersAreNotFreed()
{
    unsigned short mine[4] = {1, 2, 3, 4};
    QCOMPARE(ZEMBRA_OCR_FreeRecogResult(mine), ZEMBRA_OCR_OK);
    QCOMPARE(ZEMBRA_OCR_FreeRecogResult(nullptr), ZEMBRA_OCR_OK);
    QCOMPARE(mine[3], 4);
}

void TstOcrEngine::resultOutlivesEngine()
{
    unsigned short* text = nullptr;
    int length = 0;
    {
        OcrEngine engine;
        const QImage line = printedLine(QStringLiteral("Words remain."), SerifFont, 44);
        std::vector<unsigned char> pixels = pixelsOf(line);
        QCOMPARE(ZEMBRA_OCR_Recognize(engine.handle(), pixels.data(), line.width(), line.height(),
                                      &text, &length, 0, 0),
                 ZEMBRA_OCR_OK);
    }
    QCOMPARE(QString::fromUtf16(reinterpret_cast<const char16_t*>(text), length),
             QStringLiteral("Words remain."));
    QCOMPARE(ZEMBRA_OCR_FreeRecogResult(text), ZEMBRA_OCR_OK);
}

QTEST_MAIN(TstOcrEngine)
#include "tst_ocr_engine.moc"
