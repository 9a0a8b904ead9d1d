#include "tests/unit/open/damagedpen.h"

#include "tests/unit/open/dicfiles.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string& what)
{
    std::fprintf(stderr, "FAILED: %s\n", what.c_str());
    _exit(3);
}

void require(bool good, const char* what)
{
    if (!good)
        fail(what);
}

} // namespace

void DamagedPen::put(const std::string& name, const MutatedFile& file)
{
    const std::string path = (m_root / "sys" / (m_name + name)).string();
    fs::remove_all(path);
    switch (file.kind) {
    case MutatedFile::Kind::Plain:
        dicfiles::write(path, file.content);
        break;
    case MutatedFile::Kind::Pipe:
        require(mkfifo(path.c_str(), 0600) == 0, "mkfifo");
        break;
    case MutatedFile::Kind::Link:
        fs::create_symlink(file.content, path);
        break;
    case MutatedFile::Kind::Folder:
        fs::create_directory(path);
        break;
    }
    // As if nothing had happened: what is kept of an earlier state must not be believed for its
    // date.
    const timespec times[2] = {{1000000000, 0}, {1000000000, 0}};
    utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW);
}

void DamagedPen::layOut(const DictionaryFiles& files)
{
    for (const auto& entry : fs::directory_iterator(m_root / "sys"))
        fs::remove_all(entry.path());
    for (const auto& [suffix, file] : files)
        put(suffix, file);
}

// The engine's own files, and the folder that they are in.
void DamagedPen::spoilIndices(std::string& done)
{
    const fs::path folder = m_root / "apps/data/dictindex";
    if (below(5) == 0) {
        fs::remove_all(folder);
        dicfiles::write(folder.string(), "no folder");
        done += " no place for indices;";
        return;
    }
    if (!fs::is_directory(folder))
        return;
    std::vector<fs::path> files;
    for (const auto& file : fs::directory_iterator(folder))
        files.push_back(file.path());
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        if (below(2))
            continue;
        done += " index:";
        dicfiles::write(file.string(),
                        DicMutator::damaged(dicfiles::read(file.string()), m_random, done));
        done += ";";
    }
}

void DamagedPen::describe(const tagDictInfo* dictionary)
{
    for (const int32_t what : {ZEMBRA_DIC_NAME, ZEMBRA_DIC_ORIGIN}) {
        for (const int32_t bytes : {0, 2, 30, 20000}) {
            const std::unique_ptr<std::uint16_t[]> text(new std::uint16_t[std::size_t(bytes) / 2]);
            const int32_t written = ZEMBRA_DIC_DescribeDic(dictionary, what, text.get(), bytes);
            require(written < 0 || (written <= bytes && written % 2 == 0), "a long description");
            for (int32_t i = 0; what == ZEMBRA_DIC_NAME && i < written / 2; ++i)
                require(text[std::size_t(i)] >= 0x20, "a name has control characters");
        }
    }
}

void DamagedPen::read(const tagResultNodeInfo* result, bool& isGood)
{
    int nodes = 0;
    for (const tagResultNodeInfo* node = result; node; node = node->next) {
        require(++nodes <= ZEMBRA_DIC_MAX_RESULTS, "too many results");
        require(node->wordBytes >= 0 && node->wordBytes <= 254 && node->wordBytes % 2 == 0,
                "a headword is too long");
        require(node->textBytes > 0 && node->textBytes % 2 == 0 && node->textBytes <= 16384,
                "a text is too long or empty");
        const std::u16string text(node->text, node->text + node->textBytes / 2);
        isGood = isGood || text.starts_with(u"Gut");
    }
    m_progress.found += std::uint64_t(nodes);
}

void DamagedPen::lookUp()
{
    static const std::array<std::u16string, 12> Words = {
        u"house",       u"Hus",     u"\u623f\u5b50",  u"long",
        u"Stra\u00dfe", u"strasse", u"\u00e9t\u00e9", u"ete",
        u"the",         u"home",    u"nothing",       std::u16string(300, u'x')};
    bool isGood = false;
    tagResultNodeInfo* first = nullptr;
    for (const std::u16string& word : Words) {
        tagResultNodeInfo* result = nullptr;
        const auto* const units = reinterpret_cast<const std::uint16_t*>(word.data());
        ZEMBRA_DIC_SearchWord(&result, units, int32_t(2 * word.size()), 1, 0);
        read(result, isGood);
        if (!first)
            std::swap(first, result);
        ZEMBRA_DIC_FreeSearchResult(&result);
    }
    const std::u16string line = u"... 12 xyzzy, the Hus \u623f\u5b50";
    int32_t position = -1;
    tagResultNodeInfo* result = nullptr;
    ZEMBRA_DIC_GetFirstComment(&result, &position,
                               reinterpret_cast<const std::uint16_t*>(line.data()),
                               int32_t(2 * line.size()));
    require(position >= 0 && position <= int32_t(line.size()), "a position is outside its line");
    require((position > 0) == (result != nullptr), "a position without a word");
    read(result, isGood);
    ZEMBRA_DIC_FreeSearchResult(&result);
    read(first, isGood); // still whole
    ZEMBRA_DIC_FreeSearchResult(&first);
    m_goodFound += isGood;
}

void DamagedPen::useDictionary(tagDictInfo* dictionary)
{
    describe(dictionary);
    if (ZEMBRA_DIC_Initialize(dictionary) < 0)
        return;
    ++m_open;
    lookUp();
    describe(dictionary);
    if (below(2))
        require(ZEMBRA_DIC_Uninitialize(dictionary) >= 0, "a dictionary cannot be closed");
}

void DamagedPen::use()
{
    // The third folder contains the first.
    const std::string sub = (m_root / "sys/").string();
    const std::string all = m_root.string() + "/";
    const std::array folders = {sub.c_str(), "/nowhere/", all.c_str()};
    void* list = nullptr;
    tagDictTypeInfo* pairs = nullptr;
    m_listed = m_open = m_goodFound = 0;
    require(ZEMBRA_DIC_GetDicList(&list, folders.data(), int32_t(folders.size())) >= 0, "no list");
    require(ZEMBRA_DIC_GetDicTypeList(&pairs, list, "ENGLISH") >= 0, "no pairs");
    std::vector<tagDictInfo*> dictionaries;
    for (const tagDictTypeInfo* pair = pairs; pair; pair = pair->next) {
        require(pair->nameBytes > 0 && pair->nameBytes <= 256, "a pair's name");
        for (const tagDictLink* link = pair->dicts; link; link = link->next)
            dictionaries.push_back(link->dict);
    }
    for (std::size_t i = 0; i < dictionaries.size(); ++i) {
        tagDictInfo* selected = nullptr;
        require(ZEMBRA_DIC_SelectDic(&selected, list, 1, int32_t(i)) >= 0, "a number that counts");
        require(selected == dictionaries[i], "another dictionary");
        std::uint16_t name[200];
        m_listed += ZEMBRA_DIC_DescribeDic(selected, ZEMBRA_DIC_NAME, name, sizeof name) >= 0;
        useDictionary(selected);
    }
    ZEMBRA_DIC_FreeTypeDicList(&pairs);
    ZEMBRA_DIC_FreeDicList(&list);
}

// The good one is there and works; the other is not there twice, and is missed by nobody.
void DamagedPen::checkLog()
{
    require(m_goodFound >= 1, "the good dictionary was not found");
    bool isThere = false;
    for (const char* suffix : {".index", ".ifo"})
        isThere =
            isThere || fs::is_regular_file(fs::symlink_status(m_root / "sys" / (m_name + suffix)));
    const std::string text = dicfiles::read((m_root / "log").string());
    require(m_listed <= 2, "a dictionary is there twice");
    const bool isRefused = isThere && m_open < 2;
    require(!isRefused || text.find("victim") != std::string::npos,
            "a dictionary was refused without a line in the log");
    m_progress.refused += isRefused;
    m_progress.opened += m_open == 2;
}

void DamagedPen::begin()
{
    fs::create_directories(m_root / "sys");
    fs::create_directories(m_root / "apps/data");
    dicfiles::writeDict((m_root / "good-eng-deu").string(), {{"house", "Gut"}}, true);
    setenv("SWIPELINE_ROOT", m_root.c_str(), 1);
}

bool DamagedPen::opens(const DictionaryFiles& files)
{
    begin();
    layOut(files);
    use();
    return m_open == 2 && m_goodFound == 1;
}

void DamagedPen::run(std::uint64_t seed)
{
    begin();
    std::string done;
    const auto tell = [&] {
        std::snprintf(m_progress.doing, sizeof m_progress.doing, "%s", done.c_str());
    };
    DictionaryFiles files = m_mutator.whole()[seed % m_mutator.whole().size()];
    if (below(3) == 0) {
        m_name = "victim"; // its languages stand in its title, its descriptor, or nowhere
        if (below(2))
            files[".about"].content = "languages=deu-eng\nname=Victim\n";
    }
    if (below(3) == 0) {
        done += "used whole;";
        layOut(files);
        use();
    }
    m_mutator.mutate(files, seed, done);
    tell();
    layOut(files);
    if (below(4) == 0) {
        spoilIndices(done);
        tell();
    }
    require(ftruncate(STDERR_FILENO, 0) == 0, "the log");
    use();
    checkLog();
    if (below(4) == 0)
        use(); // as the first time left it
}
