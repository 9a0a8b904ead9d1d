#include "open/dic/dictindex.h"

#include "open/dic/utf.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace dic {

namespace {

constexpr std::string_view Mark = "\xef\xbb\xbf";

int digitOf(char c)
{
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

bool readNumber(std::string_view text, std::uint64_t& number)
{
    constexpr std::size_t MostDigits = 10; // 60 bits
    if (text.empty() || text.size() > MostDigits)
        return false;
    number = 0;
    for (const char c : text) {
        const int digit = digitOf(c);
        if (digit < 0)
            return false;
        number = number << 6 | static_cast<std::uint64_t>(digit);
    }
    return true;
}

bool readLine(std::string_view line, Row& row)
{
    std::array<std::string_view, 4> columns;
    std::size_t count = 0;
    for (std::size_t at = 0; at <= line.size() && count < columns.size(); ++count) {
        const std::size_t end = std::min(line.find('\t', at), line.size());
        columns[count] = line.substr(at, end - at);
        at = end + 1;
    }
    std::uint64_t size = 0;
    if (count < 3 || !readNumber(columns[1], row.offset) || !readNumber(columns[2], size)
        || size > std::numeric_limits<std::uint32_t>::max())
        return false;
    row.size = static_cast<std::uint32_t>(size);
    row.head = trimmed(columns[3].empty() ? columns[0] : columns[3]);
    return row.head.size() <= LongestHead && isPlainUtf8(row.head);
}

bool isFact(std::string_view head)
{
    return head.starts_with("00database") || head.starts_with("00-database");
}

void keepFact(const Row& row, DictFacts& facts)
{
    const DictFacts::Place place = {row.offset, row.size};
    if (row.head == "00databaseshort" || row.head == "00-database-short")
        facts.title = place;
    else if (row.head == "00databaseinfo" || row.head == "00-database-info")
        facts.info = place;
    else if (row.head == "00databaseurl" || row.head == "00-database-url")
        facts.url = place;
}

void readLines(std::string_view rest, const RowSink& sink, DictFacts& facts, IndexReport& report)
{
    if (rest.starts_with(Mark))
        rest.remove_prefix(Mark.size());
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty())
            continue;
        Row row;
        if (!readLine(line, row)) {
            ++report.damaged;
        } else if (isFact(row.head)) {
            keepFact(row, facts);
        } else if (!row.head.empty()) {
            sink(row);
            ++report.rows;
        }
    }
}

} // namespace

bool readDictIndex(const PlainFile& file, const RowSink& sink, DictFacts& facts,
                   IndexReport& report)
{
    std::string content;
    if (!file.readAll(LargestIndex, content))
        return false;
    readLines(content, sink, facts, report);
    return true;
}

DictFacts readDictFacts(const PlainFile& file)
{
    constexpr std::uint64_t FirstReach = 64 * 1024;
    const auto ignore = [](const Row&) {};
    DictFacts facts;
    IndexReport report;
    std::string beginning;
    if (file.size() > FirstReach && file.read(0, FirstReach, beginning)) {
        // The last line may be cut off.
        readLines(std::string_view(beginning).substr(0, beginning.rfind('\n') + 1), ignore, facts,
                  report);
        if (facts.title.size > 0)
            return facts;
    }
    readDictIndex(file, ignore, facts, report);
    return facts;
}

} // namespace dic
