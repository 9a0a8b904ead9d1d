/*
 * What the dictionary engine finds of a page: looks up every word of texts in the languages of the
 * installed dictionaries, as somebody who steps through them would, and counts what is found. With
 * --missed it names the words that are not; with --sample it shows what is found for words drawn
 * by chance, for a reader to judge. Times are of the processor. With --entries it shows entries
 * drawn by chance, as two lines of the pen begin with them.
 *
 * dictionary_coverage [--texts FOLDER] [--forms FOLDER] [--missed] [--sample COUNT]
 *                     [--entries COUNT] FOLDER...
 */
#include "open/dic/dictindex.h"
#include "open/dic/folderscan.h"
#include "open/dic/folding.h"
#include "open/dic/lookup.h"
#include "open/dic/utf.h"
#include "open/dic/wordcutter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <time.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr int Chinese = 1;
constexpr std::size_t LongestChineseWord = 9;
constexpr std::size_t ContextUnits = 24;
constexpr std::size_t GistUnits = 60;

double milliseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

struct Options
{
    std::string texts = SWIPELINE_SOURCE_DIR "/tests/data/prose";
    std::string forms;
    std::vector<std::string> folders;
    bool missed = false;
    std::size_t sample = 0;
    std::size_t entries = 0;
};

/* A word of the text and what was found for it. */
struct Word
{
    std::u16string_view line;
    std::size_t start = 0;
    std::size_t length = 0;
    std::vector<dic::Hit> hits;
    double time = 0; // ms

    std::string text() const { return dic::toUtf8(line.substr(start, length)); }
};

// "de.txt", "fra.txt", "whatever.de.txt": by the last part before ".txt".
std::map<int, std::vector<std::u16string>> readTexts(const std::string& folder)
{
    std::map<int, std::vector<std::u16string>> texts;
    for (const auto& file : fs::directory_iterator(folder)) {
        if (file.path().extension() != ".txt")
            continue;
        std::string name = file.path().stem().string();
        name = name.substr(name.rfind('.') + 1);
        std::ifstream stream(file.path());
        std::string line;
        while (std::getline(stream, line))
            texts[dic::languageOf(name)].push_back(dic::toUtf16(line));
    }
    return texts;
}

void lookUpLine(dic::Lookup& lookup, int language, std::u16string_view line,
                std::vector<Word>& words)
{
    dic::WordCutter cutter(line, language);
    dic::WordPlace place;
    std::size_t behind = 0;
    while (cutter.next(place)) {
        Word word = {line, place.start, place.end - place.start, {}, 0};
        std::u16string_view searched = line.substr(word.start, word.length);
        if (place.start < behind || !dic::hasLetter(searched))
            continue;
        const bool han = language == Chinese && dic::isHan(searched.front());
        if (han)
            searched = line.substr(word.start, LongestChineseWord);
        const double start = milliseconds();
        word.hits = lookup.search(searched);
        word.time = milliseconds() - start;
        if (han && !word.hits.empty())
            word.length = dic::toUtf16(word.hits.front().entry.word).size();
        behind = word.start + word.length;
        words.push_back(std::move(word));
    }
}

std::u16string oneLine(std::u16string_view text, std::size_t from, std::size_t length)
{
    return from < text.size() ? std::u16string(text.substr(from, length)) : std::u16string();
}

void show(const Word& word)
{
    const std::size_t from = word.start > ContextUnits ? word.start - ContextUnits : 0;
    std::printf("  ...%s >%s< %s...\n",
                dic::toUtf8(oneLine(word.line, from, word.start - from)).c_str(),
                word.text().c_str(),
                dic::toUtf8(oneLine(word.line, word.start + word.length, ContextUnits)).c_str());
    static constexpr std::array Names = {"exact", "folded", "form", "part", "compound", "accents"};
    for (std::size_t i = 0; i < std::min<std::size_t>(word.hits.size(), 3); ++i) {
        const dic::Hit& hit = word.hits[i];
        std::u16string gist = hit.entry.text();
        gist.resize(std::min({gist.size(), gist.find(u'\n'), GistUnits}));
        std::printf("      %-8s %s: %s\n", Names[std::size_t(hit.match)], hit.entry.word.c_str(),
                    dic::toUtf8(gist).c_str());
    }
}

void showSample(const std::vector<Word>& words, std::size_t count)
{
    std::vector<const Word*> found;
    for (const Word& word : words) {
        if (!word.hits.empty())
            found.push_back(&word);
    }
    std::mt19937 chance(1); // the same words each time
    std::shuffle(found.begin(), found.end(), chance);
    for (std::size_t i = 0; i < std::min(count, found.size()); ++i)
        show(*found[i]);
}

void showMissed(const std::vector<Word>& words)
{
    std::map<std::string, int> missed;
    for (const Word& word : words) {
        if (word.hits.empty())
            ++missed[word.text()];
    }
    std::printf(" ");
    for (const auto& [word, times] : missed)
        std::printf(" %s%s", word.c_str(),
                    times > 1 ? (" (" + std::to_string(times) + ")").c_str() : "");
    std::printf("\n");
}

// Headwords all over the index of a dictionary of the format DICT.
std::vector<std::string> someHeadwords(const dic::Source& source, std::size_t count)
{
    std::vector<std::string> words;
    if (source.format != dic::Source::Format::Dict)
        return words;
    dic::DictFacts facts;
    dic::IndexReport report;
    dic::readDictIndex(
        dic::PlainFile::open(dic::mainFile(source)),
        [&words](const dic::Row& row) { words.emplace_back(row.head); }, facts, report);
    std::mt19937 chance(1);
    std::shuffle(words.begin(), words.end(), chance);
    words.resize(std::min(words.size(), count));
    return words;
}

void showEntries(const dic::Source& source, dic::IndexShelf& shelf, std::size_t count)
{
    constexpr std::size_t LineUnits = 31;
    const auto dictionary = dic::Dictionary::open(source, shelf);
    if (!dictionary)
        return;
    std::printf("%s\n", source.place.c_str());
    for (const std::string& word : someHeadwords(source, count)) {
        const auto hits = dictionary->find(dic::foldedKey(word), word);
        if (hits.empty()) {
            std::printf("  %s: NOTHING\n", word.c_str());
            continue;
        }
        std::u16string text = hits.front().entry.text();
        text.resize(std::min(text.size(), 2 * LineUnits));
        std::replace(text.begin(), text.end(), u'\n', u'|');
        std::printf("  %-24s %s\n", hits.front().entry.word.c_str(), dic::toUtf8(text).c_str());
    }
}

void measure(const dic::Source& source, dic::IndexShelf& shelf,
             const std::vector<std::u16string>& lines, const Options& options)
{
    const auto dictionary = dic::Dictionary::open(source, shelf);
    if (!dictionary)
        return;
    const double start = milliseconds();
    dic::WordForms forms(dic::wordFormFiles(options.forms + "/", source.pair.from));
    const double opened = milliseconds() - start;
    dic::Lookup lookup(*dictionary, forms);
    std::vector<Word> words;
    for (const std::u16string& line : lines)
        lookUpLine(lookup, source.pair.from, line, words);
    std::map<dic::Match, std::size_t> ways;
    std::size_t found = 0;
    for (const Word& word : words) {
        if (word.hits.empty())
            continue;
        ++found;
        ++ways[word.hits.front().match];
    }
    const auto share = [&](std::size_t count) {
        return words.empty() ? 0.0 : 100.0 * double(count) / double(words.size());
    };
    std::printf(
        "%s: %.2f %% of %zu words; as written %.1f, forms %.1f, parts %.1f, compounds %.1f, "
        "accents %.1f\n",
        source.place.c_str(), share(found), words.size(),
        share(ways[dic::Match::Exact] + ways[dic::Match::Folded]),
        share(ways[dic::Match::Inflected]), share(ways[dic::Match::Part]),
        share(ways[dic::Match::Compound]), share(ways[dic::Match::AccentFree]));
    std::vector<double> times;
    times.reserve(words.size());
    for (const Word& word : words)
        times.push_back(word.time);
    std::sort(times.begin(), times.end());
    if (!times.empty())
        std::printf("  word forms opened in %.0f ms; a look-up %.2f ms median, %.2f ms p99\n",
                    opened, times[times.size() / 2], times[times.size() * 99 / 100]);
    if (options.missed)
        showMissed(words);
    if (options.sample > 0)
        showSample(words, options.sample);
}

Options optionsOf(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        if (name == "--missed")
            options.missed = true;
        else if (name == "--texts" && i + 1 < argc)
            options.texts = argv[++i];
        else if (name == "--forms" && i + 1 < argc)
            options.forms = argv[++i];
        else if (name == "--sample" && i + 1 < argc)
            options.sample = std::strtoul(argv[++i], nullptr, 10);
        else if (name == "--entries" && i + 1 < argc)
            options.entries = std::strtoul(argv[++i], nullptr, 10);
        else
            options.folders.push_back(name);
    }
    if (options.folders.empty())
        options.folders = {"/usr/share/dictd"};
    return options;
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = optionsOf(argc, argv);
    char name[] = "/tmp/dictionary-coverage-XXXXXX";
    if (!mkdtemp(name))
        return EXIT_FAILURE;
    {
        dic::IndexShelf shelf(std::string(name) + "/");
        const auto texts = readTexts(options.texts);
        const std::vector<dic::Source> sources = dic::scanFolders(options.folders);
        for (const dic::Source& source : sources) {
            if (options.entries > 0) {
                showEntries(source, shelf, options.entries);
                continue;
            }
            const auto lines = texts.find(source.pair.from);
            if (lines != texts.end())
                measure(source, shelf, lines->second, options);
        }
        if (sources.empty())
            std::printf("no dictionaries; Debian's dict-freedict-* have some\n");
    }
    fs::remove_all(name);
    return EXIT_SUCCESS;
}
