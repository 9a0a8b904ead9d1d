#include "open/tts/pausetag.h"
#include "open/tts/textreader.h"
#include "tests/unit/open/cutpieces.h"

#include <QTest>

using namespace tts;

class TstTtsWords : public QObject
{
    Q_OBJECT

private slots:
    void findsWords_data();
    void findsWords();
    void findsChineseWords_data();
    void findsChineseWords();
    void tagIsExact_data();
    void tagIsExact();
    void wordSpansSkipMarkUp();
    void wordSpansCountSurrogatePairs();
    void fullWidthFormsAreNarrowed();
    void unspeakableBecomesBlank_data();
    void unspeakableBecomesBlank();
    void silentMarksStayInTheirWord();
};

void TstTtsWords::findsWords_data()
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

void TstTtsWords::findsWords()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text), words);
    QVERIFY(areOrdered(cut(text), text.size()));
}

void TstTtsWords::findsChineseWords_data()
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

void TstTtsWords::findsChineseWords()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text, Script::Chinese), words);
    QVERIFY(areOrdered(cut(text, Script::Chinese), text.size()));
}

void TstTtsWords::tagIsExact_data()
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

void TstTtsWords::tagIsExact()
{
    QFETCH(QString, text);
    QFETCH(int, milliseconds);
    const auto read = readPauseTag(text.toStdU16String());
    QCOMPARE(read ? read->milliseconds : -1, milliseconds);
    if (!read && !text.isEmpty()) {
        // What is no tag is spoken as it stands: nothing of it is lost.
        QString spoken;
        const std::u16string units = text.toStdU16String();
        for (TextReader reader(units); !reader.atEnd();)
            for (const Character& character : reader.next().characters)
                spoken += QChar(static_cast<char16_t>(character.code));
        QCOMPARE(spoken, text);
    }
}

void TstTtsWords::wordSpansSkipMarkUp()
{
    const QString text = QStringLiteral("One") + tag(200) + QStringLiteral(" two");
    const auto pieces = cut(text);
    QCOMPARE(pieces[1].words[0].offset, 3 + tag(200).size() + 1);
    QCOMPARE(pieces[1].words[0].length, 3);
    QCOMPARE(wordsOf(text), QStringList({"One", "two"}));
}

void TstTtsWords::wordSpansCountSurrogatePairs()
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

void TstTtsWords::fullWidthFormsAreNarrowed()
{
    const QString text = QStringLiteral("共\uff11\uff12页\uff2d\uff30\uff13。");
    QCOMPARE(piecesOf(text, Script::Chinese), QStringList({"共12页,", "MP3。"}));
    QCOMPARE(wordsOf(text, Script::Chinese),
             QStringList({"共", QStringLiteral("\uff11\uff12"), "页",
                          QStringLiteral("\uff2d\uff30\uff13")}));
}

void TstTtsWords::unspeakableBecomesBlank_data()
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

void TstTtsWords::unspeakableBecomesBlank()
{
    QFETCH(char16_t, unit);
    const QString text = QStringLiteral("one") + QChar(unit) + QStringLiteral("two") + QChar(unit);
    QCOMPARE(wordsOf(text), QStringList({"one", "two"}));
    for (const Piece& piece : cut(text))
        QVERIFY(piece.text.find(char32_t(unit)) == std::u32string::npos || unit == 0);
    QCOMPARE(piecesOf(text), QStringList({"one two"}));
}

void TstTtsWords::silentMarksStayInTheirWord()
{
    const QString text = QStringLiteral("know\u00adledge is\u200b on");
    QCOMPARE(wordsOf(text), QStringList({"know\u00adledge", "is", "on"}));
    QCOMPARE(piecesOf(text), QStringList({"knowledge is on"}));
    QVERIFY(areOrdered(cut(text), text.size()));
}

QTEST_APPLESS_MAIN(TstTtsWords)
#include "tst_tts_words.moc"
