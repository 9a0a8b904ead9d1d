/*
 * What the dictionary engine costs, on the dictionaries of a folder: making and opening indices,
 * finding rows, reading entries, whole look-ups; and how soon an entry shows a translation.
 */
#include "open/dic/chunkedbody.h"
#include "open/dic/dictindex.h"
#include "open/dic/folderscan.h"
#include "open/dic/folding.h"
#include "open/dic/lookup.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <time.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Samples = 2000;
constexpr std::size_t SoonEnough = 60; // characters before the first translation

// Of the processor, which is what counts beside other work.
double microseconds(const std::function<void()>& work)
{
    const auto now = [] {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e6 + double(time.tv_nsec) / 1e3;
    };
    const double start = now();
    work();
    return now() - start;
}

double percentile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, std::size_t(share * double(values.size())))];
}

long residentKilobytes()
{
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

// Words all over the index, each once.
std::vector<std::string> sampleWords(const dic::Source& source)
{
    std::vector<std::string> words;
    dic::DictFacts facts;
    dic::IndexReport report;
    const dic::PlainFile index = dic::PlainFile::open(dic::mainFile(source));
    dic::readDictIndex(
        index, [](const dic::Row&) {}, facts, report);
    const std::size_t step = std::max<std::size_t>(1, report.rows / Samples);
    std::size_t row = 0;
    const auto keep = [&](const dic::Row& found) {
        if (row++ % step == 0)
            words.emplace_back(found.head);
    };
    dic::readDictIndex(index, keep, facts, report);
    // Not in the order of the file, which would flatter the caches.
    std::sort(words.begin(), words.end(), [](const std::string& a, const std::string& b) {
        return std::hash<std::string>()(a) < std::hash<std::string>()(b);
    });
    return words;
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
        // Whoever comes second finds warm caches: each does half of the time.
        if (ours.size() % 2 == 0) {
            inflateOnly();
            readEntry();
        } else {
            readEntry();
            inflateOnly();
        }
    }
    std::printf("  one entry: %.0f us median, pure inflate %.0f us, ratio %.2f\n",
                percentile(ours, 0.5), percentile(pure, 0.5),
                percentile(ours, 0.5) / percentile(pure, 0.5));
}

void measureLookUps(const dic::Source& source, dic::IndexShelf& shelf,
                    const std::vector<std::string>& words)
{
    const auto dictionary = dic::Dictionary::open(source, shelf);
    if (!dictionary)
        return;
    dic::WordForms noForms;
    dic::Lookup lookup(*dictionary, noForms);
    std::vector<double> times;
    std::size_t entries = 0;
    std::size_t soon = 0;
    std::size_t missed = 0;
    for (const std::string& word : words) {
        const std::u16string units = dic::toUtf16(word);
        std::vector<dic::Hit> hits;
        times.push_back(microseconds([&] { hits = lookup.search(units); }));
        missed += hits.empty();
        for (const dic::Hit& hit : hits) {
            ++entries;
            soon += showsSoon(hit.entry.text());
        }
    }
    std::printf("  look-up: %.0f us median, %.0f us p99; %zu of %zu words missed\n",
                percentile(times, 0.5), percentile(times, 0.99), missed, words.size());
    std::printf("  entries that begin with a translation: %.2f %% of %zu\n",
                entries ? 100.0 * double(soon) / double(entries) : 0.0, entries);
}

void measure(const dic::Source& source, dic::IndexShelf& shelf)
{
    std::printf("%s\n", source.place.c_str());
    const auto start = std::chrono::steady_clock::now();
    shelf.open(source); // on the shelf's thread
    const std::chrono::duration<double, std::milli> made = std::chrono::steady_clock::now() - start;
    const long before = residentKilobytes();
    std::unique_ptr<dic::Sidecar> sidecar;
    const double opened = microseconds([&] { sidecar = shelf.open(source); });
    if (!sidecar)
        return;
    std::printf("  index of %u rows: made in %.0f ms, opened in %.2f ms with %ld KB\n",
                sidecar->rows(), made.count(), opened / 1000, residentKilobytes() - before);
    const std::vector<std::string> words = sampleWords(source);
    std::vector<double> times;
    for (const std::string& word : words) {
        const std::string key = dic::foldedKey(word);
        times.push_back(microseconds([&] { sidecar->find(key); }));
    }
    std::printf("  index step: %.1f us median, %.1f us p99\n", percentile(times, 0.5),
                percentile(times, 0.99));
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
    std::printf("scan of %zu dictionaries: %.0f ms\n", found, time / 1000);
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
