#include "open/dic/penfolders.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace dic {

namespace {

std::string dataFolder()
{
    const char* const value = std::getenv("SWIPELINE_ROOT");
    std::string root = value ? value : "";
    while (root.ends_with('/'))
        root.pop_back();
    return root + "/apps/data/";
}

} // namespace

std::string indexFolder()
{
    const std::string data = dataFolder();
    const std::string folder = data + "dictindex/";
    if (access(data.c_str(), F_OK) != 0)
        return {};
    mkdir(folder.c_str(), 0755);
    return access(folder.c_str(), W_OK | X_OK) == 0 ? folder : std::string();
}

std::string wordFormFolder()
{
    return dataFolder() + "wordforms/";
}

} // namespace dic
