#include "open/dic/source.h"

#include "open/dic/about.h"
#include "open/dic/dictindex.h"
#include "open/dic/log.h"
#include "open/dic/stardictindex.h"
#include "open/dic/stardictinfo.h"

#include <algorithm>
#include <array>

namespace dic {

namespace {

constexpr std::uint32_t LargestTitle = 4096;

std::string bodyPath(const Source& source)
{
    const std::string plain = source.stem + ".dict";
    return PlainFile::open(plain).isOpen() ? plain : plain + ".dz";
}

std::string titleOfDict(const Source& source)
{
    const DictFacts::Place place = readDictFacts(PlainFile::open(mainFile(source))).title;
    std::string why;
    std::string title;
    const auto body = place.size > 0 ? openBodyOf(source, why) : nullptr;
    if (!body || !body->read(place.offset, std::min(place.size, LargestTitle), title))
        return {};
    return title;
}

bool readStarDict(const Source& source, StarDictInfo& info, const RowSink& sink,
                  IndexReport& report, std::string& why)
{
    if (!readStarDictInfo(PlainFile::open(mainFile(source)), info, why))
        return false;
    StarDictFiles files;
    files.index = PlainFile::open(source.stem + ".idx");
    files.indexCompressed = !files.index.isOpen();
    if (files.indexCompressed)
        files.index = PlainFile::open(source.stem + ".idx.gz");
    files.synonyms = PlainFile::open(source.stem + ".syn");
    return readStarDictIndex(files, info, sink, report, why);
}

} // namespace

std::string mainFile(const Source& source)
{
    return source.stem + (source.format == Source::Format::Dict ? ".index" : ".ifo");
}

bool learnPair(Source& source, std::string& why)
{
    source.pair = readAbout(source.stem + ".about").languages;
    if (source.pair.isKnown())
        return true;
    const std::size_t slash = source.stem.rfind('/');
    source.pair = pairOfFileName(std::string_view(source.stem).substr(slash + 1));
    if (source.pair.isKnown())
        return true;
    if (source.format == Source::Format::StarDict) {
        StarDictInfo info;
        if (!readStarDictInfo(PlainFile::open(mainFile(source)), info, why))
            return false;
        source.pair = pairOfTag(info.languages);
        if (!source.pair.isKnown())
            source.pair = pairOfTitle(info.title);
    } else {
        source.pair = pairOfTitle(titleOfDict(source));
    }
    why = "its languages cannot be told; a file .about beside it can tell them";
    return source.pair.isKnown();
}

std::string fingerprintOf(const Source& source)
{
    static constexpr std::array Suffixes = {".index", ".ifo",  ".idx",    ".idx.gz",
                                            ".syn",   ".dict", ".dict.dz"};
    std::string text = source.place;
    for (const char* suffix : Suffixes) {
        const PlainFile file = PlainFile::open(source.stem + suffix);
        if (!file.isOpen())
            continue;
        text += '\n';
        text += suffix;
        text += ' ' + std::to_string(file.size()) + ' ' + std::to_string(file.stamp().modified);
    }
    return text;
}

bool readRows(const Source& source, SidecarBuilder& builder, const std::atomic<bool>& stop,
              std::string& why)
{
    const std::unique_ptr<Body> body = openBodyOf(source, why);
    if (!body)
        return false;
    if (!body->verify(stop)) {
        why = stop ? "was given up" : "its texts are damaged";
        return false;
    }
    std::size_t outside = 0;
    const RowSink sink = [&](const Row& row) {
        if (row.offset > body->size() || row.size > body->size() - row.offset)
            ++outside;
        else
            builder.add(row);
    };
    IndexReport report;
    if (source.format == Source::Format::Dict) {
        DictFacts facts;
        if (!readDictIndex(PlainFile::open(mainFile(source)), sink, facts, report)) {
            why = "its index cannot be read";
            return false;
        }
    } else {
        StarDictInfo info;
        if (!readStarDict(source, info, sink, report, why))
            return false;
    }
    if (builder.rows() == 0)
        why = "has no words that can be read";
    else if (report.damaged + outside > 0)
        note(source.stem, std::to_string(report.damaged + outside) + " damaged rows left out");
    return builder.rows() > 0;
}

std::unique_ptr<Body> openBodyOf(const Source& source, std::string& why)
{
    return openBody(bodyPath(source), why);
}

std::string fieldTypesOf(const Source& source)
{
    if (source.format == Source::Format::Dict)
        return "m";
    StarDictInfo info;
    std::string why;
    return readStarDictInfo(PlainFile::open(mainFile(source)), info, why) ? info.types : "";
}

} // namespace dic
