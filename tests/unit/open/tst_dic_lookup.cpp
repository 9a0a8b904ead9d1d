/* From words as they are printed to entries: other spellings, parts, compounds, accents; the first
 * word of a line. */
#include "open/dic/compounds.h"
#include "open/dic/wordcutter.h"
#include "tests/unit/open/lookupfixture.h"

#include <QTest>
#include <set>

class TestDicLookup : public LookupFixture
{
    Q_OBJECT

private slots:
    void theExactSpellingComesFirst();
    void entriesWithMoreExamplesComeFirst();
    void anotherSpellingIsFound();
    void anEntryIsShownOnce();
    void theWordAtAnApostropheIsFound_data();
    void theWordAtAnApostropheIsFound();
    void compoundsArePartedInLanguagesThatHaveThem();
    void theLastPartOfACompoundMayBeInflected();
    void compounds_data();
    void compounds();
    void accentsCountWhereTheWordIsRight();
    void wordsWithoutTheirAccentsAreFound();
    void chineseWordsComeLongestFirst();
    void chineseStopsAtOtherCharacters();
    void latinWordsInChineseAreOrdinary();
    void notMoreThanTwentyEntries();
    void strangeWordsFindNothing_data();
    void strangeWordsFindNothing();
    void wordsAreCutAsTheScreenCutsThem_data();
    void wordsAreCutAsTheScreenCutsThem();
    void theFirstKnownWordOfALineCounts_data();
    void theFirstKnownWordOfALineCounts();
    void aLineWithoutKnownWordsHasNone();
};

void TestDicLookup::theExactSpellingComesFirst()
{
    open("deu-eng", {{"essen", "Essen\nmeal"}, {"essen", "essen\nto eat"}});
    QCOMPARE(found(u"essen"), QStringList({"essen: to eat", "Essen: meal folded"}));
    QCOMPARE(found(u"Essen"), QStringList({"Essen: meal", "essen: to eat folded"}));
}

void TestDicLookup::entriesWithMoreExamplesComeFirst()
{
    open("deu-eng", {{"gehen", "gehen\nto rise\n  Note: dough"},
                     {"gehen", "gehen\nto go\n\"a\" - b\n\"c\" - d"}});
    QCOMPARE(found(u"gehen"), QStringList({"gehen: to go", "gehen: to rise"}));
}

void TestDicLookup::anotherSpellingIsFound()
{
    open("eng-deu", {{"well known", "well-known\nbekannt"},
                     {"wellknown", "well-known\nbekannt"},
                     {"dont", "don't\nnicht"}});
    QCOMPARE(found(u"WELL-KNOWN"), QStringList({"well-known: bekannt folded"}));
    QCOMPARE(found(u"Don\u2019t"), QStringList({"don't: nicht folded"}));
    QCOMPARE(found(u" don't "), QStringList({"don't: nicht"}));
}

void TestDicLookup::anEntryIsShownOnce()
{
    dicfiles::StarDict content;
    content.entries = {{"Hus", "Haus"}, {"ab", "ab"}};
    content.synonyms = {{"hus", 0}, {"HUS", 0}};
    dicfiles::writeStarDict(path("swe-deu"), content);
    dic::Source source;
    source.format = dic::Source::Format::StarDict;
    source.stem = path("swe-deu");
    source.pair = {107, 104};
    dic::IndexShelf shelf("");
    const auto dictionary = dic::Dictionary::open(source, shelf);
    QVERIFY(dictionary);
    dic::WordForms none;
    QCOMPARE(describe(dic::Lookup(*dictionary, none).search(u"Hus")), QStringList("Hus: Haus"));
}

void TestDicLookup::theWordAtAnApostropheIsFound_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");
    QTest::newRow("article") << "l'eau"
                             << "eau: Wasser part";
    QTest::newRow("printed") << QStringLiteral("L\u2019eau") << "eau: Wasser part";
    QTest::newRow("possessive") << "John's"
                                << "john: Hans part";
    QTest::newRow("whole word first") << "aujourd'hui"
                                      << "aujourd'hui: heute";
}

void TestDicLookup::theWordAtAnApostropheIsFound()
{
    QFETCH(QString, word);
    QFETCH(QString, expected);
    open("fra-deu",
         {{"eau", "Wasser"}, {"john", "Hans"}, {"aujourd'hui", "heute"}, {"hui", "nie"}});
    QCOMPARE(found(word.toStdU16String()), QStringList(expected));
}

void TestDicLookup::compoundsArePartedInLanguagesThatHaveThem()
{
    const std::vector<dicfiles::Entry> entries = {{"haus", "Haus\nhouse"},
                                                  {"t\xc3\xbcr", "T\xc3\xbcr\ndoor"}};
    open("deu-eng", entries);
    QCOMPARE(found(u"Haust\u00fcr"),
             QStringList({"Haus: house compound", QString::fromUtf8("Tür: door compound")}));
    open("eng-deu", entries);
    QVERIFY(found(u"Haust\u00fcr").isEmpty());
}

void TestDicLookup::theLastPartOfACompoundMayBeInflected()
{
    const std::vector<dicfiles::Entry> entries = {
        {"haus", "Haus\nhouse"}, {"boot", "Boot\nboat"}, {"karte", "Karte\nmap"}};
    const dic::WordFormFiles files =
        forms("boote\tBoot\tn\n", "SET UTF-8\nSFX N Y 1\nSFX N 0 n .\n", "1\nKarte/N\n");
    open("deu-eng", entries, files);
    QCOMPARE(found(u"Hausboote"), QStringList({"Haus: house compound", "Boot: boat compound"}));
    QCOMPARE(found(u"Hauskarten"), QStringList({"Haus: house compound", "Karte: map compound"}));
    QVERIFY(found(u"Hausbooty").isEmpty());
}

void TestDicLookup::compounds_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<int>("language");
    QTest::addColumn<QByteArray>("parts");
    QTest::newRow("two") << QByteArray("hausboot") << 104 << QByteArray("haus boot");
    QTest::newRow("joined by s") << QByteArray("arbeitshaus") << 104 << QByteArray("arbeit haus");
    QTest::newRow("three") << QByteArray("hausbootarbeit") << 104 << QByteArray("haus boot arbeit");
    QTest::newRow("joined twice") << QByteArray("arbeitshausarbeit") << 104
                                  << QByteArray("arbeit haus arbeit");
    QTest::newRow("the longest last part")
        << QByteArray("arbeithausboot") << 104 << QByteArray("arbeit haus boot");
    QTest::newRow("fewest parts") << QByteArray("bootshausbootshaus") << 104
                                  << QByteArray("bootshaus bootshaus");
    QTest::newRow("Dutch") << QByteArray("arbeitenboot") << 110 << QByteArray("arbeit boot");
    QTest::newRow("no German joint in Swedish")
        << QByteArray("arbeitenboot") << 107 << QByteArray();
    QTest::newRow("English has none") << QByteArray("hausboot") << 101 << QByteArray();
    QTest::newRow("short parts do not count") << QByteArray("hausab") << 104 << QByteArray();
    QTest::newRow("unknown part") << QByteArray("hausxyz") << 104 << QByteArray();
    QTest::newRow("one word") << QByteArray("haus") << 104 << QByteArray();
    QTest::newRow("umlaut") << QByteArray("haust\xc3\xbcr") << 104 << QByteArray("haus t\xc3\xbcr");
}

void TestDicLookup::compounds()
{
    QFETCH(QByteArray, word);
    QFETCH(int, language);
    QFETCH(QByteArray, parts);
    const std::set<std::string> words = {"haus", "boot", "arbeit", "ab", "bootshaus", "t\xc3\xbcr"};
    const auto has = [&words](const std::string& key) { return words.count(key) > 0; };
    std::string joined;
    for (const std::string& part : dic::partsOfCompound(word.toStdString(), language, {has}))
        joined += (joined.empty() ? "" : " ") + part;
    QCOMPARE(joined, parts.toStdString());
}

void TestDicLookup::accentsCountWhereTheWordIsRight()
{
    open("swe-deu", {{"\xc3\xa4r", "ist"}}, forms("", "SET UTF-8\n", "2\nar\n\xc3\xa4r\n"));
    QVERIFY(found(u"ar").isEmpty());
    QCOMPARE(found(u"\u00e4r"), QStringList(QString::fromUtf8("är: ist")));
}

void TestDicLookup::wordsWithoutTheirAccentsAreFound()
{
    open("fra-deu",
         {{"h\xc3\xa9"
           "b\xc3\xa9t\xc3\xa9",
           "benommen"},
          {"les", "die"}},
         forms("", "SET UTF-8\n", "1\nles\n"));
    QCOMPARE(found(u"HEBETE"), QStringList(QString::fromUtf8("hébété: benommen accents")));
    QCOMPARE(found(u"l\u00e8s"), QStringList("les: die accents"));
    QCOMPARE(found(u"les"), QStringList("les: die"));
}

void TestDicLookup::chineseWordsComeLongestFirst()
{
    open("zho-eng", {{"中", "middle"}, {"中国", "China"}, {"中国人", "Chinese"}, {"国", "land"}});
    QCOMPARE(found(u"中国人民"),
             QStringList({QString::fromUtf8("中国人: Chinese"), QString::fromUtf8("中国: China"),
                          QString::fromUtf8("中: middle")}));
    QCOMPARE(found(u"国人"), QStringList(QString::fromUtf8("国: land")));
    QVERIFY(found(u"人").isEmpty());
}

void TestDicLookup::chineseStopsAtOtherCharacters()
{
    open("zho-eng", {{"中", "middle"}, {"中国", "China"}});
    QCOMPARE(found(u"中，国"), QStringList(QString::fromUtf8("中: middle")));
}

void TestDicLookup::latinWordsInChineseAreOrdinary()
{
    open("zho-eng", {{"OK", "all right"}});
    QCOMPARE(found(u"OK"), QStringList("OK: all right"));
}

void TestDicLookup::notMoreThanTwentyEntries()
{
    std::vector<dicfiles::Entry> entries;
    entries.reserve(40);
    for (int i = 0; i < 40; ++i)
        entries.push_back({"set", "meaning " + std::to_string(i)});
    open("eng-deu", entries);
    QCOMPARE(found(u"set").size(), 20);
}

void TestDicLookup::strangeWordsFindNothing_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << " ";
    QTest::newRow("zero") << QString(QChar(u'\0'));
    QTest::newRow("control") << QString(QChar(u'\1'));
    QTest::newRow("accent mark of the index") << QStringLiteral("\u0001haus");
    QTest::newRow("lone surrogate") << QString(QChar(0xd800));
    QTest::newRow("apostrophe") << "'";
    QTest::newRow("apostrophes") << "'''";
    QTest::newRow("long") << QString(300, u'h');
    QTest::newRow("very long") << QString(100000, u'h');
}

void TestDicLookup::strangeWordsFindNothing()
{
    QFETCH(QString, word);
    open("deu-eng", {{"haus", "house"}});
    QVERIFY(found(word.toStdU16String()).isEmpty());
}

void TestDicLookup::wordsAreCutAsTheScreenCutsThem_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("language");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("comma") << "one, two" << 101 << QStringList({"one", "two"});
    QTest::newRow("apostrophe") << "l'eau d" << 101 << QStringList({"l'eau", "d"});
    QTest::newRow("French apostrophe") << "l'eau d" << 103 << QStringList({"l", "eau", "d"});
    QTest::newRow("other signs are words")
        << "a-b (c)" << 101 << QStringList({"a", "-", "b", "(", "c", ")"});
    QTest::newRow("accents") << QString::fromUtf8("ära œuf") << 101
                             << QStringList({QString::fromUtf8("ära"), QString::fromUtf8("œuf")});
    QTest::newRow("Russian") << QString::fromUtf8("дом a") << 151
                             << QStringList({QString::fromUtf8("дом"), "a"});
    QTest::newRow("Cyrillic elsewhere")
        << QString::fromUtf8("до") << 101
        << QStringList({QString::fromUtf8("д"), QString::fromUtf8("о")});
    QTest::newRow("Chinese") << QString::fromUtf8("中国 人") << 1
                             << QStringList({QString::fromUtf8("中"), QString::fromUtf8("国"),
                                             QString::fromUtf8("人")});
    QTest::newRow("nothing") << " ,.!" << 101 << QStringList();
}

void TestDicLookup::wordsAreCutAsTheScreenCutsThem()
{
    QFETCH(QString, line);
    QFETCH(int, language);
    QFETCH(QStringList, words);
    const std::u16string text = line.toStdU16String();
    dic::WordCutter cutter(text, language);
    dic::WordPlace place;
    QStringList cut;
    while (cutter.next(place))
        cut.append(line.mid(qsizetype(place.start), qsizetype(place.end - place.start)));
    QCOMPARE(cut, words);
}

void TestDicLookup::theFirstKnownWordOfALineCounts_data()
{
    QTest::addColumn<QString>("pair");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("word");
    QTest::newRow("first") << "eng-deu"
                           << "house and" << 1 << "house";
    QTest::newRow("behind others") << "eng-deu"
                                   << "xy, 12 - (house)" << 11 << "house";
    QTest::newRow("blanks") << "eng-deu"
                            << "  house" << 3 << "house";
    QTest::newRow("French article") << "fra-deu"
                                    << "l'eau" << 3 << "eau";
    QTest::newRow("Chinese") << "zho-eng" << QString::fromUtf8("在，中国") << 3
                             << QString::fromUtf8("中国");
}

void TestDicLookup::theFirstKnownWordOfALineCounts()
{
    QFETCH(QString, pair);
    QFETCH(QString, line);
    QFETCH(int, position);
    QFETCH(QString, word);
    open(pair.toStdString(),
         {{"house", "a"}, {"eau", "b"}, {"中国", "c"}, {"中", "d"}, {"12", "e"}});
    const dic::FirstWord first = m_lookup->firstOf(line.toStdU16String());
    QCOMPARE(int(first.position), position);
    QCOMPARE(QString::fromStdString(first.hits.at(0).entry.word), word);
}

void TestDicLookup::aLineWithoutKnownWordsHasNone()
{
    open("eng-deu", {{"house", "a"}});
    for (const std::u16string& line : {std::u16string(), std::u16string(u"xyz, 12"),
                                       std::u16string(50000, u'('), std::u16string(50000, u'x')}) {
        const dic::FirstWord first = m_lookup->firstOf(line);
        QCOMPARE(first.position, std::size_t(0));
        QVERIFY(first.hits.empty());
    }
}

QTEST_APPLESS_MAIN(TestDicLookup)
#include "tst_dic_lookup.moc"
