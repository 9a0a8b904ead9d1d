#include "platform/zembra_ocr.h"

#include "printedline.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

/* One engine, closed at the end. */
class Engine
{
public:
    explicit Engine(const QString& folder = QString::fromLatin1(InstalledModels))
    {
        QByteArray path = QFile::encodeName(folder);
        ZEMBRA_OCR_Initialize(&m_handle, path.data());
    }
    ~Engine()
    {
        ZEMBRA_OCR_ExitEngine(m_handle);
        ZEMBRA_OCR_FreeEngine(m_handle);
    }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    int setLanguage(int language)
    {
        int list[] = {language, ZEMBRA_OCR_LANG_END};
        return ZEMBRA_OCR_SetActiveLanguages(m_handle, list);
    }

    int read(const std::vector<unsigned char>& pixels, int width, int height, QString* text,
             int direction = ZEMBRA_OCR_HORIZONTAL)
    {
        std::vector<unsigned char> image = pixels;
        unsigned short* units = nullptr;
        int length = -1;
        const int code = ZEMBRA_OCR_Recognize(m_handle, image.data(), width, height, &units,
                                              &length, direction, 0);
        if ((units == nullptr) != (length == 0))
            qFatal("text and length do not agree");
        *text = QString::fromUtf16(reinterpret_cast<const char16_t*>(units), length);
        ZEMBRA_OCR_FreeRecogResult(units);
        return code;
    }

    int read(const QImage& image, QString* text, int direction = ZEMBRA_OCR_HORIZONTAL)
    {
        std::vector<unsigned char> pixels;
        for (int y = 0; y < image.height(); ++y)
            pixels.insert(pixels.end(), image.constScanLine(y),
                          image.constScanLine(y) + image.width());
        return read(pixels, image.width(), image.height(), text, direction);
    }

    void* handle() const { return m_handle; }

private:
    void* m_handle = nullptr;
};

QImage vertical(const QString& text)
{
    // Characters of a column, as the scan engine orders them: upright, side by side.
    return printedLine(text, ChineseFont, 44);
}

} // namespace

class TstOcrEngine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_engine = std::make_unique<Engine>(); }
    void cleanupTestCase() { m_engine.reset(); }
    void readsPrint_data();
    void readsPrint();
    void readsSmallAndLargePrint();
    void readsFaintAndInvertedPrint();
    void readsVerticalOrder();
    void readsManyTimesTheSame();
    void changesLanguageFromAnotherThread();
    void paperGivesNothing();
    void noiseGivesNothing();
    void dirtGivesNothing();
    void oddSizesAreHarmless_data();
    void oddSizesAreHarmless();
    void impossibleSizesAreRefused_data();
    void impossibleSizesAreRefused();
    void wrongArgumentsAreRefused();
    void languageListIsChecked();
    void missingModelIsReported();
    void brokenModelIsReported();
    void modelIsFoundInScriptFolder();
    void modelAddedLaterIsFound();
    void exitDuringLoadReturns();
    void foreignPointersAreNotFreed();
    void resultOutlivesEngine();

private:
    std::unique_ptr<Engine> m_engine; // with its models loaded, for tests that only read
};

void TstOcrEngine::readsPrint_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("font");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("allowed");
    const auto add = [](const char* name, int language, const char* font, const char* text,
                        int allowed = 0) {
        QTest::newRow(name) << language << QString::fromLatin1(font) << QString::fromUtf8(text)
                            << allowed;
    };
    const int latin = ZEMBRA_OCR_LANG_LATIN;
    add("English", latin, SerifFont, "The harbour lay quiet, and only the gulls were awake.");
    add("English sans", latin, SansFont, "It isn't far: 12 miles, or 3.5 hours on foot.");
    add("French", latin, SerifFont, "Le garçon préfère l'été à Nîmes, près du fleuve.");
    add("German", latin, SerifFont,
        "Über den Dächern hörte man die Glocken läuten, groß und klein.");
    add("Spanish", latin, SerifFont, "El niño comió una piña en la montaña aquel otoño.");
    add("Italian", latin, SerifFont, "Perché la città è così bella di sera, verso il mare.");
    add("Swedish", latin, SerifFont, "Sjön låg stilla när båten gled förbi ön på kvällen.");
    add("Danish", latin, SerifFont, "Røde æbler hang på træet ved den gamle gård.");
    add("Norwegian", latin, SerifFont, "Båten lå på fjorden, og været var klart og kaldt.");
    add("Dutch", latin, SerifFont, "De molen draait langzaam in de wind bij het water.");
    add("Portuguese", latin, SerifFont, "O pão fresco da manhã não dura até ao serão.");
    add("Russian", ZEMBRA_OCR_LANG_CYRILLIC, SerifFont,
        "Над рекой поднимался туман, и деревня ещё спала.", 1);
    add("Russian with English", ZEMBRA_OCR_LANG_CYRILLIC, SerifFont,
        "Он открыл файл Readme и начал читать.", 1);
    add("Chinese", ZEMBRA_OCR_LANG_CHINESE, ChineseFont, "清晨的湖面很安静，只有几只小船。", 1);
}

void TstOcrEngine::readsPrint()
{
    QFETCH(int, language);
    QFETCH(QString, font);
    QFETCH(QString, text);
    QFETCH(int, allowed);
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(language), ZEMBRA_OCR_OK);
    const QImage image = printedLine(text, font.toLatin1().constData(), 44);
    QVERIFY(!image.isNull());
    QString read;
    QCOMPARE(engine.read(image, &read), ZEMBRA_OCR_OK);
    QVERIFY2(editDistance(read, text) <= allowed, qPrintable(read));
}

void TstOcrEngine::readsSmallAndLargePrint()
{
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    const QString text = QStringLiteral("Every page has a margin of its own.");
    for (const int pixelSize : {22, 32, 64, 120, 240}) {
        QString read;
        QCOMPARE(engine.read(printedLine(text, SerifFont, pixelSize), &read), ZEMBRA_OCR_OK);
        QCOMPARE(read, text);
    }
}

void TstOcrEngine::readsFaintAndInvertedPrint()
{
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    const QString text = QStringLiteral("Pencil marks fade with the years.");
    QImage faint = printedLine(text, SerifFont, 44);
    for (int y = 0; y < faint.height(); ++y)
        for (int x = 0; x < faint.width(); ++x)
            faint.scanLine(y)[x] = static_cast<uchar>(150 + faint.constScanLine(y)[x] / 4);
    QString read;
    QCOMPARE(engine.read(faint, &read), ZEMBRA_OCR_OK);
    QCOMPARE(read, text);
    faint.invertPixels();
    QCOMPARE(engine.read(faint, &read), ZEMBRA_OCR_OK);
    QCOMPARE(read, text);
}

void TstOcrEngine::readsVerticalOrder()
{
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE), ZEMBRA_OCR_OK);
    const QString text = QStringLiteral("清晨的湖面很安静");
    QString read;
    engine.read(vertical(text), &read, ZEMBRA_OCR_VERTICAL);
    QVERIFY2(editDistance(read, text) <= 1, qPrintable(read));
}

void TstOcrEngine::readsManyTimesTheSame()
{
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    const QStringList texts = {QStringLiteral("First line of two."), QStringLiteral("Second one.")};
    for (int round = 0; round < 6; ++round) {
        QString read;
        engine.read(printedLine(texts.at(round % 2), SerifFont, 44), &read);
        QCOMPARE(read, texts.at(round % 2));
    }
}

void TstOcrEngine::changesLanguageFromAnotherThread()
{
    Engine& engine = *m_engine;
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

void TstOcrEngine::paperGivesNothing()
{
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    for (const int grey : {0, 128, 255}) {
        QString read;
        const std::vector<unsigned char> pixels(1000 * 100, static_cast<unsigned char>(grey));
        QCOMPARE(engine.read(pixels, 1000, 100, &read), ZEMBRA_OCR_OK);
        QVERIFY(read.isEmpty());
    }
}

void TstOcrEngine::noiseGivesNothing()
{
    QRandomGenerator random(1);
    for (const int language :
         {ZEMBRA_OCR_LANG_LATIN, ZEMBRA_OCR_LANG_CYRILLIC, ZEMBRA_OCR_LANG_CHINESE}) {
        Engine& engine = *m_engine;
        QCOMPARE(engine.setLanguage(language), ZEMBRA_OCR_OK);
        for (int round = 0; round < 4; ++round) {
            std::vector<unsigned char> pixels(600 * 80);
            for (unsigned char& pixel : pixels)
                pixel = static_cast<unsigned char>(random.bounded(256));
            QString read;
            QCOMPARE(engine.read(pixels, 600, 80, &read), ZEMBRA_OCR_OK);
            QVERIFY2(read.isEmpty(), qPrintable(read));
        }
    }
}

void TstOcrEngine::dirtGivesNothing()
{
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    std::vector<unsigned char> pixels(800 * 80, 250);
    for (const int at : {900, 13000, 30000, 50123})
        pixels[static_cast<std::size_t>(at)] = 10;
    QString read;
    QCOMPARE(engine.read(pixels, 800, 80, &read), ZEMBRA_OCR_OK);
    QVERIFY2(read.isEmpty(), qPrintable(read));
}

void TstOcrEngine::oddSizesAreHarmless_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    for (const auto& [width, height] :
         {std::pair(1, 1), std::pair(2, 2), std::pair(1, 500), std::pair(500, 1), std::pair(3, 3),
          std::pair(32767, 8), std::pair(8, 32767), std::pair(2000, 2000)})
        QTest::addRow("%dx%d", width, height) << width << height;
}

void TstOcrEngine::oddSizesAreHarmless()
{
    QFETCH(int, width);
    QFETCH(int, height);
    Engine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    std::vector<unsigned char> pixels(static_cast<std::size_t>(width)
                                      * static_cast<std::size_t>(height));
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = (i / 3) % 5 == 0 ? 0 : 255;
    QString read;
    QVERIFY(engine.read(pixels, width, height, &read) >= 0);
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
    Engine& engine = *m_engine;
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

    Engine engine;
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
    Engine engine;
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
    Engine empty(folder.path());
    QCOMPARE(empty.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    QString read;
    QCOMPARE(empty.read({0}, 1, 1, &read), ZEMBRA_OCR_NO_MODEL);
    Engine nowhere(folder.filePath(QStringLiteral("not/there")));
    QCOMPARE(nowhere.read({0}, 1, 1, &read), ZEMBRA_OCR_NO_MODEL);
}

void TstOcrEngine::brokenModelIsReported()
{
    QTemporaryDir folder;
    QFile model(folder.filePath(QStringLiteral("chi_sim.traineddata")));
    QVERIFY(model.open(QIODevice::WriteOnly));
    QVERIFY(model.write(QByteArray(5000, 'x')) == 5000);
    model.close();
    Engine engine(folder.path());
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
    Engine engine(folder.path());
    QString read;
    engine.read(printedLine(QStringLiteral("In its own drawer."), SerifFont, 44), &read);
    QCOMPARE(read, QStringLiteral("In its own drawer."));
}

void TstOcrEngine::modelAddedLaterIsFound()
{
    QTemporaryDir folder;
    Engine engine(folder.path());
    QString read;
    QCOMPARE(engine.read({0}, 1, 1, &read), ZEMBRA_OCR_NO_MODEL);
    QVERIFY(QFile::link(QString::fromLatin1(InstalledModels) + QStringLiteral("Latin.traineddata"),
                        folder.filePath(QStringLiteral("Latin.traineddata"))));
    QCOMPARE(engine.read(printedLine(QStringLiteral("Now it works."), SerifFont, 44), &read),
             ZEMBRA_OCR_OK);
    QCOMPARE(read, QStringLiteral("Now it works."));
}

void TstOcrEngine::exitDuringLoadReturns()
{
    for (int round = 0; round < 10; ++round) {
        Engine engine;
        engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE);
        engine.setLanguage(ZEMBRA_OCR_LANG_LATIN);
        engine.setLanguage(ZEMBRA_OCR_LANG_CYRILLIC);
    }
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
        Engine engine;
        QImage line = printedLine(QStringLiteral("Words remain."), SerifFont, 44);
        std::vector<unsigned char> pixels;
        for (int y = 0; y < line.height(); ++y)
            pixels.insert(pixels.end(), line.constScanLine(y),
                          line.constScanLine(y) + line.width());
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
