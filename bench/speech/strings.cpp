/* Random texts with every voice: none may end the process or last for ever, and what is said after
 * them must be heard whole. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include "open/tts/piecer.h"
#include "open/tts/voices.h"
#include "platform/zembra_tts.h"

#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Codes[] = {1,   2,   101, 103, 104, 105, 106, 107, 108, 109, 110, 111,
                         151, 152, 200, 201, 202, 203, 204, 205, 206, 211, 212};

class Generator
{
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    /* A few runs of units of one kind each, and what looks like mark-up or acts as it. */
    std::u16string text()
    {
        std::u16string result;
        for (int runs = below(6); runs >= 0; --runs)
            addRun(result);
        return result;
    }

private:
    void addRun(std::u16string& text)
    {
        struct Range
        {
            int first;
            int last;
        };
        constexpr Range Ranges[] = {
            {'a', 'z'},       {'A', 'Z'},       {'0', '9'},       {' ', '/'},
            {0xc0, 0x17f},    {0x400, 0x4ff},   {0x600, 0x6ff},   {0x4e00, 0x9fff},
            {0x2000, 0x206f}, {0x3000, 0x30ff}, {0xff00, 0xffff}, {0x2600, 0x28ff},
            {0, 0x1f},        {0xd800, 0xdfff}, {0x300, 0x36f},   {0, 0xffff},
            {0x1e00, 0x1fff}, {0x900, 0xdff},   {0xac00, 0xd7a3}, {0x2100, 0x23ff},
        };
        constexpr const char16_t* Strings[] = {
            u"<vtml_pause time=\"20\"/>",
            u"<vtml_pause time=\"",
            u"<vtml_pause time=\"99999\"/>",
            u"<vtml_pause",
            u"[[_^_en]]",
            u"\U0001f600\U0001f468\u200d",
            u"<speak>",
            u"&#x1;",
            u"\U0001f1e9\U0001f1ea",
            u"1.000.000,00",
            u"...",
            u"\u2029",
            u"http://a.b/?c=%20",
            u"3.14",
            u"don't",
        };
        if (below(4) == 0) {
            text += Strings[below(std::size(Strings))];
            return;
        }
        const Range range = Ranges[below(std::size(Ranges))];
        for (int units = 1 + below(below(20) == 0 ? 120 : 12); units > 0; --units) {
            text += static_cast<char16_t>(range.first + below(range.last - range.first + 1));
            if (below(6) == 0)
                text += u' ';
        }
    }

    std::mt19937 m_random;
};

/* A word of the voice's own and a silence before it that none of its own is as long as. */
std::u16string ending(int code)
{
    constexpr int Silence = 900;
    const bool chinese = tts::findVoice(code)->script == tts::Script::Chinese;
    const char16_t* word = chinese       ? u"你好"
                           : code == 151 ? u"деревня"
                           : code == 152 ? u"مرحبا"
                                         : u"radio";
    return pauseOf(Silence) + u" " + word;
}

/* How long the last sound is that has the silence before it. */
double lastSoundMs(const Tape& tape)
{
    const auto sounds = tape.sounds(850);
    return sounds.empty() ? 0 : msOf(sounds.back().length());
}

double speakAndMeasure(Tape& tape, const std::u16string& text, int& result)
{
    tape.clear();
    result = engine::play(text);
    tape.wait(34000); // more than a FIFO holds: what was on its way has come
    return lastSoundMs(tape);
}

void printText(const std::u16string& text, int code, const char* what)
{
    std::printf("%s, voice %d:", what, code);
    for (const char16_t unit : text)
        std::printf(" %04x", static_cast<unsigned>(unit));
    std::printf("\n");
}

/* Speaks so many texts; how many went wrong. */
int speakTexts(unsigned seed, int count)
{
    Disk disk(Disk::Pace::Fast);
    if (!engine::start())
        return count;
    ZEMBRA_TTS_SetSpeed(96);
    Generator generator(seed);
    std::map<int, double> alone; // how long the word at the end is with each voice
    int wrong = 0;
    for (int round = 0; round < count; ++round) {
        const int code = Codes[round % std::size(Codes)];
        ZEMBRA_TTS_SetLang(code);
        int result = 0;
        if (!alone.contains(code))
            alone[code] = speakAndMeasure(disk.tape(), ending(code), result);
        const std::u16string text = generator.text() + ending(code);
        std::size_t words = 0;
        for (tts::Piecer pieces(text, tts::findVoice(code)->script); !pieces.atEnd();)
            words += pieces.next().words.size();
        ::alarm(60); // one that hangs ends the process
        const double last = speakAndMeasure(disk.tape(), text, result);
        ::alarm(0);
        const auto reports = engine::reports();
        const char* fault = result != 0                                     ? "failed"
                            : !engine::areLawful(reports, text)             ? "reports out of order"
                            : reports.size() != words                       ? "reports lost"
                            : last < 0.7 * alone[code] || alone[code] < 100 ? "sound lost"
                                                                            : nullptr;
        if (fault) {
            printText(text, code, fault);
            std::printf("  last word %.0f ms, alone %.0f\n", last, alone[code]);
            ++wrong;
        }
    }
    engine::close();
    return wrong;
}

} // namespace

void measureStrings(int rounds)
{
    constexpr int Processes = 4;
    const int count = rounds > 0 ? rounds : 10000;
    const Clock::time_point begin = Clock::now();
    std::vector<pid_t> children;
    for (unsigned i = 0; i < Processes; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            const int wrong = speakTexts(4711 + i, (count + Processes - 1) / Processes);
            std::fflush(stdout);
            ::_exit(wrong > 0 ? 1 : 0);
        }
        children.push_back(child);
    }
    bool alive = true;
    bool right = true;
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        alive = alive && WIFEXITED(status);
        right = right && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    std::printf("%d texts in %.0f s\n", count, msBetween(begin, Clock::now()) / 1000);
    goals::check("no crash, no hang", alive);
    goals::check("nothing failed or was lost", right);
}
