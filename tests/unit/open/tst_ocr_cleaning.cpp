#include "open/ocr/plausibility.h"
#include "open/ocr/resultcleaning.h"

#include <QTest>

using ocr::cleanResult;
using ocr::decodeUtf8;
using ocr::encodeUtf16;

namespace {

QString cleaned(const char* text, bool chinese = false)
{
    return QString::fromStdU32String(cleanResult(decodeUtf8(text), chinese));
}

} // namespace

class TstOcrCleaning : public QObject
{
    Q_OBJECT

private slots:
    void cleans_data();
    void cleans();
    void cleansChinese_data();
    void cleansChinese();
    void dropsWhatIsNoPrint_data();
    void dropsWhatIsNoPrint();
    void decodesOnlyUtf8();
    void encodesOnlyCharacters();
};

void TstOcrCleaning::cleans_data()
{
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QString>("wanted");
    const auto add = [](const char* name, const char* read, const char* wanted) {
        QTest::newRow(name) << QByteArray(read) << QString::fromUtf8(wanted);
    };
    add("nothing", "", "");
    add("plain", "A line.", "A line.");
    add("form feed at the end", "A line.\n\f", "A line.");
    add("two lines become one", "One\ntwo\r\nthree\n", "One two three");
    add("runs of blanks",
        "a  b\t \xc2\xa0"
        "c",
        "a b c");
    add("typographic apostrophe", "don\u2019t \u2018tis", "don't 'tis");
    add("modifier apostrophe", "l\u02bceau", "l'eau");
    add("hyphens", "well\u2010known non\u2011stop", "well-known non-stop");
    add("soft hyphen", "know\u00adledge", "knowledge");
    add("zero width", "a\u200bb\ufeff", "ab");
    add("controls",
        "a\x01"
        "b\x7f",
        "ab");
    add("ligatures", "\ufb01nal \ufb02ow o\ufb03ce", "final flow office");
    add("bar at the edges", "| A line. |", "A line.");
    add("bar touching", "|A line._", "A line.");
    add("several strokes", "~ ` | A line. _ |", "A line.");
    add("lone comma before", ", A line.", "A line.");
    add("lone apostrophe after", "A line. \u2019", "A line.");
    add("only marks", "| _ ~", "");
    add("only a dot", ".", "");
    add("a dot and a stroke", ".`", "");
    add("dash of speech stays", "\u2014 Yes, he said.", "\u2014 Yes, he said.");
    add("bullet stays", "\u2022 item", "\u2022 item");
    add("French spacing stays", "Vraiment !", "Vraiment !");
    add("quotation stays", "\u201eJa\u201c, \u00abnon\u00bb", "\u201eJa\u201c, \u00abnon\u00bb");
    add("apostrophe of a word stays", "'tis the boys'", "'tis the boys'");
    add("mark-up stays text", "<b>a</b> &amp;", "<b>a</b> &amp;");
    add("dot and number", ".5 of it", ".5 of it");
}

void TstOcrCleaning::cleans()
{
    QFETCH(QByteArray, read);
    QFETCH(QString, wanted);
    QCOMPARE(cleaned(read.constData()), wanted);
}

void TstOcrCleaning::cleansChinese_data()
{
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QString>("wanted");
    QTest::newRow("blanks between")
        << QByteArray("今 天 天气 ， 好 。") << QStringLiteral("今天天气，好。");
    QTest::newRow("blanks beside digits") << QByteArray("共 12 页") << QStringLiteral("共12页");
    QTest::newRow("Latin words keep theirs")
        << QByteArray("他说 good morning 了") << QStringLiteral("他说good morning了");
    QTest::newRow("ideographic blank") << QByteArray("　今　天") << QStringLiteral("今天");
    QTest::newRow("marks in full width")
        << QByteArray("什么?好!他说:一;二,三") << QStringLiteral("什么？好！他说：一；二，三");
    QTest::newRow("marks of numbers and foreign words stay")
        << QByteArray("共有1,234人, Yes, no? 是") << QStringLiteral("共有1,234人，Yes, no?是");
    QTest::newRow("brackets in full width") << QByteArray("图3 (Figure 3) 。他(小声)说")
                                            << QStringLiteral("图3（Figure 3）。他（小声）说");
    QTest::newRow("brackets among foreign words stay")
        << QByteArray("f (x) = 2") << QStringLiteral("f (x) = 2");
    QTest::newRow("a bracket without counterpart")
        << QByteArray("他说)好(") << QStringLiteral("他说）好（");
    QTest::newRow("quotation marks stay") << QByteArray("他说‘好’") << QStringLiteral("他说‘好’");
}

void TstOcrCleaning::cleansChinese()
{
    QFETCH(QByteArray, read);
    QFETCH(QString, wanted);
    QCOMPARE(cleaned(read.constData(), true), wanted);
}

void TstOcrCleaning::dropsWhatIsNoPrint_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("confidence");
    QTest::addColumn<bool>("kept");
    const auto add = [](const char* name, const char* text, int confidence, bool kept) {
        QTest::newRow(name) << QString::fromUtf8(text) << confidence << kept;
    };
    add("sure line", "A quiet rain fell.", 95, true);
    add("sure letter", "A", 75, true);
    add("doubtful letter", "A", 74, false);
    add("sure word", "harbour", 65, true);
    add("repeats", "12222222222333333 and more", 60, false);
    add("dots of a contents page", "Chapter two ..... 12", 60, true);
    add("sure mark", "?", 90, true);
    add("nothing", "", 95, false);
    add("more than half wrong", "A quict rnin fcll on tbe", 44, false);
    add("doubtful line", "A quict rnin fcll on tbe", 45, true);
    add("doubtful word", "harbonr", 59, false);
    add("less doubtful word", "harbonr", 60, true);
    add("mostly marks", "abc . , def = _ ghi ! -", 64, false);
    add("single letters", "e a i o l I r t i l", 64, false);
    add("doubtful Russian", "Тихнй дожль палал", 50, true);
    add("doubtful Chinese", "细雨落在屋顶上也装满", 50, true);
    add("Chinese marks", "一。，，“二", 64, false);
    add("Chinese strokes", "一全一研一", 65, false);
    add("sure Chinese strokes", "一二", 80, true);
    add("accents count as letters", "été où çà là élève", 50, true);
}

void TstOcrCleaning::dropsWhatIsNoPrint()
{
    QFETCH(QString, text);
    QFETCH(int, confidence);
    QFETCH(bool, kept);
    QCOMPARE(ocr::isPlausible(text.toStdU32String(), confidence), kept);
}

void TstOcrCleaning::decodesOnlyUtf8()
{
    QCOMPARE(decodeUtf8("a\xff\xc0\x80z"), std::u32string(U"az"));
    QCOMPARE(decodeUtf8("\xe4\xb8"), std::u32string());
    QCOMPARE(decodeUtf8("\xed\xa0\x80z"), std::u32string(U"z"));
    QCOMPARE(decodeUtf8("\xf0\x9f\x98\x80"), std::u32string(U"\U0001f600"));
    QCOMPARE(decodeUtf8("\xc3(x"), std::u32string(U"(x"));
}

void TstOcrCleaning::encodesOnlyCharacters()
{
    QCOMPARE(encodeUtf16(U"a\U0001f600"), std::u16string(u"a\U0001f600"));
    const std::u32string odd = {U'a', char32_t(0xd800), char32_t(0x110000), U'b'};
    QCOMPARE(encodeUtf16(odd), std::u16string(u"ab"));
}

QTEST_APPLESS_MAIN(TstOcrCleaning)
#include "tst_ocr_cleaning.moc"
