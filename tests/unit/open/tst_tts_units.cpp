#include "open/tts/characters.h"
#include "open/tts/loudness.h"
#include "open/tts/samplequeue.h"
#include "open/tts/voices.h"
#include "open/tts/wordclock.h"
#include "open/tts/wordqueue.h"

#include <QList>
#include <QTest>

#include <cmath>

using namespace tts;

namespace {

/* Words of four letters with a blank between: begins 0, 5, 10 ... */
Piece pieceOfWords(int count)
{
    Piece piece;
    for (int i = 0; i < count; ++i) {
        const auto begin = static_cast<std::size_t>(i) * 5;
        piece.words.push_back({i * 5, 4, begin, begin + 4});
        piece.text += U"word ";
    }
    return piece;
}

QList<int> samplesOf(WordClock& clock)
{
    QList<int> samples;
    for (const TimedWord& word : clock.take())
        samples.append(static_cast<int>(word.sample));
    return samples;
}

} // namespace

class TstTtsUnits : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeHasItsVoice_data();
    void everyCodeHasItsVoice();
    void unknownCodesHaveNone();
    void speedFormula_data();
    void speedFormula();
    void fasterSettingIsNeverSlower();
    void wordTakesItsEvent();
    void mergedWordsShareTheTime();
    void repeatedEventsCountOnce();
    void laterEventsOfAWordAreItsOwn();
    void slippedEventFindsItsWord();
    void eventsBackwardsAreIgnored();
    void wordsWithoutEventsGetTimes();
    void closedWordMovesToItsSound();
    void onsetIsFoundAcrossBlocks();
    void silentWordStays();
    void wordInSoundThatIsGoneStays();
    void volumeScales();
    void volumeChangeHasNoStep();
    void boostIsLouderAndNeverClips();
    void levelsAreClamped();
};

void TstTtsUnits::everyCodeHasItsVoice_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("file");
    const auto add = [](int code, const char* file) {
        QTest::addRow("%d", code) << code << QString::fromLatin1(file);
    };
    add(1, "sit/cmn-Latn-pinyin");
    add(2, "sit/cmn-Latn-pinyin");
    add(101, "gmw/en");
    add(103, "roa/fr");
    add(104, "gmw/de");
    add(105, "roa/es");
    add(106, "roa/it");
    add(107, "gmq/sv");
    add(108, "gmq/da");
    add(109, "gmq/nb");
    add(110, "gmw/nl");
    add(111, "roa/pt");
    add(151, "zle/ru");
    add(152, "sem/ar");
    add(200, "gmw/en");
    add(201, "gmw/en-US");
    add(202, "roa/es-419");
    add(203, "gmw/en+f3");
    add(204, "gmw/en-GB-scotland");
    add(205, "gmw/en-US+f3");
    add(206, "gmw/en-GB-x-rp");
    add(211, "sit/cmn-Latn-pinyin+f3");
    add(212, "sit/cmn-Latn-pinyin+m3");
}

void TstTtsUnits::everyCodeHasItsVoice()
{
    QFETCH(int, code);
    QFETCH(QString, file);
    const Voice* voice = findVoice(code);
    QVERIFY(voice);
    QCOMPARE(voice->code, code);
    QCOMPARE(QString::fromLatin1(voice->file(voice->script)), file);
}

void TstTtsUnits::unknownCodesHaveNone()
{
    for (const int code : {0, -1, 3, 102, 150, 153, 199, 207, 210, 213, 2147483647})
        QVERIFY2(!findVoice(code), qPrintable(QString::number(code)));
    QCOMPARE(defaultVoice().code, 101);
}

void TstTtsUnits::speedFormula_data()
{
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("speed");
    QTest::addColumn<int>("rate");
    QTest::newRow("slowest") << 101 << 0 << 80;
    QTest::newRow("half") << 101 << 24 << 128;
    QTest::newRow("normal") << 101 << 48 << 175;
    QTest::newRow("largest setting") << 101 << 80 << 308;
    QTest::newRow("double") << 101 << 96 << 375;
    QTest::newRow("clamped") << 101 << 1000 << 440;
    QTest::newRow("Latin America normal") << 202 << 90 << 175;
    QTest::newRow("Latin America setting 48") << 202 << 48 << 131;
}

void TstTtsUnits::speedFormula()
{
    QFETCH(int, voice);
    QFETCH(int, speed);
    QFETCH(int, rate);
    QCOMPARE(wordsPerMinute(*findVoice(voice), speed), rate);
}

void TstTtsUnits::fasterSettingIsNeverSlower()
{
    for (const int code : {1, 101, 202})
        for (int speed = 1; speed <= 120; ++speed)
            QVERIFY(wordsPerMinute(*findVoice(code), speed)
                    >= wordsPerMinute(*findVoice(code), speed - 1));
}

void TstTtsUnits::wordTakesItsEvent()
{
    const Piece piece = pieceOfWords(3);
    WordClock clock(piece, 1000);
    clock.addEvent(0, 0);
    QCOMPARE(samplesOf(clock), QList<int>({1000}));
    clock.addEvent(5, 50);
    clock.addEvent(10, 100);
    clock.finish(150);
    QCOMPARE(samplesOf(clock), QList<int>({1050, 1100}));
}

void TstTtsUnits::mergedWordsShareTheTime()
{
    const Piece piece = pieceOfWords(4);
    WordClock clock(piece, 0);
    clock.addEvent(0, 0);
    clock.addEvent(15, 300);
    QCOMPARE(samplesOf(clock), QList<int>({0, 100, 200, 300}));
}

void TstTtsUnits::repeatedEventsCountOnce()
{
    const Piece piece = pieceOfWords(2);
    WordClock clock(piece, 0);
    clock.addEvent(0, 0);
    clock.addEvent(1, 10);
    clock.addEvent(1, 20);
    clock.addEvent(5, 100);
    clock.addEvent(6, 110);
    clock.finish(200);
    QCOMPARE(samplesOf(clock), QList<int>({0, 100}));
}

void TstTtsUnits::laterEventsOfAWordAreItsOwn()
{
    // A character, a figure of five, two more characters: every character has an event.
    Piece piece;
    piece.text = U"有百分之五十个梨";
    piece.words = {{0, 1, 0, 1}, {1, 3, 1, 6}, {4, 1, 6, 7}, {5, 1, 7, 8}};
    WordClock clock(piece, 0);
    for (std::size_t at = 0; at < piece.text.size(); ++at)
        clock.addEvent(at, static_cast<std::int64_t>(at) * 100);
    clock.finish(800);
    QCOMPARE(samplesOf(clock), QList<int>({0, 100, 600, 700}));
}

void TstTtsUnits::slippedEventFindsItsWord()
{
    const Piece piece = pieceOfWords(2);
    WordClock clock(piece, 0);
    clock.addEvent(0, 0);
    clock.addEvent(4, 70);
    QCOMPARE(samplesOf(clock), QList<int>({0, 70}));
}

void TstTtsUnits::eventsBackwardsAreIgnored()
{
    const Piece piece = pieceOfWords(3);
    WordClock clock(piece, 0);
    clock.addEvent(5, 60);
    clock.addEvent(0, 70);
    clock.addEvent(10, 50); // earlier than the one before: not before it in the report
    clock.addEvent(99, 80);
    clock.finish(90);
    QCOMPARE(samplesOf(clock), QList<int>({0, 60, 60}));
}

void TstTtsUnits::wordsWithoutEventsGetTimes()
{
    const Piece piece = pieceOfWords(4);
    WordClock clock(piece, 0);
    clock.finish(200);
    QCOMPARE(samplesOf(clock), QList<int>({0, 50, 100, 150}));
}

void TstTtsUnits::closedWordMovesToItsSound()
{
    WordQueue queue;
    queue.add({{0, 4, 100}, {5, 4, 400}}, 100);
    std::vector<std::int16_t> samples(1000, 0);
    std::fill(samples.begin() + 50, samples.end(), std::int16_t(500));
    queue.findOnsets(100, samples);
    QCOMPARE(queue.front().sample, std::int64_t(150));
    queue.pop();
    QCOMPARE(queue.front().sample, std::int64_t(400));
}

void TstTtsUnits::onsetIsFoundAcrossBlocks()
{
    WordQueue queue;
    queue.add({{0, 4, 20}}, 0);
    const std::vector<std::int16_t> silence(100, 3);
    queue.findOnsets(0, silence);
    queue.findOnsets(100, silence);
    QCOMPARE(queue.front().sample, std::int64_t(20));
    queue.findOnsets(200, std::vector<std::int16_t>(100, -500));
    QCOMPARE(queue.front().sample, std::int64_t(200));
    queue.findOnsets(300, std::vector<std::int16_t>(100, 900));
    QCOMPARE(queue.front().sample, std::int64_t(200));
}

void TstTtsUnits::silentWordStays()
{
    WordQueue queue;
    queue.add({{0, 4, 20}}, 0);
    queue.findOnsets(0, std::vector<std::int16_t>(SampleRate, 0));
    queue.findOnsets(SampleRate, std::vector<std::int16_t>(100, 900));
    QCOMPARE(queue.front().sample, std::int64_t(20));
}

void TstTtsUnits::wordInSoundThatIsGoneStays()
{
    WordQueue queue;
    queue.add({{0, 4, 20}}, 50);
    queue.findOnsets(50, std::vector<std::int16_t>(100, 900));
    QCOMPARE(queue.front().sample, std::int64_t(20));
}

void TstTtsUnits::volumeScales()
{
    for (const auto& [percent, wanted] :
         {std::pair(0, 0), std::pair(50, 5000), std::pair(100, 10000)}) {
        Loudness loudness;
        loudness.setVolume(percent);
        std::vector<std::int16_t> samples(100, 10000);
        loudness.apply(samples);
        for (const std::int16_t sample : samples)
            QVERIFY(std::abs(sample - wanted) <= 1);
    }
}

void TstTtsUnits::volumeChangeHasNoStep()
{
    Loudness loudness;
    std::vector<std::int16_t> samples(500, 10000);
    loudness.apply(samples);
    std::fill(samples.begin(), samples.end(), std::int16_t(10000));
    loudness.setVolume(0);
    loudness.apply(samples);
    QVERIFY(samples.front() > 9900);
    QCOMPARE(samples.back(), std::int16_t(0));
    for (std::size_t i = 1; i < samples.size(); ++i)
        QVERIFY(samples[i - 1] - samples[i] <= 25);
}

void TstTtsUnits::boostIsLouderAndNeverClips()
{
    Loudness loudness;
    loudness.setBoost(1000);
    std::vector<std::int16_t> quiet(10, 3000);
    loudness.apply(quiet);
    // 9 dB
    QVERIFY(std::abs(quiet[5] - 3000 * std::pow(10.0, 9.0 / 20)) < 3);
    std::int16_t before = 0;
    for (int value = 0; value <= 32767; value += 1000) {
        std::vector<std::int16_t> loud = {static_cast<std::int16_t>(value),
                                          static_cast<std::int16_t>(-value)};
        loudness.apply(loud);
        QVERIFY(loud[0] >= before);
        QVERIFY(loud[0] >= 0);
        QCOMPARE(loud[1], static_cast<std::int16_t>(-loud[0]));
        before = loud[0];
    }
}

void TstTtsUnits::levelsAreClamped()
{
    Loudness loudness;
    loudness.setVolume(-5);
    QCOMPARE(loudness.volume(), 0);
    loudness.setVolume(500);
    QCOMPARE(loudness.volume(), 100);
    loudness.setBoost(-1000);
    std::vector<std::int16_t> samples(10, 10000);
    loudness.apply(samples);
    QVERIFY(std::abs(samples[9] - 10000) <= 1);
}

QTEST_APPLESS_MAIN(TstTtsUnits)
#include "tst_tts_units.moc"
