#include "open/ocr/secondreading.h"
#include "open/ocr/wordgaps.h"

#include <QString>
#include <QStringList>
#include <QTest>

#include <utility>
#include <vector>

using ocr::Word;

namespace {

constexpr int Pitch = 100;

/* "Это/97 DNA/93": words with the confidence behind them, side by side at equal distances. */
std::vector<Word> words(const QString& line, int firstPlace = 0)
{
    std::vector<Word> result;
    int left = firstPlace * Pitch;
    for (const QString& part : line.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const qsizetype slash = part.lastIndexOf(QLatin1Char('/'));
        result.push_back({part.left(slash).toStdU32String(), part.mid(slash + 1).toFloat(), left,
                          left + Pitch - 20});
        left += Pitch;
    }
    return result;
}

QString texts(const std::vector<Word>& line)
{
    QStringList result;
    for (const Word& word : line)
        result.append(QString::fromStdU32String(word.text));
    return result.join(QLatin1Char(' '));
}

/* White paper with ink in the given columns. */
ocr::GreyPicture inkAt(int width, const std::vector<std::pair<int, int>>& stretches)
{
    constexpr int Height = 30;
    ocr::GreyPicture line = {width, Height, std::vector<std::uint8_t>(width * Height, 255)};
    for (const auto& [left, right] : stretches)
        for (int x = left; x < right; ++x)
            line.pixels[std::size_t(10) * static_cast<std::size_t>(width)
                        + static_cast<std::size_t>(x)] = 0;
    return line;
}

} // namespace

/* Which words of Russian print are English. */
class TstOcrSecondReading : public QObject
{
    Q_OBJECT

private slots:
    void choosesWords_data();
    void choosesWords();
    void oneWordOfOneModelIsTwoOfTheOther();
    void withoutASecondReadingTheFirstStays();
    void spansAreCutInTheWhite();
    void neighbouringWordsMakeOneSpan();
    void sureWordsNeedNoSpan();
    void boxesOutsideThePictureAreHarmless();
};

void TstOcrSecondReading::choosesWords_data()
{
    QTest::addColumn<QString>("russian");
    QTest::addColumn<QString>("english");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("wanted");
    const auto add = [](const char* name, const char* russian, const char* english, int place,
                        const char* wanted) {
        QTest::newRow(name) << QString::fromUtf8(russian) << QString::fromUtf8(english) << place
                            << QString::fromUtf8(wanted);
    };
    // Confidences as the models give them.
    add("English word", "файл/93 Веа4те/25 и/97", "Readme/96", 1, "файл Readme и");
    add("Russian word in doubt", "Тихий/97 гавань/86 и/97", "raBaHb/90", 1, "Тихий гавань и");
    add("seen as capitals", "этот/97 мост./91", "MOCT./93", 1, "этот мост.");
    add("inner capital of lookalikes", "Телеканал/47 и/97", "TenekaHa/81", 0, "Телеканал и");
    add("English name of lookalikes", "код/97 ореп/40", "open/95", 1, "код open");
    add("DNA", "Молекула/97 ОМА/96 несёт/96", "DNA/93", 1, "Молекула DNA несёт");
    add("DNA at the end", "Молекула/97 ОМА./96", "DNA./93", 1, "Молекула DNA.");
    add("in brackets", "кислота/97 (ОМА)/96", "(DNA)/93", 1, "кислота (DNA)");
    add("DNA, not well read", "Молекула/97 ОМА/96", "DNA/80", 1, "Молекула ОМА");
    add("another length", "Молекула/97 ОМА/96", "DNAI/93", 1, "Молекула ОМА");
    add("Russian three letters", "взвод/97 НАТО/96 и/97", "HATO/97", 1, "взвод НАТО и");
    add("Russian four letters", "и/97 РОТА/96 ушла/97", "POTA/92", 1, "и РОТА ушла");
    add("Russian, doubted", "и/97 СССР/86 и/97", "CCCP/97", 1, "и СССР и");
    add("either, Russian around", "Телеканал/97 ВВС/97 и/97", "BBC/98", 1, "Телеканал ВВС и");
    add("roman number", "Глава/97 ХУ/68 о/97", "XIV/94", 1, "Глава XIV о");
    add("surer digits", "модель/97 Х5./77", "X5./91", 1, "модель X5.");
    add("beside English", "книга/97 ап4/60 Реасе/95 о/97", "and/97 Peace/93", 1,
        "книга and Peace о");
    add("among Russian", "наша/97 оса/96 тут/97", "oca/97", 1, "наша оса тут");
    add("beside English, sure", "ап4/60 оса/97", "and/97 oca/90", 0, "and оса");
    add("article", "На\\е/20 а/97 4геат/10 да/97", "Have/96 - dream/96", 0, "Have a dream да");
    add("Russian а after English", "На\\е/20 а/97 он/97", "Have/96", 0, "Have а он");
}

void TstOcrSecondReading::choosesWords()
{
    QFETCH(QString, russian);
    QFETCH(QString, english);
    QFETCH(int, place);
    QFETCH(QString, wanted);
    QCOMPARE(texts(ocr::mergedReadings(words(russian), words(english, place))), wanted);
}

void TstOcrSecondReading::oneWordOfOneModelIsTwoOfTheOther()
{
    const std::vector<Word> russian = {{U"Он", 97, 0, 80}, {U"Суо04тогптд", 10, 100, 280}};
    const std::vector<Word> english = {{U"Good", 96, 100, 170}, {U"morning", 95, 185, 281}};
    QCOMPARE(texts(ocr::mergedReadings(russian, english)), QStringLiteral("Он Good morning"));

    const std::vector<Word> parted = {
        {U"М!", 20, 0, 50}, {U"сго", 30, 55, 120}, {U"и", 97, 140, 150}};
    const std::vector<Word> whole = {{U"Microsoft", 95, 0, 120}};
    QCOMPARE(texts(ocr::mergedReadings(parted, whole)), QStringLiteral("Microsoft и"));
}

void TstOcrSecondReading::withoutASecondReadingTheFirstStays()
{
    QVERIFY(ocr::mergedReadings({}, words(QStringLiteral("Stray/99"))).empty());
    const std::vector<Word> russian = words(QStringLiteral("Дом/97 ОМА/90 зггее/10"));
    QCOMPARE(texts(ocr::mergedReadings(russian, {})), QStringLiteral("Дом ОМА зггее"));
}

void TstOcrSecondReading::spansAreCutInTheWhite()
{
    const ocr::GreyPicture line = inkAt(300, {{10, 90}, {110, 190}, {210, 290}});
    // The boxes are wrong by some columns.
    const auto spans = ocr::doubtfulSpans(
        line, {{U"Дом", 97, 10, 100}, {U"зггее", 10, 105, 195}, {U"тут", 97, 197, 290}});
    QCOMPARE(spans.size(), std::size_t(1));
    QVERIFY(spans[0].left > 90 && spans[0].left < 110);
    QVERIFY(spans[0].right > 190 && spans[0].right < 210);
}

void TstOcrSecondReading::neighbouringWordsMakeOneSpan()
{
    const ocr::GreyPicture line = inkAt(400, {{10, 90}, {110, 190}, {210, 290}, {310, 390}});
    const auto spans = ocr::doubtfulSpans(line, words(QStringLiteral("а4/9 а5/9 тут/97 а6/9")));
    QCOMPARE(spans.size(), std::size_t(2));
    QCOMPARE(spans[0].left, 0);
    QVERIFY(spans[0].right >= 190 && spans[0].right <= 210);
    QVERIFY(spans[1].left >= 290 && spans[1].left <= 310);
    QCOMPARE(spans[1].right, 400);
}

void TstOcrSecondReading::sureWordsNeedNoSpan()
{
    const ocr::GreyPicture line = inkAt(300, {{10, 90}});
    QVERIFY(ocr::doubtfulSpans(line, {}).empty());
    QVERIFY(ocr::doubtfulSpans(line, words(QStringLiteral("Дом/97 и/80 сад/96"))).empty());
}

void TstOcrSecondReading::boxesOutsideThePictureAreHarmless()
{
    const ocr::GreyPicture line = inkAt(50, {{10, 40}});
    for (const auto& span : ocr::doubtfulSpans(
             line, {{U"Дом", 97, -500, -20}, {U"а4е", 9, 900, 800}, {U"тут", 97, 2000, 90000}}))
        QVERIFY(span.left >= 0 && span.left < span.right && span.right <= 50);
}

QTEST_APPLESS_MAIN(TstOcrSecondReading)
#include "tst_ocr_secondreading.moc"
