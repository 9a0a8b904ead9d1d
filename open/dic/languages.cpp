#include "open/dic/languages.h"

#include <algorithm>
#include <array>
#include <vector>

namespace dic {

namespace {

struct Language
{
    int code;
    std::string_view name;
    std::string_view letters;      // ISO 639-3
    std::string_view otherLetters; // ISO 639-2 where it has two
    std::string_view twoLetters;
};

constexpr std::array<Language, 13> Languages = {{{1, "Chinese", "zho", "chi", "zh"},
                                                 {101, "English", "eng", "eng", "en"},
                                                 {103, "French", "fra", "fre", "fr"},
                                                 {104, "German", "deu", "ger", "de"},
                                                 {105, "Spanish", "spa", "spa", "es"},
                                                 {106, "Italian", "ita", "ita", "it"},
                                                 {107, "Swedish", "swe", "swe", "sv"},
                                                 {108, "Danish", "dan", "dan", "da"},
                                                 {109, "Norwegian", "nor", "nob", "no"},
                                                 {110, "Dutch", "nld", "dut", "nl"},
                                                 {111, "Portuguese", "por", "por", "pt"},
                                                 {151, "Russian", "rus", "rus", "ru"},
                                                 {152, "Arabic", "ara", "ara", "ar"}}};

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isLetter(char c)
{
    return (lower(c) >= 'a' && lower(c) <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

bool equal(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

std::vector<std::string_view> wordsOf(std::string_view text)
{
    std::vector<std::string_view> words;
    for (std::size_t at = 0; at < text.size();) {
        if (!isLetter(text[at])) {
            ++at;
            continue;
        }
        const std::size_t start = at;
        while (at < text.size() && isLetter(text[at]))
            ++at;
        words.push_back(text.substr(start, at - start));
    }
    return words;
}

const Language* find(int code)
{
    const auto found = std::find_if(Languages.begin(), Languages.end(),
                                    [code](const Language& l) { return l.code == code; });
    return found == Languages.end() ? nullptr : &*found;
}

} // namespace

int languageOf(std::string_view name)
{
    for (const Language& language : Languages) {
        if (equal(name, language.name) || equal(name, language.letters)
            || equal(name, language.otherLetters) || equal(name, language.twoLetters))
            return language.code;
    }
    return 0;
}

std::string_view languageName(int code)
{
    const Language* const language = find(code);
    return language ? language->name : std::string_view();
}

std::string_view languageLetters(int code)
{
    const Language* const language = find(code);
    return language ? language->letters : std::string_view();
}

std::string pairName(const LanguagePair& pair)
{
    return std::string(languageName(pair.from)) + "-" + std::string(languageName(pair.to));
}

LanguagePair pairOfFileName(std::string_view name)
{
    const std::vector<std::string_view> words = wordsOf(name);
    for (std::size_t i = words.size(); i >= 2; --i) {
        const std::string_view from = words[i - 2];
        const std::string_view to = words[i - 1];
        const bool certain = from.size() > 2 && to.size() > 2;
        if (!certain && i < words.size())
            continue;
        const LanguagePair pair = {languageOf(from), languageOf(to)};
        if (pair.isKnown())
            return pair;
    }
    return {};
}

LanguagePair pairOfTitle(std::string_view title)
{
    std::vector<std::string_view> words = wordsOf(title);
    std::erase_if(words, [](std::string_view word) { return equal(word, "to"); });
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const LanguagePair pair = {languageOf(words[i]), languageOf(words[i + 1])};
        if (pair.isKnown() && words[i].size() > 2 && words[i + 1].size() > 2)
            return pair;
    }
    return {};
}

LanguagePair pairOfTag(std::string_view tag)
{
    const std::vector<std::string_view> words = wordsOf(tag);
    if (words.size() != 2)
        return {};
    return {languageOf(words[0]), languageOf(words[1])};
}

} // namespace dic
