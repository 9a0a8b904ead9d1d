#include "open/dic/stardictinfo.h"

#include "open/dic/textlines.h"

#include <charconv>
#include <string_view>

namespace dic {

namespace {

constexpr std::string_view FirstLine = "StarDict's dict ifo file";
constexpr std::size_t LargestInfo = 1U << 20;

bool readNumber(std::string_view text, std::uint64_t& number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

// False for a value that cannot be.
bool apply(std::string_view key, std::string_view value, StarDictInfo& info)
{
    if (key == "wordcount")
        return readNumber(value, info.words);
    if (key == "synwordcount")
        return readNumber(value, info.synonyms);
    if (key == "idxfilesize")
        return readNumber(value, info.indexBytes);
    if (key == "idxoffsetbits") {
        info.offsetBytes = value == "64" ? 8 : 4;
        return value == "32" || value == "64";
    }
    if (key == "bookname")
        info.title = value;
    else if (key == "lang")
        info.languages = value;
    else if (key == "sametypesequence")
        info.types = value;
    else if (key == "author")
        info.author = value;
    else if (key == "website")
        info.website = value;
    else if (key == "description")
        info.description = value;
    return true;
}

} // namespace

bool readStarDictInfo(const PlainFile& file, StarDictInfo& info, std::string& why)
{
    std::string content;
    if (!file.readAll(LargestInfo, content)) {
        why = "cannot be read";
        return false;
    }
    TextLines lines(content);
    std::string_view line;
    if (!lines.next(line) || line != FirstLine) {
        why = "is no StarDict information";
        return false;
    }
    while (lines.next(line)) {
        std::string_view key;
        std::string_view value;
        if (splitAt('=', line, key, value) && !apply(key, value, info)) {
            why = "has an impossible " + std::string(key);
            return false;
        }
    }
    if (info.indexBytes == 0 || info.words == 0) {
        why = "names no words";
        return false;
    }
    return true;
}

} // namespace dic
