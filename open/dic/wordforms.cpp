#include "open/dic/wordforms.h"

#include "open/dic/folding.h"
#include "open/dic/languages.h"
#include "open/dic/log.h"
#include "open/dic/plainfile.h"
#include "open/dic/textlines.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <array>
#include <hunspell/hunspell.hxx>
#include <unicode/ucnv.h>
#include <unistd.h>
#include <utility>

namespace dic {

namespace {

constexpr std::size_t LargestTable = 64U << 20;
constexpr std::size_t LargestSpelling = 64U << 20;
constexpr std::size_t LongestWord = 100; // bytes
constexpr std::size_t MostStems = 8;

const std::string Utf8 = "UTF-8";

// Empty when the encoding is unknown.
std::string converted(const std::string& text, const std::string& from, const std::string& to)
{
    if (from == to)
        return text;
    UErrorCode error = U_ZERO_ERROR;
    std::string out(text.size() * 4 + 16, '\0');
    const int32_t length =
        ucnv_convert(to.c_str(), from.c_str(), out.data(), static_cast<int32_t>(out.size()),
                     text.data(), static_cast<int32_t>(text.size()), &error);
    out.resize(U_SUCCESS(error) ? static_cast<std::size_t>(length) : 0);
    return out;
}

/* A line of a table. */
struct Row
{
    std::string_view form;
    std::string_view lemma;
    char wordClass = 0;
};

bool readRow(std::string_view line, Row& row)
{
    std::string_view rest;
    std::string_view wordClass;
    if (!splitAt('\t', line, row.form, rest))
        return false;
    if (!splitAt('\t', rest, row.lemma, wordClass))
        row.lemma = rest;
    row.wordClass = wordClass.empty() ? char(0) : wordClass.front();
    return !row.lemma.empty();
}

bool isReadable(const std::string& path)
{
    const PlainFile file = PlainFile::open(path);
    return file.isOpen() && file.size() > 0 && file.size() <= LargestSpelling;
}

} // namespace

WordFormFiles wordFormFiles(const std::string& folder, int language)
{
    const std::string stem = folder + std::string(languageLetters(language));
    return {stem + ".forms", stem + ".aff", stem + ".dic"};
}

WordForms::WordForms() = default;
WordForms::~WordForms() = default;

WordForms::WordForms(const WordFormFiles& files)
{
    if (access(files.table.c_str(), F_OK) == 0)
        readTable(files.table);
    if (access(files.dictionary.c_str(), F_OK) == 0)
        openSpelling(files);
}

void WordForms::readTable(const std::string& path)
{
    std::string content;
    if (!PlainFile::open(path).readAll(LargestTable, content) || !isPlainUtf8(content)) {
        note(path, "is no table of word forms");
        return;
    }
    // Places first: the text grows while it is made.
    struct Place
    {
        std::size_t start;
        std::size_t keyLength;
        std::size_t lemmaLength;
        char wordClass;
    };
    std::vector<Place> places;
    m_text.reserve(content.size());
    TextLines lines(content);
    std::string_view line;
    Row row;
    while (lines.next(line)) {
        if (!readRow(line, row))
            continue;
        const std::string key = foldedKey(row.form);
        places.push_back({m_text.size(), key.size(), row.lemma.size(), row.wordClass});
        m_text.append(key).append(row.lemma);
    }
    const std::string_view text(m_text);
    m_forms.reserve(places.size());
    for (const Place& place : places)
        m_forms.push_back({text.substr(place.start, place.keyLength),
                           text.substr(place.start + place.keyLength, place.lemmaLength),
                           place.wordClass});
    std::stable_sort(m_forms.begin(), m_forms.end(),
                     [](const Form& a, const Form& b) { return a.key < b.key; });
}

std::vector<Lemma> WordForms::lemmas(std::string_view key) const
{
    std::vector<Lemma> found;
    auto form = std::lower_bound(m_forms.begin(), m_forms.end(), key,
                                 [](const Form& a, std::string_view b) { return a.key < b; });
    for (; form != m_forms.end() && form->key == key && found.size() < MostStems; ++form) {
        if (foldedKey(form->lemma) != key)
            found.push_back({std::string(form->lemma), form->wordClass, false});
        else
            for (Lemma& lemma : found)
                lemma.leads = true;
    }
    return found;
}

void WordForms::openSpelling(const WordFormFiles& files)
{
    if (!isReadable(files.affixes) || !isReadable(files.dictionary)) {
        note(files.dictionary, "is no spelling dictionary that can be read");
        return;
    }
    m_spelling = std::make_unique<Hunspell>(files.affixes.c_str(), files.dictionary.c_str());
    m_encoding = m_spelling->get_dict_encoding();
}

std::vector<std::string> WordForms::stems(const std::string& word)
{
    if (!m_spelling || word.size() > LongestWord)
        return {};
    std::vector<std::string> stems = m_spelling->stem(converted(word, Utf8, m_encoding));
    for (std::string& stem : stems)
        stem = converted(stem, m_encoding, Utf8);
    std::erase_if(stems, [&word](const std::string& stem) {
        return stem == word || stem.empty() || !isPlainUtf8(stem);
    });
    std::stable_sort(stems.begin(), stems.end(), [](const std::string& a, const std::string& b) {
        return a.size() > b.size();
    });
    stems.erase(std::unique(stems.begin(), stems.end()), stems.end());
    if (stems.size() > MostStems)
        stems.resize(MostStems);
    return stems;
}

bool WordForms::knows(const std::string& word)
{
    return m_spelling && word.size() <= LongestWord
           && m_spelling->spell(converted(word, Utf8, m_encoding));
}

} // namespace dic
