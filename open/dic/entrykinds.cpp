/* Entries set in ways of their own: WordNet and CC-CEDICT. */
#include "open/dic/entrylines.h"
#include "open/dic/utf.h"

#include <array>

namespace dic {

namespace {

// Takes "n ", "adj " and the like; empty when the line does not begin so.
std::string_view takeWordClass(std::string_view& text)
{
    static constexpr std::array<std::string_view, 4> Classes = {"n", "v", "adj", "adv"};
    for (const std::string_view name : Classes) {
        if (text.starts_with(name) && text.size() > name.size() + 1 && text[name.size()] == ' ') {
            const std::string_view rest = text.substr(name.size() + 1);
            if (rest.front() != ':' && (rest.front() < '0' || rest.front() > '9'))
                continue;
            text = rest;
            return name;
        }
    }
    return {};
}

// Takes "12: " or ": " from the beginning of a sense.
bool takeSenseMark(std::string_view& text)
{
    if (text.starts_with(": ")) {
        text.remove_prefix(2);
        return true;
    }
    return takeNumber(text, ':') > 0;
}

// Parts "definition; "example" [syn: {a}]" into the sense and extras.
void addWordNetSense(std::string_view text, std::string_view wordClass, EntryText& entry)
{
    const std::size_t bracket = std::min(text.find(" [syn:"), text.find(" [ant:"));
    const std::size_t quote = std::min(text.find("; \""), bracket);
    const std::string_view rest = quote < text.size() ? text.substr(quote) : std::string_view();
    std::string sense = tidy(text.substr(0, quote));
    if (!wordClass.empty())
        sense = "[" + std::string(wordClass) + "] " + sense;
    entry.senses.push_back(sense);
    if (rest.empty())
        return;
    entry.prominence += rest.find('"') != std::string_view::npos;
    entry.extras.push_back(std::to_string(entry.senses.size()) + ". "
                           + tidy(rest.substr(rest.front() == ';' ? 2 : 1)));
}

// "word word [pinyin] /sense/sense/"
bool isCedictLine(std::string_view text)
{
    const std::size_t first = text.find(" /");
    return first != std::string_view::npos && first > 0 && text[first - 1] == ']'
           && text.ends_with('/') && first + 2 < text.size();
}

void addCedictLine(std::string_view text, EntryText& entry)
{
    std::size_t slash = text.find('/');
    const std::string_view before = text.substr(0, slash);
    const std::size_t open = before.find('[');
    const std::size_t close = before.find(']');
    if (open < close && close != std::string_view::npos && entry.phonetics.empty())
        entry.phonetics = before.substr(open + 1, close - open - 1);
    while (slash + 1 < text.size()) {
        const std::size_t end = text.find('/', slash + 1);
        const std::string sense = tidy(text.substr(slash + 1, end - slash - 1));
        // Measure words are no translation.
        if (sense.starts_with("CL:"))
            entry.extras.push_back(sense);
        else if (!sense.empty())
            entry.senses.push_back(sense);
        slash = end;
    }
}

} // namespace

bool cleanWordNet(const std::vector<EntryLine>& lines, EntryText& entry)
{
    std::string_view text = lines.front().text;
    if (lines.front().indent == 0 || takeWordClass(text).empty() || !takeSenseMark(text))
        return false;
    std::string sense;
    std::string wordClass;
    for (const EntryLine& line : lines) {
        text = line.text;
        const std::string_view newClass = takeWordClass(text);
        if (takeSenseMark(text)) {
            if (!sense.empty())
                addWordNetSense(sense, wordClass, entry);
            wordClass = newClass;
            sense = text;
        } else {
            sense += " " + std::string(line.text);
        }
    }
    if (!sense.empty())
        addWordNetSense(sense, wordClass, entry);
    return !entry.senses.empty();
}

bool cleanCedict(const std::vector<EntryLine>& lines, EntryText& entry)
{
    for (const EntryLine& line : lines) {
        if (!isCedictLine(line.text))
            return false;
    }
    EntryText cleaned = entry;
    for (const EntryLine& line : lines)
        addCedictLine(line.text, cleaned);
    if (cleaned.senses.empty())
        return false;
    entry = cleaned;
    return true;
}

} // namespace dic
