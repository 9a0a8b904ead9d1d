/*
 * The dictionary engine beside the programs that read the same files: "sdcv" (StarDict) and "dictd"
 * (DICT). The same dictionaries and words, each in a process of its own that looks up all words,
 * and in one process a word; processor time of whole processes, one after the other in the same
 * run.
 */
#include "bench/childrun.h"
#include "bench/dictmeasure.h"
#include "open/dic/dictindex.h"
#include "open/dic/folderscan.h"
#include "open/dic/utf.h"
#include "platform/zembra_dic.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <strings.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Words = 1800;     // dictd answers 2,000 commands of one client
constexpr std::size_t SingleWords = 40; // looked up in one process each

void writeFile(const fs::path& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary) << content;
}

std::string lines(const std::vector<std::string>& words, const std::string& before,
                  const std::string& behind)
{
    std::string text;
    for (const std::string& word : words)
        text += before + word + behind;
    return text;
}

std::size_t count(const std::string& text, const std::string& what)
{
    std::size_t number = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++number;
    return number;
}

constexpr const char* FoundSign = "\x01";

// The program itself, as a process that looks words up: one a line on the standard input.
int lookUp(const char* folder)
{
    void* list = nullptr;
    tagDictInfo* dictionary = nullptr;
    if (ZEMBRA_DIC_GetDicList(&list, &folder, 1) < 0)
        return EXIT_FAILURE;
    // The contestant before left a place that is empty now.
    int32_t number = 0;
    while (ZEMBRA_DIC_SelectDic(&dictionary, list, 1, number++) >= 0
           && ZEMBRA_DIC_Initialize(dictionary) < 0)
        continue;
    if (!dictionary)
        return EXIT_FAILURE;
    char line[4096];
    while (std::fgets(line, sizeof line, stdin)) {
        line[std::strcspn(line, "\n")] = 0;
        const std::u16string word = dic::toUtf16(line);
        tagResultNodeInfo* result = nullptr;
        ZEMBRA_DIC_SearchWord(&result, reinterpret_cast<const std::uint16_t*>(word.data()),
                              int32_t(2 * word.size()), 1, 0);
        std::puts(result ? FoundSign : "nothing");
        for (const tagResultNodeInfo* node = result; node; node = node->next) {
            const std::u16string text(node->text, node->text + node->textBytes / 2);
            std::puts(dic::toUtf8(text).c_str());
        }
        ZEMBRA_DIC_FreeSearchResult(&result);
    }
    ZEMBRA_DIC_FreeDicList(&list);
    return EXIT_SUCCESS;
}

struct StarDictRow
{
    std::string head;
    std::uint64_t offset;
    std::uint32_t size;
};

std::string bigEndian(std::uint64_t number)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += char(number >> shift & 0xff);
    return text;
}

// The same dictionary as StarDict has it: the texts are the same file.
void writeStarDict(const dic::Source& source, const fs::path& folder)
{
    std::vector<StarDictRow> rows;
    dic::DictFacts facts;
    dic::IndexReport report;
    const auto keep = [&](const dic::Row& row) {
        rows.push_back({std::string(row.head), row.offset, row.size});
    };
    dic::readDictIndex(dic::PlainFile::open(dic::mainFile(source)), keep, facts, report);
    std::sort(rows.begin(), rows.end(), [](const StarDictRow& a, const StarDictRow& b) {
        const int order = strcasecmp(a.head.c_str(), b.head.c_str());
        return order != 0 ? order < 0 : a.head < b.head;
    });
    std::string index;
    for (const StarDictRow& row : rows)
        index += row.head + '\0' + bigEndian(row.offset) + bigEndian(row.size);
    writeFile(folder / "peer.idx", index);
    writeFile(folder / "peer.ifo",
              "StarDict's dict ifo file\nversion=2.4.2\nwordcount=" + std::to_string(rows.size())
                  + "\nidxfilesize=" + std::to_string(index.size())
                  + "\nbookname=peer\nsametypesequence=m\n");
    writeFile(folder / "peer.about",
              "languages=" + std::string(dic::languageLetters(source.pair.from)) + "-"
                  + std::string(dic::languageLetters(source.pair.to)) + "\n");
    fs::copy_file(source.stem + ".dict.dz", folder / "peer.dict.dz");
}

// Words that no program takes for an option, a pattern or a command.
std::vector<std::string> plainWords(const dic::Source& source)
{
    std::vector<std::string> words = dictmeasure::sampleWords(source, Words);
    std::erase_if(words, [](const std::string& word) {
        return word.find_first_of("\"'\\/|*?[](){}:.,;-+#&%0123456789") != std::string::npos;
    });
    words.resize(std::min(words.size(), Words));
    return words;
}

/* One way of looking words up. */
struct Contestant
{
    std::string name;
    std::vector<std::string> command; // with the words behind it where `asArguments`
    bool asArguments = false;
    std::string before; // around each word on the standard input, else
    std::string behind;
    std::string end;
    std::string sign; // stands in the output once for each word that was found
};

class Match
{
public:
    Match(fs::path folder, std::vector<std::string> words)
        : m_folder(std::move(folder)), m_words(std::move(words))
    {
    }

    void run(const Contestant& contestant)
    {
        once(contestant, {m_words.front()}); // files into the page cache, caches made
        const ChildRun nothing = once(contestant, {});
        const ChildRun all = once(contestant, m_words);
        double single = 0;
        const std::size_t singles = std::min(SingleWords, m_words.size());
        for (std::size_t i = 0; i < singles; ++i)
            single += once(contestant, {m_words[i]}).cpuMilliseconds;
        const double perWord =
            1e3 * (all.cpuMilliseconds - nothing.cpuMilliseconds) / double(m_words.size());
        single /= double(singles);
        if (m_first.all == 0)
            m_first = {all.cpuMilliseconds, perWord, single};
        std::printf("  %-18s %6zu %8.1f ms %6.2f x %8.1f us %6.2f x %8.2f ms %6.2f x%s\n",
                    contestant.name.c_str(), count(all.output, contestant.sign),
                    all.cpuMilliseconds, all.cpuMilliseconds / m_first.all, perWord,
                    perWord / m_first.perWord, single, single / m_first.single,
                    all.good ? "" : "  (failed)");
    }

private:
    struct Figures
    {
        double all = 0;
        double perWord = 0;
        double single = 0;
    };

    ChildRun once(const Contestant& contestant, const std::vector<std::string>& words)
    {
        std::vector<std::string> command = contestant.command;
        std::string input;
        if (contestant.asArguments)
            command.insert(command.end(), words.begin(), words.end());
        else
            input = lines(words, contestant.before, contestant.behind) + contestant.end;
        writeFile(m_folder / "input", input);
        return runChild(command, (m_folder / "input").string(), m_folder.string());
    }

    fs::path m_folder;
    std::vector<std::string> m_words;
    Figures m_first;
};

std::vector<Contestant> contestants(const fs::path& folder, const std::string& self)
{
    const std::string dict = (folder / "dict/").string();
    const std::string star = (folder / "star/").string();
    std::vector<Contestant> all = {
        {"ours, DICT", {self, "--look-up", dict}, false, "", "\n", "", FoundSign},
        {"ours, StarDict", {self, "--look-up", star}, false, "", "\n", "", FoundSign}};
    const std::string dictd = programPath("dictd");
    if (!dictd.empty())
        all.push_back({"dictd",
                       {dictd, "-i", "-c", (folder / "dictd.conf").string(), "--locale", "C.UTF-8"},
                       false,
                       "DEFINE peer \"",
                       "\"\r\n",
                       "QUIT\r\n",
                       " definitions retrieved"});
    const std::string sdcv = programPath("sdcv");
    if (!sdcv.empty())
        all.push_back(
            {"sdcv", {sdcv, "-n", "-e", "-0", "-1", "-x", "-2", star}, true, "", "", "", "Found "});
    return all;
}

void compare(const dic::Source& source, const fs::path& folder, const std::string& self)
{
    const std::vector<std::string> words = plainWords(source);
    if (words.empty() || !fs::exists(source.stem + ".dict.dz"))
        return;
    for (const char* name : {"dict", "star", "apps/data"})
        fs::create_directories(folder / name);
    const std::string stem = (folder / "dict" / fs::path(source.stem).filename()).string();
    fs::copy_file(source.stem + ".index", stem + ".index");
    fs::copy_file(source.stem + ".dict.dz", stem + ".dict.dz");
    if (fs::exists(source.stem + ".about"))
        fs::copy_file(source.stem + ".about", stem + ".about");
    writeStarDict(source, folder / "star");
    writeFile(folder / "dictd.conf",
              "database peer {\n data " + stem + ".dict.dz\n index " + stem + ".index\n}\n");
    setenv("SWIPELINE_ROOT", folder.c_str(), 1);
    std::printf("%s: %zu words\n  %-18s %6s %19s %20s %20s\n", source.place.c_str(), words.size(),
                "", "found", "all, one process", "each, without start", "one process a word");
    Match match(folder, words);
    for (const Contestant& contestant : contestants(folder, self))
        match.run(contestant);
    fs::remove_all(folder);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::string(argv[1]) == "--look-up")
        return lookUp(argv[2]);
    const std::string folder = argc > 1 ? argv[1] : "/usr/share/dictd";
    char name[] = "/tmp/dictionary-peers-XXXXXX";
    if (!mkdtemp(name))
        return EXIT_FAILURE;
    // A dictd that root starts becomes somebody else, who must get in.
    fs::permissions(name, fs::perms(0755));
    const std::string self = fs::read_symlink("/proc/self/exe").string();
    for (const char* peer : {"dictd", "sdcv"}) {
        if (programPath(peer).empty())
            std::printf("%s is not installed: left out\n", peer);
    }
    for (const dic::Source& source : dic::scanFolders({folder})) {
        if (source.format == dic::Source::Format::Dict)
            compare(source, fs::path(name) / "match", self);
    }
    fs::remove_all(name);
    return EXIT_SUCCESS;
}
