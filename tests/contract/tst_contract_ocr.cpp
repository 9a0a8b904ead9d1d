/*
 * What platform/zembra_ocr.h promises, as far as a caller can see it. Built once for each engine;
 * nothing here knows which one it is.
 */
#include "platform/zembra_ocr.h"
#include "tests/contract/ocrhost.h"
#include "tests/unit/open/printedline.h"

#include <QGuiApplication>
#include <QTest>
#include <future>
#include <limits>
#include <vector>

namespace {

struct Picture
{
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;
};

Picture printed(const QString& text)
{
    const QImage image = printedLine(text, SerifFont, 40);
    Picture picture{image.width(), image.height(), {}};
    for (int y = 0; y < image.height(); ++y) {
        const uchar* const row = image.constScanLine(y);
        picture.pixels.insert(picture.pixels.end(), row, row + image.width());
    }
    return picture;
}

Picture blank()
{
    return {400, 60, std::vector<unsigned char>(400 * 60, 255)};
}

struct Reading
{
    int code = -99;
    unsigned short* text = reinterpret_cast<unsigned short*>(1);
    int length = -99;

    QString string() const
    {
        return text ? QString(reinterpret_cast<const QChar*>(text), length) : QString();
    }
};

Reading read(void* handle, Picture& picture)
{
    Reading reading;
    reading.code =
        ZEMBRA_OCR_Recognize(handle, picture.pixels.data(), picture.width, picture.height,
                             &reading.text, &reading.length, ZEMBRA_OCR_HORIZONTAL, 0);
    return reading;
}

const QString Line = QStringLiteral("The quick brown fox");

} // namespace

class ContractOcr : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aLineIsRead();
    void thePictureIsOnlyRead();
    void nothingRecognisedIsSuccessWithNull();
    void aResultStaysUntilItIsReleased();
    void releasingNullSucceeds();
    void wrongPicturesFailWithNull_data();
    void wrongPicturesFailWithNull();
    void aPictureWithoutPixelsHasNoText();
    void aNullHandleIsRefused();
    void languagesAreTaken_data();
    void languagesAreTaken();
    void wrongLanguageListsAreRefused();
    void theFirstLanguageCounts();
    void languagesMayChangeDuringARecognition();
    void aFolderWithoutModelsIsNoErrorAtTheStart();
    void handlesAreIndependent();
    void aResultOutlivesItsEngine();

private:
    static void* open();
    static void close(void* handle);

    void* m_handle = nullptr;
};

void* ContractOcr::open()
{
    QByteArray folder = ocrhost::dataFolder();
    void* handle = nullptr;
    return ZEMBRA_OCR_Initialize(&handle, folder.data()) == ZEMBRA_OCR_OK ? handle : nullptr;
}

void ContractOcr::close(void* handle)
{
    QCOMPARE(ZEMBRA_OCR_ExitEngine(handle), int(ZEMBRA_OCR_OK));
    QCOMPARE(ZEMBRA_OCR_FreeEngine(handle), int(ZEMBRA_OCR_OK));
}

void ContractOcr::init()
{
    m_handle = open();
    QVERIFY(m_handle);
    int latin[] = {ZEMBRA_OCR_LANG_LATIN, ZEMBRA_OCR_LANG_END};
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(m_handle, latin), int(ZEMBRA_OCR_OK));
}

void ContractOcr::cleanup()
{
    close(m_handle);
}

void ContractOcr::aLineIsRead()
{
    ocrhost::nextPictureReads(Line);
    Picture picture = printed(Line);
    const Reading reading = read(m_handle, picture);
    QCOMPARE(reading.code, int(ZEMBRA_OCR_OK));
    QCOMPARE(reading.string(), Line);
    QCOMPARE(ZEMBRA_OCR_FreeRecogResult(reading.text), int(ZEMBRA_OCR_OK));
}

void ContractOcr::thePictureIsOnlyRead()
{
    ocrhost::nextPictureReads(Line);
    Picture picture = printed(Line);
    const std::vector<unsigned char> before = picture.pixels;
    ZEMBRA_OCR_FreeRecogResult(read(m_handle, picture).text);
    QVERIFY(picture.pixels == before);
}

void ContractOcr::nothingRecognisedIsSuccessWithNull()
{
    ocrhost::nextPictureReads(QString());
    Picture picture = blank();
    const Reading reading = read(m_handle, picture);
    QCOMPARE(reading.code, int(ZEMBRA_OCR_OK));
    QVERIFY(!reading.text);
    QCOMPARE(reading.length, 0);
}

void ContractOcr::aResultStaysUntilItIsReleased()
{
    const QString other = QStringLiteral("Another line");
    ocrhost::nextPictureReads(Line);
    ocrhost::nextPictureReads(other);
    Picture one = printed(Line);
    Picture two = printed(other);
    const Reading first = read(m_handle, one);
    const Reading second = read(m_handle, two);
    QCOMPARE(first.string(), Line);
    QCOMPARE(second.string(), other);
    ZEMBRA_OCR_FreeRecogResult(first.text);
    QCOMPARE(second.string(), other);
    ZEMBRA_OCR_FreeRecogResult(second.text);
}

void ContractOcr::releasingNullSucceeds()
{
    QCOMPARE(ZEMBRA_OCR_FreeRecogResult(nullptr), int(ZEMBRA_OCR_OK));
}

void ContractOcr::wrongPicturesFailWithNull_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("null");
    QTest::newRow("null picture") << 10 << 10 << true;
    QTest::newRow("negative width") << -1 << 10 << false;
    QTest::newRow("negative height") << 10 << -1 << false;
    QTest::newRow("both negative") << -10 << -10 << false;
}

void ContractOcr::wrongPicturesFailWithNull()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, null);
    unsigned char pixels[100] = {};
    Reading reading;
    reading.code = ZEMBRA_OCR_Recognize(m_handle, null ? nullptr : pixels, width, height,
                                        &reading.text, &reading.length, 0, 0);
    QVERIFY(reading.code < 0);
    QVERIFY(!reading.text);
    QCOMPARE(reading.length, 0);
}

void ContractOcr::aPictureWithoutPixelsHasNoText()
{
    unsigned char pixel = 255;
    for (const auto& [width, height] : {std::pair(0, 40), std::pair(400, 0), std::pair(0, 0)}) {
        Reading reading;
        reading.code = ZEMBRA_OCR_Recognize(m_handle, &pixel, width, height, &reading.text,
                                            &reading.length, 0, 0);
        QVERIFY(reading.code <= 0);
        QVERIFY(!reading.text);
        QCOMPARE(reading.length, 0);
    }
}

void ContractOcr::aNullHandleIsRefused()
{
    int latin[] = {ZEMBRA_OCR_LANG_LATIN, ZEMBRA_OCR_LANG_END};
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(nullptr, latin), int(ZEMBRA_OCR_ERROR));
    Picture picture = blank();
    const Reading reading = read(nullptr, picture);
    QCOMPARE(reading.code, int(ZEMBRA_OCR_ERROR));
    QVERIFY(!reading.text);
    QCOMPARE(reading.length, 0);
    QCOMPARE(ZEMBRA_OCR_ExitEngine(nullptr), int(ZEMBRA_OCR_ERROR));
    QCOMPARE(ZEMBRA_OCR_FreeEngine(nullptr), int(ZEMBRA_OCR_ERROR));
}

void ContractOcr::languagesAreTaken_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("Chinese") << int(ZEMBRA_OCR_LANG_CHINESE);
    QTest::newRow("Latin") << int(ZEMBRA_OCR_LANG_LATIN);
    QTest::newRow("Cyrillic") << int(ZEMBRA_OCR_LANG_CYRILLIC);
}

void ContractOcr::languagesAreTaken()
{
    QFETCH(int, language);
    int list[] = {language, ZEMBRA_OCR_LANG_END};
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(m_handle, list), int(ZEMBRA_OCR_OK));
}

void ContractOcr::wrongLanguageListsAreRefused()
{
    int empty[] = {ZEMBRA_OCR_LANG_END};
    int unknown[] = {4, ZEMBRA_OCR_LANG_END};
    int zero[] = {0, ZEMBRA_OCR_LANG_END};
    int laterUnknown[] = {ZEMBRA_OCR_LANG_CHINESE, 99, ZEMBRA_OCR_LANG_END};
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(m_handle, nullptr), int(ZEMBRA_OCR_ERROR));
    for (int* const list : {empty, unknown, zero, laterUnknown})
        QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(m_handle, list), int(ZEMBRA_OCR_ERROR));
    // The choice of before is still in force.
    ocrhost::nextPictureReads(Line);
    Picture picture = printed(Line);
    const Reading reading = read(m_handle, picture);
    QCOMPARE(reading.string(), Line);
    ZEMBRA_OCR_FreeRecogResult(reading.text);
}

void ContractOcr::theFirstLanguageCounts()
{
    int list[] = {ZEMBRA_OCR_LANG_LATIN, ZEMBRA_OCR_LANG_CHINESE, ZEMBRA_OCR_LANG_END};
    QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(m_handle, list), int(ZEMBRA_OCR_OK));
    ocrhost::nextPictureReads(Line);
    Picture picture = printed(Line);
    const Reading reading = read(m_handle, picture);
    QCOMPARE(reading.string(), Line);
    ZEMBRA_OCR_FreeRecogResult(reading.text);
}

void ContractOcr::languagesMayChangeDuringARecognition()
{
    ocrhost::nextPictureReads(Line);
    auto recognition = std::async(std::launch::async, [this] {
        Picture picture = printed(Line);
        return read(m_handle, picture);
    });
    int latin[] = {ZEMBRA_OCR_LANG_LATIN, ZEMBRA_OCR_LANG_END};
    for (int i = 0; i < 100; ++i)
        QCOMPARE(ZEMBRA_OCR_SetActiveLanguages(m_handle, latin), int(ZEMBRA_OCR_OK));
    const Reading reading = recognition.get();
    QCOMPARE(reading.string(), Line);
    ZEMBRA_OCR_FreeRecogResult(reading.text);
}

void ContractOcr::aFolderWithoutModelsIsNoErrorAtTheStart()
{
    char folder[] = "/nowhere/at/all/";
    void* handle = nullptr;
    QCOMPARE(ZEMBRA_OCR_Initialize(&handle, folder), int(ZEMBRA_OCR_OK));
    QVERIFY(handle);
    close(handle);
}

void ContractOcr::handlesAreIndependent()
{
    void* const other = open();
    QVERIFY(other);
    QVERIFY(other != m_handle);
    close(other);
    ocrhost::nextPictureReads(Line);
    Picture picture = printed(Line);
    const Reading reading = read(m_handle, picture);
    QCOMPARE(reading.string(), Line);
    ZEMBRA_OCR_FreeRecogResult(reading.text);
}

void ContractOcr::aResultOutlivesItsEngine()
{
    ocrhost::nextPictureReads(Line);
    Picture picture = printed(Line);
    const Reading reading = read(m_handle, picture);
    close(m_handle);
    QCOMPARE(reading.string(), Line);
    QCOMPARE(ZEMBRA_OCR_FreeRecogResult(reading.text), int(ZEMBRA_OCR_OK));
    m_handle = open();
    QVERIFY(m_handle);
}

QTEST_MAIN(ContractOcr)
#include "tst_contract_ocr.moc"
