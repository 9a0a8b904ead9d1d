/* Any bytes as an index: the rows that come out of it can be kept and found again. */
#include "open/dic/dictindex.h"
#include "open/dic/folding.h"
#include "open/dic/sidecar.h"
#include "open/dic/sidecarbuilder.h"
#include "open/dic/stardictindex.h"
#include "open/dic/utf.h"
#include "tests/fuzz/memoryfile.h"
#include "tests/fuzz/require.h"

#include <vector>

namespace {

const std::atomic<bool> DontStop = false;

struct Kept
{
    std::string head;
    std::uint64_t offset;
};

void findAll(dic::SidecarBuilder& builder, const std::vector<Kept>& rows)
{
    const int file = memfd_create("sidecar", MFD_CLOEXEC);
    REQUIRE(file >= 0 && builder.write(file, "fuzz", DontStop));
    const auto sidecar = dic::Sidecar::open(dic::PlainFile(file), "fuzz");
    REQUIRE(sidecar);
    for (const Kept& row : rows) {
        const auto found = sidecar->find(dic::foldedKey(row.head));
        bool known = found.size() == dic::Sidecar::MostRows || dic::foldedKey(row.head).empty();
        for (const dic::FoundRow& other : found)
            known = known || (other.head == row.head && other.offset == row.offset);
        REQUIRE(known && !sidecar->failed());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string content(reinterpret_cast<const char*>(data + 1), size - 1);
    dic::SidecarBuilder builder;
    std::vector<Kept> rows;
    const auto keep = [&](const dic::Row& row) {
        REQUIRE(!row.head.empty() && row.head.size() <= dic::LongestHead);
        REQUIRE(dic::isPlainUtf8(row.head));
        builder.add(row);
        rows.push_back({std::string(row.head), row.offset});
    };
    dic::IndexReport report;
    std::string why;
    if (data[0] % 3 == 0) {
        dic::DictFacts facts;
        dic::readDictIndex(memoryFile(content), keep, facts, report);
    } else if (data[0] % 3 == 1) {
        dic::StarDictInfo info;
        dic::readStarDictInfo(memoryFile("StarDict's dict ifo file\n" + content), info, why);
    } else {
        const std::size_t half = content.size() / 2;
        dic::StarDictFiles files;
        dic::StarDictInfo info;
        files.index = memoryFile(content.substr(0, half));
        files.synonyms = memoryFile(content.substr(half));
        info.indexBytes = half;
        info.offsetBytes = data[0] % 2 == 0 ? 4 : 8;
        dic::readStarDictIndex(files, info, keep, report, why);
    }
    REQUIRE(report.rows == rows.size());
    findAll(builder, rows);
    return 0;
}
