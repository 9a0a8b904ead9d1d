#include "open/dic/dictionary.h"

#include "open/dic/fieldtext.h"
#include "open/dic/folding.h"
#include "open/dic/log.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace dic {

namespace {

constexpr std::size_t MostEntries = 32; // read for one key
constexpr std::uint32_t MostBytes = 64 * 1024;

} // namespace

std::unique_ptr<Dictionary> Dictionary::open(const Source& source, IndexShelf& shelf)
{
    std::unique_ptr<Dictionary> dictionary(new Dictionary);
    std::string why;
    dictionary->m_source = source;
    dictionary->m_sidecar = shelf.open(source);
    if (!dictionary->m_sidecar)
        return nullptr;
    dictionary->m_types = fieldTypesOf(source);
    dictionary->m_body = openBodyOf(source, why);
    if (!dictionary->m_body) {
        note(mainFile(source), why);
        return nullptr;
    }
    return dictionary;
}

bool Dictionary::has(std::string_view key)
{
    return !m_sidecar->find(key).empty();
}

std::vector<Hit> Dictionary::find(std::string_view key, std::string_view word)
{
    std::vector<Hit> hits = read(m_sidecar->find(key));
    for (Hit& hit : hits) {
        hit.match = hit.entry.word == word ? Match::Exact : Match::Folded;
        hit.ofOtherWord = hit.match != Match::Exact && foldedKey(hit.entry.word) != key;
    }
    std::stable_sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) {
        return std::tuple(a.ofOtherWord, a.match, -a.entry.prominence)
               < std::tuple(b.ofOtherWord, b.match, -b.entry.prominence);
    });
    return hits;
}

std::vector<Hit> Dictionary::findAccentFree(std::string_view key)
{
    std::vector<FoundRow> rows = m_sidecar->find(key);
    std::vector<FoundRow> more = m_sidecar->find(AccentFreeMark + std::string(key));
    rows.insert(rows.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
    return read(rows);
}

bool Dictionary::takeFailure()
{
    return std::exchange(m_failed, false);
}

std::vector<Hit> Dictionary::read(const std::vector<FoundRow>& rows)
{
    std::vector<Hit> hits;
    for (const FoundRow& row : rows) {
        const bool known = std::any_of(hits.begin(), hits.end(),
                                       [&row](const Hit& hit) { return hit.offset == row.offset; });
        Hit hit;
        if (!known && hits.size() < MostEntries && readEntry(row, hit))
            hits.push_back(std::move(hit));
    }
    return hits;
}

bool Dictionary::readEntry(const FoundRow& row, Hit& hit)
{
    std::string raw;
    if (!m_body->read(row.offset, std::min(row.size, MostBytes), raw)) {
        m_failed = true;
        if (!std::exchange(m_complained, true))
            note(m_source.stem, "a text cannot be read");
        return false;
    }
    hit.offset = row.offset;
    hit.entry = cleanEntry(plainText(raw, m_types), row.title.empty() ? row.head : row.title,
                           m_source.format == Source::Format::StarDict);
    return !hit.entry.senses.empty();
}

} // namespace dic
