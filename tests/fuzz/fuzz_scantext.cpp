/* Any bytes as a scan file: what is read, saved and read again is the same text. */
#include "store/scantext.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text = scantext::decode(bytes);
    const QByteArray saved = scantext::encode(scantext::withCarriageReturns(text));
    REQUIRE(saved.size() == scantext::savedSize(text) + 2);
    REQUIRE(scantext::decode(saved) == text);
    REQUIRE(scantext::briefOfNew(text).size() <= 6);
    REQUIRE(scantext::briefOfSaved(text).size() <= 6);
    return 0;
}
