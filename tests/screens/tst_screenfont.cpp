#include "tests/screens/screenset.h"
#include "widgets/painting.h"

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QRawFont>

/* The screen's font: four lines of 32 Latin or 16 Chinese characters, one bit a pixel. */
class TestScreenFont : public QObject
{
    Q_OBJECT

private slots:
    void familyIsTheBundledFont();
    void defaultSizeIsOneLine();
    void columnsAreEightAndSixteenPixels_data();
    void columnsAreEightAndSixteenPixels();
    void everyLetterOfTheInterfaceIsInTheFont();
    void glyphsHaveNoGrey_data();
    void glyphsHaveNoGrey();
    void fourLinesFillTheScreen();
    void messagesAreCutBetweenWords();
    void messageThatIsTooLongEndsWithAnEllipsis();
    void chineseMessagesAreCutBetweenCharacters();
    void textIsElidedBetweenWholeCharacters();
};

void TestScreenFont::familyIsTheBundledFont()
{
    QCOMPARE(QRawFont::fromFont(painting::screenFont()).familyName().toLower(),
             QStringLiteral("unifont"));
    QCOMPARE(QRawFont::fromFont(QFont(QStringLiteral("nits"))).familyName().toLower(),
             QStringLiteral("unifont"));
}

void TestScreenFont::defaultSizeIsOneLine()
{
    const QLabel label;
    for (const QFont& font : {QFont(QStringLiteral("nits")), painting::screenFont(),
                              QApplication::font(), label.font()}) {
        const QFontMetrics metrics(font);
        QCOMPARE(metrics.height(), painting::LineHeight);
        QCOMPARE(metrics.lineSpacing(), painting::LineHeight);
        QCOMPARE(metrics.ascent(), 14);
    }
}

void TestScreenFont::columnsAreEightAndSixteenPixels_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("Latin") << QStringLiteral("Reading settings") << 128;
    QTest::newRow("32 columns") << QString(32, 'm') << 256;
    QTest::newRow("accents") << QStringLiteral("ÅåÑñß") << 40;
    QTest::newRow("Cyrillic") << QStringLiteral("Настройки") << 72;
    QTest::newRow("Chinese") << QStringLiteral("扫描设置") << 64;
    QTest::newRow("traditional Chinese") << QStringLiteral("掃描設定") << 64;
}

void TestScreenFont::columnsAreEightAndSixteenPixels()
{
    QFETCH(QString, text);
    QTEST(painting::textWidth(text), "width");
}

void TestScreenFont::everyLetterOfTheInterfaceIsInTheFont()
{
    const QRawFont font = QRawFont::fromFont(painting::screenFont());
    const QString letters = QStringLiteral("AZaz09ÄÖÜäöüßÀÂÇÉÈÊËÎÏÔÛÙàâçéèêëîïôûùœŒÁÍÓÚÑáíóúñ¿¡"
                                           "ÅåÆæØøÃãÕõЁёАЯая…«»“”’–—·中文扫描掃設。，？！");
    for (const QChar letter : letters)
        QVERIFY2(font.supportsCharacter(letter), qPrintable(QString(letter)));
}

void TestScreenFont::glyphsHaveNoGrey_data()
{
    QTest::addColumn<QFont>("font");
    QTest::newRow("drawing font") << painting::screenFont();
    QTest::newRow("application font") << QApplication::font();
}

void TestScreenFont::glyphsHaveNoGrey()
{
    QFETCH(QFont, font);
    font.setStyleStrategy(QFont::NoAntialias);
    QImage image(256, 64, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    painter.setFont(font);
    painter.drawText(0, 14, QStringLiteral("Quick Fuchs Åße, à gauche"));
    painter.drawText(0, 30, QStringLiteral("Съешь же ещё этих мягких"));
    painter.drawText(0, 46, QStringLiteral("扫描到文件 掃描到檔案 词典"));
    painter.end();
    int lit = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(image.pixel(x, y));
            QVERIFY2(grey == 0 || grey == 255, qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
            lit += grey == 255 ? 1 : 0;
        }
    }
    QVERIFY(lit > 1000);
}

// Each line keeps to its own 16 pixels, with marks above and below the letters.
void TestScreenFont::fourLinesFillTheScreen()
{
    for (int line = 0; line < painting::MaxLines; ++line) {
        QImage image(256, 64, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setPen(Qt::white);
        painter.setFont(painting::screenFont());
        painter.drawText(0, line * painting::LineHeight + 14, QStringLiteral("ÅÊÑÜçgjpqy扫龘_|"));
        painter.end();
        for (int y = 0; y < image.height(); ++y) {
            const bool own = y / painting::LineHeight == line;
            for (int x = 0; x < image.width(); ++x)
                QVERIFY(own || qGray(image.pixel(x, y)) == 0);
        }
    }
}

void TestScreenFont::messagesAreCutBetweenWords()
{
    const QStringList lines =
        painting::wrapText(QStringLiteral("one two three\nfour"), 8 * 8, painting::MaxLines);
    QCOMPARE(lines, (QStringList{QStringLiteral("one two"), QStringLiteral("three"),
                                 QStringLiteral("four")}));
}

void TestScreenFont::messageThatIsTooLongEndsWithAnEllipsis()
{
    QString text;
    for (int i = 0; i < 100; ++i)
        text += QStringLiteral("word ");
    const QStringList lines = painting::wrapText(text, 248, painting::MaxLines);
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.last().endsWith(QChar(0x2026)));
    for (const QString& line : lines)
        QVERIFY(painting::textWidth(line) <= 248);
}

void TestScreenFont::chineseMessagesAreCutBetweenCharacters()
{
    const QStringList lines =
        painting::wrapText(QStringLiteral("文件系统已损坏请连接电脑修复"), 5 * 16, 4);
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0), QStringLiteral("文件系统已"));
}

void TestScreenFont::textIsElidedBetweenWholeCharacters()
{
    QCOMPARE(painting::elide(QStringLiteral("fits"), 32), QStringLiteral("fits"));
    const QString ellipsis{QChar(0x2026)};
    const int room = painting::textWidth(ellipsis) + 16;
    QCOMPARE(painting::elide(QStringLiteral("abcdefgh"), room), QStringLiteral("ab") + ellipsis);
    const QString pair = QStringLiteral("\U0001F600\U0001F600\U0001F600\U0001F600");
    const QString cut = painting::elide(pair, painting::textWidth(pair) - 1).chopped(1);
    QVERIFY(cut.isEmpty() || cut.back().isLowSurrogate());
    QCOMPARE(painting::elide(QStringLiteral("abc"), 1), ellipsis);
}

SCREEN_TEST_MAIN(TestScreenFont)
#include "tst_screenfont.moc"
