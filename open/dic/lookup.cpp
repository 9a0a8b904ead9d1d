#include "open/dic/lookup.h"

#include "open/dic/compounds.h"
#include "open/dic/folding.h"
#include "open/dic/utf.h"
#include "open/dic/wordcutter.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dic {

namespace {

constexpr int Chinese = 1;
constexpr std::size_t LongestWord = 200;      // code units
constexpr std::size_t LongestChineseWord = 9; // the character and eight that follow
constexpr std::size_t MostProbes = 100;       // words of a line that are looked up
constexpr std::size_t ShortestPart = 2;

void append(std::vector<Hit>& hits, std::vector<Hit> more)
{
    for (Hit& hit : more) {
        const bool known = std::any_of(hits.begin(), hits.end(), [&hit](const Hit& other) {
            return other.offset == hit.offset;
        });
        if (!known && hits.size() < Lookup::MostHits)
            hits.push_back(std::move(hit));
    }
}

std::vector<Hit> marked(std::vector<Hit> hits, Match match)
{
    for (Hit& hit : hits)
        hit.match = match;
    return hits;
}

} // namespace

std::vector<Hit> Lookup::search(std::u16string_view word)
{
    if (word.empty() || word.size() > LongestWord)
        return {};
    if (m_dictionary.pair().from == Chinese && isHan(word.front()))
        return searchChinese(word);
    const std::string text(trimmed(toUtf8(word)));
    std::vector<Hit> hits = searchWord(text);
    if (hits.empty())
        append(hits, marked(searchParts(text), Match::Part));
    if (hits.empty())
        append(hits, marked(searchCompound(text), Match::Compound));
    if (hits.empty() && !m_forms.knows(text))
        append(hits, marked(m_dictionary.findAccentFree(accentFreeKey(foldedKey(text))),
                            Match::AccentFree));
    return hits;
}

std::vector<Hit> Lookup::searchChinese(std::u16string_view text)
{
    std::vector<Hit> hits;
    std::size_t length = 0;
    while (length < std::min(text.size(), LongestChineseWord) && isHan(text[length]))
        ++length;
    for (; length > 0; --length) {
        const std::string word = toUtf8(text.substr(0, length));
        append(hits, m_dictionary.find(foldedKey(word), word));
    }
    return hits;
}

// The word in any spelling, what it is a form of, else its stems.
std::vector<Hit> Lookup::searchWord(const std::string& word)
{
    const std::string key = foldedKey(word);
    std::vector<Hit> hits;
    if (key.empty())
        return hits;
    append(hits, m_dictionary.find(key, word));
    for (const std::string& lemma : m_forms.lemmas(key))
        append(hits, marked(m_dictionary.find(foldedKey(lemma), lemma), Match::Inflected));
    if (!hits.empty())
        return hits;
    for (const std::string& stem : m_forms.stems(word)) {
        append(hits, marked(m_dictionary.find(foldedKey(stem), stem), Match::Inflected));
        if (!hits.empty())
            break;
    }
    return hits;
}

std::vector<Hit> Lookup::searchParts(const std::string& word)
{
    static constexpr std::array<std::string_view, 2> Apostrophes = {"'", "\xe2\x80\x99"};
    for (const std::string_view apostrophe : Apostrophes) {
        const std::size_t at = word.find(apostrophe);
        if (at == std::string::npos)
            continue;
        std::array parts = {word.substr(0, at), word.substr(at + apostrophe.size())};
        // "l'eau" is about the second part, "John's" about the first.
        if (parts[1].size() > parts[0].size())
            std::swap(parts[0], parts[1]);
        for (const std::string& part : parts) {
            std::vector<Hit> hits;
            if (characterCount(part) >= ShortestPart)
                hits = searchWord(part);
            if (!hits.empty())
                return hits;
        }
    }
    return {};
}

std::vector<Hit> Lookup::searchCompound(const std::string& word)
{
    std::vector<Hit> hits;
    const auto has = [this](const std::string& key) { return m_dictionary.has(key); };
    for (const std::string& part :
         partsOfCompound(foldedKey(word), m_dictionary.pair().from, has)) {
        // One entry a part, or the second part is never seen.
        std::vector<Hit> found = m_dictionary.find(part, capitalized(part));
        if (!found.empty()) {
            found.resize(1);
            append(hits, std::move(found));
        }
    }
    return hits;
}

FirstWord Lookup::firstOf(std::u16string_view line)
{
    FirstWord first;
    WordCutter cutter(line, m_dictionary.pair().from);
    WordPlace place;
    for (std::size_t i = 0; i < MostProbes && cutter.next(place); ++i) {
        std::u16string_view word = line.substr(place.start, place.end - place.start);
        if (!hasLetter(word))
            continue;
        if (m_dictionary.pair().from == Chinese && isHan(word.front()))
            word = line.substr(place.start, LongestChineseWord);
        first.hits = search(word);
        if (!first.hits.empty()) {
            first.position = place.start + 1;
            break;
        }
    }
    return first;
}

} // namespace dic
