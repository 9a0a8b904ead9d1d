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

bool isTitle(std::string_view head)
{
    return head == "00databaseshort" || head == "00-database-short";
}

} // namespace

bool readDictIndex(const PlainFile& file, const RowSink& sink, DictFacts& facts,
                   IndexReport& report)
{
    std::string content;
    if (!file.readAll(LargestIndex, content))
        return false;
    std::string_view rest = content;
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
            if (isTitle(row.head)) {
                facts.titleOffset = row.offset;
                facts.titleSize = row.size;
            }
        } else if (!row.head.empty()) {
            sink(row);
            ++report.rows;
        }
    }
    return true;
}

} // namespace dic
