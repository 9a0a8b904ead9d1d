#include "open/ocr/secondreading.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ocr {

namespace {

/* The Russian model reads words that it knows with 95 to 97, English ones mostly with less than 90;
 * what lies between costs a second reading. */
constexpr float Sure = 93;
/* The English model reads an English abbreviation with 90 to 96. */
constexpr float SureOfAbbreviation = 88;

/* By so much the English reading has to be the more confident when it is one that print of Russian
 * gives: "TaBaHb" for гавань. */
constexpr float LeadOfLookalikes = 8;
/* So much less confident it may be beside English: "War and Peace". */
constexpr float LagAmongEnglish = 4;

/* Letters that look alike, in the same order; first the capitals. */
constexpr std::u32string_view RussianTwins = U"АВЕКМНОРСТУХаеорсух";
constexpr std::u32string_view LatinTwins = U"ABEKMHOPCTYXaeopcyx";
constexpr std::size_t TwinCapitals = 12;
/* What the English model makes of Russian letters. */
constexpr std::u32string_view Lookalikes = U"ABCEHKMOPTXYabcegkmnoprtuxy036";

bool isIn(std::u32string_view set, char32_t c)
{
    return set.find(c) != std::u32string_view::npos;
}

bool isRussianTwin(char32_t c)
{
    return isIn(RussianTwins, c);
}

bool isRussianTwinCapital(char32_t c)
{
    return isIn(RussianTwins.substr(0, TwinCapitals), c);
}

bool isLatinCapital(char32_t c)
{
    return c >= U'A' && c <= U'Z';
}

/* Without the marks and brackets around it. */
std::u32string_view letters(std::u32string_view text)
{
    constexpr std::u32string_view Marks = U".,:;!?()[]«»\"'-";
    const std::size_t first = text.find_first_not_of(Marks);
    if (first == std::u32string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Marks) - first + 1);
}

/* Two or more capitals that both alphabets have. */
bool isTwinAbbreviation(std::u32string_view russian)
{
    const std::u32string_view word = letters(russian);
    return word.size() >= 2 && std::all_of(word.begin(), word.end(), isRussianTwinCapital);
}

/* Three or more letters that both alphabets have. */
bool isTwinWord(std::u32string_view russian)
{
    const std::u32string_view word = letters(russian);
    return word.size() >= 3 && std::all_of(word.begin(), word.end(), isRussianTwin);
}

bool isTwinOf(std::u32string_view russian, std::u32string_view english)
{
    return std::equal(russian.begin(), russian.end(), english.begin(), english.end(),
                      [](char32_t r, char32_t e) {
                          const std::size_t at = RussianTwins.find(r);
                          return at < LatinTwins.size() ? LatinTwins[at] == e : r == e;
                      });
}

/* Capitals after small letters: English names have them, but Russian print seen as English, too. */
bool hasInnerCapital(std::u32string_view word)
{
    for (std::size_t i = 1; i < word.size(); ++i)
        if (isLatinCapital(word[i]) && word[i - 1] >= U'a' && word[i - 1] <= U'z')
            return true;
    return false;
}

bool isOfLookalikes(std::u32string_view english)
{
    const std::u32string_view word = letters(english);
    return std::all_of(word.begin(), word.end(), [](char32_t c) { return isIn(Lookalikes, c); });
}

/* Whether such an abbreviation is English by its letters: as many capitals, one of them not shared.
 */
bool isSurelyEnglish(std::u32string_view russian, const Word& english)
{
    const std::u32string_view word = letters(english.text);
    return english.confidence >= SureOfAbbreviation && word.size() == letters(russian).size()
           && std::all_of(word.begin(), word.end(), isLatinCapital)
           && word.find_first_not_of(LatinTwins) != std::u32string_view::npos;
}

using Words = std::vector<Word>;

/* Words of both readings that share a stretch of the line, as [begin, end) of each. */
struct Stretch
{
    bool hasOneOfEach() const
    {
        return russianEnd - russianBegin == 1 && englishEnd - englishBegin == 1;
    }

    std::size_t russianBegin;
    std::size_t russianEnd;
    std::size_t englishBegin;
    std::size_t englishEnd;
    bool takesEnglish = false;
};

/* Whether the words are at one place, rather than just touching with the edges of their boxes. */
bool overlap(const Word& a, const Word& b)
{
    const int shared = std::min(a.right, b.right) - std::max(a.left, b.left);
    return 2 * shared > std::min(a.right - a.left, b.right - b.left);
}

/* The stretch that begins with a Russian word; English words before it are passed over. */
Stretch stretchFrom(const Words& russian, std::size_t at, const Words& english, std::size_t from)
{
    const auto middle = [](const Word& word) { return (word.left + word.right) / 2; };
    while (from < english.size() && !overlap(russian[at], english[from])
           && middle(english[from]) < middle(russian[at]))
        ++from;
    Stretch stretch = {at, at + 1, from, from};
    for (bool grown = true; grown;) {
        grown = false;
        if (stretch.englishEnd < english.size()
            && overlap(russian[stretch.russianEnd - 1], english[stretch.englishEnd])) {
            ++stretch.englishEnd;
            grown = true;
        }
        if (stretch.englishEnd > stretch.englishBegin && stretch.russianEnd < russian.size()
            && overlap(russian[stretch.russianEnd], english[stretch.englishEnd - 1])) {
            ++stretch.russianEnd;
            grown = true;
        }
    }
    return stretch;
}

/* The mean, each word counting by its letters. */
float confidenceOf(const Words& words, std::size_t begin, std::size_t end)
{
    float sum = 0;
    std::size_t count = 0;
    for (std::size_t i = begin; i < end; ++i) {
        sum += words[i].confidence * static_cast<float>(words[i].text.size());
        count += words[i].text.size();
    }
    return count == 0 ? 0 : sum / static_cast<float>(count);
}

bool takesEnglish(const Words& russian, const Words& english, const Stretch& stretch)
{
    const auto begin = russian.begin() + static_cast<std::ptrdiff_t>(stretch.russianBegin);
    const auto end = russian.begin() + static_cast<std::ptrdiff_t>(stretch.russianEnd);
    if (stretch.englishBegin == stretch.englishEnd
        || std::none_of(begin, end, deservesSecondReading))
        return false;
    const float lead = confidenceOf(english, stretch.englishBegin, stretch.englishEnd)
                       - confidenceOf(russian, stretch.russianBegin, stretch.russianEnd);
    const Word& word = english[stretch.englishBegin];
    if (stretch.hasOneOfEach() && isTwinAbbreviation(begin->text))
        return !isTwinOf(letters(begin->text), letters(word.text))
               && (lead > 0 || isSurelyEnglish(begin->text, word));
    if (!isOfLookalikes(word.text))
        return lead > 0;
    return lead > LeadOfLookalikes && !hasInnerCapital(word.text);
}

/* The English article looks like a Russian word. */
bool isArticle(const Words& russian, const Stretch& stretch)
{
    return stretch.russianEnd - stretch.russianBegin == 1
           && russian[stretch.russianBegin].text == U"а";
}

/* Whether a word that may be either is English because it stands beside an English one. */
bool isEnglishByCompany(const Words& russian, const Words& english, const Stretch& stretch)
{
    if (!stretch.hasOneOfEach())
        return false;
    const Word& first = russian[stretch.russianBegin];
    const Word& second = english[stretch.englishBegin];
    return isTwinWord(first.text) && isTwinOf(first.text, second.text)
           && second.confidence > first.confidence - LagAmongEnglish;
}

std::vector<Stretch> comparedReadings(const Words& russian, const Words& english)
{
    std::vector<Stretch> line;
    std::size_t next = 0;
    for (std::size_t at = 0; at < russian.size(); at = line.back().russianEnd) {
        line.push_back(stretchFrom(russian, at, english, next));
        line.back().takesEnglish = takesEnglish(russian, english, line.back());
        next = line.back().englishEnd;
    }
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool company = (i > 0 && line[i - 1].takesEnglish)
                             || (i + 1 < line.size() && line[i + 1].takesEnglish);
        if (company && isEnglishByCompany(russian, english, line[i]))
            line[i].takesEnglish = true;
    }
    return line;
}

} // namespace

bool deservesSecondReading(const Word& russian)
{
    // Words of one letter are read with little confidence in any case.
    const bool doubtful = russian.confidence < Sure && russian.text.size() != 1;
    return doubtful || isTwinAbbreviation(russian.text) || isTwinWord(russian.text);
}

std::vector<Word> mergedReadings(const std::vector<Word>& russian, const std::vector<Word>& english)
{
    Words result;
    const std::vector<Stretch> line = comparedReadings(russian, english);
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Stretch& stretch = line[i];
        const bool takes = stretch.takesEnglish;
        const Words& from = takes ? english : russian;
        const std::size_t begin = takes ? stretch.englishBegin : stretch.russianBegin;
        const std::size_t end = takes ? stretch.englishEnd : stretch.russianEnd;
        result.insert(result.end(), from.begin() + static_cast<std::ptrdiff_t>(begin),
                      from.begin() + static_cast<std::ptrdiff_t>(end));
        const bool amongEnglish =
            i > 0 && line[i - 1].takesEnglish && i + 1 < line.size() && line[i + 1].takesEnglish;
        if (!takes && amongEnglish && isArticle(russian, stretch))
            result.back().text = U"a";
    }
    return result;
}

} // namespace ocr
