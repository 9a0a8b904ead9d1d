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
        } else if (isExample(text)) {
            ++m_entry.examples;
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
    }

private:
    void addSense(std::string_view text)
    {
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
