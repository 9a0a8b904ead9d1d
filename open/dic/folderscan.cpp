#include "open/dic/folderscan.h"

#include "open/dic/log.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace dic {

namespace {

constexpr std::size_t MostNames = 20000; // of one folder

struct Name
{
    std::string name;
    bool isFolder = false;
    std::pair<dev_t, ino_t> identity;
};

struct CloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

// Plain files and folders, sorted.
std::vector<Name> namesIn(const std::string& path)
{
    std::vector<Name> names;
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(path.c_str()));
    while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
        struct stat info = {};
        if (entry->d_name[0] == '.' || names.size() == MostNames
            || fstatat(dirfd(folder.get()), entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        if (S_ISREG(info.st_mode) || S_ISDIR(info.st_mode))
            names.push_back({entry->d_name, S_ISDIR(info.st_mode), {info.st_dev, info.st_ino}});
    }
    std::sort(names.begin(), names.end(),
              [](const Name& a, const Name& b) { return a.name < b.name; });
    return names;
}

// Names are kept in a file, one a line.
bool isOrderly(std::string_view stem)
{
    return isPlainUtf8(stem) && trimmed(stem) == stem
           && stem.find_first_of("\t\r\n") == std::string_view::npos;
}

class Scan
{
public:
    void scan(const std::string& folder, const std::string& place, bool below)
    {
        const std::vector<Name> names = namesIn(folder);
        for (const Name& name : names) {
            if (!name.isFolder)
                take(folder, place, name);
        }
        for (const Name& name : names) {
            if (name.isFolder && !below)
                scan(folder + name.name + "/", place + name.name + "/", true);
        }
    }

    std::vector<Source> found;

private:
    void take(const std::string& folder, const std::string& place, const Name& name)
    {
        const std::string_view text = name.name;
        const bool isDict = text.ends_with(".index");
        if (!isDict && !text.ends_with(".ifo"))
            return;
        if (!m_seen.insert(name.identity).second)
            return;
        Source source;
        const std::string_view stem = text.substr(0, text.rfind('.'));
        if (!isOrderly(stem)) {
            note(folder + name.name, "has a name that cannot be kept");
            return;
        }
        source.format = isDict ? Source::Format::Dict : Source::Format::StarDict;
        source.stem = folder + std::string(stem);
        source.place = place + std::string(stem);
        std::string why;
        if (learnPair(source, why))
            found.push_back(std::move(source));
        else
            note(mainFile(source), why);
    }

    std::set<std::pair<dev_t, ino_t>> m_seen;
};

} // namespace

std::vector<Source> scanFolders(const std::vector<std::string>& folders)
{
    Scan scan;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        std::string folder = folders[i];
        if (!folder.ends_with('/'))
            folder += '/';
        scan.scan(folder, std::to_string(i) + "/", false);
    }
    return std::move(scan.found);
}

} // namespace dic
