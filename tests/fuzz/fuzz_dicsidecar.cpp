/* Damaged sidecars, with the sums of head and directory repaired so that damage gets past them. */
#include "open/dic/sidecar.h"
#include "open/dic/sidecarbuilder.h"
#include "open/dic/sidecarformat.h"
#include "tests/fuzz/memoryfile.h"
#include "tests/fuzz/require.h"

using namespace dic::sidecarformat;

namespace {

const std::atomic<bool> DontStop = false;

std::string makeSidecar()
{
    dic::SidecarBuilder builder;
    for (int i = 0; i < 300; ++i)
        builder.add({"Word " + std::to_string(i), i % 2 ? "" : "Title", std::uint64_t(i), 7});
    const int file = memfd_create("sidecar", MFD_CLOEXEC);
    REQUIRE(file >= 0 && builder.write(file, "", DontStop));
    std::string content;
    REQUIRE(dic::PlainFile(file).readAll(1 << 20, content));
    return content;
}

std::string repaired(std::string file)
{
    if (file.size() < HeadLength)
        return file;
    const std::uint64_t offset = numberAt(file, 20, 8);
    std::string sums;
    if (offset <= file.size())
        appendNumber(sums, sumOf(std::string_view(file).substr(offset)), 4);
    file.replace(36, sums.size(), sums);
    sums.clear();
    appendNumber(sums, sumOf(std::string_view(file).substr(0, 44)), 4);
    return file.replace(44, 4, sums);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string whole = makeSidecar();
    const auto sidecar = dic::Sidecar::open(memoryFile(repaired(changed(whole, data, size))), "");
    if (!sidecar)
        return 0;
    for (const char* key : {"", "word 0", "word 150", "word 299", "zzz"})
        REQUIRE(sidecar->find(key).size() <= dic::Sidecar::MostRows);
    return 0;
}
