#ifndef OPEN_DIC_DICTIONARY_H
#define OPEN_DIC_DICTIONARY_H

#include "open/dic/body.h"
#include "open/dic/entrytext.h"
#include "open/dic/indexshelf.h"
#include "open/dic/sidecar.h"
#include "open/dic/source.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dic {

/* How a word led to an entry; what a result's property says. */
enum class Match { Exact = 0, Folded = 1, Inflected = 2, Part = 3, Compound = 4, AccentFree = 5 };

/* An entry that was found, clean. */
struct Hit
{
    EntryText entry;
    Match match = Match::Exact;
    bool ofOtherWord = false; // the entry's own word is another than what it was found by
    std::uint64_t offset = 0; // of its text: an entry is shown once
};

/*
 * One open dictionary: finds entries by words as they are written. Other forms are the business of
 * Lookup. One thread at a time.
 */
class Dictionary
{
public:
    /* Null when it cannot be used; the log has the reason. May have to wait for the index. */
    static std::unique_ptr<Dictionary> open(const Source& source, IndexShelf& shelf);

    const LanguagePair& pair() const { return m_source.pair; }

    /* Whether there is a row for the folded key. Reads no entry. */
    bool has(std::string_view key);

    /* The entries for the folded key: those spelled like `word` first, those of another word last
     * (abbreviations, cross references), else the most prominent first. */
    std::vector<Hit> find(std::string_view key, std::string_view word);

    /* Entries whose key without accents is this, too. */
    std::vector<Hit> findAccentFree(std::string_view key);

    /* Whether an entry could not be read since this was asked last. */
    bool takeFailure();

private:
    Dictionary() = default;
    std::vector<Hit> read(const std::vector<FoundRow>& rows);
    bool readEntry(const FoundRow& row, Hit& hit);

    Source m_source;
    std::string m_types;
    std::unique_ptr<Sidecar> m_sidecar;
    std::unique_ptr<Body> m_body;
    bool m_complained = false;
    bool m_failed = false;
};

} // namespace dic

#endif
