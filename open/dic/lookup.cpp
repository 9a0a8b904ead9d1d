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
constexpr int German = 104;
constexpr char FunctionWord = 'f';
constexpr std::size_t LongestWord = 200;      // code units
constexpr std::size_t LongestChineseWord = 9; // the character and eight that follow
constexpr std::size_t MostProbes = 100;       // words of a line that are looked up
constexpr std::size_t ShortestPart = 2;
constexpr std::size_t ShortestInflectedPart = 3;

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

bool agrees(const Hit& hit, const std::string& word)
{
    return beginsWithCapital(hit.entry.word) == beginsWithCapital(word);
}

void moveAgreeing(std::vector<Hit>& from, const std::string& word, std::vector<Hit>& to)
{
    const auto rest = std::stable_partition(from.begin(), from.end(),
                                            [&word](const Hit& hit) { return agrees(hit, word); });
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(rest));
    from.erase(from.begin(), rest);
}

/* What a word led to, by how likely it is meant. */
struct Found
{
    std::vector<Hit> leading;      // what it is mostly a form of
    std::vector<Hit> exact;        // the word
    std::vector<Hit> agreeing;     // what it is a form of, where the case tells it
    std::vector<Hit> folded;       // the word in another spelling
    std::vector<Hit> forms;        // what else it is a form of
    std::vector<Hit> ofOtherWords; // entries that name it

    std::vector<Hit> inOrder() &&
    {
        std::vector<Hit> hits;
        for (auto* group : {&leading, &exact, &agreeing, &folded, &forms, &ofOtherWords})
            append(hits, std::move(*group));
        return hits;
    }
};

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

/* The word in any spelling and what it is a form of. Stems are asked for where the word is there in
 * another case only, or not at all. */
std::vector<Hit> Lookup::searchWord(const std::string& word)
{
    const std::string key = foldedKey(word);
    if (key.empty())
        return {};
    Found found;
    for (const Lemma& lemma : m_forms.lemmas(key))
        append(lemma.leads ? found.leading : found.forms, findLemma(lemma));
    for (Hit& hit : m_dictionary.find(key, word)) {
        auto& place = hit.ofOtherWord             ? found.ofOtherWords
                      : hit.match == Match::Exact ? found.exact
                                                  : found.folded;
        place.push_back(std::move(hit));
    }
    const bool caseTells = !beginsWithCapital(word) || m_dictionary.pair().from == German;
    if (caseTells && !found.folded.empty()) {
        if (found.exact.empty() && found.forms.empty())
            found.forms = findStem(word, true);
        moveAgreeing(found.forms, word, found.agreeing);
    }
    std::vector<Hit> hits = std::move(found).inOrder();
    if (hits.empty())
        hits = findStem(word, false);
    return hits.empty() ? findParticiple(word) : hits;
}

// Entries of the word class that the form tells come first.
std::vector<Hit> Lookup::findLemma(const Lemma& lemma)
{
    std::vector<Hit> hits = m_dictionary.find(foldedKey(lemma.word), lemma.word);
    std::erase_if(hits, [](const Hit& hit) { return hit.ofOtherWord; });
    const auto distance = [&lemma](const Hit& hit) {
        const char entryClass = lemma.wordClass == FunctionWord && !hit.entry.wordClass
                                    ? FunctionWord
                                    : hit.entry.wordClass;
        return !lemma.wordClass || entryClass == lemma.wordClass ? 0 : !entryClass ? 1 : 2;
    };
    std::stable_sort(hits.begin(), hits.end(),
                     [&distance](const Hit& a, const Hit& b) { return distance(a) < distance(b); });
    return marked(std::move(hits), Match::Inflected);
}

// The first stem that the dictionary has; with `agreeing` only one in the case of the word.
std::vector<Hit> Lookup::findStem(const std::string& word, bool agreeing)
{
    for (const std::string& stem : m_forms.stems(word)) {
        if (agreeing && beginsWithCapital(stem) != beginsWithCapital(word))
            continue;
        std::vector<Hit> hits = findLemma({stem});
        if (agreeing)
            std::erase_if(hits, [&word](const Hit& hit) { return !agrees(hit, word); });
        if (!hits.empty())
            return hits;
    }
    return {};
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
    const PartWords words = {[this](const std::string& key) { return m_dictionary.has(key); },
                             [this](const std::string& key) { return inflectedPart(key); }};
    for (const std::string& part :
         partsOfCompound(foldedKey(word), m_dictionary.pair().from, words)) {
        // One entry a part, or the second part is never seen.
        std::vector<Hit> found = m_dictionary.find(part, capitalized(part));
        if (!found.empty()) {
            found.resize(1);
            append(hits, std::move(found));
        }
    }
    return hits;
}

/* German participles that are used as adjectives: "entsprechende" is a form of "entsprechend",
 * which Hunspell takes for a form of a verb. */
std::vector<Hit> Lookup::findParticiple(const std::string& word)
{
    static constexpr std::array<std::string_view, 5> Endings = {"em", "en", "er", "es", "e"};
    if (m_dictionary.pair().from != German || !m_forms.knows(word))
        return {};
    for (const std::string_view ending : Endings) {
        const std::string base = word.substr(0, word.size() - std::min(ending.size(), word.size()));
        if (word.ends_with(ending) && (base.ends_with("end") || base.ends_with("t")))
            return findLemma({base, 'a', false});
    }
    return {};
}

// The key of what the last part of a compound is a form of; empty when there is none.
std::string Lookup::inflectedPart(const std::string& part)
{
    std::vector<std::string> lemmas;
    for (const Lemma& lemma : m_forms.lemmas(part))
        lemmas.push_back(lemma.word);
    if (lemmas.empty())
        lemmas = m_forms.stems(m_dictionary.pair().from == German ? capitalized(part) : part);
    for (const std::string& lemma : lemmas) {
        const std::string key = foldedKey(lemma);
        if (characterCount(key) >= ShortestInflectedPart && m_dictionary.has(key))
            return key;
    }
    return {};
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
