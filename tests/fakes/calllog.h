#ifndef CALLLOG_H
#define CALLLOG_H

#include <chrono>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

/* How long a test waits for what must come, before it fails. */
constexpr std::chrono::milliseconds FakePatience{10000};

/*
 * Every call that reaches a scripted engine, in the order in which they come, as text with its
 * arguments: "ZEMBRA_TTS_SetLang(101)". Paths are given as on the pen, without the run root.
 * Any thread.
 */
class CallLog
{
public:
    struct Call
    {
        std::string text;
        std::thread::id thread;
    };

    static void add(std::string text);
    static void clear();

    /* The calls so far whose text begins with `prefix`. */
    static std::vector<Call> calls(std::string_view prefix = {});
    static std::vector<std::string> texts(std::string_view prefix = {});
    static int count(std::string_view prefix);

    /* Waits until that many calls beginning with `prefix` have come. */
    static bool waitFor(std::string_view prefix, int number = 1);
};

namespace fakes {

/* The pen's name of a path on this machine: without SWIPELINE_ROOT. */
std::string penPath(const char* path);

/* UTF-16 as UTF-8, for logs; a lone surrogate becomes "?". */
std::string utf8(std::u16string_view text);

/* Brings every scripted engine back to the state of a fresh process, and clears the log. Speech
 * in progress ends, panoramas not delivered are dropped. */
void reset();

} // namespace fakes

#endif
