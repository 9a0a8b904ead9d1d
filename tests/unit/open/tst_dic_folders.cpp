/* Which dictionaries there are: languages, folders, places in the list, sidecars. */
#include "open/dic/folderscan.h"
#include "open/dic/indexshelf.h"
#include "open/dic/penfolders.h"
#include "open/dic/registry.h"
#include "tests/unit/open/dicfiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

using dic::LanguagePair;

class TestDicFolders : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aFileNameTellsThePair_data();
    void aFileNameTellsThePair();
    void aTitleTellsThePair_data();
    void aTitleTellsThePair();
    void foldersAndTheirSubFoldersAreSearched();
    void aFileReachedTwiceCountsOnce();
    void missingFoldersAndLinksArePassedOver();
    void aDescriptorComesFirst();
    void theTitleCountsWhereTheNameSaysNothing();
    void unknownLanguagesAreLeftOut();
    void namesThatCannotBeKeptAreLeftOut();
    void newDictionariesComeLast();
    void anAbsentDictionaryKeepsItsPlace();
    void absentOnesAtTheEndAreDropped();
    void aTornRegistryIsReadAsFarAsItGoes();
    void aRegistryThatCannotBeWrittenIsNoHindrance();
    void aSidecarIsMadeOnceAndKept();
    void aChangedDictionaryGetsANewSidecar();
    void aFolderThatCannotBeWrittenMeansMemory();
    void damagedSidecarsAreMadeAgain();
    void damagedDictionariesAreNotOpened_data();
    void damagedDictionariesAreNotOpened();
    void theShelfEndsWhileItWorks();
    void theIndexFolderIsMadeOnAPenOnly();

private:
    std::string path(const std::string& name) const
    {
        return m_folder->path().toStdString() + "/" + name;
    }
    void makeFolder(const std::string& name)
    {
        QVERIFY(QDir().mkpath(QString::fromStdString(path(name))));
    }
    void makeDict(const std::string& name, const std::string& title = {})
    {
        dicfiles::writeDict(path(name), {{"house", "Haus"}, {"dog", "Hund"}}, true, title);
    }
    std::vector<std::string> scan(const std::vector<std::string>& folders);
    std::vector<std::string> arrange(const std::vector<std::string>& folders);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::vector<dic::Source> m_found;
};

void TestDicFolders::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_found.clear();
    for (const char* name : {"one", "two", "cache"})
        makeFolder(name);
}

std::vector<std::string> TestDicFolders::scan(const std::vector<std::string>& folders)
{
    std::vector<std::string> paths;
    for (const std::string& folder : folders)
        paths.push_back(path(folder));
    m_found = dic::scanFolders(paths);
    std::vector<std::string> places;
    for (const dic::Source& source : m_found)
        places.push_back(source.place + " " + dic::pairName(source.pair));
    return places;
}

// "English-German: place, -, place": what is absent is a dash.
std::vector<std::string> TestDicFolders::arrange(const std::vector<std::string>& folders)
{
    scan(folders);
    std::vector<std::string> lines;
    for (const auto& pair : dic::Registry::arrange(m_found, path("cache/registry"))) {
        std::string line = dic::pairName(pair.languages);
        for (const auto& dictionary : pair.dictionaries)
            line += dictionary ? " " + dictionary->place : " -";
        lines.push_back(line);
    }
    return lines;
}

void TestDicFolders::aFileNameTellsThePair_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("three letters") << QByteArray("freedict-deu-eng") << 104 << 101;
    QTest::newRow("bare") << QByteArray("eng-rus") << 101 << 151;
    QTest::newRow("two letters") << QByteArray("de-en") << 104 << 101;
    QTest::newRow("names") << QByteArray("german-english") << 104 << 101;
    QTest::newRow("underscores, more behind") << QByteArray("my_ger_eng_2020") << 104 << 101;
    QTest::newRow("Chinese") << QByteArray("cedict-zho-eng") << 1 << 101;
    QTest::newRow("two letters in between") << QByteArray("it-no-book") << 0 << 0;
    QTest::newRow("one language") << QByteArray("wn-eng") << 0 << 0;
    QTest::newRow("unknown language") << QByteArray("freedict-lat-deu") << 0 << 0;
    QTest::newRow("nothing") << QByteArray("wn") << 0 << 0;
    QTest::newRow("empty") << QByteArray() << 0 << 0;
}

void TestDicFolders::aFileNameTellsThePair()
{
    QFETCH(QByteArray, name);
    QFETCH(int, from);
    QFETCH(int, to);
    const LanguagePair pair = dic::pairOfFileName(name.toStdString());
    QCOMPARE(pair.isKnown(), from != 0);
    if (from) {
        QCOMPARE(pair.from, from);
        QCOMPARE(pair.to, to);
    }
}

void TestDicFolders::aTitleTellsThePair_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("FreeDict") << QByteArray("German - English Ding/FreeDict dictionary ver. 1.9")
                              << 104 << 101;
    QTest::newRow("to") << QByteArray("A dictionary English to Russian") << 101 << 151;
    QTest::newRow("one word") << QByteArray("The English-Dutch Dictionary") << 101 << 110;
    QTest::newRow("none") << QByteArray("WordNet (r) 3.0 (2006)") << 0 << 0;
    QTest::newRow("small words") << QByteArray("it is no dictionary") << 0 << 0;
}

void TestDicFolders::aTitleTellsThePair()
{
    QFETCH(QByteArray, title);
    QFETCH(int, from);
    QFETCH(int, to);
    const LanguagePair pair = dic::pairOfTitle(title.toStdString());
    QCOMPARE(pair.isKnown(), from != 0);
    if (from) {
        QCOMPARE(pair.from, from);
        QCOMPARE(pair.to, to);
    }
}

void TestDicFolders::foldersAndTheirSubFoldersAreSearched()
{
    makeFolder("one/sub/deeper");
    makeDict("one/b-deu-eng");
    makeDict("one/a-eng-deu");
    makeDict("one/sub/fra-deu");
    makeDict("one/sub/deeper/swe-deu");
    dicfiles::StarDict content;
    content.entries = {{"house", "Haus"}};
    dicfiles::writeStarDict(path("two/eng-fra"), content);
    const std::vector<std::string> expected = {
        "0/a-eng-deu English-German", "0/b-deu-eng German-English", "0/sub/fra-deu French-German",
        "1/eng-fra English-French"};
    QCOMPARE(scan({"one/", "two"}), expected);
}

void TestDicFolders::aFileReachedTwiceCountsOnce()
{
    makeFolder("root/default");
    makeDict("root/default/deu-eng");
    makeDict("root/fra-deu");
    const std::vector<std::string> expected = {"0/deu-eng German-English",
                                               "1/fra-deu French-German"};
    QCOMPARE(scan({"root/default/", "root/"}), expected);
}

void TestDicFolders::missingFoldersAndLinksArePassedOver()
{
    makeDict("one/deu-eng");
    QCOMPARE(symlink(path("one/deu-eng.index").c_str(), path("two/fra-deu.index").c_str()), 0);
    QCOMPARE(symlink(path("one").c_str(), path("two/link").c_str()), 0);
    QCOMPARE(mkfifo(path("two/swe-deu.index").c_str(), 0600), 0);
    makeFolder("two/swe-eng.index");
    QCOMPARE(scan({"two", "missing", "one"}), std::vector<std::string>{"2/deu-eng German-English"});
}

void TestDicFolders::aDescriptorComesFirst()
{
    makeDict("one/wn");
    makeDict("one/deu-eng");
    dicfiles::write(path("one/wn.about"), "title = WordNet\r\nlanguages = eng-eng\r\n");
    dicfiles::write(path("one/deu-eng.about"), "languages=fr-de\n");
    const std::vector<std::string> expected = {"0/deu-eng French-German", "0/wn English-English"};
    QCOMPARE(scan({"one"}), expected);
}

void TestDicFolders::theTitleCountsWhereTheNameSaysNothing()
{
    makeDict("one/book", "German - English words");
    dicfiles::StarDict content;
    content.entries = {{"house", "Haus"}};
    content.title = "English to French";
    dicfiles::writeStarDict(path("one/other"), content);
    const std::vector<std::string> expected = {"0/book German-English", "0/other English-French"};
    QCOMPARE(scan({"one"}), expected);
}

void TestDicFolders::unknownLanguagesAreLeftOut()
{
    makeDict("one/book");
    makeDict("one/lat-deu", "Latin - German");
    dicfiles::write(path("one/text.index"), "this is no index\n");
    dicfiles::write(path("one/empty.ifo"), "");
    QVERIFY(scan({"one"}).empty());
}

void TestDicFolders::namesThatCannotBeKeptAreLeftOut()
{
    makeDict("one/a\nb-deu-eng");
    makeDict("one/\xff-deu-eng");
    makeDict("one/deu-eng ");
    QVERIFY(scan({"one"}).empty());
    // Qt cannot remove what it cannot name.
    QCOMPARE(unlink(path("one/\xff-deu-eng.index").c_str()), 0);
    QCOMPARE(unlink(path("one/\xff-deu-eng.dict.dz").c_str()), 0);
}

void TestDicFolders::newDictionariesComeLast()
{
    makeDict("two/deu-eng");
    makeDict("two/fra-deu");
    const std::vector<std::string> before = {"German-English 1/deu-eng", "French-German 1/fra-deu"};
    QCOMPARE(arrange({"one", "two"}), before);
    makeDict("one/a-eng-deu");
    makeDict("one/a-deu-eng");
    const std::vector<std::string> after = {"German-English 1/deu-eng 0/a-deu-eng",
                                            "French-German 1/fra-deu",
                                            "English-German 0/a-eng-deu"};
    QCOMPARE(arrange({"one", "two"}), after);
    QCOMPARE(arrange({"one", "two"}), after);
}

void TestDicFolders::anAbsentDictionaryKeepsItsPlace()
{
    makeDict("one/a-deu-eng");
    makeDict("one/b-deu-eng");
    makeDict("one/fra-deu");
    arrange({"one"});
    QFile::remove(QString::fromStdString(path("one/a-deu-eng.index")));
    const std::vector<std::string> expected = {"German-English - 0/b-deu-eng",
                                               "French-German 0/fra-deu"};
    QCOMPARE(arrange({"one"}), expected);
    QFile::remove(QString::fromStdString(path("one/b-deu-eng.index")));
    const std::vector<std::string> alone = {"German-English", "French-German 0/fra-deu"};
    QCOMPARE(arrange({"one"}), alone);
}

void TestDicFolders::absentOnesAtTheEndAreDropped()
{
    makeDict("one/deu-eng");
    makeDict("one/fra-deu");
    arrange({"one"});
    QFile::remove(QString::fromStdString(path("one/fra-deu.index")));
    QCOMPARE(arrange({"one"}), std::vector<std::string>{"German-English 0/deu-eng"});
    QVERIFY(arrange({"missing"}).empty());
}

void TestDicFolders::aTornRegistryIsReadAsFarAsItGoes()
{
    makeDict("one/deu-eng");
    makeDict("one/fra-deu");
    dicfiles::write(path("cache/registry"), "nonsense\nlat-deu 0/x\nfra-deu 0/fra-deu\ndeu-e");
    const std::vector<std::string> expected = {"French-German 0/fra-deu",
                                               "German-English 0/deu-eng"};
    QCOMPARE(arrange({"one"}), expected);
    QCOMPARE(arrange({"one"}), expected);
    QVERIFY(dicfiles::read(path("cache/registry")).ends_with("\ndeu-e\ndeu-eng 0/deu-eng\n"));
}

void TestDicFolders::aRegistryThatCannotBeWrittenIsNoHindrance()
{
    makeDict("one/deu-eng");
    makeFolder("cache/registry");
    QCOMPARE(arrange({"one"}), std::vector<std::string>{"German-English 0/deu-eng"});
    scan({"one"});
    QCOMPARE(dic::Registry::arrange(m_found, "").size(), std::size_t(1));
}

void TestDicFolders::aSidecarIsMadeOnceAndKept()
{
    makeDict("one/deu-eng");
    scan({"one"});
    {
        dic::IndexShelf shelf(path("cache/"));
        shelf.prepare(m_found);
        const auto sidecar = shelf.open(m_found[0]);
        QVERIFY(sidecar);
        QCOMPARE(sidecar->find("house").size(), std::size_t(1));
        QVERIFY(shelf.open(m_found[0]));
        QCOMPARE(shelf.made(), 1);
    }
    dic::IndexShelf shelf(path("cache/"));
    QVERIFY(shelf.open(m_found[0]));
    QCOMPARE(shelf.made(), 0);
}

void TestDicFolders::aChangedDictionaryGetsANewSidecar()
{
    makeDict("one/deu-eng");
    scan({"one"});
    dic::IndexShelf shelf(path("cache/"));
    QVERIFY(shelf.open(m_found[0]));
    dicfiles::writeDict(path("one/deu-eng"), {{"cat", "Katze"}}, true);
    const auto sidecar = shelf.open(m_found[0]);
    QVERIFY(sidecar);
    QVERIFY(sidecar->find("house").empty());
    QCOMPARE(sidecar->find("cat").size(), std::size_t(1));
}

void TestDicFolders::aFolderThatCannotBeWrittenMeansMemory()
{
    makeDict("one/deu-eng");
    scan({"one"});
    for (const std::string& folder : {std::string(), path("missing/")}) {
        dic::IndexShelf shelf(folder);
        const auto first = shelf.open(m_found[0]);
        const auto second = shelf.open(m_found[0]);
        QVERIFY(first && second);
        QCOMPARE(first->find("house").size(), std::size_t(1));
        QCOMPARE(second->find("dog").size(), std::size_t(1));
        QCOMPARE(shelf.made(), 1);
    }
}

void TestDicFolders::damagedSidecarsAreMadeAgain()
{
    makeDict("one/deu-eng");
    scan({"one"});
    dic::IndexShelf(path("cache/")).open(m_found[0]);
    const QStringList names = QDir(QString::fromStdString(path("cache"))).entryList(QDir::Files);
    QCOMPARE(names.size(), 1);
    const std::string file = path("cache/" + names.at(0).toStdString());
    dicfiles::write(file, dicfiles::read(file).substr(0, 60));
    dic::IndexShelf shelf(path("cache/"));
    QVERIFY(shelf.open(m_found[0]));
    QCOMPARE(shelf.made(), 1);
}

void TestDicFolders::damagedDictionariesAreNotOpened_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("keep"); // so many bytes of it, and nothing else
    QTest::newRow("no texts") << QByteArray("deu-eng.dict.dz") << -1;
    QTest::newRow("texts cut") << QByteArray("deu-eng.dict.dz") << 30;
    QTest::newRow("index empty") << QByteArray("deu-eng.index") << 0;
    QTest::newRow("index cut") << QByteArray("deu-eng.index") << 3;
}

void TestDicFolders::damagedDictionariesAreNotOpened()
{
    QFETCH(QByteArray, file);
    QFETCH(int, keep);
    makeDict("one/deu-eng");
    scan({"one"});
    const std::string name = path("one/" + file.toStdString());
    if (keep < 0)
        QVERIFY(QFile::remove(QString::fromStdString(name)));
    else
        dicfiles::write(name, dicfiles::read(name).substr(0, std::size_t(keep)));
    dic::IndexShelf shelf(path("cache/"));
    shelf.prepare(m_found);
    QVERIFY(!shelf.open(m_found[0]));
    QVERIFY(!shelf.open(m_found[0])); // known by now
    QVERIFY(QDir(QString::fromStdString(path("cache"))).entryList(QDir::Files).isEmpty());
    makeDict("one/deu-eng");
    QVERIFY(shelf.open(m_found[0]));
}

void TestDicFolders::theShelfEndsWhileItWorks()
{
    for (int i = 0; i < 20; ++i)
        makeDict("one/" + std::to_string(i) + "-deu-eng");
    scan({"one"});
    QCOMPARE(m_found.size(), std::size_t(20));
    {
        dic::IndexShelf shelf(path("cache/"));
        shelf.prepare(m_found);
    }
    // Nothing half made is left.
    const QDir cache(QString::fromStdString(path("cache")));
    QVERIFY(cache.entryList({QStringLiteral("*.new")}, QDir::Files).isEmpty());
}

void TestDicFolders::theIndexFolderIsMadeOnAPenOnly()
{
    qputenv("SWIPELINE_ROOT", QByteArray::fromStdString(path("")));
    QCOMPARE(dic::indexFolder(), std::string());
    makeFolder("apps/data");
    QCOMPARE(dic::indexFolder(), path("apps/data/dictindex/"));
    QVERIFY(QDir(QString::fromStdString(path("apps/data/dictindex"))).exists());
    qunsetenv("SWIPELINE_ROOT");
}

QTEST_APPLESS_MAIN(TestDicFolders)
#include "tst_dic_folders.moc"
