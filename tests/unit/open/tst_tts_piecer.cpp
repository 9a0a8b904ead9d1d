#include "open/tts/characters.h"
#include "open/tts/pausetag.h"
#include "open/tts/piecer.h"
#include "open/tts/textreader.h"

#include <QStringList>
#include <QTest>

using namespace tts;

namespace {

std::vector<Piece> cut(const QString& text, Script script = Script::Latin)
{
    return cutIntoPieces(text.toStdU16String(), script);
}

/* The words as they stand in the text. */
QStringList wordsOf(const QString& text, Script script = Script::Latin)
{
    QStringList words;
    for (const Piece& piece : cut(text, script))
        for (const Word& word : piece.words)
            words.append(text.mid(word.offset, word.length));
    return words;
}

QStringList piecesOf(const QString& text, Script script = Script::Latin)
{
    QStringList pieces;
    for (const Piece& piece : cut(text, script))
        pieces.append(QString::fromStdU32String(piece.text).simplified());
    return pieces;
}

QString tag(int milliseconds)
{
    return QStringLiteral("<vtml_pause time=\"%1\"/>").arg(milliseconds);
}

/* Every word lies inside its text and piece, after the one before. */
bool areOrdered(const std::vector<Piece>& pieces, qsizetype units)
{
    int after = 0;
    for (const Piece& piece : pieces) {
        std::size_t inPiece = 0;
        for (const Word& word : piece.words) {
            if (word.offset < after || word.length < 1 || word.offset + word.length > units
                || word.begin < inPiece || word.end <= word.begin || word.end > piece.text.size())
                return false;
            after = word.offset + word.length;
            inPiece = word.end;
        }
    }
    return true;
}

} // namespace

class TstTtsPiecer : public QObject
{
    Q_OBJECT

private slots:
    void findsWords_data();
    void findsWords();
    void findsChineseWords_data();
    void findsChineseWords();
    void cutsAtTags();
    void addsContinuingToneBeforeTags();
    void tagsAlone();
    void tagIsExact_data();
    void tagIsExact();
    void wordSpansSkipMarkUp();
    void wordSpansCountSurrogatePairs();
    void changesScript();
    void everyScriptHasItsPieces_data();
    void everyScriptHasItsPieces();
    void wordOfTwoScriptsIsOneWord();
    void fullWidthFormsAreNarrowed();
    void unspeakableBecomesBlank_data();
    void unspeakableBecomesBlank();
    void silentMarksStayInTheirWord();
    void runsOfStopsAreOne();
    void paragraphEndsSentence();
    void longClausesAreCut_data();
    void longClausesAreCut();
    void prefersCutsAtSentenceEnds();
    void endlessWordIsOneWord();
    void fullTextOfOneUnit_data();
    void fullTextOfOneUnit();
    void nothingToSay();
};

void TstTtsPiecer::findsWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    const auto add = [](const char* name, const char* text, const char* words) {
        QTest::newRow(name) << QString::fromUtf8(text)
                            << QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    add("plain", "One two  three", "One two three");
    add("punctuation around", "\"One,\" (two) - three... four!?", "One two three four");
    add("numbers", "Pi is 3.14, not 1,000 at 12:30.", "Pi is 3.14 not 1,000 at 12:30");
    add("apostrophes and hyphens", "Don't re-read o\u2019clock 'tis",
        "Don't re-read o\u2019clock tis");
    add("no blank after comma", "one,two;three", "one two three");
    add("dash without blanks", "the end\u2014of it\u2026now", "the end of it now");
    add("abbreviation", "e.g. this", "e.g this");
    add("address", "write to a@b.example now", "write to a@b.example now");
    add("signs that are spoken", "this & that = 5 %", "this & that = 5 %");
    add("lines", "one\ntwo\r\nthree\tfour", "one two three four");
    add("Spanish marks", "\u00bfQu\u00e9? \u00a1No!", "Qu\u00e9 No");
    add("Russian", "Да, «нет».", "Да нет");
    add("Arabic", "مرحبا، كيف؟", "مرحبا كيف");
    add("emoji", "so \U0001f600 it is", "so \U0001f600 it is");
    add("entities", "&lt;b&gt;", "&lt b&gt");
    add("letters look like mark-up", "<b>bold</b>", "<b>bold</b>");
    add("only punctuation", "... - ( ) !", "");
    add("soft line", "a\u2028b\u00a0c", "a b c");
}

void TstTtsPiecer::findsWords()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text), words);
    QVERIFY(areOrdered(cut(text), text.size()));
}

void TstTtsPiecer::findsChineseWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    const auto add = [](const char* name, const char* text, const char* words) {
        QTest::newRow(name) << QString::fromUtf8(text)
                            << QString::fromUtf8(words).split(QLatin1Char(' '));
    };
    add("characters one by one", "你好，世界。", "你 好 世 界");
    add("numbers stay whole", "共12页", "共 12 页");
    add("Latin words", "用Linux系统", "用 Linux 系 统");
    add("letters and digits", "看MP3吧", "看 MP3 吧");
    add("folded punctuation", "你好,\"世界\".[一]", "你 好 世 界 一");
    add("beyond the basic plane", "\U00020000好", "\U00020000 好");
}

void TstTtsPiecer::findsChineseWords()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text, Script::Chinese), words);
    QVERIFY(areOrdered(cut(text, Script::Chinese), text.size()));
}

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

void TstTtsPiecer::tagIsExact_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("milliseconds"); // -1: no tag
    QTest::newRow("usual") << "<vtml_pause time=\"400\"/>" << 400;
    QTest::newRow("none") << "<vtml_pause time=\"0\"/>" << 0;
    QTest::newRow("longest") << "<vtml_pause time=\"65535\"/>" << 65535;
    QTest::newRow("text after it") << "<vtml_pause time=\"7\"/>x" << 7;
    QTest::newRow("too long") << "<vtml_pause time=\"65536\"/>" << -1;
    QTest::newRow("overflow") << "<vtml_pause time=\"99999999999999999999\"/>" << -1;
    QTest::newRow("negative") << "<vtml_pause time=\"-1\"/>" << -1;
    QTest::newRow("no number") << "<vtml_pause time=\"\"/>" << -1;
    QTest::newRow("letters") << "<vtml_pause time=\"4x\"/>" << -1;
    QTest::newRow("capitals") << "<VTML_pause time=\"4\"/>" << -1;
    QTest::newRow("blank inside") << "<vtml_pause  time=\"4\"/>" << -1;
    QTest::newRow("single quotes") << "<vtml_pause time='4'/>" << -1;
    QTest::newRow("not closed") << "<vtml_pause time=\"4\">" << -1;
    QTest::newRow("cut off") << "<vtml_pause time=\"4" << -1;
    QTest::newRow("cut off early") << "<vtml_pau" << -1;
    QTest::newRow("other tag") << "<vtml_volume time=\"4\"/>" << -1;
    QTest::newRow("empty") << "" << -1;
}

void TstTtsPiecer::tagIsExact()
{
    QFETCH(QString, text);
    QFETCH(int, milliseconds);
    const auto read = readPauseTag(text.toStdU16String());
    QCOMPARE(read ? read->milliseconds : -1, milliseconds);
    if (!read && !text.isEmpty()) {
        // What is no tag is spoken as it stands: nothing of it is lost.
        QString spoken;
        for (const Stretch& stretch : readText(text.toStdU16String()))
            for (const Character& character : stretch.characters)
                spoken += QChar(static_cast<char16_t>(character.code));
        QCOMPARE(spoken, text);
    }
}

void TstTtsPiecer::wordSpansSkipMarkUp()
{
    const QString text = QStringLiteral("One") + tag(200) + QStringLiteral(" two");
    const auto pieces = cut(text);
    QCOMPARE(pieces[1].words[0].offset, 3 + tag(200).size() + 1);
    QCOMPARE(pieces[1].words[0].length, 3);
    QCOMPARE(wordsOf(text), QStringList({"One", "two"}));
}

void TstTtsPiecer::wordSpansCountSurrogatePairs()
{
    const QString text = QStringLiteral("\U0001f600\U0001f44d a\U0001f44db c");
    const auto pieces = cut(text);
    QCOMPARE(pieces.size(), std::size_t(1));
    const auto& words = pieces[0].words;
    QCOMPARE(words.size(), std::size_t(3));
    QCOMPARE(words[0].offset, 0);
    QCOMPARE(words[0].length, 4);
    QCOMPARE(words[1].offset, 5);
    QCOMPARE(words[1].length, 4);
    QCOMPARE(words[1].begin, std::size_t(4));
    QCOMPARE(words[2].offset, 10);
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

void TstTtsPiecer::fullWidthFormsAreNarrowed()
{
    const QString text = QStringLiteral("共\uff11\uff12页\uff2d\uff30\uff13。");
    QCOMPARE(piecesOf(text, Script::Chinese), QStringList({"共12页,", "MP3。"}));
    QCOMPARE(wordsOf(text, Script::Chinese),
             QStringList({"共", QStringLiteral("\uff11\uff12"), "页",
                          QStringLiteral("\uff2d\uff30\uff13")}));
}

void TstTtsPiecer::unspeakableBecomesBlank_data()
{
    QTest::addColumn<char16_t>("unit");
    QTest::newRow("null") << u'\0';
    QTest::newRow("embedded command") << u'\x01';
    QTest::newRow("escape") << u'\x1b';
    QTest::newRow("delete") << u'\x7f';
    QTest::newRow("next line") << u'\x85';
    QTest::newRow("Braille first") << u'\u2800';
    QTest::newRow("Braille last") << u'\u28ff';
    QTest::newRow("private use") << u'\ue000';
    QTest::newRow("private use last") << u'\uf8ff';
    QTest::newRow("lone high surrogate") << char16_t(0xd800);
    QTest::newRow("lone low surrogate") << char16_t(0xdfff);
    QTest::newRow("no character") << u'\uffff';
}

void TstTtsPiecer::unspeakableBecomesBlank()
{
    QFETCH(char16_t, unit);
    const QString text = QStringLiteral("one") + QChar(unit) + QStringLiteral("two") + QChar(unit);
    QCOMPARE(wordsOf(text), QStringList({"one", "two"}));
    for (const Piece& piece : cut(text))
        QVERIFY(piece.text.find(char32_t(unit)) == std::u32string::npos || unit == 0);
    QCOMPARE(piecesOf(text), QStringList({"one two"}));
}

void TstTtsPiecer::silentMarksStayInTheirWord()
{
    const QString text = QStringLiteral("know\u00adledge is\u200b on");
    QCOMPARE(wordsOf(text), QStringList({"know\u00adledge", "is", "on"}));
    QCOMPARE(piecesOf(text), QStringList({"knowledge is on"}));
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
