#include "open/dic/stardictindex.h"

#include "open/dic/gzip.h"
#include "open/dic/utf.h"

#include <string_view>
#include <vector>

namespace dic {

namespace {

std::uint64_t bigEndian(std::string_view text)
{
    std::uint64_t number = 0;
    for (const char c : text)
        number = number << 8 | static_cast<unsigned char>(c);
    return number;
}

/* Steps through records of a word, a zero byte, and numbers of a fixed length. */
class Records
{
public:
    Records(std::string_view text, std::size_t numbersLength)
        : m_text(text), m_numbersLength(numbersLength)
    {
    }

    bool next(std::string_view& word, std::string_view& numbers)
    {
        const std::size_t end = m_text.find('\0', m_at);
        if (end == std::string_view::npos || m_text.size() - end - 1 < m_numbersLength)
            return false;
        word = m_text.substr(m_at, end - m_at);
        numbers = m_text.substr(end + 1, m_numbersLength);
        m_at = end + 1 + m_numbersLength;
        return true;
    }

    bool atEnd() const { return m_at == m_text.size(); }

private:
    std::string_view m_text;
    std::size_t m_numbersLength;
    std::size_t m_at = 0;
};

bool readIndexText(const StarDictFiles& files, const StarDictInfo& info, std::string& text)
{
    if (info.indexBytes > LargestIndex)
        return false;
    const auto length = static_cast<std::size_t>(info.indexBytes);
    return (files.indexCompressed ? inflateFile(files.index, length, text)
                                  : files.index.readAll(length, text))
           && text.size() == length;
}

bool isWord(std::string_view word)
{
    return !word.empty() && word.size() <= LongestHead && isPlainUtf8(word);
}

class Reader
{
public:
    Reader(int offsetBytes, const RowSink& sink, IndexReport& report)
        : m_offsetBytes(static_cast<std::size_t>(offsetBytes)), m_sink(sink), m_report(report)
    {
    }

    // False when the text is no index.
    bool readWords(std::string_view text, bool keep)
    {
        Records records(text, m_offsetBytes + 4);
        Row row;
        std::string_view numbers;
        while (records.next(row.head, numbers)) {
            row.offset = bigEndian(numbers.substr(0, m_offsetBytes));
            row.size = static_cast<std::uint32_t>(bigEndian(numbers.substr(m_offsetBytes)));
            if (keep)
                m_rows.push_back(row);
            handOver(row);
        }
        return records.atEnd();
    }

    // What can be read of them; the words are there without them.
    void readSynonyms(std::string_view text)
    {
        Records records(text, 4);
        std::string_view word;
        std::string_view numbers;
        while (records.next(word, numbers)) {
            const std::uint64_t number = bigEndian(numbers);
            if (number >= m_rows.size() || m_rows[number].head.empty()) {
                ++m_report.damaged;
                continue;
            }
            Row row = m_rows[number];
            row.title = row.head;
            row.head = word;
            handOver(row);
        }
        if (!records.atEnd())
            ++m_report.damaged;
    }

private:
    void handOver(Row& row)
    {
        row.head = trimmed(row.head);
        if (isWord(row.head) && (row.title.empty() || isWord(row.title))) {
            m_sink(row);
            ++m_report.rows;
        } else {
            ++m_report.damaged;
        }
    }

    std::size_t m_offsetBytes;
    const RowSink& m_sink;
    IndexReport& m_report;
    std::vector<Row> m_rows;
};

} // namespace

bool readStarDictIndex(const StarDictFiles& files, const StarDictInfo& info, const RowSink& sink,
                       IndexReport& report, std::string& why)
{
    std::string text;
    if (!readIndexText(files, info, text)) {
        why = "its index is damaged or has another length than told";
        return false;
    }
    Reader reader(info.offsetBytes, sink, report);
    if (!reader.readWords(text, files.synonyms.isOpen())) {
        why = "its index ends within a word";
        return false;
    }
    std::string synonyms;
    if (files.synonyms.isOpen() && files.synonyms.readAll(LargestIndex, synonyms))
        reader.readSynonyms(synonyms);
    return true;
}

} // namespace dic
