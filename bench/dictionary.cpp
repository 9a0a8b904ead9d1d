/*
 * What the dictionary engine costs, on the dictionaries of a folder: making and opening indices,
 * finding rows, reading entries, whole look-ups; and how soon an entry shows a translation.
 */
#include "bench/dictmeasure.h"
#include "open/dic/chunkedbody.h"
#include "open/dic/folderscan.h"
#include "open/dic/folding.h"
#include "open/dic/lookup.h"
#include "open/dic/penfolders.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;
using dictmeasure::microseconds;
using dictmeasure::percentile;
using dictmeasure::verdict;

namespace {

constexpr std::size_t Samples = 2000;
constexpr std::size_t SoonEnough = 60; // characters before the first translation

// In use on the heap.
double heapKilobytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / 1024;
}

bool showsSoon(const std::u16string& text)
{
    int depth = 0;
    for (std::size_t i = 0; i < std::min(text.size(), SoonEnough) && text[i] != u'\n'; ++i) {
        depth += text[i] == u'[';
        depth -= text[i] == u']';
        const bool isDigitOrSign = text[i] < u'A' || text[i] == u']';
        if (depth == 0 && !isDigitOrSign)
            return true;
    }
    return false;
}

// Whoever comes second finds warm caches: each does half of the time.
void inTurns(bool firstLeads, const std::function<void()>& first,
             const std::function<void()>& second)
{
    (firstLeads ? first : second)();
    (firstLeads ? second : first)();
}

// Reading an entry through the engine against inflating the same bytes.
void measureEntries(const dic::Source& source, dic::Sidecar& sidecar,
                    const std::vector<std::string>& words)
{
    const std::string path = source.stem + ".dict.dz";
    dic::GzipHead head;
    const dic::PlainFile file = dic::PlainFile::open(path);
    if (!file.isOpen() || !dic::readGzipHead(file, head) || head.chunkLength == 0)
        return;
    std::vector<double> ours;
    std::vector<double> pure;
    dic::Inflater inflater;
    std::string out;
    std::string compressed;
    for (const std::string& word : words) {
        const auto rows = sidecar.find(dic::foldedKey(word));
        if (rows.empty())
            continue;
        const dic::FoundRow& row = rows.front();
        const auto chunk = static_cast<std::size_t>(row.offset / head.chunkLength);
        const std::size_t within = row.offset % head.chunkLength + row.size;
        if (within > head.chunkLength)
            continue;
        dic::ChunkedBody body(dic::PlainFile::open(path));
        file.read(head.chunkStart[chunk], head.chunkStart[chunk + 1] - head.chunkStart[chunk],
                  compressed);
        const auto inflateOnly = [&] {
            pure.push_back(microseconds([&] { inflater.inflateFrom(compressed, within, out); }));
        };
        const auto readEntry = [&] {
            ours.push_back(microseconds([&] {
                sidecar.find(dic::foldedKey(word));
                body.read(row.offset, row.size, out);
            }));
        };
        inTurns(ours.size() % 2 == 0, inflateOnly, readEntry);
    }
    const double ratio = percentile(ours, 0.5) / percentile(pure, 0.5);
    std::printf("  one entry: %.0f us median, pure inflate %.0f us, ratio %.2f %s\n",
                percentile(ours, 0.5), percentile(pure, 0.5), ratio,
                verdict(ratio, 1.15, "").c_str());
}

// What people look up: headwords, and as many that are none: torn, run together, misread.
std::vector<std::string> anyWords(const std::vector<std::string>& heads)
{
    std::vector<std::string> words = heads;
    for (std::size_t i = 0; i + 1 < heads.size(); ++i) {
        const std::string& head = heads[i];
        switch (i % 4) {
        case 0:
            words.push_back(head + heads[i + 1]);
            break;
        case 1:
            words.push_back(std::string(dic::cutAt(head, head.size() * 2 / 3)));
            break;
        case 2:
            words.push_back(head + "s");
            break;
        default:
            words.push_back("l'" + head + "x");
            break;
        }
    }
    return words;
}

void measureLookUps(const dic::Source& source, dic::IndexShelf& shelf,
                    const std::vector<std::string>& heads)
{
    const auto dictionary = dic::Dictionary::open(source, shelf);
    if (!dictionary)
        return;
    dic::WordForms forms(dic::wordFormFiles(dic::wordFormFolder(), source.pair.from));
    dic::Lookup lookup(*dictionary, forms);
    std::vector<double> times;
    std::size_t entries = 0;
    std::size_t soon = 0;
    std::size_t missed = 0;
    const std::vector<std::string> words = anyWords(heads);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::u16string units = dic::toUtf16(words[i]);
        std::vector<dic::Hit> hits;
        times.push_back(microseconds([&] { hits = lookup.search(units); }));
        missed += i < heads.size() && hits.empty();
        for (const dic::Hit& hit : hits) {
            ++entries;
            soon += showsSoon(hit.entry.text());
        }
    }
    const double p99 = percentile(times, 0.99);
    std::printf(
        "  look-up of any word: %.0f us median, %.0f us p99 %s; %zu of %zu headwords missed\n",
        percentile(times, 0.5), p99, verdict(p99, 3000, " us").c_str(), missed, heads.size());
    std::printf("  entries that begin with a translation: %.2f %% of %zu\n",
                entries ? 100.0 * double(soon) / double(entries) : 0.0, entries);
}

void measure(const dic::Source& source, dic::IndexShelf& shelf)
{
    std::printf("%s\n", source.place.c_str());
    const auto start = std::chrono::steady_clock::now();
    shelf.open(source); // on the shelf's thread
    const std::chrono::duration<double, std::milli> made = std::chrono::steady_clock::now() - start;
    const double before = heapKilobytes();
    std::unique_ptr<dic::Sidecar> sidecar;
    const double opened = microseconds([&] { sidecar = shelf.open(source); });
    if (!sidecar)
        return;
    const double memory = heapKilobytes() - before;
    std::printf("  index of %u rows: made in %.0f ms, opened in %.2f ms %s with %.0f KB %s\n",
                sidecar->rows(), made.count(), opened / 1000,
                verdict(opened / 1000, 5, " ms").c_str(), memory,
                verdict(memory, 2048, " KB").c_str());
    const std::vector<std::string> words = dictmeasure::sampleWords(source, Samples);
    std::vector<double> times;
    for (const std::string& word : words) {
        const std::string key = dic::foldedKey(word);
        times.push_back(microseconds([&] { sidecar->find(key); }));
    }
    std::printf("  index step: %.1f us median %s, %.1f us p99\n", percentile(times, 0.5),
                verdict(percentile(times, 0.5), 10, " us").c_str(), percentile(times, 0.99));
    measureEntries(source, *sidecar, words);
    measureLookUps(source, shelf, words);
}

void measureScan(const fs::path& folder)
{
    constexpr int Count = 1000;
    fs::create_directories(folder);
    for (int i = 0; i < Count; ++i) {
        const std::string stem = (folder / (std::to_string(i) + "-eng-deu")).string();
        std::ofstream(stem + ".index") << "house\tA\tE\n";
        std::ofstream(stem + ".dict") << "Haus";
    }
    std::size_t found = 0;
    const double time = microseconds([&] { found = dic::scanFolders({folder.string()}).size(); });
    std::printf("scan of %zu dictionaries: %.0f ms %s\n", found, time / 1000,
                verdict(time / 1000, 150, " ms").c_str());
}

} // namespace

int main(int argc, char** argv)
{
    const std::string folder = argc > 1 ? argv[1] : "/usr/share/dictd";
    char name[] = "/tmp/dictionary-bench-XXXXXX";
    if (!mkdtemp(name))
        return EXIT_FAILURE;
    const fs::path own(name);
    measureScan(own / "many");
    dic::IndexShelf shelf(own.string() + "/");
    const std::vector<dic::Source> sources = dic::scanFolders({folder});
    for (const dic::Source& source : sources) {
        if (source.format == dic::Source::Format::Dict)
            measure(source, shelf);
    }
    if (sources.empty())
        std::printf("no dictionaries in %s; Debian's dict-freedict-* have some\n", folder.c_str());
    fs::remove_all(own);
    return EXIT_SUCCESS;
}
