/* Indices of dictionaries: both formats give the same rows; damaged lines harm only themselves. */
#include "open/dic/dictindex.h"
#include "open/dic/gzip.h"
#include "open/dic/stardictindex.h"
#include "tests/unit/open/dicfiles.h"

#include <QTemporaryDir>
#include <QTest>
#include <vector>

namespace {

struct Seen
{
    std::string head;
    std::string title;
    std::uint64_t offset;
    std::uint32_t size;

    bool operator==(const Seen&) const = default;
};

} // namespace

class TestDicIndices : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aDictIndexIsRead();
    void marksAndCarriageReturnsAreLeftOut();
    void theTitleIsNoWord();
    void aFourthColumnIsTheTrueSpelling();
    void damagedDictLinesAreLeftOut();
    void aStarDictIndexIsRead_data();
    void aStarDictIndexIsRead();
    void synonymsLeadToTheirEntries();
    void anInfoThatIsNoneIsRefused_data();
    void anInfoThatIsNoneIsRefused();
    void anIndexOfAnotherLengthIsRefused();
    void anIndexThatEndsWithinAWordIsRefused();
    void emptyAndDamagedHeadsAreLeftOut();

private:
    std::string path(const std::string& name)
    {
        return m_folder.filePath(QString::fromStdString(name)).toStdString();
    }
    void readDict(const std::string& content);
    bool readStarDict();

    QTemporaryDir m_folder;
    std::vector<Seen> m_rows;
    dic::DictFacts m_facts;
    dic::IndexReport m_report;
    std::string m_why;
};

void TestDicIndices::init()
{
    m_rows.clear();
    m_facts = {};
    m_report = {};
    m_why.clear();
    for (const char* name : {"s.ifo", "s.idx", "s.idx.gz", "s.syn", "s.dict", "s.dict.dz"})
        QFile::remove(m_folder.filePath(QString::fromLatin1(name)));
}

void TestDicIndices::readDict(const std::string& content)
{
    dicfiles::write(path("d.index"), content);
    const auto keep = [this](const dic::Row& row) {
        m_rows.push_back({std::string(row.head), std::string(row.title), row.offset, row.size});
    };
    QVERIFY(dic::readDictIndex(dic::PlainFile::open(path("d.index")), keep, m_facts, m_report));
}

bool TestDicIndices::readStarDict()
{
    dic::StarDictInfo info;
    if (!dic::readStarDictInfo(dic::PlainFile::open(path("s.ifo")), info, m_why))
        return false;
    dic::StarDictFiles files;
    files.index = dic::PlainFile::open(path("s.idx"));
    files.indexCompressed = !files.index.isOpen();
    if (files.indexCompressed)
        files.index = dic::PlainFile::open(path("s.idx.gz"));
    files.synonyms = dic::PlainFile::open(path("s.syn"));
    const auto keep = [this](const dic::Row& row) {
        m_rows.push_back({std::string(row.head), std::string(row.title), row.offset, row.size});
    };
    return dic::readStarDictIndex(files, info, keep, m_report, m_why);
}

void TestDicIndices::aDictIndexIsRead()
{
    readDict("house\tA\tBA\nhus\tBA\t/\nH\xc3\xa4user\t//////\tA\n");
    const std::vector<Seen> expected = {
        {"house", "", 0, 64}, {"hus", "", 64, 63}, {"H\xc3\xa4user", "", 0xfffffffff, 0}};
    QCOMPARE(m_rows, expected);
    QCOMPARE(m_report.damaged, std::size_t(0));
}

void TestDicIndices::marksAndCarriageReturnsAreLeftOut()
{
    readDict("\xef\xbb\xbfhouse\tA\tB\r\n\r\n  ab \tC\tD\r\n");
    const std::vector<Seen> expected = {{"house", "", 0, 1}, {"ab", "", 2, 3}};
    QCOMPARE(m_rows, expected);
}

void TestDicIndices::theTitleIsNoWord()
{
    for (const char* key : {"00databaseshort", "00-database-short"}) {
        m_facts = {};
        readDict(std::string(key) + "\tC\tD\n00databaseinfo\tE\tF\n");
        QCOMPARE(m_facts.title.offset, std::uint64_t(2));
        QCOMPARE(m_facts.title.size, std::uint32_t(3));
        QVERIFY(m_rows.empty());
    }
}

void TestDicIndices::aFourthColumnIsTheTrueSpelling()
{
    readDict("dont\tA\tB\tdon't\n");
    QCOMPARE(m_rows.at(0).head, std::string("don't"));
}

void TestDicIndices::damagedDictLinesAreLeftOut()
{
    readDict("word\n"                                           // no numbers
             "word\tA\n"                                        // no length
             "word\tA!\tB\n"                                    // no digit
             "word\tA\t\n"                                      // no number
             "word\tAAAAAAAAAAAAAA\tB\n"                        // too long
             "word\tA\tEAAAAA\n"                                // a length of 2^32
             "w\xff\tA\tB\n"                                    // no UTF-8
             "w\x01\tA\tB\n"                                    // a control character
             + std::string(2000, 'w') + "\tA\tB\n" + "\tA\tB\n" // empty, which is no damage
             + "good\tA\tB");
    QCOMPARE(m_rows.size(), std::size_t(1));
    QCOMPARE(m_rows[0].head, std::string("good"));
    QCOMPARE(m_report.damaged, std::size_t(9));
}

void TestDicIndices::aStarDictIndexIsRead_data()
{
    QTest::addColumn<int>("offsetBits");
    QTest::addColumn<bool>("compressed");
    QTest::newRow("plain") << 32 << false;
    QTest::newRow("compressed") << 32 << true;
    QTest::newRow("places of 64 bits") << 64 << false;
    QTest::newRow("places of 64 bits, compressed") << 64 << true;
}

void TestDicIndices::aStarDictIndexIsRead()
{
    QFETCH(int, offsetBits);
    QFETCH(bool, compressed);
    dicfiles::StarDict content;
    content.entries = {{"zebra", "first"}, {"house", "second text"}}; // sorted or not
    content.offsetBits = offsetBits;
    content.compressed = compressed;
    dicfiles::writeStarDict(path("s"), content);
    QVERIFY2(readStarDict(), m_why.c_str());
    const std::vector<Seen> expected = {{"zebra", "", 0, 5}, {"house", "", 5, 11}};
    QCOMPARE(m_rows, expected);
}

void TestDicIndices::synonymsLeadToTheirEntries()
{
    dicfiles::StarDict content;
    content.entries = {{"go", "first"}, {"house", "second"}};
    content.synonyms = {{"went", 0}, {"beyond", 2}, {"home", 1}};
    dicfiles::writeStarDict(path("s"), content);
    QVERIFY2(readStarDict(), m_why.c_str());
    QCOMPARE(m_rows.size(), std::size_t(4));
    QCOMPARE(m_rows[2], (Seen{"went", "go", 0, 5}));
    QCOMPARE(m_rows[3], (Seen{"home", "house", 5, 6}));
    QCOMPARE(m_report.damaged, std::size_t(1));
}

void TestDicIndices::anInfoThatIsNoneIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray start = "StarDict's dict ifo file\nversion=2.4.2\n";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("another file") << QByteArray("[ifo]\nwordcount=1\nidxfilesize=9\n");
    QTest::newRow("no words") << start + "idxfilesize=9\n";
    QTest::newRow("no length") << start + "wordcount=1\n";
    QTest::newRow("no number") << start + "wordcount=one\nidxfilesize=9\n";
    QTest::newRow("negative") << start + "wordcount=1\nidxfilesize=-9\n";
    QTest::newRow("odd places") << start + "wordcount=1\nidxfilesize=9\nidxoffsetbits=33\n";
}

void TestDicIndices::anInfoThatIsNoneIsRefused()
{
    QFETCH(QByteArray, content);
    dicfiles::write(path("s.ifo"), content.toStdString());
    QVERIFY(!readStarDict());
    QVERIFY(!m_why.empty());
}

void TestDicIndices::anIndexOfAnotherLengthIsRefused()
{
    dicfiles::StarDict content;
    content.entries = {{"go", "first"}, {"house", "second"}};
    for (const bool compressed : {false, true}) {
        content.compressed = compressed;
        dicfiles::writeStarDict(path("s"), content);
        const std::string name = path(compressed ? "s.idx.gz" : "s.idx");
        const std::string whole = dicfiles::read(name);
        dicfiles::write(name, whole.substr(0, whole.size() - 4));
        QVERIFY(!readStarDict());
        if (!compressed) {
            dicfiles::write(name, whole + "more");
            QVERIFY(!readStarDict());
            QFile::remove(m_folder.filePath(QStringLiteral("s.idx")));
        }
    }
}

void TestDicIndices::anIndexThatEndsWithinAWordIsRefused()
{
    dicfiles::StarDict content;
    content.entries = {{"go", "first"}};
    dicfiles::writeStarDict(path("s"), content);
    std::string info = dicfiles::read(path("s.ifo"));
    info.replace(info.find("idxfilesize=11"), 14, "idxfilesize=13");
    dicfiles::write(path("s.ifo"), info);
    dicfiles::write(path("s.idx"), dicfiles::read(path("s.idx")) + "ab");
    QVERIFY(!readStarDict());
    QVERIFY(!m_why.empty());
}

void TestDicIndices::emptyAndDamagedHeadsAreLeftOut()
{
    dicfiles::StarDict content;
    content.entries = {{"", "first"}, {"w\xff", "second"}, {"good", "third"}, {"  ", "fourth"}};
    dicfiles::writeStarDict(path("s"), content);
    QVERIFY(readStarDict());
    QCOMPARE(m_rows.size(), std::size_t(1));
    QCOMPARE(m_rows[0].head, std::string("good"));
    QCOMPARE(m_report.damaged, std::size_t(3));
}

QTEST_APPLESS_MAIN(TestDicIndices)
#include "tst_dic_indices.moc"
