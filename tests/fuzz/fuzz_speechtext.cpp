/* Any text, any settings: what is prepared holds the whole source in order, and nothing else but
 * what was inserted. */
#include "engines/speechtext.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 3)
        return 0;
    SpeechSettings settings;
    settings.language = data[0] % 2 == 0 ? 101 : 1;
    settings.punctuationPause = data[1] % 31;
    settings.wordPause = data[2] % 31;
    settings.adaptsPunctuation = data[0] < 128;
    const auto units = static_cast<qsizetype>((size - 3) / 2);
    QString source(units, Qt::Uninitialized);
    std::copy_n(data + 3, units * 2, reinterpret_cast<std::uint8_t*>(source.data()));

    const SpeechText prepared = prepareSpeechText(source, settings);
    REQUIRE(prepared.origin.size() == prepared.text.size());
    int next = 0;
    for (const int origin : prepared.origin) {
        if (origin >= 0)
            REQUIRE(origin == next++);
    }
    REQUIRE(next == source.size());
    return 0;
}
