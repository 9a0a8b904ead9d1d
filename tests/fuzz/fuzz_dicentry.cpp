/* Any bytes as an entry, a word and a line: caps hold, and text is text. */
#include "open/dic/compounds.h"
#include "open/dic/entrytext.h"
#include "open/dic/fieldtext.h"
#include "open/dic/folding.h"
#include "open/dic/utf.h"
#include "open/dic/wordcutter.h"
#include "tests/fuzz/require.h"

#include <array>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static constexpr std::array Types = {"m", "", "h", "tm", "Wxm", "n"};
    static constexpr std::array Languages = {1, 101, 103, 104, 151};
    if (size == 0)
        return 0;
    const std::string raw(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::string plain = dic::plainText(raw, Types[data[0] % Types.size()]);
    const std::string head = raw.substr(0, raw.find('\n'));
    const std::u16string text = dic::cleanEntry(plain, head, data[0] % 2 == 0).text();
    REQUIRE(text.size() <= 8192);

    const std::string key = dic::foldedKey(head);
    REQUIRE(dic::toUtf8(dic::toUtf16(key)) == key);
    dic::accentFreeKey(key);
    const auto has = [](const std::string& part) { return part.size() % 3 == 0; };
    for (const std::string& part : dic::partsOfCompound(key, 104, {has}))
        REQUIRE(has(part));

    const std::u16string line = dic::toUtf16(raw);
    dic::WordCutter cutter(line, Languages[data[0] % Languages.size()]);
    dic::WordPlace place;
    std::size_t end = 0;
    while (cutter.next(place)) {
        REQUIRE(place.start >= end && place.end > place.start && place.end <= line.size());
        end = place.end;
    }
    return 0;
}
