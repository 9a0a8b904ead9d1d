#include "platform/zembra_ocr.h"

#include "ocrengine.h"
#include "printedline.h"

#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

QImage paper()
{
    QImage image(600, 80, QImage::Format_Grayscale8);
    image.fill(245);
    return image;
}

/* Things that a pen is drawn over and that are no print. */
QImage drawn(const std::function<void(QPainter&)>& draw)
{
    QImage image = paper();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::black);
    draw(painter);
    return image;
}

QImage scribble(QRandomGenerator& random)
{
    return drawn([&](QPainter& painter) {
        QPainterPath path(QPointF(10, 40));
        for (int i = 0; i < 30; ++i)
            path.quadTo(random.bounded(600), random.bounded(80), random.bounded(600),
                        random.bounded(80));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Qt::black, 3));
        painter.drawPath(path);
    });
}

QImage hatching(QRandomGenerator& random)
{
    return drawn([&](QPainter& painter) {
        painter.setPen(QPen(Qt::black, 2));
        const int step = 6 + random.bounded(12);
        for (int x = -80; x < 680; x += step)
            painter.drawLine(x, 80, x + 40 + random.bounded(40), 0);
    });
}

QImage barcode(QRandomGenerator& random)
{
    return drawn([&](QPainter& painter) {
        for (int x = 5; x < 590;) {
            const int width = 2 + 2 * random.bounded(4);
            painter.fillRect(x, 0, width, 80, Qt::black);
            x += width + 2 + 2 * random.bounded(4);
        }
    });
}

QImage tableLines(QRandomGenerator&)
{
    return drawn([](QPainter& painter) {
        painter.fillRect(0, 10, 600, 2, Qt::black);
        painter.fillRect(0, 60, 600, 2, Qt::black);
        for (int x = 40; x < 600; x += 120)
            painter.fillRect(x, 0, 2, 80, Qt::black);
    });
}

QImage blots(QRandomGenerator& random)
{
    return drawn([&](QPainter& painter) {
        for (int i = 0; i < 12; ++i) {
            const int radius = 1 + random.bounded(6);
            painter.drawEllipse(QPoint(random.bounded(600), random.bounded(80)), radius, radius);
        }
    });
}

QImage halftone(QRandomGenerator&)
{
    return drawn([](QPainter& painter) {
        for (int y = 0; y < 80; y += 8)
            for (int x = 0; x < 600; x += 8)
                painter.drawEllipse(QPointF(x, y), 1 + 2.5 * (0.5 + 0.5 * std::sin(x / 90.0)), 2);
    });
}

QImage upsideDown(QRandomGenerator&)
{
    return printedLine(QStringLiteral("The ferry left the harbour long before"), SerifFont, 44)
        .mirrored(true, true);
}

QImage feetOfLetters(QRandomGenerator&)
{
    const QImage line =
        printedLine(QStringLiteral("The ferry left the harbour long before"), SerifFont, 44);
    return line.copy(0, line.height() * 6 / 10, line.width(), line.height() * 4 / 10);
}

} // namespace

/* What comes of a picture. */
class TstOcrReading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_engine = std::make_unique<OcrEngine>(); }
    void cleanupTestCase() { m_engine.reset(); }
    void readsPrint_data();
    void readsPrint();
    void readsSmallAndLargePrint();
    void readsDotLeaders_data();
    void readsDotLeaders();
    void readsFaintAndInvertedPrint();
    void readsVerticalOrder();
    void readsMarksOfVerticalText_data();
    void readsMarksOfVerticalText();
    void readsManyTimesTheSame();
    void paperGivesNothing();
    void noiseGivesNothing();
    void whatIsNoPrintGivesNothing_data();
    void whatIsNoPrintGivesNothing();
    void dirtGivesNothing();
    void oddSizesAreHarmless_data();
    void oddSizesAreHarmless();

private:
    std::unique_ptr<OcrEngine> m_engine; // with its models loaded, for tests that only read
};

void TstOcrReading::readsPrint_data()
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
    add("Russian with English quoted", ZEMBRA_OCR_LANG_CYRILLIC, SerifFont,
        "Он сказал: \"Good morning, sir\", и ушёл.");
    add("Russian with names", ZEMBRA_OCR_LANG_CYRILLIC, SansFont,
        "Компания Microsoft выпустила новую версию Windows.");
    const int russian = ZEMBRA_OCR_LANG_CYRILLIC;
    add("Russian with English abbreviations", russian, SerifFont,
        "Учёные изучают DNA и RNA в клетках.");
    add("Russian abbreviations", russian, SerifFont, "В США и СССР строили ракеты.");
    add("Russian capitals that English has, too", russian, SansFont,
        "ОНА пошла домой, и РОТА ушла.");
    add("Russian heading", russian, SerifFont, "МОСКВА И ТВЕРЬ РАСТУТ");
    add("Russian with an English title", russian, SansFont,
        "В книге War and Peace более тысячи страниц.");
    add("Russian with a roman number", russian, SansFont, "Глава XIV начинается на странице 352.");
    add("Chinese with English words", ZEMBRA_OCR_LANG_CHINESE, ChineseFont,
        "我的电脑用的是Linux系统，不是Windows。");
    add("Chinese with an English title", ZEMBRA_OCR_LANG_CHINESE, ChineseFont,
        "他说good morning，然后打开了书。");
    add("Chinese with numbers and brackets", ZEMBRA_OCR_LANG_CHINESE, ChineseFont,
        "请看第12页的图3（Figure 3）。");
    add("Chinese question", ZEMBRA_OCR_LANG_CHINESE, ChineseFont,
        "他的WiFi密码是abc123，你记住了吗？");
    add("Chinese", ZEMBRA_OCR_LANG_CHINESE, ChineseFont, "清晨的湖面很安静，只有几只小船。", 1);
}

void TstOcrReading::readsPrint()
{
    QFETCH(int, language);
    QFETCH(QString, font);
    QFETCH(QString, text);
    QFETCH(int, allowed);
    OcrEngine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(language), ZEMBRA_OCR_OK);
    const QImage image = printedLine(text, font.toLatin1().constData(), 44);
    QVERIFY(!image.isNull());
    QString read;
    QCOMPARE(engine.read(image, &read), ZEMBRA_OCR_OK);
    QVERIFY2(editDistance(read, text) <= allowed, qPrintable(read));
}

void TstOcrReading::readsSmallAndLargePrint()
{
    OcrEngine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    const QString text = QStringLiteral("Every page has a margin of its own.");
    for (const int pixelSize : {22, 32, 64, 120, 240}) {
        QString read;
        QCOMPARE(engine.read(printedLine(text, SerifFont, pixelSize), &read), ZEMBRA_OCR_OK);
        QCOMPARE(read, text);
    }
}

void TstOcrReading::readsDotLeaders_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("wanted");
    const auto add = [](int language, const char* text, const char* wanted) {
        QTest::newRow(text) << language << QString::fromUtf8(text) << QString::fromUtf8(wanted);
    };
    const int latin = ZEMBRA_OCR_LANG_LATIN;
    add(latin, "Chapter 1 ........................ 12", "Chapter 1 ... 12");
    add(latin, "Introduction.................3", "Introduction ... 3");
    add(latin, "The harbour ............ page 14", "The harbour ... page 14");
    add(latin, "Contents . . . . . . . . . . . . . 7", "Contents ... 7");
    add(latin, "Title ........ A. Name ........ 21", "Title ... A. Name ... 21");
    add(latin, "Wait... what is it?", "Wait... what is it?");
    add(latin, "And then ... nothing.", "And then ... nothing.");
    add(latin, "Well, i.e. the j and i... ill.", "Well, i.e. the j and i... ill.");
    add(ZEMBRA_OCR_LANG_CYRILLIC, "Глава первая .................... 25", "Глава первая ... 25");
}

void TstOcrReading::readsDotLeaders()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QFETCH(QString, wanted);
    QCOMPARE(m_engine->setLanguage(language), ZEMBRA_OCR_OK);
    for (const char* font : {SerifFont, SansFont}) {
        QString read;
        QVERIFY(m_engine->read(printedLine(text, font, 44), &read) >= 0);
        QCOMPARE(read, wanted);
    }
}

void TstOcrReading::readsFaintAndInvertedPrint()
{
    OcrEngine& engine = *m_engine;
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

void TstOcrReading::readsVerticalOrder()
{
    OcrEngine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_CHINESE), ZEMBRA_OCR_OK);
    const QString text = QStringLiteral("清晨的湖面很安静");
    QString read;
    engine.read(printedColumn(text, 44), &read, ZEMBRA_OCR_VERTICAL);
    QVERIFY2(editDistance(read, text) <= 1, qPrintable(read));
}

void TstOcrReading::readsMarksOfVerticalText_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"天还没有亮，渡船就已经离开了。", "细雨落在屋顶上，也装满了水桶。",
                             "工人、火车、小心、上下。", "《红楼梦》是一部小说，非常有名。",
                             "一二三四五，上山打老虎，老虎不在家。"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TstOcrReading::readsMarksOfVerticalText()
{
    QFETCH(QString, text);
    QCOMPARE(m_engine->setLanguage(ZEMBRA_OCR_LANG_CHINESE), ZEMBRA_OCR_OK);
    QString read;
    QCOMPARE(m_engine->read(printedColumn(text, 44), &read, ZEMBRA_OCR_VERTICAL), ZEMBRA_OCR_OK);
    QCOMPARE(read, text);
}

void TstOcrReading::readsManyTimesTheSame()
{
    OcrEngine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    const QStringList texts = {QStringLiteral("First line of two."), QStringLiteral("Second one.")};
    for (int round = 0; round < 6; ++round) {
        QString read;
        engine.read(printedLine(texts.at(round % 2), SerifFont, 44), &read);
        QCOMPARE(read, texts.at(round % 2));
    }
}

void TstOcrReading::paperGivesNothing()
{
    OcrEngine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    for (const int grey : {0, 128, 255}) {
        QString read;
        const std::vector<unsigned char> pixels(1000 * 100, static_cast<unsigned char>(grey));
        QCOMPARE(engine.read(pixels, 1000, 100, &read), ZEMBRA_OCR_OK);
        QVERIFY(read.isEmpty());
    }
}

void TstOcrReading::noiseGivesNothing()
{
    QRandomGenerator random(1);
    for (const int language :
         {ZEMBRA_OCR_LANG_LATIN, ZEMBRA_OCR_LANG_CYRILLIC, ZEMBRA_OCR_LANG_CHINESE}) {
        OcrEngine& engine = *m_engine;
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

void TstOcrReading::whatIsNoPrintGivesNothing_data()
{
    using Draw = QImage (*)(QRandomGenerator&);
    QTest::addColumn<int>("language");
    QTest::addColumn<Draw>("draw");
    for (const auto& [language, script] :
         {std::pair(ZEMBRA_OCR_LANG_LATIN, "Latin"), std::pair(ZEMBRA_OCR_LANG_CYRILLIC, "Russian"),
          std::pair(ZEMBRA_OCR_LANG_CHINESE, "Chinese")})
        for (const auto& [draw, name] : {std::pair<Draw, const char*>(scribble, "scribble"),
                                         {hatching, "hatching"},
                                         {barcode, "barcode"},
                                         {tableLines, "lines of a table"},
                                         {blots, "blots"},
                                         {halftone, "halftone"},
                                         {upsideDown, "print upside down"},
                                         {feetOfLetters, "feet of letters"}})
            QTest::addRow("%s, %s", name, script) << int(language) << draw;
}

void TstOcrReading::whatIsNoPrintGivesNothing()
{
    QFETCH(int, language);
    using Draw = QImage (*)(QRandomGenerator&);
    QFETCH(Draw, draw);
    QCOMPARE(m_engine->setLanguage(language), ZEMBRA_OCR_OK);
    QRandomGenerator random(7);
    for (int round = 0; round < 4; ++round) {
        QString read;
        QCOMPARE(m_engine->read(draw(random), &read), ZEMBRA_OCR_OK);
        QVERIFY2(read.isEmpty(), qPrintable(read));
    }
}

void TstOcrReading::dirtGivesNothing()
{
    OcrEngine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    std::vector<unsigned char> pixels(800 * 80, 250);
    for (const int at : {900, 13000, 30000, 50123})
        pixels[static_cast<std::size_t>(at)] = 10;
    QString read;
    QCOMPARE(engine.read(pixels, 800, 80, &read), ZEMBRA_OCR_OK);
    QVERIFY2(read.isEmpty(), qPrintable(read));
}

void TstOcrReading::oddSizesAreHarmless_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    for (const auto& [width, height] :
         {std::pair(1, 1), std::pair(2, 2), std::pair(1, 500), std::pair(500, 1), std::pair(3, 3),
          std::pair(32767, 8), std::pair(8, 32767), std::pair(2000, 2000)})
        QTest::addRow("%dx%d", width, height) << width << height;
}

void TstOcrReading::oddSizesAreHarmless()
{
    QFETCH(int, width);
    QFETCH(int, height);
    OcrEngine& engine = *m_engine;
    QCOMPARE(engine.setLanguage(ZEMBRA_OCR_LANG_LATIN), ZEMBRA_OCR_OK);
    std::vector<unsigned char> pixels(static_cast<std::size_t>(width)
                                      * static_cast<std::size_t>(height));
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = (i / 3) % 5 == 0 ? 0 : 255;
    QString read;
    QVERIFY(engine.read(pixels, width, height, &read) >= 0);
}

QTEST_MAIN(TstOcrReading)
#include "tst_ocr_reading.moc"
