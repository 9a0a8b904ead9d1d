#include "engines/speechtext.h"

#include <QTest>

namespace {

constexpr int English = 101;
constexpr int Chinese = 1;

SpeechText prepare(const QString& text, int language, int punctuationPause, int wordPause)
{
    SpeechSettings settings;
    settings.language = language;
    settings.punctuationPause = punctuationPause;
    settings.wordPause = wordPause;
    return prepareSpeechText(text, settings);
}

const QString P = QStringLiteral("<vtml_pause time=\"400\"/>"); // punctuation pause 2
const QString W = QStringLiteral("<vtml_pause time=\"200\"/>"); // word pause 1

} // namespace

class TestSpeechText : public QObject
{
    Q_OBJECT

private slots:
    void pauseTagHoldsMilliseconds();
    void punctuationPauseIsTwoHundredMillisecondsAStep();
    void pausesFollowPunctuation_data();
    void pausesFollowPunctuation();
    void pausesFollowWords_data();
    void pausesFollowWords();
    void pauseCountsRunWithBlanksAndPauses();
    void chinesePunctuationIsFolded();
    void chineseVoicesGetNoPauses_data();
    void chineseVoicesGetNoPauses();
    void commaComesBeforeFirstQuote_data();
    void commaComesBeforeFirstQuote();
    void everyUnitLeadsBackToItsPlace_data();
    void everyUnitLeadsBackToItsPlace();
    void rangeInsideMarkUpHasNoSource();
    void rangesOutsideTheTextHaveNoSource();
    void printThatLooksLikeATagIsBrokenUp();
    void onlyTheLineEndsAskedForEndAWord();
    void unchangedPunctuationLeavesQuotesAlone();
    void unchangedPunctuationGivesChineseVoicesPauses();
    void abandonedTextStopsWhereItWas_data();
    void abandonedTextStopsWhereItWas();
};

void TestSpeechText::pauseTagHoldsMilliseconds()
{
    QCOMPARE(pauseTag(500), QStringLiteral("<vtml_pause time=\"500\"/>"));
}

void TestSpeechText::punctuationPauseIsTwoHundredMillisecondsAStep()
{
    const SpeechText result = prepare(QStringLiteral("Yes."), English, 2, 0);
    QCOMPARE(result.text, QStringLiteral("Yes.") + P);
    QCOMPARE(result.punctuationTagLength, int(P.size()));
    QCOMPARE(result.wordTagLength, 0);
}

void TestSpeechText::pausesFollowPunctuation_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << "plain words"
                          << "plain words";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("number") << "Pi is 3.14, ok."
                            << "Pi is 3.14," + P + " ok." + P;
    QTest::newRow("thousands") << "1,000"
                               << "1,000";
    QTest::newRow("point at the start") << ".5"
                                        << "." + P + "5";
    QTest::newRow("point at the end") << "5."
                                      << "5." + P;
    QTest::newRow("digit on one side only") << "3.x"
                                            << "3." + P + "x";
    QTest::newRow("all separators")
        << "a,b.c:d;e?f!g"
        << "a," + P + "b." + P + "c:" + P + "d;" + P + "e?" + P + "f!" + P + "g";
    QTest::newRow("double") << "what?!"
                            << "what?" + P + "!" + P;
    QTest::newRow("other punctuation") << "a-b (c)"
                                       << "a-b (c)";
}

void TestSpeechText::pausesFollowPunctuation()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(prepare(text, English, 2, 0).text, expected);
}

void TestSpeechText::pausesFollowWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("two words") << "a b"
                               << "a" + W + " b" + W + " ";
    QTest::newRow("double blank adds one blank and no tag") << "a  b"
                                                            << "a" + W + "  b" + W + " ";
    QTest::newRow("empty") << ""
                           << " ";
    QTest::newRow("punctuation") << "a, b"
                                 << "a," + P + W + " b" + W + " ";
    QTest::newRow("number") << "3.14 1,5"
                            << "3.14" + W + " 1,5" + W + " ";
    QTest::newRow("paragraph") << QStringLiteral("a\u2029b")
                               << QStringLiteral("a\u2029") + W + " b" + W + " ";
    QTest::newRow("line") << QStringLiteral("a\nb") << QStringLiteral("a\n") + W + " b" + W + " ";
}

void TestSpeechText::pausesFollowWords()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const SpeechText result = prepare(text, English, 2, 1);
    QCOMPARE(result.text, expected);
    QCOMPARE(result.wordTagLength, int(W.size()));
}

void TestSpeechText::pauseCountsRunWithBlanksAndPauses()
{
    QCOMPARE(prepare(QStringLiteral("a, b c. d"), English, 1, 0).pauseCounts, (QVector<int>{1, 4}));
    // With word pauses the count starts at the number of the word.
    QCOMPARE(prepare(QStringLiteral("a, b c. d"), English, 1, 1).pauseCounts, (QVector<int>{1, 3}));
}

void TestSpeechText::chinesePunctuationIsFolded()
{
    const QString source = QStringLiteral("\u201c\u201d\uff01\uff0c\u3010\u3011\u3002\uff08\uff09"
                                          "\u3001\u2019'\uff1a");
    QCOMPARE(prepare(source, Chinese, 5, 5).text, QStringLiteral("\"\"!,[].(),\"\":"));
    QCOMPARE(prepare(QStringLiteral("it's"), Chinese, 0, 0).text, QStringLiteral("it\"s"));
}

void TestSpeechText::chineseVoicesGetNoPauses_data()
{
    QTest::addColumn<int>("language");
    for (const int language : {1, 211, 212})
        QTest::addRow("%d", language) << language;
}

void TestSpeechText::chineseVoicesGetNoPauses()
{
    QFETCH(int, language);
    QVERIFY(isChineseVoice(language));
    const SpeechText result = prepare(QStringLiteral("a, b."), language, 3, 3);
    QCOMPARE(result.text, QStringLiteral("a, b."));
    QVERIFY(result.pauseCounts.isEmpty());
}

void TestSpeechText::commaComesBeforeFirstQuote_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("blank") << "He said \"yes\" \"no\""
                           << "He said,\"yes\" \"no\"";
    QTest::newRow("colon") << "So:\"yes\""
                           << "So,\"yes\"";
    QTest::newRow("letter stays") << "a b\"c"
                                  << "a b\"c";
    QTest::newRow("at the start") << "\"yes\""
                                  << "\"yes\"";
    QTest::newRow("one before stays") << " \"yes\""
                                      << " \"yes\"";
    QTest::newRow("no quote") << "yes"
                              << "yes";
}

void TestSpeechText::commaComesBeforeFirstQuote()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    SpeechText result = prepare(text, English, 2, 0);
    QCOMPARE(result.text.remove(P), expected);
}

void TestSpeechText::everyUnitLeadsBackToItsPlace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("wordPause");
    for (const int wordPause : {0, 1}) {
        QTest::addRow("plain %d", wordPause) << "Pi is 3.14, ok." << English << wordPause;
        QTest::addRow("quotes %d", wordPause) << "He said \"a, b\"!" << English << wordPause;
        QTest::addRow("emoji %d", wordPause)
            << QStringLiteral("a \U0001F600, b") << English << wordPause;
        QTest::addRow("paragraphs %d", wordPause)
            << QStringLiteral("a.\u2029 b  c") << English << wordPause;
        QTest::addRow("tag %d", wordPause)
            << "say <vtml_pause time=\"9\"/> now" << English << wordPause;
    }
    QTest::addRow("Chinese") << QStringLiteral("\u4f60\u597d\uff0c\u4e16\u754c\u3002") << Chinese
                             << 0;
}

void TestSpeechText::everyUnitLeadsBackToItsPlace()
{
    QFETCH(QString, text);
    QFETCH(int, language);
    QFETCH(int, wordPause);
    const SpeechText result = prepare(text, language, 1, wordPause);
    QCOMPARE(result.origin.size(), result.text.size());
    // What was not inserted is the source, unit for unit, in order and complete.
    int next = 0;
    for (int i = 0; i < result.text.size(); ++i) {
        if (result.origin.at(i) < 0)
            continue;
        QCOMPARE(result.origin.at(i), next);
        ++next;
        int sourceOffset = -1;
        int sourceLength = 0;
        QVERIFY(result.sourceRange(i, 1, sourceOffset, sourceLength));
        QCOMPARE(sourceOffset, result.origin.at(i));
        QCOMPARE(sourceLength, 1);
    }
    QCOMPARE(next, int(text.size()));
}

void TestSpeechText::rangeInsideMarkUpHasNoSource()
{
    const SpeechText result = prepare(QStringLiteral("a, b"), English, 2, 0);
    int offset = -1;
    int length = -1;
    QVERIFY(!result.sourceRange(3, 5, offset, length));
    // A range that reaches into mark-up is cut down to what is text.
    QVERIFY(result.sourceRange(0, 10, offset, length));
    QCOMPARE(offset, 0);
    QCOMPARE(length, 2);
}

void TestSpeechText::rangesOutsideTheTextHaveNoSource()
{
    const SpeechText result = prepare(QStringLiteral("abc"), English, 0, 0);
    int offset = 0;
    int length = 0;
    QVERIFY(!result.sourceRange(-1, 2, offset, length));
    QVERIFY(!result.sourceRange(3, 1, offset, length));
    QVERIFY(!result.sourceRange(0, 0, offset, length));
    QVERIFY(!result.sourceRange(0, -5, offset, length));
    QVERIFY(result.sourceRange(2, 1000, offset, length));
    QCOMPARE(length, 1);
}

void TestSpeechText::printThatLooksLikeATagIsBrokenUp()
{
    const QString source = QStringLiteral("x<vtml_pause time=\"60000\"/>y");
    for (const int language : {English, Chinese})
        QVERIFY(
            !prepare(source, language, 0, 0).text.contains(QLatin1String("<vtml_pause time=\"6")));
}

void TestSpeechText::onlyTheLineEndsAskedForEndAWord()
{
    SpeechSettings settings;
    settings.language = English;
    settings.wordPause = 1;
    settings.lineEnds = QStringLiteral("\n");
    QCOMPARE(prepareSpeechText(QStringLiteral("a\u2029b\nc"), settings).text,
             QStringLiteral("a\u2029b\n") + W + " c" + W + " ");
}

void TestSpeechText::unchangedPunctuationLeavesQuotesAlone()
{
    SpeechSettings settings;
    settings.language = English;
    settings.punctuationPause = 2;
    settings.adaptsPunctuation = false;
    QCOMPARE(prepareSpeechText(QStringLiteral("say \"yes\"."), settings).text,
             QStringLiteral("say \"yes\".") + P);
}

void TestSpeechText::unchangedPunctuationGivesChineseVoicesPauses()
{
    SpeechSettings settings;
    settings.language = Chinese;
    settings.punctuationPause = 2;
    settings.adaptsPunctuation = false;
    QCOMPARE(prepareSpeechText(QStringLiteral("\u4f60\uff0c\u597d."), settings).text,
             QStringLiteral("\u4f60\uff0c\u597d.") + P);
}

void TestSpeechText::abandonedTextStopsWhereItWas_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("wordPause");
    QTest::newRow("punctuation pauses") << English << 0;
    QTest::newRow("word pauses") << English << 1;
    QTest::newRow("Chinese") << Chinese << 0;
}

void TestSpeechText::abandonedTextStopsWhereItWas()
{
    QFETCH(int, language);
    QFETCH(int, wordPause);
    const QString source = QStringLiteral("one, two. ").repeated(1000);
    int asked = 0;
    SpeechSettings settings;
    settings.language = language;
    settings.wordPause = wordPause;
    settings.isAbandoned = [&asked] { return ++asked == 20; };
    const SpeechText result = prepareSpeechText(source, settings);
    QVERIFY(result.abandoned);
    QCOMPARE(asked, 20);
    QVERIFY(result.origin.size() == result.text.size());
    // Nothing beyond the place was copied.
    for (const int origin : result.origin)
        QVERIFY(origin < 20);

    settings.isAbandoned = [] { return false; };
    QVERIFY(!prepareSpeechText(source, settings).abandoned);
}

QTEST_GUILESS_MAIN(TestSpeechText)
#include "tst_speechtext.moc"
