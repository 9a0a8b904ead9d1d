/* From inflected words to entries, and which entry of several comes first. */
#include "tests/unit/open/lookupfixture.h"

#include <QTest>

class TestDicForms : public LookupFixture
{
    Q_OBJECT

private slots:
    void irregularFormsLeadToTheirWords();
    void aWordThatIsAFormAsWellShowsBoth();
    void formsOfTheCommonestVerbsLead();
    void theWordClassOfAFormChoosesTheEntry();
    void smallLettersAreNoNoun();
    void capitalsAreANounInGerman();
    void participlesAreAdjectivesInGerman();
    void capitalsBeginASentenceElsewhere();
    void abbreviationsSpelledLikeTheWordComeLast();
    void theLongestStemWins();
    void stemsInAnOlderEncoding();
    void damagedTablesOfFormsAreLeftOut();
};

void TestDicForms::irregularFormsLeadToTheirWords()
{
    open("eng-deu", {{"go", "gehen"}, {"see", "sehen"}},
         forms("went\tgo\nSaw\tsee\nsaw\tabsent\n"));
    QCOMPARE(found(u"Went"), QStringList("go: gehen form"));
    QCOMPARE(found(u"saw"), QStringList("see: sehen form"));
    QVERIFY(found(u"seen").isEmpty());
}

void TestDicForms::aWordThatIsAFormAsWellShowsBoth()
{
    open("eng-deu", {{"saw", "Saege"}, {"see", "sehen"}}, forms("saw\tsee\n"));
    QCOMPARE(found(u"saw"), QStringList({"saw: Saege", "see: sehen form"}));
}

void TestDicForms::formsOfTheCommonestVerbsLead()
{
    open("fra-deu", {{"est", "Osten"}, {"etre", "sein"}, {"suivre", "folgen"}},
         forms("est\tetre\tv\nest\test\nest\tsuivre\tv\n"));
    QCOMPARE(found(u"est"), QStringList({"etre: sein form", "est: Osten", "suivre: folgen form"}));
}

void TestDicForms::theWordClassOfAFormChoosesTheEntry()
{
    const std::vector<dicfiles::Entry> entries = {{"vilja", "vilja <n, ut>\nWille"},
                                                  {"vilja", "vilja\nwer weiss"},
                                                  {"vilja", "vilja <v>\nwollen"}};
    open("swe-deu", entries,
         forms("vill\tvilja\tv\nviljor\tvilja\tn\nviljas\tvilja\nviljan\tvilja\tf\n"));
    QCOMPARE(found(u"vill").first(), QString("vilja: wollen form"));
    QCOMPARE(found(u"vill").last(), QString("vilja: Wille form"));
    QCOMPARE(found(u"viljor").first(), QString("vilja: Wille form"));
    QCOMPARE(found(u"viljas").first(), QString("vilja: Wille form"));
    QCOMPARE(found(u"viljan").first(), QString("vilja: wer weiss form"));
    QCOMPARE(found(u"vilja").size(), 3);
}

void TestDicForms::smallLettersAreNoNoun()
{
    const std::vector<dicfiles::Entry> entries = {{"habe", "Habe\npossessions"},
                                                  {"haben", "haben\nto have"},
                                                  {"reise", "Reise\njourney"},
                                                  {"reisen", "reisen\nto travel"}};
    open("deu-eng", entries,
         forms("habe\thaben\tv\n", "SET UTF-8\nSFX E Y 1\nSFX E en e en\n", "1\nreisen/E\n"));
    QCOMPARE(found(u"habe"), QStringList({"haben: to have form", "Habe: possessions folded"}));
    QCOMPARE(found(u"Habe"), QStringList({"Habe: possessions", "haben: to have form"}));
    QCOMPARE(found(u"reise"), QStringList({"reisen: to travel form", "Reise: journey folded"}));
    QCOMPARE(found(u"Reise"), QStringList("Reise: journey"));
}

void TestDicForms::capitalsAreANounInGerman()
{
    const std::vector<dicfiles::Entry> entries = {
        {"tagen", "tagen\nto meet"}, {"tag", "Tag\nday"}, {"nach", "nach\nafter"}};
    const dic::WordFormFiles files =
        forms("", "SET UTF-8\nSFX E Y 1\nSFX E 0 en .\n", "3\nTag/E\ntagen\nnach\n");
    open("deu-eng", entries, files);
    QCOMPARE(found(u"Tagen"), QStringList({"Tag: day form", "tagen: to meet folded"}));
    QCOMPARE(found(u"tagen"), QStringList("tagen: to meet"));
    QCOMPARE(found(u"Nach"), QStringList("nach: after folded"));
}

void TestDicForms::participlesAreAdjectivesInGerman()
{
    const std::vector<dicfiles::Entry> entries = {{"entsprechend", "entsprechend <adj>\nsuitable"},
                                                  {"rast", "Rast\nrest"}};
    const dic::WordFormFiles files =
        forms("", "SET UTF-8\nSFX X Y 1\nSFX X n nde n\n", "2\nentsprechen/X\nRasten\n");
    open("deu-eng", entries, files);
    QCOMPARE(found(u"entsprechende"), QStringList("entsprechend: suitable form"));
    QVERIFY(found(u"entsprechenden").isEmpty()); // not known as a word here
    open("eng-deu", entries, files);
    QVERIFY(found(u"entsprechende").isEmpty());
}

void TestDicForms::capitalsBeginASentenceElsewhere()
{
    open("eng-deu", {{"saw", "Saege"}, {"see", "sehen"}}, forms("saw\tsee\tv\n"));
    QCOMPARE(found(u"Saw"), QStringList({"saw: Saege folded", "see: sehen form"}));
}

void TestDicForms::abbreviationsSpelledLikeTheWordComeLast()
{
    open("deu-eng",
         {{"war", "Wassermannreaktion /v/ (WaR) <fem>\nWassermann reaction"},
          {"sein", "sein\nto be"}},
         forms("war\tsein\tv\n"));
    QCOMPARE(found(u"war"),
             QStringList({"sein: to be form", "Wassermannreaktion: Wassermann reaction folded"}));
}

void TestDicForms::theLongestStemWins()
{
    open("eng-deu", {{"work", "Arbeit"}, {"worker", "Arbeiter"}},
         forms("", "SET UTF-8\nSFX S Y 1\nSFX S 0 s .\nSFX R Y 1\nSFX R 0 er/S .\n",
               "2\nwork/RS\nworker/S\n"));
    QCOMPARE(found(u"workers"), QStringList("worker: Arbeiter form"));
    QCOMPARE(found(u"works"), QStringList("work: Arbeit form"));
    QVERIFY(found(u"workes").isEmpty());
}

void TestDicForms::stemsInAnOlderEncoding()
{
    open("deu-eng", {{"\xc3\xa4rger", "\xc3\x84rger\ntrouble"}},
         forms("", "SET ISO8859-1\nSFX S Y 1\nSFX S 0 s .\n", "1\n\xc4rger/S\n"));
    QCOMPARE(found(u"\u00c4rgers"), QStringList(QString::fromUtf8("Ärger: trouble form")));
}

void TestDicForms::damagedTablesOfFormsAreLeftOut()
{
    for (const std::string& table : {std::string("a\xff\tb\n"), std::string("a\0b", 3)}) {
        const dic::WordForms forms(
            {(dicfiles::write(path("y.forms"), table), path("y.forms")), {}, {}});
        QVERIFY(forms.lemmas("a").empty());
    }
    dicfiles::write(path("y.forms"), "no tab\n\t\nx\t\n\ty\nwent\tgo\n");
    const dic::WordForms forms({path("y.forms"), {}, {}});
    QCOMPARE(forms.lemmas("went").size(), std::size_t(1));
    QCOMPARE(forms.lemmas("went").front().word, std::string("go"));
    QVERIFY(forms.lemmas("x").empty());
}

QTEST_APPLESS_MAIN(TestDicForms)
#include "tst_dic_forms.moc"
