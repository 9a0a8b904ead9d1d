#include "open/dic/registry.h"

#include "open/dic/log.h"
#include "open/dic/plainfile.h"
#include "open/dic/textlines.h"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace dic {

namespace {

constexpr std::size_t LargestRegistry = 4U << 20;

struct Line
{
    LanguagePair languages;
    std::string place;

    bool operator==(const Line&) const = default;
};

std::string textOf(const Line& line)
{
    return std::string(languageLetters(line.languages.from)) + "-"
           + std::string(languageLetters(line.languages.to)) + " " + line.place + "\n";
}

std::vector<Line> readLines(std::string_view content)
{
    std::vector<Line> lines;
    TextLines text(content);
    std::string_view line;
    while (text.next(line)) {
        std::string_view tag;
        std::string_view place;
        if (!splitAt(' ', line, tag, place) || place.empty())
            continue;
        Line known = {pairOfTag(tag), std::string(place)};
        if (known.languages.isKnown()
            && std::find(lines.begin(), lines.end(), known) == lines.end())
            lines.push_back(std::move(known));
    }
    return lines;
}

bool append(const std::string& file, const std::string& text)
{
    const int descriptor =
        ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0644);
    if (descriptor < 0)
        return false;
    const bool wrote =
        ::write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size())
        && fdatasync(descriptor) == 0;
    return ::close(descriptor) == 0 && wrote;
}

void put(std::vector<Registry::Pair>& pairs, const LanguagePair& languages,
         std::optional<Source> dictionary)
{
    auto pair = std::find_if(pairs.begin(), pairs.end(), [&languages](const Registry::Pair& known) {
        return known.languages == languages;
    });
    if (pair == pairs.end())
        pair = pairs.insert(pair, {languages, {}});
    pair->dictionaries.push_back(std::move(dictionary));
}

void dropGapsAtTheEnd(std::vector<Registry::Pair>& pairs)
{
    for (Registry::Pair& pair : pairs) {
        while (!pair.dictionaries.empty() && !pair.dictionaries.back())
            pair.dictionaries.pop_back();
    }
    while (!pairs.empty() && pairs.back().dictionaries.empty())
        pairs.pop_back();
}

} // namespace

std::vector<Registry::Pair> Registry::arrange(const std::vector<Source>& found,
                                              const std::string& file)
{
    std::string content;
    PlainFile::open(file).readAll(LargestRegistry, content);
    std::vector<Line> lines = readLines(content);
    // A line that was cut off by the loss of power is made a line of its own.
    std::string added = content.empty() || content.ends_with('\n') ? "" : "\n";
    const std::size_t nothing = added.size();
    for (const Source& source : found) {
        const Line line = {source.pair, source.place};
        if (std::find(lines.begin(), lines.end(), line) == lines.end()) {
            added += textOf(line);
            lines.push_back(line);
        }
    }
    if (added.size() > nothing && !file.empty() && !append(file, added))
        note(file, "cannot be written; the order of dictionaries may change");

    std::vector<Pair> pairs;
    for (const Line& line : lines) {
        const auto source = std::find_if(found.begin(), found.end(), [&line](const Source& known) {
            return known.pair == line.languages && known.place == line.place;
        });
        put(pairs, line.languages,
            source == found.end() ? std::nullopt : std::optional<Source>(*source));
    }
    dropGapsAtTheEnd(pairs);
    return pairs;
}

} // namespace dic
