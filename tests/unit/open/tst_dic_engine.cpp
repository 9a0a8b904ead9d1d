/* The dictionary engine behind its contract: what a pen with dictionaries meets. */
#include "tests/unit/open/dicengine.h"
#include "tests/unit/open/dicfiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <random>

using Found = DicEngine::Found;

class TestDicEngine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutDictionariesNothingIsMade();
    void fiveFoldersMakeOneList();
    void aCorruptDictionaryStandsBesideAGoodOne();
    void openingAnotherReplacesTheFirst();
    void closingAnotherLeavesTheOpenOne();
    void freeingTheListClosesItsDictionary();
    void anAbsentDictionaryKeepsItsNumberAndCannotBeOpened();
    void aDictionaryThatVanishesFailsGently();
    void longHeadwordsAreCut();
    void resultsOutliveTheList();
    void formsAndSpellingComeFromThePensOwnFolder();
    void theListIsFreedWhileIndicesAreMade();
    void notMoreThanTwentyNodes();
    void damagedFilesNeverHarm_data();
    void damagedFilesNeverHarm();

private:
    std::string path(const std::string& name) const
    {
        return m_root->path().toStdString() + "/" + name;
    }
    void writeEveryKind();
    void tryEverything();

    std::unique_ptr<QTemporaryDir> m_root;
};

void TestDicEngine::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_root->path()));
    for (const char* name : {"one", "two", "apps/data/wordforms"})
        QVERIFY(QDir(m_root->path()).mkpath(QString::fromLatin1(name)));
}

void TestDicEngine::cleanup()
{
    qunsetenv("SWIPELINE_ROOT");
    m_root.reset();
}

void TestDicEngine::withoutDictionariesNothingIsMade()
{
    DicEngine engine({path("one/"), path("missing/")});
    QCOMPARE(engine.status, 0);
    QVERIFY(engine.pairs().empty());
    QVERIFY(!QDir(QString::fromStdString(path("apps/data/dictindex"))).exists());
}

void TestDicEngine::fiveFoldersMakeOneList()
{
    std::vector<std::string> folders;
    for (const char* name : {"sys/default/", "sys/free/", "sys/", "data/", "card/"}) {
        folders.push_back(path(name));
        QVERIFY(QDir().mkpath(QString::fromStdString(folders.back())));
    }
    dicfiles::writeDict(path("sys/default/eng-deu"), {{"house", "Haus"}});
    dicfiles::writeDict(path("sys/free/deu-eng"), {{"haus", "Haus\nhouse"}}, true);
    dicfiles::writeDict(path("card/eng-deu"), {{"dog", "Hund"}});
    DicEngine engine(folders);
    const std::vector<std::string> expected = {"English-German 2", "German-English 1"};
    QCOMPARE(engine.pairs(), expected);
    QVERIFY(engine.open(0));
    QCOMPARE(engine.search(u"House"), (std::vector<Found>{{"house", "Haus", 1}}));
    QVERIFY(engine.open(1));
    QCOMPARE(engine.search(u"dog"), (std::vector<Found>{{"dog", "Hund", 0}}));
    QVERIFY(engine.search(u"house").empty());
    QCOMPARE(engine.status, 0);
    QVERIFY(engine.open(2));
    QCOMPARE(engine.search(u"Haus"), (std::vector<Found>{{"Haus", "house", 0}}));
}

void TestDicEngine::aCorruptDictionaryStandsBesideAGoodOne()
{
    dicfiles::writeDict(path("one/a-eng-deu"), {{"house", "Haus"}}, true);
    dicfiles::writeDict(path("one/b-eng-deu"), {{"house", "Heim"}}, true);
    const std::string file = path("one/a-eng-deu.dict.dz");
    dicfiles::write(file, dicfiles::read(file).substr(0, 20));
    DicEngine engine({path("one/")});
    QCOMPARE(engine.pairs(), std::vector<std::string>{"English-German 2"});
    QVERIFY(!engine.open(0));
    engine.search(u"house");
    QVERIFY(engine.status < 0);
    QVERIFY(engine.open(1));
    QCOMPARE(engine.search(u"house").size(), std::size_t(1));
}

void TestDicEngine::openingAnotherReplacesTheFirst()
{
    dicfiles::writeDict(path("one/eng-deu"), {{"house", "Haus"}});
    dicfiles::writeDict(path("one/eng-fra"), {{"house", "maison"}});
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(0));
    QVERIFY(engine.open(1));
    QCOMPARE(engine.search(u"house").at(0).text, std::string("maison"));
    tagDictInfo* second = nullptr;
    QVERIFY(ZEMBRA_DIC_SelectDic(&second, engine.list(), 1, 1) >= 0);
    QVERIFY(ZEMBRA_DIC_Uninitialize(second) >= 0);
    engine.search(u"house");
    QVERIFY(engine.status < 0);
}

void TestDicEngine::closingAnotherLeavesTheOpenOne()
{
    dicfiles::writeDict(path("one/eng-deu"), {{"house", "Haus"}});
    dicfiles::writeDict(path("one/eng-fra"), {{"house", "maison"}});
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(0));
    tagDictInfo* second = nullptr;
    QVERIFY(ZEMBRA_DIC_SelectDic(&second, engine.list(), 1, 1) >= 0);
    QVERIFY(ZEMBRA_DIC_Uninitialize(second) >= 0);
    QCOMPARE(engine.search(u"house").size(), std::size_t(1));
}

void TestDicEngine::freeingTheListClosesItsDictionary()
{
    dicfiles::writeDict(path("one/eng-deu"), {{"house", "Haus"}});
    auto first = std::make_unique<DicEngine>(std::vector<std::string>{path("one/")});
    DicEngine second({path("one/")});
    QVERIFY(first->open(0));
    first.reset();
    second.search(u"house");
    QVERIFY(second.status < 0);
    QVERIFY(second.open(0));
    QCOMPARE(second.search(u"house").size(), std::size_t(1));
}

void TestDicEngine::anAbsentDictionaryKeepsItsNumberAndCannotBeOpened()
{
    dicfiles::writeDict(path("one/a-eng-deu"), {{"house", "Haus"}});
    dicfiles::writeDict(path("one/b-eng-deu"), {{"house", "Heim"}});
    QCOMPARE(DicEngine({path("one/")}).pairs(), std::vector<std::string>{"English-German 2"});
    QVERIFY(QFile::remove(QString::fromStdString(path("one/a-eng-deu.index"))));
    DicEngine engine({path("one/")});
    QCOMPARE(engine.pairs(), std::vector<std::string>{"English-German 2"});
    QVERIFY(!engine.open(0));
    QVERIFY(engine.open(1));
    QCOMPARE(engine.search(u"house").at(0).text, std::string("Heim"));
}

void TestDicEngine::aDictionaryThatVanishesFailsGently()
{
    dicfiles::writeDict(path("one/eng-deu"), {{"house", "Haus"}});
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(0));
    // As when a card is pulled out and another one put in.
    QVERIFY(QFile::resize(QString::fromStdString(path("one/eng-deu.dict")), 0));
    QVERIFY(engine.search(u"house").empty());
    QVERIFY(engine.status < 0);
    int position = 99;
    QVERIFY(engine.first(u"a house", position).empty());
    QVERIFY(engine.status < 0);
    QCOMPARE(position, 0);
    QVERIFY(engine.search(u"xyzzy").empty()); // of this one nothing had to be read
    QCOMPARE(engine.status, 0);
    dicfiles::writeDict(path("one/eng-deu"), {{"house", "Haus"}});
    QVERIFY(engine.open(0)); // the card is back
    QCOMPARE(engine.search(u"house").size(), std::size_t(1));
    QVERIFY(QDir(QString::fromStdString(path("one"))).removeRecursively());
    QVERIFY(!engine.open(0));
}

void TestDicEngine::longHeadwordsAreCut()
{
    const std::string word(150, 'h');
    dicfiles::writeDict(path("one/eng-deu"), {{word, "Haus"}});
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(0));
    const auto found = engine.search(std::u16string(150, u'h'));
    QCOMPARE(found.at(0).word, std::string(127, 'h'));
}

void TestDicEngine::resultsOutliveTheList()
{
    dicfiles::writeDict(path("one/eng-deu"), {{"a", "b"}});
    auto engine = std::make_unique<DicEngine>(std::vector<std::string>{path("one/")});
    QVERIFY(engine->open(0));
    const std::uint16_t word = 'a';
    tagResultNodeInfo* result = nullptr;
    QVERIFY(ZEMBRA_DIC_SearchWord(&result, &word, 2, 1, 0) >= 0);
    engine.reset();
    QVERIFY(result && result->text[0] == 'b');
    QVERIFY(ZEMBRA_DIC_FreeSearchResult(&result) >= 0);
}

void TestDicEngine::formsAndSpellingComeFromThePensOwnFolder()
{
    dicfiles::writeDict(path("one/swe-deu"), {{"gå", "gehen"}, {"hus", "Haus"}});
    dicfiles::write(path("apps/data/wordforms/swe.forms"), "gick\tgå\n");
    dicfiles::write(path("apps/data/wordforms/swe.aff"), "SET UTF-8\nSFX A Y 1\nSFX A 0 et .\n");
    dicfiles::write(path("apps/data/wordforms/swe.dic"), "1\nhus/A\n");
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(0));
    QCOMPARE(engine.search(u"gick"), (std::vector<Found>{{"gå", "gehen", 2}}));
    QCOMPARE(engine.search(u"huset"), (std::vector<Found>{{"hus", "Haus", 2}}));
}

void TestDicEngine::theListIsFreedWhileIndicesAreMade()
{
    std::vector<dicfiles::Entry> entries;
    entries.reserve(3000);
    for (int i = 0; i < 3000; ++i)
        entries.push_back({"word " + std::to_string(i), "text"});
    for (int i = 0; i < 10; ++i)
        dicfiles::writeDict(path("one/" + std::to_string(i) + "-eng-deu"), entries, true);
    for (int i = 0; i < 5; ++i)
        DicEngine engine({path("one/")});
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(9)); // made before the others
    QCOMPARE(engine.search(u"word 77").size(), std::size_t(1));
}

void TestDicEngine::notMoreThanTwentyNodes()
{
    std::vector<dicfiles::Entry> entries;
    entries.reserve(40);
    for (int i = 0; i < 40; ++i)
        entries.push_back({"set", "meaning " + std::to_string(i)});
    dicfiles::writeDict(path("one/eng-deu"), entries);
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(0));
    QCOMPARE(engine.search(u"set").size(), std::size_t(ZEMBRA_DIC_MAX_RESULTS));
}

void TestDicEngine::damagedFilesNeverHarm_data()
{
    QTest::addColumn<QString>("file");
    for (const char* name : {"eng-deu.index", "eng-deu.dict.dz", "eng-fra.ifo", "eng-fra.idx.gz",
                             "eng-fra.syn", "eng-fra.dict.dz", "eng-spa.idx", "eng-spa.dict"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

// Opens what can be opened and looks words up; the outcome is of no matter.
void TestDicEngine::tryEverything()
{
    DicEngine engine({path("one/")});
    for (int number = 0; number < 3; ++number) {
        int position = 0;
        if (!engine.open(number))
            continue;
        for (const Found& found : engine.search(u"house"))
            QVERIFY(found.word.size() <= 3 * 127);
        engine.search(u"Hous\u00e9");
        engine.first(u"the other house", position);
        QVERIFY(position >= 0 && position <= 15);
    }
}

void TestDicEngine::writeEveryKind()
{
    const std::vector<dicfiles::Entry> entries = {
        {"house", "house /haus/ <n>\n1. Haus <neut> 2.\n home\n"},
        {"other", "other\n    n 1: a thing; \"x\" [syn: {y}]\n"},
        {"the", "/a/b/"}};
    dicfiles::writeDict(path("one/eng-deu"), entries, true, "English - German");
    dicfiles::StarDict content;
    content.entries = entries;
    content.synonyms = {{"home", 0}, {"others", 1}};
    content.compressed = true;
    dicfiles::writeStarDict(path("one/eng-fra"), content);
    content.compressed = false;
    content.type = "";
    content.offsetBits = 64;
    content.synonyms.clear();
    dicfiles::writeStarDict(path("one/eng-spa"), content);
}

void TestDicEngine::damagedFilesNeverHarm()
{
    QFETCH(QString, file);
    constexpr int Times = 150;
    writeEveryKind();
    const std::string name = path("one/" + file.toStdString());
    const std::string whole = dicfiles::read(name);
    QVERIFY(!whole.empty());
    std::minstd_rand random(4711); // the same damage each time
    for (int i = 0; i < Times; ++i) {
        std::string damaged = whole;
        const std::size_t at = random() % whole.size();
        switch (random() % 4) {
        case 0:
            damaged.resize(at);
            break;
        case 1:
            damaged.insert(at, std::string(random() % 40, char(random())));
            break;
        case 2:
            damaged.erase(at, random() % 9);
            break;
        default:
            damaged[at] = char(random());
        }
        dicfiles::write(name, damaged);
        tryEverything();
    }
    dicfiles::write(name, whole);
    DicEngine engine({path("one/")});
    QVERIFY(engine.open(0));
    QCOMPARE(engine.search(u"house").size(), std::size_t(1));
}

QTEST_APPLESS_MAIN(TestDicEngine)
#include "tst_dic_engine.moc"
