/* How much longer a text becomes by a pause. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include "platform/zembra_tts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

/* From the first sound to the last, in ms: the middle of several, as the voice's own periods make
 * no two readings alike. */
double lengthOf(Tape& tape, const std::u16string& text, int rounds)
{
    Figures lengths;
    for (int round = 0; round < rounds; ++round) {
        tape.clear();
        engine::play(text);
        tape.wait(4096);
        const auto sounds = tape.sounds(60000);
        lengths.add(sounds.empty() ? 0 : msOf(sounds.front().length()));
    }
    return lengths.at(0.5);
}

struct Kind
{
    const char* name;
    int code;
    std::u16string before;
    std::u16string after;
};

const std::vector<Kind>& kinds()
{
    static const std::vector<Kind> all = {
        {"English, word", 101, u"Hello", u" world."},
        {"English, comma", 101, u"Hello,", u" world."},
        {"English, full stop", 101, u"Hello.", u" World."},
        {"English, question", 101, u"Hello?", u" World."},
        {"German, comma", 104, u"Hallo,", u" Welt."},
        {"Russian, word", 151, u"Луна", u" зима."},
        {"Arabic, comma", 152, u"نور،", u" ليل."},
        {"Chinese, comma", 1, u"你好，", u"世界。"},
    };
    return all;
}

} // namespace

void measurePauses(int rounds)
{
    Disk disk(Disk::Pace::Fast);
    if (!engine::start())
        return goals::check("the engine starts", false);
    const int count = rounds > 0 ? rounds : 15;
    Figures::printTitle("deviation of a pause (ms)");
    Figures all;
    for (const Kind& kind : kinds()) {
        ZEMBRA_TTS_SetLang(kind.code);
        const double without = lengthOf(disk.tape(), kind.before + pauseOf(0) + kind.after, count);
        Figures figures;
        for (const int pause : {200, 400, 1000, 2400, 6000}) {
            const std::u16string text = kind.before + pauseOf(pause) + kind.after;
            const double deviation = lengthOf(disk.tape(), text, count) - without - pause;
            figures.add(deviation);
            all.add(std::abs(deviation));
        }
        figures.print(kind.name);
    }
    goals::atMost("deviation of a pause, largest", all.largest(), 2);
    engine::close();
}
