/* Entries of real dictionaries, cleaned: the first line is what the reader looks for. */
#include "open/dic/entrytext.h"
#include "open/dic/fieldtext.h"
#include "tests/unit/open/dicfiles.h"

#include <QTest>

namespace {

QString cleaned(const char* raw, const char* head, bool linesAreSenses = false)
{
    return QString::fromStdU16String(dic::cleanEntry(raw, head, linesAreSenses).text());
}

} // namespace

class TestDicEntries : public QObject
{
    Q_OBJECT

private slots:
    void theHeadLineIsDropped();
    void theTrueSpellingComesFromTheHeadLine();
    void aFormLeadsToTheWordInTheHeadLine();
    void gendersAreShownOtherGrammarIsNot();
    void examplesAndRemarksComeLast();
    void labelsComeBehindTheTranslation();
    void theMainEntryOfAWordIsTheProminentOne();
    void wordClassesAreTold();
    void sensesAreNumberedInOneParagraph();
    void explanationsInTheSourceLanguageComeLast();
    void danglingNumbersAreDropped();
    void phoneticsWithinATranslationAreDropped();
    void aMereReferenceIsShownAsOne();
    void aNameThatIsItsOwnTranslationStays();
    void wordNetIsPartedIntoSenses();
    void cedictIsPartedIntoSenses();
    void linesCanBeSenses();
    void nothingIsNothing_data();
    void nothingIsNothing();
    void longTextsAreCutAtACharacter();
    void fieldsOfKnownTypes();
    void fieldsThatNameTheirTypes();
    void cutFieldsGiveWhatIsThere();
    void markupIsTakenOff_data();
    void markupIsTakenOff();
    void hostileTextsTakeNoTime_data();
    void hostileTextsTakeNoTime();
};

void TestDicEntries::theHeadLineIsDropped()
{
    QCOMPARE(cleaned("house /haus/\nmaison\n", "house"), QStringLiteral("maison\n[haus]"));
    QCOMPARE(cleaned("house\nmaison", "house"), QStringLiteral("maison"));
    QCOMPARE(cleaned("house [haus]\nmaison", "house"), QStringLiteral("maison\n[haus]"));
    QCOMPARE(cleaned("house //haus// <n>\nmaison", "house"), QStringLiteral("maison\n[haus]"));
    QCOMPARE(cleaned("maison", "house"), QStringLiteral("maison"));
    QCOMPARE(cleaned("building\nmaison", "house"), QStringLiteral("building\nmaison"));
}

void TestDicEntries::theTrueSpellingComesFromTheHeadLine()
{
    const auto entry = dic::cleanEntry("Gehen /ge:n/ <neut, n, sg>\ngoing <n>\n", "gehen", false);
    QCOMPARE(entry.word, std::string("Gehen"));
    QCOMPARE(QString::fromStdU16String(entry.text()), QStringLiteral("going\n[ge:n] [n]"));
    QCOMPARE(dic::cleanEntry("don't /dont/\nnicht", "dont", false).word, std::string("don't"));
    const auto withBrackets =
        dic::cleanEntry("abbrechen (Reise)\nto stop", "abbrechen reise", false);
    QCOMPARE(withBrackets.word, std::string("abbrechen (Reise)"));
}

void TestDicEntries::aFormLeadsToTheWordInTheHeadLine()
{
    const auto entry =
        dic::cleanEntry("go /gou/ (went /went/ <>, gone /gon/ <>) <v>\ngehen <v>", "went", false);
    QCOMPARE(entry.word, std::string("go"));
    QCOMPARE(entry.senses, std::vector<std::string>{"gehen"});
}

void TestDicEntries::gendersAreShownOtherGrammarIsNot()
{
    QCOMPARE(
        cleaned("house /haus/\nHaus <neut>, Heim <neut, n, sg>; bauen <v, trans> [arch.]", "house"),
        QStringLiteral("Haus [n], Heim [n]; bauen [arch.]\n[haus]"));
    QCOMPARE(cleaned("people\nLeute <pl>", "people"), QStringLiteral("Leute [pl]"));
    QCOMPARE(cleaned("a\nb <masc, fem, n, sg>", "a"), QStringLiteral("b [m, f]"));
    QCOMPARE(cleaned("a\nb < c", "a"), QStringLiteral("b < c"));
}

void TestDicEntries::examplesAndRemarksComeLast()
{
    const auto entry = dic::cleanEntry("go /gou/ <v>\n"
                                       "gehen <v>\n"
                                       "         Note: mit etw.\n"
                                       "      \"Let's go!\"  - Gehen wir!\n"
                                       "   Synonyms: {walk}, {leave}\n\n"
                                       " see: {going}, {gone}\n\n"
                                       "         Note: by sth.\n",
                                       "go", false);
    QCOMPARE(QString::fromStdU16String(entry.text()),
             QStringLiteral("gehen\n[gou]\nNote: mit etw.\n\"Let's go!\" - Gehen wir!\n"
                            "Synonyms: walk, leave\nNote: by sth."));
    QVERIFY(entry.prominence > 0);
}

void TestDicEntries::labelsComeBehindTheTranslation()
{
    QCOMPARE(cleaned("Bank /bank/\n [fin.] [Br.] bank <n>, house", "bank"),
             QStringLiteral("bank, house [fin.] [Br.]\n[bank]"));
    QCOMPARE(cleaned("a\n1. [med.] b\n2. c [d]", "a"), QStringLiteral("1. b [med.] 2. c [d]"));
    QCOMPARE(cleaned("a\n[b]", "a"), QStringLiteral("[b]"));
    QCOMPARE(cleaned("a\n[b c", "a"), QStringLiteral("[b c"));
}

void TestDicEntries::theMainEntryOfAWordIsTheProminentOne()
{
    const auto prominence = [](const char* raw) {
        return dic::cleanEntry(raw, "gross", false).prominence;
    };
    const int plain = prominence("gross\nlarge");
    QVERIFY(prominence("gross\nbig\n \"so gross wie\" - as big as") > plain);
    QVERIFY(prominence("gross\nbig\n see: {groesser}, {am groessten}") > plain);
    QCOMPARE(prominence("gross\nbig\n see: {ein Satz mit vielen Worten}"), plain);
    QVERIFY(prominence("gross\n[comp.] capital") < plain);
    QVERIFY(prominence("gross\nwhopping [coll.], large") < plain);
    QVERIFY(prominence("gross\n[veraltet] large") < prominence("gross\n[ugs.] large"));
    QCOMPARE(prominence("gross\nlarge, whopping [coll.]"), plain);
}

void TestDicEntries::wordClassesAreTold()
{
    const auto wordClass = [](const char* raw) {
        return dic::cleanEntry(raw, "a", false).wordClass;
    };
    QCOMPARE(wordClass("a <v, trans>\nb"), 'v');
    QCOMPARE(wordClass("a <neut, n, sg>\nb"), 'n');
    QCOMPARE(wordClass("a <n, fem>\nb"), 'n');
    QCOMPARE(wordClass("a <adv>\nb <v>"), 'a');
    QCOMPARE(wordClass("a\nb <v>"), 'v');
    QCOMPARE(wordClass("a <conj>\nb"), '\0');
    QCOMPARE(wordClass("a\nb"), '\0');
}

void TestDicEntries::sensesAreNumberedInOneParagraph()
{
    QCOMPARE(cleaned("go /gou/\n1. aller, se rendre\n2. aller en voiture\n", "go"),
             QStringLiteral("1. aller, se rendre 2. aller en voiture\n[gou]"));
    QCOMPARE(cleaned("go\n1. aller\n", "go"), QStringLiteral("aller"));
    QCOMPARE(cleaned("year\n1984. Jahr", "year"), QStringLiteral("1984. Jahr"));
}

void TestDicEntries::explanationsInTheSourceLanguageComeLast()
{
    QCOMPARE(cleaned("oeil <n, masc>\nAuge\nOrgane permettant de voir\n", "oeil"),
             QStringLiteral("Auge\n[m]\nOrgane permettant de voir"));
    QCOMPARE(cleaned("a\nerste,\nzweite\n", "a"), QStringLiteral("erste, zweite"));
}

void TestDicEntries::danglingNumbersAreDropped()
{
    QCOMPARE(
        cleaned("maison <n>\n1. Haus 2.\nBatiment\n 3.\nLignee\n2. Heim, Haus\nFoyer\n", "maison"),
        QStringLiteral("1. Haus 2. Heim, Haus\nBatiment\nLignee\nFoyer"));
}

void TestDicEntries::phoneticsWithinATranslationAreDropped()
{
    const QString expected = QStringLiteral("road Rd\n[f]");
    QCOMPARE(cleaned("Weg <fem, n, sg>\nroad <n>Rd,  /\xcb\x8c"
                     "a:/\n",
                     "weg"),
             expected);
    QCOMPARE(cleaned("a\nb Ave,  /\xcb\x88x/ , c", "a"), QStringLiteral("b Ave, c"));
    QCOMPARE(cleaned("a\nto /as far as/ a place", "a"), QStringLiteral("to /as far as/ a place"));
}

void TestDicEntries::aMereReferenceIsShownAsOne()
{
    QCOMPARE(cleaned("went /went/\n see: {go}, {walk}\n", "went"),
             QString::fromUtf8("→ go, walk\n[went]"));
    QCOMPARE(cleaned("x\n   Note: only this", "x"), QStringLiteral("Note: only this"));
}

void TestDicEntries::aNameThatIsItsOwnTranslationStays()
{
    QCOMPARE(cleaned("Berlin\n", "berlin"), QStringLiteral("Berlin"));
    QCOMPARE(cleaned("Berlin /b/ <pn>\nBerlin\n", "berlin"), QStringLiteral("Berlin\n[b]"));
}

void TestDicEntries::wordNetIsPartedIntoSenses()
{
    QCOMPARE(cleaned("house\n"
                     "    n 1: a dwelling for one or more\n"
                     "         families; \"he has a house on\n"
                     "         Cape Cod\" [syn: {home}]\n"
                     "    2: a firm\n"
                     "    v 1: contain or cover [syn: {shelter}, {house}]\n",
                     "house"),
             QStringLiteral("1. [n] a dwelling for one or more families 2. a firm"
                            " 3. [v] contain or cover\n"
                            "1. \"he has a house on Cape Cod\" [syn: home]\n"
                            "3. [syn: shelter, house]"));
    QCOMPARE(cleaned("daily\n    adv : every day; \"he came daily\"", "daily"),
             QStringLiteral("[adv] every day\n1. \"he came daily\""));
}

void TestDicEntries::cedictIsPartedIntoSenses()
{
    QCOMPARE(cleaned("\xe6\x88\xbf \xe6\x88\xbf [fang2] /house/room/CL:\xe9\x97\xb4[jian1]/",
                     "\xe6\x88\xbf"),
             QString::fromUtf8("1. house 2. room\n[fang2]\nCL:间[jian1]"));
    QCOMPARE(cleaned("/house/", "x"), QStringLiteral("/house/"));
}

void TestDicEntries::linesCanBeSenses()
{
    QCOMPARE(cleaned("n. Haus\nv. wohnen", "house", true),
             QStringLiteral("1. n. Haus 2. v. wohnen"));
}

void TestDicEntries::nothingIsNothing_data()
{
    QTest::addColumn<QByteArray>("raw");
    for (const char* raw : {"", "\n\n", "  ", "{}", "<n>", "//", "1.", "/\n/"})
        QTest::newRow(raw) << QByteArray(raw);
}

void TestDicEntries::nothingIsNothing()
{
    QFETCH(QByteArray, raw);
    const dic::EntryText entry = dic::cleanEntry(raw.toStdString(), "word", false);
    QCOMPARE(entry.text().empty(), entry.senses.empty());
    QCOMPARE(entry.word, std::string("word"));
}

void TestDicEntries::longTextsAreCutAtACharacter()
{
    std::string raw = "a";
    for (int i = 0; i < 20000; ++i)
        raw += "\xf0\x9f\x98\x80";
    const std::u16string text = dic::cleanEntry(raw, "word", false).text();
    QCOMPARE(text.size(), std::size_t(8191));
    QVERIFY((text.back() & 0xfc00) == 0xdc00);
}

void TestDicEntries::fieldsOfKnownTypes()
{
    QCOMPARE(dic::plainText("text", "m"), std::string("text"));
    const std::string raw = std::string("haus\0", 5) + dicfiles::bigEndian(3, 4) + "wav" + "text";
    QCOMPARE(dic::plainText(raw, "tWm"), std::string("/haus/\ntext"));
    QCOMPARE(dic::plainText(std::string("<b>a</b>\0b", 10), "hm"), std::string("a\nb"));
}

void TestDicEntries::fieldsThatNameTheirTypes()
{
    const std::string raw =
        std::string("tha\0W", 5) + dicfiles::bigEndian(2, 4) + "xx" + std::string("mtext\0", 6);
    QCOMPARE(dic::plainText(raw, ""), std::string("/ha/\ntext"));
}

void TestDicEntries::cutFieldsGiveWhatIsThere()
{
    QCOMPARE(dic::plainText("", ""), std::string());
    QCOMPARE(dic::plainText("", "m"), std::string());
    QCOMPARE(dic::plainText("mtext", ""), std::string("text"));
    QCOMPARE(dic::plainText("mtext\0W\0\0", ""), std::string("text"));
    QCOMPARE(dic::plainText(std::string("W\xff\xff\xff\xffx", 6), ""), std::string());
    QCOMPARE(dic::plainText("text", "mmm"), std::string("text\n"));
}

void TestDicEntries::markupIsTakenOff_data()
{
    QTest::addColumn<QByteArray>("markup");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("bold") << QByteArray("a <b>b</b> c") << QByteArray("a b c");
    QTest::newRow("break") << QByteArray("a<br/>b<BR>c") << QByteArray("a\nb\nc");
    QTest::newRow("references") << QByteArray("&lt;a&gt; &amp; &#65;&#x42; &quot;")
                                << QByteArray("<a> & AB \"");
    QTest::newRow("no references")
        << QByteArray("a & b; &unknown; &#xd800; &") << QByteArray("a & b; &unknown;   &");
    QTest::newRow("cut") << QByteArray("a <b") << QByteArray("a ");
}

void TestDicEntries::markupIsTakenOff()
{
    QFETCH(QByteArray, markup);
    QFETCH(QByteArray, text);
    QCOMPARE(dic::withoutMarkup(markup.toStdString()), text.toStdString());
}

void TestDicEntries::hostileTextsTakeNoTime_data()
{
    QTest::addColumn<char>("sign");
    for (const char sign : {'<', '>', '(', '[', '/', '&', '{', '"', '.', '1', ',', '\n'})
        QTest::addRow("%d", int(sign)) << sign;
}

void TestDicEntries::hostileTextsTakeNoTime()
{
    QFETCH(char, sign);
    std::string raw;
    for (int i = 0; i < 30000; ++i)
        raw += {' ', sign};
    // Ends within the test's time limit, with and without line breaks and mark-up.
    for (const bool lines : {false, true})
        dic::cleanEntry(dic::plainText(raw, lines ? "h" : "m"), "word", lines);
    dic::cleanEntry("word\n" + raw, "word", false);
}

QTEST_APPLESS_MAIN(TestDicEntries)
#include "tst_dic_entries.moc"
