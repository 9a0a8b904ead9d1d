#include "tests/unit/open/lookupfixture.h"

#include "open/dic/folderscan.h"

#include <QTest>

dic::WordFormFiles LookupFixture::forms(const std::string& table, const std::string& affixes,
                                        const std::string& words)
{
    dicfiles::write(path("x.forms"), table);
    if (words.empty())
        return {path("x.forms"), {}, {}};
    dicfiles::write(path("x.aff"), affixes);
    dicfiles::write(path("x.dic"), words);
    return {path("x.forms"), path("x.aff"), path("x.dic")};
}

void LookupFixture::open(const std::string& pair, const std::vector<dicfiles::Entry>& entries,
                         const dic::WordFormFiles& files)
{
    dicfiles::writeDict(path(pair), entries);
    dic::Source source;
    source.stem = path(pair);
    source.place = "0/" + pair;
    source.pair = dic::pairOfFileName(pair);
    m_shelf = std::make_unique<dic::IndexShelf>("");
    m_dictionary = dic::Dictionary::open(source, *m_shelf);
    QVERIFY(m_dictionary);
    m_forms = std::make_unique<dic::WordForms>(files);
    m_lookup = std::make_unique<dic::Lookup>(*m_dictionary, *m_forms);
}

QStringList LookupFixture::describe(const std::vector<dic::Hit>& hits)
{
    static const char* const names[] = {"", " folded", " form", " part", " compound", " accents"};
    QStringList lines;
    for (const dic::Hit& hit : hits)
        lines.append(QString::fromStdString(hit.entry.word) + QStringLiteral(": ")
                     + QString::fromStdU16String(hit.entry.text()).section(u'\n', 0, 0)
                     + QString::fromLatin1(names[int(hit.match)]));
    return lines;
}

QStringList LookupFixture::found(const std::u16string& word)
{
    return describe(m_lookup->search(word));
}
