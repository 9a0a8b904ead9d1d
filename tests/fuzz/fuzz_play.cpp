/* Any text, any settings, every voice, prepared as the application does and spoken: it is spoken to
 * its end, and what is reported are the words of the text, in order, none twice. */
#include "engines/speechtext.h"
#include "open/tts/piecer.h"
#include "open/tts/voices.h"
#include "platform/zembra_tts.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

struct Report
{
    int offset;
    int length;
};

std::vector<Report> s_reports;
int s_stopAt = 0; // the report on which to stop; 0 never

int receive(int offset, int length, int)
{
    s_reports.push_back({offset, length});
    if (static_cast<int>(s_reports.size()) == s_stopAt)
        ZEMBRA_TTS_Stop();
    return 0;
}

bool startEngine()
{
    ::setenv("SWIPELINE_WAV", "/dev/null", 1);
    ::setenv("SWIPELINE_WAV_SPEED", "10000", 1);
    ZEMBRA_TTS_SetHighlight_CallBack(receive);
    return ZEMBRA_TTS_Initialize(nullptr, 0, 80) == 0;
}

/* The fuzzer's bytes, one setting after the other. */
struct Input
{
    int voice;
    int speed;
    SpeechSettings settings;
    QString text;
};

Input read(const std::uint8_t* data, std::size_t size)
{
    constexpr std::array Voices = {1,   2,   101, 103, 104, 105, 106, 107, 108, 109, 110, 111,
                                   151, 152, 200, 201, 202, 203, 204, 205, 206, 211, 212};
    Input input;
    input.voice = Voices[data[0] % Voices.size()];
    input.speed = data[1];
    input.settings.language = input.voice;
    // Long silences cost time and show nothing.
    input.settings.punctuationPause = data[2] % 3;
    input.settings.wordPause = data[2] / 3 % 3;
    input.settings.adaptsPunctuation = data[3] % 2 == 0;
    s_stopAt = data[3] >= 192 ? data[3] % 16 : 0;
    const auto units = static_cast<qsizetype>((size - 4) / 2);
    input.text = QString(units, Qt::Uninitialized);
    std::copy_n(data + 4, units * 2, reinterpret_cast<std::uint8_t*>(input.text.data()));
    return input;
}

std::size_t wordsOf(const QString& text, int voice)
{
    std::size_t words = 0;
    const auto units = text.toStdU16String();
    for (tts::Piecer pieces(units, tts::findVoice(voice)->script); !pieces.atEnd();)
        words += pieces.next().words.size();
    return words;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool started = startEngine();
    REQUIRE(started);
    if (size < 4)
        return 0;
    const Input input = read(data, size);
    const SpeechText prepared = prepareSpeechText(input.text, input.settings);
    ZEMBRA_TTS_SetLang(input.voice);
    ZEMBRA_TTS_SetSpeed(input.speed);
    s_reports.clear();
    // Exactly the text's size: whoever reads on is seen.
    const std::vector<unsigned short> units(prepared.text.utf16(),
                                            prepared.text.utf16() + prepared.text.size());
    const int result = ZEMBRA_TTS_Play(units.data(), static_cast<int>(units.size() * 2), 0);

    const std::size_t words = wordsOf(prepared.text, input.voice);
    const bool stopped = s_stopAt > 0 && s_reports.size() >= static_cast<std::size_t>(s_stopAt);
    REQUIRE(result == (stopped ? 1 : 0));
    REQUIRE(stopped ? s_reports.size() <= words : s_reports.size() == words);
    int end = 0;
    for (const Report& report : s_reports) {
        REQUIRE(report.offset >= end);
        REQUIRE(report.length > 0);
        end = report.offset + report.length;
        REQUIRE(end <= static_cast<int>(units.size()));
        int offset = 0;
        int length = 0;
        // A word of the engine's is never made of inserted text alone.
        REQUIRE(prepared.sourceRange(report.offset, report.length, offset, length));
    }
    return 0;
}
