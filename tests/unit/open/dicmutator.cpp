#include "tests/unit/open/dicmutator.h"

#include "tests/unit/open/dicfiles.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

using Random = std::mt19937_64;

std::size_t below(Random& random, std::size_t limit)
{
    return limit == 0 ? 0 : std::size_t(random() % limit);
}

std::vector<dicfiles::Entry> entries()
{
    std::string longText = "long /l\xc9\x92\xc5\x8b/ <adj>\n1. lang 2.\n";
    while (longText.size() < 20000)
        longText += " \"a long story\" - eine lange Geschichte\n";
    return {{"house", "house /ha\xca\x8as/ <n>\n1. Haus <neut> 2.\n home\n Synonym: {home}\n"},
            {"Hus", "hus\n    n 1: a thing; \"x\" [syn: {y}]\n    2: another\n    v 1: to thing\n"},
            {"\xe6\x88\xbf\xe5\xad\x90",
             "\xe6\x88\xbf\xe5\xad\x90 \xe6\x88\xbf\xe5\xad\x90 [f\xc3\xa1ng zi] /house/CL:x/\n"},
            {"long", longText},
            {"stra\xc3\x9f"
             "e",
             "<b>stra\xc3\x9f"
             "e</b><br/><i>f</i> &lt;street&gt; &#228;&#x110000;"},
            {"other", "other\nsee: {house}\n"},
            {"\xc3\xa9t\xc3\xa9", "\xc3\xa9t\xc3\xa9 /ete/ <masc>\nsummer\n"},
            {"the", "/a/b/"},
            {"empty", ""}};
}

DictionaryFiles readFiles(const fs::path& folder)
{
    DictionaryFiles files;
    for (const auto& file : fs::directory_iterator(folder)) {
        const std::string name = file.path().filename().string();
        files[name.substr(name.find('.'))].content = dicfiles::read(file.path().string());
    }
    return files;
}

std::string* textOf(DictionaryFiles& files, const char* suffix)
{
    const auto found = files.find(suffix);
    return found == files.end() || found->second.kind != MutatedFile::Kind::Plain
               ? nullptr
               : &found->second.content;
}

std::string& anyOf(DictionaryFiles& files, Random& random, std::string& done)
{
    auto file = files.begin();
    std::advance(file, std::ptrdiff_t(below(random, files.size())));
    done += " " + file->first;
    return file->second.content;
}

// A dictionary's file becomes something that is no file.
void replace(DictionaryFiles& files, Random& random, std::string& done)
{
    auto file = files.begin();
    std::advance(file, std::ptrdiff_t(below(random, files.size())));
    static constexpr std::array Kinds = {MutatedFile::Kind::Pipe, MutatedFile::Kind::Link,
                                         MutatedFile::Kind::Folder};
    static constexpr std::array Names = {"pipe", "link", "folder"};
    const std::size_t kind = below(random, Kinds.size());
    done += " " + file->first + " is a " + Names[kind];
    file->second = {Kinds[kind], below(random, 2) ? "/dev/zero" : "victim.self"};
}

void remove(DictionaryFiles& files, Random& random, std::string& done)
{
    auto file = files.begin();
    std::advance(file, std::ptrdiff_t(below(random, files.size())));
    done += " " + file->first + " is gone";
    files.erase(file);
}

void replaceAll(std::string& text, const std::string& what, const std::string& with)
{
    for (std::size_t at = text.find(what); at != std::string::npos;
         at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

// Line ends and marks of other systems.
void asElsewhere(DictionaryFiles& files, Random& random, std::string& done)
{
    const bool mark = below(random, 2) != 0;
    done += mark ? " marks" : " carriage returns";
    for (const char* suffix : {".index", ".ifo", ".about"}) {
        if (std::string* const text = textOf(files, suffix)) {
            if (mark)
                text->insert(0, "\xef\xbb\xbf");
            else
                replaceAll(*text, "\n", "\r\n");
        }
    }
}

// Numbers that are wrong, and keys that say something else.
void misinform(DictionaryFiles& files, Random& random, std::string& done)
{
    static constexpr std::array Lines = {"idxoffsetbits=64",
                                         "idxoffsetbits=32",
                                         "idxoffsetbits=7",
                                         "wordcount=0",
                                         "wordcount=4294967296",
                                         "wordcount=-1",
                                         "wordcount=9x",
                                         "idxfilesize=0",
                                         "idxfilesize=18446744073709551615",
                                         "idxfilesize=1",
                                         "synwordcount=1000000",
                                         "synwordcount=0",
                                         "sametypesequence=",
                                         "sametypesequence=mxtyk",
                                         "sametypesequence=WPXr",
                                         "sametypesequence=h",
                                         "lang=xx-yy",
                                         "bookname="};
    const std::string line = Lines[below(random, Lines.size())];
    std::string* const info = textOf(files, ".ifo");
    if (!info)
        return;
    done += " " + line;
    const std::string key = line.substr(0, line.find('=') + 1);
    const std::size_t at = info->find(key);
    if (at != std::string::npos)
        info->erase(at, std::min(info->find('\n', at), info->size()) - at);
    *info += line + "\n";
}

// Rows in any order, heads that are empty, texts that are elsewhere.
void misplace(DictionaryFiles& files, Random& random, std::string& done)
{
    if (std::string* const index = textOf(files, ".index")) {
        static constexpr std::array Rows = {
            "\tA\tB\n",    "house\t//////////\tB\n",        "house\tA\t/////\n",   "house\tA\n",
            "house\t\t\n", "00databaseshort\t////\t////\n", "house\tA\tB\t\xff\n", "\n\n\t\t\t\n"};
        const std::size_t at = index->find('\n', below(random, index->size()));
        const std::string row = Rows[below(random, Rows.size())];
        done += " row \"" + row + "\"";
        index->insert(at == std::string::npos ? index->size() : at + 1, row);
    } else if (std::string* const rows = textOf(files, ".idx")) {
        // The first row goes to the end; or a head is emptied where it stands.
        const std::size_t end = rows->find('\0');
        if (end == std::string::npos || end + 9 > rows->size())
            return;
        done += " rows in another order";
        if (below(random, 2))
            std::rotate(rows->begin(), rows->begin() + std::ptrdiff_t(end + 9), rows->end());
        else
            rows->replace(0, end, end, '\0');
    }
}

// The head of a compressed text, where its chunks are told.
void damageChunks(DictionaryFiles& files, Random& random, std::string& done)
{
    for (const char* suffix : {".dict.dz", ".idx.gz"}) {
        std::string* const text = textOf(files, suffix);
        if (!text || text->size() < 64)
            continue;
        done += std::string(" head of ") + suffix;
        for (std::size_t i = 0; i <= below(random, 3); ++i)
            (*text)[below(random, 64)] = char(random());
    }
}

void describeBadly(DictionaryFiles& files, Random& random, std::string& done)
{
    static constexpr std::array Texts = {"languages=deu\n",
                                         "languages=eng-xyz\n",
                                         "languages=deu-eng\nname=\xff\xfe\x1b[2J\n",
                                         "=\n==\nname\n",
                                         "languages = fra-rus\r\n",
                                         "\xff\xfe"
                                         "l\0a\0n\0",
                                         "name=\n"};
    std::string text = Texts[below(random, Texts.size())];
    if (below(random, 4) == 0)
        text += std::string(100000, 'x');
    done += " .about";
    files[".about"] = {MutatedFile::Kind::Plain, text};
}

} // namespace

DicMutator::DicMutator(const std::string& folder)
{
    int number = 0;
    const auto place = [&] {
        const fs::path made = fs::path(folder) / std::to_string(number++);
        fs::create_directories(made);
        return made;
    };
    const auto takeFrom = [this](const fs::path& made) { m_whole.push_back(readFiles(made)); };
    for (const bool compressed : {false, true}) {
        const fs::path dict = place();
        dicfiles::writeDict((dict / "a").string(), entries(), compressed, "German - English");
        takeFrom(dict);
        for (const std::string type : {"m", "", "h", "tm"}) {
            dicfiles::StarDict content;
            content.entries = entries();
            content.compressed = compressed;
            content.type = type;
            content.offsetBits = type == "h" ? 64 : 32;
            if (type != "tm")
                content.synonyms = {{"home", 0}, {"streets", 4}, {"lost", 99}};
            const fs::path star = place();
            dicfiles::writeStarDict((star / "a").string(), content);
            takeFrom(star);
        }
    }
}

std::string DicMutator::damaged(const std::string& content, Random& random, std::string& done)
{
    std::string text = content;
    const std::size_t at = below(random, text.size());
    const std::size_t length = below(random, std::min<std::size_t>(text.size(), 200)) + 1;
    switch (text.empty() ? 1 : below(random, 7)) {
    case 0:
        text.resize(at);
        done += " cut off";
        break;
    case 1:
        text.insert(at, std::string(length, char(random())));
        done += " bytes put in";
        break;
    case 2:
        text.erase(at, length);
        done += " bytes taken out";
        break;
    case 3:
        text.insert(at, text.substr(below(random, text.size()), length));
        done += " bytes doubled";
        break;
    case 4:
        text.replace(at, std::min(length, text.size() - at), std::min(length, text.size() - at),
                     below(random, 2) ? '\xff' : '\0');
        done += " bytes wiped";
        break;
    default:
        for (std::size_t i = 0; i <= below(random, 8); ++i)
            text[below(random, text.size())] ^= char(1U << below(random, 8));
        done += " bits turned";
    }
    return text;
}

void DicMutator::mutate(DictionaryFiles& files, std::uint64_t seed, std::string& done)
{
    Random random(seed);
    for (std::size_t times = 1 + below(random, 3); times > 0 && !files.empty(); --times) {
        switch (below(random, 16)) {
        case 0:
            replace(files, random, done);
            break;
        case 1:
            remove(files, random, done);
            break;
        case 2:
            asElsewhere(files, random, done);
            break;
        case 3:
        case 4:
            misinform(files, random, done);
            break;
        case 5:
        case 6:
            misplace(files, random, done);
            break;
        case 7:
        case 8:
            damageChunks(files, random, done);
            break;
        case 9:
            describeBadly(files, random, done);
            break;
        default: {
            std::string& content = anyOf(files, random, done);
            content = damaged(content, random, done);
        }
        }
        done += ";";
    }
}
