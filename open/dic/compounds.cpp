#include "open/dic/compounds.h"

#include "open/dic/folding.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <unicode/utf8.h>
#include <utility>

namespace dic {

namespace {

constexpr std::size_t ShortestPart = 3; // characters
constexpr std::size_t ShortestInflectedPart = 4;
constexpr std::size_t LongestWord = 60;
constexpr std::size_t MostParts = 4;

using Links = std::span<const std::string_view>;

// What joins the parts of a compound; nothing first.
Links linksOf(int language)
{
    static constexpr std::array<std::string_view, 7> German = {"", "s", "es", "n", "en", "er", "e"};
    static constexpr std::array<std::string_view, 4> Dutch = {"", "s", "en", "e"};
    static constexpr std::array<std::string_view, 3> Nordic = {"", "s", "e"};
    switch (language) {
    case 104:
        return German;
    case 110:
        return Dutch;
    case 107:
    case 108:
    case 109:
        return Nordic;
    default:
        return {};
    }
}

/* Tries the ends of a word as last parts, the longest first, and what is before them as a shorter
 * compound; remembers what came out for each beginning. */
class Splitter
{
public:
    Splitter(std::string_view key, Links links, const PartWords& words)
        : m_key(key), m_links(links), m_has(words.has), m_inflected(words.inflected)
    {
    }

    // The parts of the first `length` bytes, in at most `most`; empty when there are none.
    std::vector<std::string> split(std::size_t length, std::size_t most)
    {
        const auto known = m_known.find({length, most});
        if (known != m_known.end())
            return known->second;
        std::vector<std::string> best;
        if (most > 1)
            splitOnce(length, most, best);
        m_known[{length, most}] = best;
        return best;
    }

    // The same with an inflected last part, all parts before it being words or compounds.
    std::vector<std::string> splitInflected(std::size_t most)
    {
        std::vector<std::string> best;
        for (std::size_t at = 1; m_inflected && at < m_key.size(); ++at) {
            const std::string last(m_key.substr(at));
            if (U8_IS_TRAIL(static_cast<uint8_t>(last.front()))
                || characterCount(last) < ShortestInflectedPart)
                continue;
            std::vector<std::string> parts = beginning(at, most - 1);
            if (parts.empty() || (!best.empty() && parts.size() + 1 >= best.size()))
                continue;
            std::string word = m_inflected(last);
            if (word.empty())
                continue;
            parts.push_back(std::move(word));
            best = std::move(parts);
        }
        return best;
    }

private:
    void splitOnce(std::size_t length, std::size_t most, std::vector<std::string>& best)
    {
        for (std::size_t at = 1; at < length; ++at) {
            if (U8_IS_TRAIL(static_cast<uint8_t>(m_key[at])))
                continue;
            const std::string last(m_key.substr(at, length - at));
            if (characterCount(last) < ShortestPart || !isWord(last))
                continue;
            std::vector<std::string> parts = beginning(at, most - 1);
            if (parts.empty())
                continue;
            parts.push_back(last);
            if (best.empty() || parts.size() < best.size())
                best = std::move(parts);
            if (best.size() == 2)
                return;
        }
    }

    // The first `length` bytes without a link, as a word or a compound.
    std::vector<std::string> beginning(std::size_t length, std::size_t most)
    {
        const std::string_view text = m_key.substr(0, length);
        for (const std::string_view link : m_links) {
            if (!text.ends_with(link))
                continue;
            const std::string word(text.substr(0, length - link.size()));
            if (characterCount(word) >= ShortestPart && isWord(word))
                return {word};
        }
        std::vector<std::string> best;
        for (const std::string_view link : m_links) {
            if (text.ends_with(link) && best.empty())
                best = split(length - link.size(), most);
        }
        return best;
    }

    bool isWord(const std::string& key)
    {
        const auto [place, isNew] = m_words.try_emplace(key, false);
        if (isNew)
            place->second = m_has(key);
        return place->second;
    }

    std::string_view m_key;
    Links m_links;
    const std::function<bool(const std::string&)>& m_has;
    const std::function<std::string(const std::string&)>& m_inflected;
    std::map<std::pair<std::size_t, std::size_t>, std::vector<std::string>> m_known;
    std::map<std::string, bool> m_words;
};

} // namespace

std::vector<std::string> partsOfCompound(std::string_view key, int language, const PartWords& words)
{
    const Links links = linksOf(language);
    if (links.empty() || characterCount(key) < 2 * ShortestPart || key.size() > LongestWord
        || key.find(' ') != std::string_view::npos)
        return {};
    Splitter splitter(key, links, words);
    std::vector<std::string> parts = splitter.split(key.size(), MostParts);
    return parts.empty() ? splitter.splitInflected(MostParts) : parts;
}

} // namespace dic
