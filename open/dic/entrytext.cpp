#include "open/dic/entrytext.h"

#include "open/dic/entrylines.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <array>

namespace dic {

namespace {

constexpr std::size_t MostUnits = 8192;
constexpr std::size_t ExampleIndent = 6;

bool isExample(std::string_view line)
{
    return line.starts_with('"') || line.starts_with("\xe2\x80\x9c")
           || line.starts_with("\xe2\x80\x9e");
}

bool isReference(std::string_view line)
{
    return line.starts_with("see:") || line.starts_with("See:") || line.starts_with("See also");
}

bool isRemark(const EntryLine& line)
{
    static constexpr std::array Words = {"Synonym", "Antonym", "Note:", "Example", "Usage"};
    return line.indent >= ExampleIndent
           || std::any_of(Words.begin(), Words.end(),
                          [&line](const char* word) { return line.text.starts_with(word); });
}

/* The labels that a sense begins with ("[fin.] bank") behind it: the translation is what is looked
 * for. */
std::string withLabelsLast(const std::string& sense)
{
    std::size_t start = 0;
    while (start < sense.size() && sense[start] == '[') {
        const std::size_t end = sense.find(']', start);
        if (end == std::string::npos)
            return sense;
        start = std::min(sense.find_first_not_of(' ', end + 1), sense.size());
    }
    if (start == 0 || start == sense.size())
        return sense;
    return sense.substr(start) + " " + std::string(trimmed(sense.substr(0, start)));
}

// Whether the first translation is marked as one that few would use, or the word as used so.
bool isMarked(std::string_view sense)
{
    static constexpr std::array Marks = {"[obs.]",      "[dated]",   "[veraltet]",
                                         "[veraltend]", "[archaic]", "[rare]",
                                         "[selten]",    "[poet.]",   "[vulg.]"};
    static constexpr std::array MarksOfTranslations = {"[coll.]", "[slang]", "[ugs.]"};
    const std::string_view first = sense.substr(0, sense.find(','));
    const auto has = [first](std::string_view mark) {
        return first.find(mark) != std::string_view::npos;
    };
    const auto hasBehind = [first](std::string_view mark) {
        const std::size_t at = first.find(mark);
        return at != std::string_view::npos && at > 0;
    };
    return std::any_of(Marks.begin(), Marks.end(), has)
           || std::any_of(MarksOfTranslations.begin(), MarksOfTranslations.end(), hasBehind);
}

// How many of the words that a line refers to are of one or two parts: forms and relatives.
int shortReferences(std::string_view line)
{
    int count = 0;
    for (std::size_t at = line.find('{'); at != std::string_view::npos; at = line.find('{', at)) {
        const std::size_t end = std::min(line.find('}', at), line.size());
        const std::string_view word = line.substr(at, end - at);
        count += std::count(word.begin(), word.end(), ' ') < 2;
        at = end;
    }
    return count;
}

// Takes a number that stands at the end of a line and belongs to the next one.
void dropDanglingNumber(std::string_view& text)
{
    if (!text.ends_with('.'))
        return;
    std::size_t start = text.size() - 1;
    while (start > 0 && text[start - 1] >= '0' && text[start - 1] <= '9')
        --start;
    if (start < text.size() - 1 && (start == 0 || text[start - 1] == ' '))
        text = trimmed(text.substr(0, start));
}

/* FreeDict's way, and everything that is set in no way of its own. */
class PlainCleaner
{
public:
    PlainCleaner(EntryText& entry, bool linesAreSenses)
        : m_entry(entry), m_linesAreSenses(linesAreSenses)
    {
    }

    void add(const EntryLine& line)
    {
        std::string_view text = line.text;
        if (isReference(text)) {
            if (m_reference.empty())
                m_reference = tidy(text.substr(text.find(':') + 1));
            m_references += shortReferences(text);
        } else if (isExample(text)) {
            ++m_examples;
            addExtra(text);
        } else if (isRemark(line)) {
            addExtra(text);
        } else {
            addSense(text);
        }
    }

    void finish()
    {
        if (m_entry.senses.empty() && !m_reference.empty())
            m_entry.senses.push_back("\xe2\x86\x92 " + m_reference);
        if (m_entry.senses.empty())
            m_entry.senses.swap(m_entry.extras);
        m_entry.prominence = prominence();
        for (std::string& sense : m_entry.senses)
            sense = withLabelsLast(sense);
    }

private:
    /* Dictionaries do not say which of a word's entries is its main one. It is the one that was
     * worked on: with examples, its forms listed, and not marked as used by few or in one trade. */
    int prominence() const
    {
        constexpr int MostExamples = 3;
        constexpr int MostReferences = 8;
        const std::string first = m_entry.senses.empty() ? "" : m_entry.senses.front();
        return 4 * std::min(m_examples, MostExamples) + std::min(m_references, MostReferences)
               - (first.starts_with('[') ? 2 : 0) - (isMarked(first) ? 8 : 0);
    }

    void addSense(std::string_view text)
    {
        if (!m_entry.wordClass && m_entry.senses.empty())
            m_entry.wordClass = wordClassOf(text);
        const std::string_view whole = text;
        const bool explains = m_danglingNumber;
        dropDanglingNumber(text);
        m_danglingNumber = text.size() != whole.size();
        const bool numbered = takeNumber(text, '.') > 0;
        const std::string tidied = tidy(text);
        if (tidied.empty())
            return;
        if (m_entry.senses.empty() || (!explains && (numbered || m_linesAreSenses)))
            m_entry.senses.push_back(tidied);
        else if (m_goesOn)
            m_entry.senses.back() += ", " + tidied;
        else
            addExtra(text);
        m_goesOn = text.ends_with(',');
    }

    void addExtra(std::string_view text)
    {
        std::string tidied = tidy(text);
        if (!tidied.empty())
            m_entry.extras.push_back(std::move(tidied));
    }

    EntryText& m_entry;
    bool m_linesAreSenses;
    bool m_danglingNumber = false;
    bool m_goesOn = false; // the last line ended with a comma
    std::string m_reference;
    int m_references = 0;
    int m_examples = 0;
};

} // namespace

EntryText cleanEntry(std::string_view raw, std::string_view head, bool linesAreSenses)
{
    EntryText entry;
    entry.word = head;
    std::vector<EntryLine> lines = linesOf(raw);
    // A single line is the entry even where it is the headword: names are their own translation.
    if (lines.size() > 1 && takeHeadLine(lines.front(), head, entry))
        lines.erase(lines.begin());
    if (lines.empty() || cleanWordNet(lines, entry) || cleanCedict(lines, entry))
        return entry;
    PlainCleaner cleaner(entry, linesAreSenses);
    for (const EntryLine& line : lines)
        cleaner.add(line);
    cleaner.finish();
    return entry;
}

std::u16string EntryText::text() const
{
    std::string out;
    for (std::size_t i = 0; i < senses.size(); ++i) {
        if (i > 0)
            out += ' ';
        if (senses.size() > 1)
            out += std::to_string(i + 1) + ". ";
        out += senses[i];
    }
    if (out.empty())
        return {};
    if (!phonetics.empty() || !grammar.empty())
        out += "\n";
    if (!phonetics.empty())
        out += "[" + phonetics + "]" + (grammar.empty() ? "" : " ");
    out += grammar;
    for (const std::string& extra : extras)
        out += "\n" + extra;
    std::u16string units = toUtf16(out);
    if (units.size() > MostUnits)
        units.resize((units[MostUnits - 1] & 0xfc00) == 0xd800 ? MostUnits - 1 : MostUnits);
    return units;
}

} // namespace dic
