/* Name and origin of dictionaries: from a descriptor, from the dictionary, from its files. */
#include "open/dic/about.h"
#include "open/dic/description.h"
#include "open/dic/dictindex.h"
#include "open/dic/utf.h"
#include "tests/unit/open/dicfiles.h"

#include <QTemporaryDir>
#include <QTest>

class TestDicDescription : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aDescriptorIsRead();
    void aDescriptorTellsEverything();
    void whatADescriptorLacksTheDictionaryTells();
    void aTitleWithItsKeyInFront();
    void theFactsOfALargeIndexAreFoundWhereverTheyAre_data();
    void theFactsOfALargeIndexAreFoundWhereverTheyAre();
    void aStarDictTellsItsAuthor();
    void withoutAnythingTheFilesNameCounts();
    void aBrokenDictionaryStillHasAName();
    void namesAreOneLineAndNotTooLong();
    void licencesAreFoundInTexts_data();
    void licencesAreFoundInTexts();

private:
    std::string path(const std::string& name)
    {
        return m_folder->filePath(QString::fromStdString(name)).toStdString();
    }
    dic::Description describe(dic::Source::Format format)
    {
        dic::Source source;
        source.format = format;
        source.stem = path("book");
        return dic::describe(source);
    }
    void writeFacts(const std::string& title, const std::string& info, std::size_t before);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestDicDescription::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

// A dictionary whose facts stand behind so many words.
void TestDicDescription::writeFacts(const std::string& title, const std::string& info,
                                    std::size_t before)
{
    std::vector<dicfiles::Entry> entries;
    for (std::size_t i = 0; i < before; ++i)
        entries.push_back({"word " + std::to_string(i), "text"});
    entries.push_back({"00databaseinfo", info});
    entries.push_back({"00databaseshort", title});
    entries.push_back({"00databaseurl", "https://example.org/book\n"});
    for (std::size_t i = 0; i < before; ++i)
        entries.push_back({"zword " + std::to_string(i), "text"});
    dicfiles::writeDict(path("book"), entries, true);
}

void TestDicDescription::aDescriptorIsRead()
{
    dicfiles::write(path("a.about"), "\xef\xbb\xbf# a comment\r\nlanguages = eng-eng\r\n"
                                     "name = Word = Net\r\nsource = one\r\nsource = two\r\n"
                                     "license = free\r\nmore = nothing\r\n");
    const dic::About about = dic::readAbout(path("a.about"));
    QVERIFY(about.languages == (dic::LanguagePair{101, 101}));
    QCOMPARE(about.name, std::string("Word = Net"));
    QCOMPARE(about.source, std::string("one\ntwo"));
    QCOMPARE(about.licence, std::string("free"));
    QVERIFY(!dic::readAbout(path("missing.about")).languages.isKnown());
}

void TestDicDescription::aDescriptorTellsEverything()
{
    writeFacts("A title\n", "Copyright by somebody\n", 0);
    dicfiles::write(path("book.about"), "name=A Book\nsource=A shelf\nlicence=Free\n");
    const dic::Description told = describe(dic::Source::Format::Dict);
    QCOMPARE(told.name, std::u16string(u"A Book"));
    QCOMPARE(told.origin, std::u16string(u"A shelf\nFree"));
}

void TestDicDescription::whatADescriptorLacksTheDictionaryTells()
{
    writeFacts("A title\n", "Words.\n\nCopyright by somebody\n", 0);
    dicfiles::write(path("book.about"), "languages=eng-deu\n");
    const dic::Description told = describe(dic::Source::Format::Dict);
    QCOMPARE(told.name, std::u16string(u"A title"));
    QCOMPARE(told.origin, std::u16string(u"https://example.org/book\nCopyright by somebody"));
}

void TestDicDescription::aTitleWithItsKeyInFront()
{
    dicfiles::writeDict(path("book"), {{"word", "text"}}, false,
                        "00-database-short\n     WordNet (r) 3.0 (2006)");
    QCOMPARE(describe(dic::Source::Format::Dict).name, std::u16string(u"WordNet (r) 3.0 (2006)"));
}

void TestDicDescription::theFactsOfALargeIndexAreFoundWhereverTheyAre_data()
{
    QTest::addColumn<int>("before");
    QTest::newRow("at the beginning") << 10;
    QTest::newRow("late") << 20000;
}

void TestDicDescription::theFactsOfALargeIndexAreFoundWhereverTheyAre()
{
    QFETCH(int, before);
    writeFacts("A title\n", "GPL\n", std::size_t(before));
    QVERIFY(dicfiles::read(path("book.index")).size() > std::size_t(before) * 8);
    const dic::Description told = describe(dic::Source::Format::Dict);
    QCOMPARE(told.name, std::u16string(u"A title"));
    QCOMPARE(told.origin, std::u16string(u"https://example.org/book\nGPL"));
}

void TestDicDescription::aStarDictTellsItsAuthor()
{
    dicfiles::StarDict content;
    content.entries = {{"maison", "house"}};
    content.title = "Le Livre";
    dicfiles::writeStarDict(path("book"), content);
    dicfiles::write(path("book.ifo"), dicfiles::read(path("book.ifo"))
                                          + "author=Somebody\nwebsite=https://example.org\n"
                                            "description=A book. Public domain.\n");
    const dic::Description told = describe(dic::Source::Format::StarDict);
    QCOMPARE(told.name, std::u16string(u"Le Livre"));
    QCOMPARE(told.origin, std::u16string(u"Somebody\nhttps://example.org\nA book. Public domain."));
}

void TestDicDescription::withoutAnythingTheFilesNameCounts()
{
    dicfiles::writeDict(path("book"), {{"word", "text"}});
    const dic::Description told = describe(dic::Source::Format::Dict);
    QCOMPARE(told.name, std::u16string(u"book"));
    QVERIFY(told.origin.empty());
}

void TestDicDescription::aBrokenDictionaryStillHasAName()
{
    QCOMPARE(describe(dic::Source::Format::StarDict).name, std::u16string(u"book"));
    dicfiles::write(path("book.index"), "00databaseshort\t//////\tzzz\n");
    dicfiles::write(path("book.dict"), "");
    QCOMPARE(describe(dic::Source::Format::Dict).name, std::u16string(u"book"));
}

void TestDicDescription::namesAreOneLineAndNotTooLong()
{
    dicfiles::writeDict(path("book"), {{"word", "text"}}, false, " A\t\x1b[1m \n\n wide  title ");
    QCOMPARE(describe(dic::Source::Format::Dict).name, std::u16string(u"A [1m wide title"));
    std::string long127(127, 'a');
    dicfiles::write(path("book.about"), "name=" + long127 + "\xf0\x9d\x84\x9e\n");
    QCOMPARE(describe(dic::Source::Format::Dict).name, std::u16string(127, u'a'));
    dicfiles::write(path("book.about"), "name=caf\xe9\n");
    QCOMPARE(describe(dic::Source::Format::Dict).name, std::u16string(u"caf\ufffd"));
}

void TestDicDescription::licencesAreFoundInTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("licence");
    QTest::newRow("none") << QByteArray("A book.\n") << QByteArray();
    QTest::newRow("wrapped") << QByteArray("Availability:\n\n    Licensed under the Creative\n"
                                           "  Commons  licence\n\nDate: 2022\n")
                             << QByteArray("Licensed under the Creative Commons licence");
    QTest::newRow("paragraphs by their first lines")
        << QByteArray("    Copyright (C) A, 1995,\n  B\n    Available under the GPL.\n"
                      "    Without any warranty\n")
        << QByteArray("Copyright (C) A, 1995, B\nAvailable under the GPL.");
    QTest::newRow("very long") << QByteArray("GPL ") + QByteArray(300, 'a')
                               << QByteArray("GPL ") + QByteArray(236, 'a') + "\xe2\x80\xa6";
    QTest::newRow("very many") << QByteArray("GPL\n\n").repeated(10)
                               << QByteArray("GPL\nGPL\nGPL\nGPL");
}

void TestDicDescription::licencesAreFoundInTexts()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, licence);
    QCOMPARE(dic::licenceIn(text.toStdString()), licence.toStdString());
}

QTEST_APPLESS_MAIN(TestDicDescription)
#include "tst_dic_description.moc"
