#include "dict/transwords.h"

#include <QTest>

using transwords::Cut;
using transwords::Span;

namespace {

constexpr int English = 101;
constexpr int French = 103;
constexpr int German = 104;
constexpr int Russian = 151;
constexpr int Chinese = 1;

QStringList wordsOf(const QString& text, const Cut& cut)
{
    QStringList words;
    for (Span word = transwords::next(text, 0, cut); word.isValid();
         word = transwords::next(text, word.end, cut))
        words.append(text.mid(word.start, word.length()));
    return words;
}

QStringList wordsBackwards(const QString& text, const Cut& cut)
{
    QStringList words;
    for (Span word = transwords::previous(text, text.size(), cut); word.isValid();
         word = transwords::previous(text, word.start, cut))
        words.prepend(text.mid(word.start, word.length()));
    return words;
}

} // namespace

/* How a line is cut into words. */
class TestTransWords : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void aWordBeyondTheBasicPlaneIsNotCutInHalf();
    void fromWithinAWordWhatIsLeftOfIt();
    void outsideTheTextThereIsNothing();
    void singleCharactersAreWordsOnDemand();
    void aStretchCanBeOneWord();
    void fragmentAtTheEndOfALine_data();
    void fragmentAtTheEndOfALine();
    void restAtTheStartOfALine_data();
    void restAtTheStartOfALine();
    void chineseRunsHaveEightCharactersAtTheMost();
    void trimmedWords_data();
    void trimmedWords();
};

void TestTransWords::lines_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    const auto row = [](const char* name, int language, const char16_t* text, QStringList words) {
        QTest::newRow(name) << language << QString::fromUtf16(text) << words;
    };
    row("nothing", English, u"", {});
    row("blanks", English, u"   ", {});
    row("separators only", English, u",.:;?!", {});
    row("comma and blank are skipped", English, u"one, two", {"one", "two"});
    row("apostrophe belongs to its word", English, u"I don't", {"I", "don't"});
    row("apostrophe bounds French words", French, u"l'homme", {"l", "homme"});
    row("apostrophe in German", German, u"s'ist", {"s'ist"});
    row("digits are part of words", English, u"mp3 player", {"mp3", "player"});
    row("a hyphen is a word", English, u"well-known", {"well", "-", "known"});
    row("brackets are words", English, u"(a) b", {"(", "a", ")", "b"});
    row("accents", French, u"éléphant œuvre Ÿ", {"éléphant", "œuvre", "Ÿ"});
    row("letters of Windows", French, u"c\u009cur \u008cuvre",
        {QStringLiteral("c\u009cur"), QStringLiteral("\u008cuvre")});
    row("Spanish marks", 105, u"¿qué? ¡sí!", {"¿", "qué", "¡sí"});
    row("Russian", Russian, u"Съешь ещё, булок", {"Съешь", "ещё", "булок"});
    row("Latin in Russian", Russian, u"слово word1", {"слово", "word1"});
    row("Cyrillic elsewhere", English, u"да", {"д", "а"});
    row("Chinese", Chinese, u"中国人。", {"中", "国", "人", "。"});
    row("Latin in Chinese", Chinese, u"用USB线", {"用", "USB", "线"});
    row("ends with the text", English, u"a bc", {"a", "bc"});
    row("line ends", English, u"a\nb\u2029c\u00a0d", {"a", "b", "c", "d"});
}

void TestTransWords::lines()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text, {language, false, {}}), words);
    QCOMPARE(wordsBackwards(text, {language, false, {}}), words);
}

void TestTransWords::aWordBeyondTheBasicPlaneIsNotCutInHalf()
{
    const QString text = QString::fromUcs4(U"a\U00020000b");
    QCOMPARE(wordsOf(text, {Chinese, false, {}}),
             QStringList({"a", QString::fromUcs4(U"\U00020000"), "b"}));
    const QString lone = QStringLiteral("a") + QChar(0xd840) + QStringLiteral("b");
    QCOMPARE(wordsOf(lone, {Chinese, false, {}}).size(), 3);
}

void TestTransWords::fromWithinAWordWhatIsLeftOfIt()
{
    const QString text = QStringLiteral("hello world");
    const Cut cut = {English, false, {}};
    QCOMPARE(transwords::next(text, 2, cut), (Span{2, 5}));
    QCOMPARE(transwords::next(text, 5, cut), (Span{6, 11}));
    QCOMPARE(transwords::previous(text, 8, cut), (Span{6, 8}));
    QCOMPARE(transwords::previous(text, 6, cut), (Span{0, 5}));
    QCOMPARE(transwords::previous(text, 5, cut), (Span{0, 5}));
}

void TestTransWords::outsideTheTextThereIsNothing()
{
    const QString text = QStringLiteral("one");
    const Cut cut = {English, false, {}};
    QVERIFY(!transwords::next(text, 3, cut).isValid());
    QVERIFY(!transwords::next(text, 99, cut).isValid());
    QCOMPARE(transwords::next(text, -5, cut), (Span{0, 3}));
    QVERIFY(!transwords::previous(text, 0, cut).isValid());
    QVERIFY(!transwords::previous(text, -1, cut).isValid());
    QCOMPARE(transwords::previous(text, 99, cut), (Span{0, 3}));
}

void TestTransWords::singleCharactersAreWordsOnDemand()
{
    const QString text = QStringLiteral("ab, c");
    QCOMPARE(wordsOf(text, {English, true, {}}), QStringList({"a", "b", "c"}));
    QCOMPARE(wordsBackwards(text, {English, true, {}}), QStringList({"a", "b", "c"}));
}

void TestTransWords::aStretchCanBeOneWord()
{
    const QString text = QStringLiteral("see inter-national law");
    const Cut cut = {English, false, {4, 18}};
    const QStringList words = {"see", "inter-national", "law"};
    QCOMPARE(wordsOf(text, cut), words);
    QCOMPARE(wordsBackwards(text, cut), words);
    QCOMPARE(transwords::next(text, 9, cut), (Span{4, 18}));
    QCOMPARE(wordsOf(QStringLiteral("in front of"), {English, false, {0, 11}}),
             QStringList("in front of"));
    // It may end behind the text, which was shortened.
    QCOMPARE(wordsOf(QStringLiteral("ab"), {English, false, {0, 9}}), QStringList("ab"));
}

void TestTransWords::fragmentAtTheEndOfALine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("piece");
    QTest::newRow("piece of a word") << "the inter-"
                                     << "inter";
    QTest::newRow("only a piece") << "inter-"
                                  << "inter";
    QTest::newRow("no hyphen") << "the inter"
                               << "";
    QTest::newRow("hyphen alone") << "-"
                                  << "";
    QTest::newRow("dash behind a blank") << "the end -"
                                         << "";
    QTest::newRow("two hyphens") << "what--"
                                 << "";
    QTest::newRow("behind a bracket") << "(a)-"
                                      << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void TestTransWords::fragmentAtTheEndOfALine()
{
    QFETCH(QString, text);
    QFETCH(QString, piece);
    const Span span = transwords::fragmentAtEnd(text, {English, false, {}});
    QCOMPARE(span.isValid() ? text.mid(span.start, span.length()) : QString(), piece);
}

void TestTransWords::restAtTheStartOfALine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rest");
    QTest::newRow("rest of a word") << "national law"
                                    << "national";
    QTest::newRow("only a rest") << "national"
                                 << "national";
    QTest::newRow("behind a blank") << " national"
                                    << "";
    QTest::newRow("separator") << ", national"
                               << "";
    QTest::newRow("bracket") << "(national)"
                             << "";
    QTest::newRow("hyphen") << "-national"
                            << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void TestTransWords::restAtTheStartOfALine()
{
    QFETCH(QString, text);
    QFETCH(QString, rest);
    const Span span = transwords::restAtStart(text, {English, false, {}});
    QCOMPARE(span.isValid() ? text.mid(span.start, span.length()) : QString(), rest);
}

void TestTransWords::chineseRunsHaveEightCharactersAtTheMost()
{
    const QString text = QStringLiteral("一二三四五六七八九十");
    QCOMPARE(transwords::hanRun(text, 0), QStringLiteral("一二三四五六七八"));
    QCOMPARE(transwords::hanRun(text, 7), QStringLiteral("八九十"));
    QCOMPARE(transwords::hanRun(QStringLiteral("中国，人"), 0), QStringLiteral("中国"));
    QCOMPARE(transwords::hanRun(QStringLiteral("中a"), 0), QStringLiteral("中"));
    const QString rare = QString::fromUcs4(U"\U00020000\U00020001。");
    QCOMPARE(transwords::hanRun(rare, 0), rare.left(4));
    QVERIFY(transwords::hasHan(QStringLiteral("ab中")));
    QVERIFY(transwords::hasHan(rare));
    QVERIFY(!transwords::hasHan(QStringLiteral("abc。，")));
    QVERIFY(!transwords::hasHan(QString()));
}

void TestTransWords::trimmedWords_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("core");
    QTest::newRow("plain") << "house"
                           << "house";
    QTest::newRow("brackets") << "(house)"
                              << "house";
    QTest::newRow("quotes") << "\u201chouse\u201d"
                            << "house";
    QTest::newRow("within") << "'well-known'"
                            << "well-known";
    QTest::newRow("apostrophe within") << "don't"
                                       << "don't";
    QTest::newRow("nothing left") << "(-)"
                                  << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("other scripts") << "\u00abдом\u00bb"
                                   << "дом";
}

void TestTransWords::trimmedWords()
{
    QFETCH(QString, word);
    QFETCH(QString, core);
    QCOMPARE(transwords::trimmed(word, English), core);
}

QTEST_APPLESS_MAIN(TestTransWords)
#include "tst_transwords.moc"
