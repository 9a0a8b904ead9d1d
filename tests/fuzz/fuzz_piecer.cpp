/* Any text for the voice: words lie inside the text, in order, none twice, and inside what is said.
 */
#include "open/tts/piecer.h"
#include "open/tts/respelling.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const tts::Script script = data[0] % 2 == 0 ? tts::Script::Latin : tts::Script::Chinese;
    std::u16string text((size - 1) / 2, u'\0');
    std::copy_n(data + 1, text.size() * 2, reinterpret_cast<std::uint8_t*>(text.data()));

    std::size_t end = 0;
    for (tts::Piecer pieces(text, script); !pieces.atEnd();) {
        tts::Piece piece = pieces.next();
        respell(piece, tts::defaultVoice().file(piece.script));
        std::size_t saidEnd = 0;
        for (const auto& word : piece.words) {
            REQUIRE(word.length > 0);
            REQUIRE(static_cast<std::size_t>(word.offset) >= end);
            end = static_cast<std::size_t>(word.offset) + static_cast<std::size_t>(word.length);
            REQUIRE(end <= text.size());
            REQUIRE(word.begin >= saidEnd && word.end > word.begin);
            saidEnd = word.end;
            REQUIRE(saidEnd <= piece.text.size());
        }
    }
    return 0;
}
