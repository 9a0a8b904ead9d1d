#include "open/dic/about.h"

#include "open/dic/plainfile.h"
#include "open/dic/textlines.h"

#include <string_view>

namespace dic {

namespace {

constexpr std::size_t LargestAbout = 64 * 1024;

void addLine(std::string& text, std::string_view line)
{
    if (line.empty())
        return;
    if (!text.empty())
        text += '\n';
    text += line;
}

} // namespace

About readAbout(const std::string& path)
{
    About about;
    std::string content;
    if (!PlainFile::open(path).readAll(LargestAbout, content))
        return about;
    TextLines lines(content);
    std::string_view line;
    while (lines.next(line)) {
        std::string_view key;
        std::string_view value;
        if (!splitAt('=', line, key, value))
            continue;
        if (key == "languages")
            about.languages = pairOfTag(value);
        else if (key == "name")
            about.name = value;
        else if (key == "source")
            addLine(about.source, value);
        else if (key == "licence" || key == "license")
            addLine(about.licence, value);
    }
    return about;
}

} // namespace dic
