#include "open/dic/description.h"

#include "open/dic/about.h"
#include "open/dic/dictindex.h"
#include "open/dic/plainfile.h"
#include "open/dic/stardictinfo.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <array>
#include <vector>

namespace dic {

namespace {

constexpr std::size_t LongestName = 128; // units
constexpr std::size_t LongestLine = 240; // bytes of a licence's paragraph
constexpr std::size_t MostLines = 4;
constexpr std::uint32_t LargestFact = 64 * 1024;

std::string inOneLine(std::string_view text)
{
    std::string line;
    for (const char c : text) {
        const bool isBlank = static_cast<unsigned char>(c) <= 0x20 || c == 0x7f;
        if (!isBlank)
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    if (line.ends_with(' '))
        line.pop_back();
    return line;
}

std::u16string cutName(const std::string& name)
{
    std::u16string units = toUtf16(name);
    units.resize(std::min(units.size(), LongestName));
    if (!units.empty() && (units.back() & 0xfc00) == 0xd800)
        units.pop_back(); // no half characters
    return units;
}

// The paragraphs of a text that was laid out for a terminal. One begins behind an empty line, with
// a deeper first line, and behind a line that ends a sentence of a paragraph as deep.
std::vector<std::string> paragraphsOf(std::string_view text)
{
    std::vector<std::string> paragraphs;
    std::size_t indent = 0;
    bool fresh = true;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::string words = inOneLine(line);
        const std::size_t depth = std::min(line.find_first_not_of(' '), line.size());
        if (words.empty()) {
            fresh = true;
            continue;
        }
        if (fresh || depth > indent || (depth == indent && paragraphs.back().ends_with('.')))
            paragraphs.push_back(words);
        else
            paragraphs.back() += ' ' + words;
        fresh = false;
        indent = depth;
    }
    return paragraphs;
}

bool speaksOfLicence(const std::string& paragraph)
{
    static constexpr std::array Signs = {"licens",        "licenc", "copyright",       "(c)",
                                         "public domain", "gpl",    "creative commons"};
    std::string lower = paragraph;
    for (char& c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return std::any_of(Signs.begin(), Signs.end(), [&lower](const char* sign) {
        return lower.find(sign) != std::string::npos;
    });
}

struct Told
{
    std::string title;
    std::string source;
    std::string licence;
};

Told toldByDict(const Source& source)
{
    Told told;
    const DictFacts facts = readDictFacts(PlainFile::open(mainFile(source)));
    std::string why;
    const auto body =
        facts.title.size + facts.info.size + facts.url.size > 0 ? openBodyOf(source, why) : nullptr;
    const auto textOf = [&body](const DictFacts::Place& place) {
        std::string text;
        if (body && place.size > 0)
            body->read(place.offset, std::min(place.size, LargestFact), text);
        // Some have the name of the fact in front.
        if (text.starts_with("00-database-"))
            text.erase(0, std::min(text.find('\n'), text.size()));
        return text;
    };
    told.title = textOf(facts.title);
    told.source = inOneLine(textOf(facts.url));
    told.licence = licenceIn(textOf(facts.info));
    return told;
}

Told toldByStarDict(const Source& source)
{
    StarDictInfo info;
    std::string why;
    if (!readStarDictInfo(PlainFile::open(mainFile(source)), info, why))
        return {};
    Told told = {info.title, inOneLine(info.author), {}};
    const std::string website = inOneLine(info.website);
    if (!told.source.empty() && !website.empty())
        told.source += '\n';
    told.source += website;
    told.licence = licenceIn(info.description);
    return told;
}

} // namespace

std::string licenceIn(std::string_view text)
{
    std::string lines;
    std::size_t count = 0;
    for (const std::string& paragraph : paragraphsOf(text)) {
        if (count == MostLines || !speaksOfLicence(paragraph))
            continue;
        if (count++ > 0)
            lines += '\n';
        lines += cutAt(paragraph, LongestLine);
        if (paragraph.size() > LongestLine)
            lines += "\u2026";
    }
    return lines;
}

Description describe(const Source& source)
{
    const About about = readAbout(source.stem + ".about");
    const bool isComplete = !about.name.empty() && !about.source.empty() && !about.licence.empty();
    Told told;
    if (!isComplete)
        told = source.format == Source::Format::Dict ? toldByDict(source) : toldByStarDict(source);

    std::string name = inOneLine(about.name.empty() ? told.title : about.name);
    if (name.empty())
        name = source.stem.substr(source.stem.rfind('/') + 1);
    std::string origin = about.source.empty() ? told.source : about.source;
    const std::string& licence = about.licence.empty() ? told.licence : about.licence;
    if (!origin.empty() && !licence.empty())
        origin += '\n';
    return {cutName(name), toUtf16(origin + licence)};
}

} // namespace dic
