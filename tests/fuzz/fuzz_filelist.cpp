/* Any bytes as the list of files: what is read can be written and read again. */
#include "store/filelist.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const filelist::List list = filelist::parse(bytes);
    const QByteArray written = filelist::format(list.current, list.files);
    const filelist::List again = filelist::parse(written);
    REQUIRE(again.wellFormed);
    REQUIRE(again.current == list.current);
    REQUIRE(again.files.size() == list.files.size());
    REQUIRE(filelist::format(again.current, again.files) == written);
    return 0;
}
