#include "open/tts/characters.h"
#include "tests/unit/open/cutpieces.h"

#include <QTest>

using namespace tts;

class TstTtsPiecer : public QObject
{
    Q_OBJECT

private slots:
    void cutsAtTags();
    void addsContinuingToneBeforeTags();
    void tagsAlone();
    void changesScript();
    void everyScriptHasItsPieces_data();
    void everyScriptHasItsPieces();
    void wordOfTwoScriptsIsOneWord();
    void runsOfStopsAreOne();
    void paragraphEndsSentence();
    void longClausesAreCut_data();
    void longClausesAreCut();
    void prefersCutsAtSentenceEnds();
    void longTextIsReadInParts_data();
    void longTextIsReadInParts();
    void endlessWordIsOneWord();
    void fullTextOfOneUnit_data();
    void fullTextOfOneUnit();
    void nothingToSay();
};

void TstTtsPiecer::cutsAtTags()
{
    const QString text = QStringLiteral("One,") + tag(400) + QStringLiteral(" two.") + tag(0)
                         + QStringLiteral(" Three");
    const auto pieces = cut(text);
    QCOMPARE(piecesOf(text), QStringList({"One,", "two.", "Three"}));
    QCOMPARE(pieces[0].pauseMs, 400);
    QCOMPARE(pieces[1].pauseMs, 0);
    QCOMPARE(pieces[2].pauseMs, 0);
    QVERIFY(pieces[0].endPause);
}

void TstTtsPiecer::addsContinuingToneBeforeTags()
{
    const QString text = QStringLiteral("one") + tag(200) + QStringLiteral(" (two)") + tag(200)
                         + QStringLiteral(" said.\"") + tag(200) + QStringLiteral(" end");
    QCOMPARE(piecesOf(text), QStringList({"one,", "(two),", "said.\"", "end"}));
    // The comma is nowhere in the text: it makes no pause.
    const auto pieces = cut(text);
    QVERIFY(!pieces[0].endPause);
    QVERIFY(!pieces[1].endPause);
    QVERIFY(pieces[2].endPause);
}

void TstTtsPiecer::tagsAlone()
{
    const auto pieces = cut(tag(300) + QStringLiteral(" ") + tag(500));
    QCOMPARE(pieces.size(), std::size_t(2));
    QVERIFY(pieces[0].text.empty());
    QCOMPARE(pieces[0].pauseMs, 300);
    QVERIFY(pieces[1].text.empty());
    QCOMPARE(pieces[1].pauseMs, 500);
}

void TstTtsPiecer::changesScript()
{
    const auto pieces =
        cut(QStringLiteral("我们学习Linux系统，“Hello world”完。"), Script::Chinese);
    QStringList texts;
    for (const Piece& piece : pieces)
        texts.append(
            (piece.script == Script::Chinese ? QStringLiteral("zh:") : QStringLiteral("en:"))
            + QString::fromStdU32String(piece.text));
    QCOMPARE(texts, QStringList({"zh:我们学习,", "en:Linux,", "zh:系统，", "en:“Hello world”,",
                                 "zh:完。"}));
    // No pause inside the sentence but where it has one.
    QVERIFY(!pieces[0].endPause);
    QVERIFY(!pieces[1].endPause);
    QVERIFY(pieces[2].endPause);
    QVERIFY(!pieces[3].endPause);
    QVERIFY(pieces[4].endPause);
}

void TstTtsPiecer::everyScriptHasItsPieces_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("script");
    const auto add = [](const char* name, const char* word, Script script) {
        QTest::newRow(name) << QString::fromUtf8(word) << static_cast<int>(script);
    };
    add("Latin", "fleuve", Script::Latin);
    add("Latin with accents", "\u1ea5\u0142\u0153", Script::Latin);
    add("Cyrillic", "река", Script::Cyrillic);
    add("Greek", "ποταμός", Script::Greek);
    add("Arabic", "نهر", Script::Arabic);
    add("Arabic digits", "\u0661\u0662", Script::Arabic);
    add("Hebrew", "נהר", Script::Unknown);
    add("Devanagari", "नदी", Script::Unknown);
    add("kana", "かわ", Script::Unknown);
    add("Hangul", "강", Script::Unknown);
    add("Chinese", "江", Script::Chinese);
    add("Chinese, rare", "\U00020000", Script::Unknown);
    add("Thai", "แม่น้ำ", Script::Unknown);
    add("Tibetan", "\u0f56\u0f7c", Script::Unknown);
    add("Bengali digits", "\u09e7\u09e8", Script::Unknown);
}

void TstTtsPiecer::everyScriptHasItsPieces()
{
    QFETCH(QString, word);
    QFETCH(int, script);
    // Neither neighbour in the same piece: its own voice speaks each.
    const Script around = script == int(Script::Latin) ? Script::Cyrillic : Script::Latin;
    const QString other = around == Script::Latin ? QStringLiteral("one") : QStringLiteral("два");
    const QString text = other + QLatin1Char(' ') + word + QLatin1Char(' ') + other;
    const auto pieces = cut(text, around);
    QCOMPARE(pieces.size(), std::size_t(3));
    QCOMPARE(int(pieces[0].script), int(around));
    QCOMPARE(int(pieces[1].script), script);
    QCOMPARE(int(pieces[2].script), int(around));
    QCOMPARE(wordsOf(text, around), QStringList({other, word, other}));
}

void TstTtsPiecer::wordOfTwoScriptsIsOneWord()
{
    const QString text = QStringLiteral("the \u03b2-carot\u0435ne, so");
    QCOMPARE(wordsOf(text), QStringList({"the", QStringLiteral("\u03b2-carot\u0435ne"), "so"}));
    QStringList texts;
    for (const Piece& piece : cut(text)) {
        for (const char32_t c : piece.text)
            QVERIFY(!scriptOf(c) || scriptOf(c) == piece.script);
        texts.append(QString::fromStdU32String(piece.text).simplified());
    }
    QCOMPARE(texts, QStringList({"the,", QStringLiteral("\u03b2-,"), "carot,",
                                 QStringLiteral("\u0435,"), "ne, so"}));
    QVERIFY(areOrdered(cut(text), text.size()));
}

void TstTtsPiecer::runsOfStopsAreOne()
{
    QCOMPARE(piecesOf(QStringLiteral("it.. was?! good... yes")),
             QStringList({"it. was? good. yes"}));
    const auto pieces = cut(QStringLiteral("it.. was"));
    QCOMPARE(pieces[0].words[1].begin, std::size_t(5));
}

void TstTtsPiecer::paragraphEndsSentence()
{
    QCOMPARE(piecesOf(QStringLiteral("A title\u2029The text")),
             QStringList({"A title.", "The text"}));
    QCOMPARE(piecesOf(QStringLiteral("Done!\u2029Next")), QStringList({"Done!", "Next"}));
}

void TstTtsPiecer::longClausesAreCut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("words");
    QTest::addColumn<int>("mostCharacters");
    QTest::newRow("Chinese without a stop") << QString(530, QChar(0x4eba)) << 530 << 85;
    QTest::newRow("numbers") << QStringLiteral("12345 ").repeated(300) << 300 << 60;
    QTest::newRow("words") << QStringLiteral("word ").repeated(1000) << 1000 << 260;
}

void TstTtsPiecer::longClausesAreCut()
{
    QFETCH(QString, text);
    QFETCH(int, words);
    QFETCH(int, mostCharacters);
    QCOMPARE(wordsOf(text).size(), words);
    for (const Piece& piece : cut(text))
        QVERIFY(static_cast<int>(piece.text.size()) <= mostCharacters);
    QVERIFY(areOrdered(cut(text), text.size()));
}

void TstTtsPiecer::prefersCutsAtSentenceEnds()
{
    const QString sentence = QStringLiteral(
        "This sentence has, all in all, about a hundred letters, enough to see where "
        "a long text is cut in pieces. ");
    const QStringList pieces = piecesOf(sentence.repeated(6));
    QVERIFY(pieces.size() >= 3);
    for (const QString& piece : pieces)
        QVERIFY2(piece.endsWith(QStringLiteral("pieces.")), qPrintable(piece));
}

void TstTtsPiecer::longTextIsReadInParts_data()
{
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<QString>("partEnd");
    QTest::newRow("sentences") << "The tide went out, and they walked. "
                               << "walked. ";
    QTest::newRow("quoted") << "\"The tide went out, and they walked.\" "
                            << "walked.\" ";
    QTest::newRow("no sentence ends") << "the tide went out and they walked "
                                      << " ";
    QTest::newRow("Chinese") << QStringLiteral("潮水退了，他们走了。") << QStringLiteral("走了。");
    QTest::newRow("Chinese without a stop") << QStringLiteral("潮水退了他们走了") << "";
}

void TstTtsPiecer::longTextIsReadInParts()
{
    QFETCH(QString, sentence);
    QFETCH(QString, partEnd);
    const QString text = sentence.repeated(32768 / sentence.size());
    QStringList words;
    for (int i = 0; i < text.size() / sentence.size(); ++i)
        words += wordsOf(sentence);
    QCOMPARE(wordsOf(text), words);
    QVERIFY(areOrdered(cut(text), text.size()));

    const std::u16string units = text.toStdU16String();
    qsizetype read = 0;
    for (TextReader reader(units); !reader.atEnd();) {
        const Stretch stretch = reader.next();
        const auto size = static_cast<qsizetype>(stretch.characters.size());
        QVERIFY(size > 0 && size < 1300);
        read += size;
        QCOMPARE(stretch.end, read < text.size() ? StretchEnd::Length : StretchEnd::Text);
        QVERIFY(text.left(read).endsWith(partEnd));
    }
    QCOMPARE(read, text.size());
}

void TstTtsPiecer::endlessWordIsOneWord()
{
    const QString text = QStringLiteral("x").repeated(5000) + QStringLiteral(" end");
    const auto pieces = cut(text);
    QVERIFY(pieces.size() > 10);
    QCOMPARE(wordsOf(text), QStringList({QStringLiteral("x").repeated(5000), "end"}));
    QVERIFY(areOrdered(pieces, text.size()));
    qsizetype letters = 0;
    for (const Piece& piece : pieces)
        letters += std::count(piece.text.begin(), piece.text.end(), U'x');
    QCOMPARE(letters, 5000);
}

void TstTtsPiecer::fullTextOfOneUnit_data()
{
    QTest::addColumn<char16_t>("unit");
    for (const char16_t unit : {u'a', u'5', u'.', u' ', u'"', u'<', u'\u4eba', u'\u2029', u'-',
                                char16_t(0xd83d), u'\u0301', u'&'})
        QTest::addRow("U+%04X", static_cast<unsigned>(unit)) << unit;
}

void TstTtsPiecer::fullTextOfOneUnit()
{
    QFETCH(char16_t, unit);
    const QString text(32768, QChar(unit));
    QVERIFY(areOrdered(cut(text), text.size()));
    QVERIFY(areOrdered(cut(text, Script::Chinese), text.size()));
}

void TstTtsPiecer::nothingToSay()
{
    QVERIFY(cut(QString()).empty());
    QVERIFY(cut(QStringLiteral("   ")).empty());
    QVERIFY(cut(QStringLiteral("...")).empty());
    QVERIFY(cut(tag(0)).empty());
}

QTEST_APPLESS_MAIN(TstTtsPiecer)
#include "tst_tts_piecer.moc"
