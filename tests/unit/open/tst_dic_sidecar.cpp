/* Keys of words, and the engine's own index that is sorted by them. */
#include "open/dic/folding.h"
#include "open/dic/sidecar.h"
#include "open/dic/sidecarbuilder.h"
#include "tests/unit/open/dicfiles.h"

#include <QTemporaryDir>
#include <QTest>
#include <fcntl.h>
#include <unistd.h>

namespace {

const std::atomic<bool> DontStop = false;
const std::string Fingerprint = "index 12 34";

} // namespace

class TestDicSidecar : public QObject
{
    Q_OBJECT

private slots:
    void wordsFoldToTheSameKey_data();
    void wordsFoldToTheSameKey();
    void punctuationAloneIsKept();
    void accentsAreTakenOff_data();
    void accentsAreTakenOff();
    void wordsAreCapitalized();
    void everyRowIsFound();
    void manyRowsOfOneKeyComeInOrder();
    void placesOfAnySizeAreKept();
    void accentFreeKeysAreRowsOfTheirOwn();
    void anEmptyIndexFindsNothing();
    void theStateOfTheDictionaryMustFit();
    void aCutSidecarIsRefusedOrNoticed();
    void aFlippedByteIsRefusedOrNoticed();
    void writingEndsWhenStopped();

private:
    std::string path() { return m_folder.filePath(QStringLiteral("a.sidecar")).toStdString(); }
    bool write(dic::SidecarBuilder& builder, const std::atomic<bool>& stop = DontStop);
    std::unique_ptr<dic::Sidecar> open(const std::string& fingerprint = Fingerprint)
    {
        return dic::Sidecar::open(dic::PlainFile::open(path()), fingerprint);
    }

    QTemporaryDir m_folder;
};

bool TestDicSidecar::write(dic::SidecarBuilder& builder, const std::atomic<bool>& stop)
{
    const int file = ::open(path().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool good = builder.write(file, Fingerprint, stop);
    return ::close(file) == 0 && good;
}

void TestDicSidecar::wordsFoldToTheSameKey_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("key");
    QTest::newRow("plain") << "house"
                           << "house";
    QTest::newRow("capitals") << "HOUSE"
                              << "house";
    QTest::newRow("apostrophe") << "don't"
                                << "dont";
    QTest::newRow("printed apostrophe") << QString::fromUtf8("don’t") << "dont";
    QTest::newRow("hyphen") << "well-known"
                            << "wellknown";
    QTest::newRow("soft hyphen") << QStringLiteral("well\u00adknown") << "wellknown";
    QTest::newRow("blanks") << "  a \t b "
                            << "a b";
    QTest::newRow("umlaut") << QString::fromUtf8("ÄRA") << QString::fromUtf8("ära");
    QTest::newRow("decomposed") << QStringLiteral("a\u0308ra") << QString::fromUtf8("ära");
    QTest::newRow("sharp s") << QString::fromUtf8("Straße") << "strasse";
    QTest::newRow("ligature ij") << QString::fromUtf8("ĳs") << "ijs";
    QTest::newRow("ligature fi") << QString::fromUtf8("ﬁn") << "fin";
    QTest::newRow("Cyrillic") << QString::fromUtf8("Дом") << QString::fromUtf8("дом");
    QTest::newRow("Chinese") << QString::fromUtf8("中国。") << QString::fromUtf8("中国");
    QTest::newRow("signs stay") << "C++"
                                << "c++";
}

void TestDicSidecar::wordsFoldToTheSameKey()
{
    QFETCH(QString, word);
    QFETCH(QString, key);
    QCOMPARE(QString::fromStdString(dic::foldedKey(word.toStdString())), key);
    QCOMPARE(QString::fromStdString(dic::foldedKey(key.toStdString())), key);
}

void TestDicSidecar::punctuationAloneIsKept()
{
    QCOMPARE(dic::foldedKey("..."), std::string("..."));
    QCOMPARE(dic::foldedKey("-"), std::string("-"));
    QCOMPARE(dic::foldedKey(""), std::string());
}

void TestDicSidecar::accentsAreTakenOff_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("plain");
    QTest::newRow("none") << "house"
                          << "house";
    QTest::newRow("French") << QString::fromUtf8("hébété") << "hebete";
    QTest::newRow("letters of their own")
        << QString::fromUtf8("œuf æble smørrebrød") << "oeuf aeble smorrebrod";
    QTest::newRow("Russian") << QString::fromUtf8("ёлка") << QString::fromUtf8("елка");
}

void TestDicSidecar::accentsAreTakenOff()
{
    QFETCH(QString, key);
    QFETCH(QString, plain);
    QCOMPARE(QString::fromStdString(dic::accentFreeKey(key.toStdString())), plain);
}

void TestDicSidecar::wordsAreCapitalized()
{
    QCOMPARE(dic::capitalized("haus"), std::string("Haus"));
    QCOMPARE(dic::capitalized("\xc3\xa4ra"), std::string("\xc3\x84ra"));
    QCOMPARE(dic::capitalized(""), std::string());
    QCOMPARE(dic::characterCount("\xc3\xa4ra"), std::size_t(3));
}

void TestDicSidecar::everyRowIsFound()
{
    dic::SidecarBuilder builder;
    constexpr unsigned Count = 5000;
    for (unsigned i = 0; i < Count; ++i) {
        const std::string head = "Word " + std::to_string(i * 7919 % Count);
        builder.add({head, i % 3 ? "" : "Other", i * 10ULL, i});
    }
    QVERIFY(write(builder));
    const auto sidecar = open();
    QVERIFY(sidecar);
    QCOMPARE(sidecar->rows(), Count);
    for (unsigned i = 0; i < Count; ++i) {
        const unsigned number = i * 7919 % Count;
        const auto rows = sidecar->find("word " + std::to_string(number));
        QCOMPARE(rows.size(), std::size_t(1));
        QCOMPARE(rows[0].head, "Word " + std::to_string(number));
        QCOMPARE(rows[0].title, std::string(i % 3 ? "" : "Other"));
        QCOMPARE(rows[0].offset, i * 10ULL);
        QCOMPARE(rows[0].size, i);
    }
    for (const char* absent : {"", "a", "word", "word 1x", "word 4999x", "zzz"})
        QVERIFY(sidecar->find(absent).empty());
    QVERIFY(!sidecar->failed());
}

void TestDicSidecar::manyRowsOfOneKeyComeInOrder()
{
    dic::SidecarBuilder builder;
    builder.add({"a", "", 1, 1});
    const std::string longWord(300, 'm');
    for (unsigned i = 0; i < 100; ++i)
        builder.add({longWord, "", i, 1});
    builder.add({"z", "", 2, 1});
    QVERIFY(write(builder));
    const auto sidecar = open();
    const auto rows = sidecar->find(longWord);
    QCOMPARE(rows.size(), dic::Sidecar::MostRows);
    for (std::size_t i = 0; i < rows.size(); ++i)
        QCOMPARE(rows[i].offset, std::uint64_t(i));
    QCOMPARE(sidecar->find("a").size(), std::size_t(1));
    QCOMPARE(sidecar->find("z").size(), std::size_t(1));
}

void TestDicSidecar::placesOfAnySizeAreKept()
{
    dic::SidecarBuilder builder;
    const std::vector<std::uint64_t> places = {0, 127, 128, 1ULL << 62, 1ULL << 63, ~0ULL};
    for (const std::uint64_t place : places)
        builder.add({"a", "", place, ~0U});
    QVERIFY(write(builder));
    const auto rows = open()->find("a");
    QCOMPARE(rows.size(), places.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        QCOMPARE(rows[i].offset, places[i]);
        QCOMPARE(rows[i].size, ~0U);
    }
}

void TestDicSidecar::accentFreeKeysAreRowsOfTheirOwn()
{
    dic::SidecarBuilder builder;
    builder.add({"\xc3\xa4r", "", 5, 1}); // är
    QVERIFY(write(builder));
    const auto sidecar = open();
    QVERIFY(sidecar->find("ar").empty());
    const auto rows = sidecar->find(dic::AccentFreeMark + std::string("ar"));
    QCOMPARE(rows.size(), std::size_t(1));
    QCOMPARE(rows[0].head, std::string("\xc3\xa4r"));
}

void TestDicSidecar::anEmptyIndexFindsNothing()
{
    dic::SidecarBuilder builder;
    builder.add({"", "", 0, 0});
    QVERIFY(write(builder));
    const auto sidecar = open();
    QVERIFY(sidecar);
    QVERIFY(sidecar->find("a").empty());
}

void TestDicSidecar::theStateOfTheDictionaryMustFit()
{
    dic::SidecarBuilder builder;
    builder.add({"a", "", 1, 1});
    QVERIFY(write(builder));
    QVERIFY(open());
    QVERIFY(!open("index 12 35"));
    QVERIFY(!open("index 12 345"));
    QVERIFY(!open(""));
}

void TestDicSidecar::aCutSidecarIsRefusedOrNoticed()
{
    dic::SidecarBuilder builder;
    for (const char* head : {"a", "b", "c", "d"})
        builder.add({head, "", 1, 1});
    QVERIFY(write(builder));
    const std::string whole = dicfiles::read(path());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        dicfiles::write(path(), whole.substr(0, length));
        QVERIFY(!open());
    }
}

void TestDicSidecar::aFlippedByteIsRefusedOrNoticed()
{
    dic::SidecarBuilder builder;
    for (const char* head : {"a", "b", "c", "d"})
        builder.add({head, "", 1, 1});
    QVERIFY(write(builder));
    const std::string whole = dicfiles::read(path());
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = char(damaged[at] ^ 0x55);
        dicfiles::write(path(), damaged);
        const auto sidecar = open();
        QVERIFY2(!sidecar || (sidecar->find("b").empty() && sidecar->failed()),
                 std::to_string(at).c_str());
    }
}

void TestDicSidecar::writingEndsWhenStopped()
{
    dic::SidecarBuilder builder;
    builder.add({"a", "", 1, 1});
    const std::atomic<bool> stop = true;
    QVERIFY(!write(builder, stop));
    QVERIFY(!open());
}

QTEST_APPLESS_MAIN(TestDicSidecar)
#include "tst_dic_sidecar.moc"
