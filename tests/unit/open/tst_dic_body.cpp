/* The texts of a dictionary: read at any place, whatever state the file is in. */
#include "open/dic/body.h"
#include "open/dic/chunkedbody.h"
#include "tests/unit/open/dicfiles.h"

#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const std::atomic<bool> DontStop = false;

std::string sampleText(std::size_t length)
{
    std::string text;
    for (unsigned i = 0; text.size() < length; ++i)
        text += std::to_string(i * 2654435761U) + (i % 7 ? " " : "\n");
    text.resize(length);
    return text;
}

} // namespace

class TestDicBody : public QObject
{
    Q_OBJECT

private slots:
    void everyPlaceReadsAsItWasWritten_data();
    void everyPlaceReadsAsItWasWritten();
    void nothingBehindTheEndIsRead();
    void aChunkIsInflatedOnceAndNoFurtherThanNeeded();
    void theCheckSumIsCompared();
    void aFileInOnePieceIsRefused();
    void anyCutIsNoticed();
    void anyFlippedByteIsNoticed();
    void pipesLinksAndFoldersAreRefused();
    void aWholeGzipFileIsInflated();
    void moreThanTheLimitIsRefused();

private:
    std::string path(const char* name) { return m_folder.filePath(name).toStdString(); }
    bool opens(const std::string& name)
    {
        std::string why;
        return dic::openBody(name, why) != nullptr;
    }

    QTemporaryDir m_folder;
};

void TestDicBody::everyPlaceReadsAsItWasWritten_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("compressed");
    QTest::newRow("plain") << 5000 << false;
    QTest::newRow("chunks") << 5000 << true;
    QTest::newRow("exactly full chunks") << 4096 << true;
    QTest::newRow("one chunk") << 10 << true;
}

void TestDicBody::everyPlaceReadsAsItWasWritten()
{
    QFETCH(int, length);
    QFETCH(bool, compressed);
    const std::string text = sampleText(std::size_t(length));
    const std::string file = path(compressed ? "a.dict.dz" : "a.dict");
    dicfiles::write(file, compressed ? dicfiles::dictzip(text, 512) : text);

    std::string why;
    const auto body = dic::openBody(file, why);
    QVERIFY2(body, why.c_str());
    QCOMPARE(body->size(), std::uint64_t(length));
    std::string out;
    for (std::size_t at = 0; at <= text.size(); at += 97) {
        for (const std::size_t part : {0U, 1U, 300U, 700U, 3000U}) {
            const bool inside = at + part <= text.size();
            QCOMPARE(body->read(at, part, out), inside);
            if (inside)
                QCOMPARE(out, text.substr(at, part));
        }
    }
    QVERIFY(body->verify(DontStop));
}

void TestDicBody::nothingBehindTheEndIsRead()
{
    dicfiles::write(path("b.dict.dz"), dicfiles::dictzip(sampleText(1000), 300));
    dic::ChunkedBody body(dic::PlainFile::open(path("b.dict.dz")));
    std::string out;
    QVERIFY(!body.read(1001, 0, out));
    QVERIFY(!body.read(999, 2, out));
    QVERIFY(!body.read(~std::uint64_t(0), 5, out));
    QVERIFY(!body.read(5, ~std::size_t(0), out));
    QVERIFY(body.read(999, 1, out));
}

void TestDicBody::aChunkIsInflatedOnceAndNoFurtherThanNeeded()
{
    const std::string text = sampleText(20000);
    dicfiles::write(path("c.dict.dz"), dicfiles::dictzip(text, 1000));
    dic::ChunkedBody body(dic::PlainFile::open(path("c.dict.dz")));
    std::string out;
    QVERIFY(body.read(100, 400, out));
    QVERIFY(body.read(0, 500, out));
    QCOMPARE(body.inflations(), std::size_t(1));
    QVERIFY(body.read(0, 501, out)); // one byte more than was made
    QCOMPARE(body.inflations(), std::size_t(2));
    for (std::size_t chunk = 1; chunk < dic::ChunkedBody::KeptChunks; ++chunk)
        QVERIFY(body.read(chunk * 1000, 10, out));
    const std::size_t before = body.inflations();
    QVERIFY(body.read(0, 10, out));
    QCOMPARE(body.inflations(), before);
    QVERIFY(body.read(15000, 10, out)); // takes the place of the one not used for longest
    QVERIFY(body.read(0, 10, out));
    QCOMPARE(body.inflations(), before + 1);
}

void TestDicBody::theCheckSumIsCompared()
{
    std::string file = dicfiles::dictzip(sampleText(3000), 500);
    file[file.size() - 8] = char(file[file.size() - 8] ^ 1);
    dicfiles::write(path("d.dict.dz"), file);
    std::string why;
    const auto body = dic::openBody(path("d.dict.dz"), why);
    QVERIFY(body);
    QVERIFY(!body->verify(DontStop));

    dicfiles::write(path("d.dict.dz"), dicfiles::dictzip(sampleText(3000), 500));
    const std::atomic<bool> stop = true;
    QVERIFY(!dic::openBody(path("d.dict.dz"), why)->verify(stop));
}

void TestDicBody::aFileInOnePieceIsRefused()
{
    dicfiles::write(path("e.dict.dz"), dicfiles::gzip(sampleText(3000)));
    std::string why;
    QVERIFY(!dic::openBody(path("e.dict.dz"), why));
    QVERIFY(!why.empty());
}

void TestDicBody::anyCutIsNoticed()
{
    const std::string file = dicfiles::dictzip(sampleText(2000), 500);
    for (std::size_t length = 0; length < file.size(); ++length) {
        dicfiles::write(path("f.dict.dz"), file.substr(0, length));
        std::string why;
        const auto body = dic::openBody(path("f.dict.dz"), why);
        QVERIFY2(!body || !body->verify(DontStop), std::to_string(length).c_str());
    }
}

void TestDicBody::anyFlippedByteIsNoticed()
{
    const std::string text = sampleText(2000);
    const std::string file = dicfiles::dictzip(text, 500);
    std::string out;
    for (std::size_t at = 0; at < file.size(); ++at) {
        std::string damaged = file;
        damaged[at] = char(damaged[at] ^ 0x10);
        dicfiles::write(path("g.dict.dz"), damaged);
        std::string why;
        const auto body = dic::openBody(path("g.dict.dz"), why);
        // Where the damage does no harm the text must be whole.
        if (body && body->verify(DontStop)) {
            QVERIFY(body->read(0, text.size(), out));
            QCOMPARE(out, text);
        }
    }
}

void TestDicBody::pipesLinksAndFoldersAreRefused()
{
    dicfiles::write(path("good.dict"), "text");
    QVERIFY(opens(path("good.dict")));
    QCOMPARE(symlink(path("good.dict").c_str(), path("link.dict").c_str()), 0);
    QCOMPARE(mkfifo(path("pipe.dict").c_str(), 0600), 0);
    QCOMPARE(mkdir(path("folder.dict").c_str(), 0700), 0);
    for (const char* name : {"link.dict", "pipe.dict", "folder.dict", "missing.dict"})
        QVERIFY2(!opens(path(name)), name);
    QVERIFY(!opens("/dev/zero"));
}

void TestDicBody::aWholeGzipFileIsInflated()
{
    const std::string text = sampleText(300000);
    std::string out;
    for (const std::string& file : {dicfiles::gzip(text), dicfiles::dictzip(text, 5000)}) {
        dicfiles::write(path("h.gz"), file);
        QVERIFY(dic::inflateFile(dic::PlainFile::open(path("h.gz")), 300000, out));
        QCOMPARE(out, text);
        dicfiles::write(path("h.gz"), file.substr(0, file.size() - 3));
        QVERIFY(!dic::inflateFile(dic::PlainFile::open(path("h.gz")), 300000, out));
    }
}

void TestDicBody::moreThanTheLimitIsRefused()
{
    dicfiles::write(path("i.gz"), dicfiles::gzip(std::string(1000000, ' ')));
    std::string out;
    QVERIFY(!dic::inflateFile(dic::PlainFile::open(path("i.gz")), 999999, out));
    QVERIFY(dic::inflateFile(dic::PlainFile::open(path("i.gz")), 1000000, out));
}

QTEST_APPLESS_MAIN(TestDicBody)
#include "tst_dic_body.moc"
