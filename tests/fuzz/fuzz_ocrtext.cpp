/* Whatever the recogniser may say becomes one clean line. */
#include "open/ocr/plausibility.h"
#include "open/ocr/resultcleaning.h"
#include "tests/fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const bool chinese = data[0] % 2 == 1;
    const auto read = ocr::decodeUtf8({reinterpret_cast<const char*>(data + 2), size - 2});
    const std::u32string text = ocr::cleanResult(read, chinese);
    REQUIRE(chinese || ocr::cleanResult(text, chinese) == text);
    for (const char32_t c : text)
        REQUIRE(c >= U' ' && c != 0xad && c != 0xfeff && c <= 0x10ffff);
    REQUIRE(text.empty() || (text.front() != U' ' && text.back() != U' '));
    const std::u16string units = ocr::encodeUtf16(text);
    REQUIRE(units.size() >= text.size());
    REQUIRE(!ocr::isPlausible(text, data[1] % 45));
    REQUIRE(ocr::isPlausible(text, 75 + data[1] % 26) == !text.empty());
    return 0;
}
