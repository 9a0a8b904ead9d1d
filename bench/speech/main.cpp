/*
 * The speech engine through its platform interface, on SDL's disk driver with blocks of 512.
 *
 * cmake --preset release && cmake --build --preset release --target speech_bench
 * build/release/bench/speech_bench [SUBJECT[=ROUNDS]...]
 *
 * Subjects: timing stops highlights words pauses strings restarts peers. Without any: all, in
 * about half an hour. Ends with 1 when a goal was missed.
 */
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Subject
{
    const char* name;
    void (*measure)(int rounds);
};

constexpr Subject Subjects[] = {
    {"timing", measureTiming},     {"stops", measureStops},   {"highlights", measureHighlights},
    {"words", measureWords},       {"pauses", measurePauses}, {"strings", measureStrings},
    {"restarts", measureRestarts}, {"peers", measurePeers},
};

std::string load()
{
    std::ifstream file("/proc/loadavg");
    std::string oneMinute;
    file >> oneMinute;
    return oneMinute;
}

/* In a process of its own: a crash is a missed goal, and no subject sees another's threads. */
bool measure(const Subject& subject, int rounds)
{
    std::printf("\n== %s (load %s)\n", subject.name, load().c_str());
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
        subject.measure(rounds);
        std::fflush(stdout);
        ::_exit(goals::missed() > 0 ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFEXITED(status))
        std::printf("  MISSED the process was killed by signal %d\n", WTERMSIG(status));
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> wanted(argv + 1, argv + argc);
    if (wanted.empty())
        for (const Subject& subject : Subjects)
            wanted.emplace_back(subject.name);
    bool reached = true;
    for (const std::string& word : wanted) {
        const std::string name = word.substr(0, word.find('='));
        const int rounds =
            name.size() < word.size() ? std::atoi(word.c_str() + name.size() + 1) : 0;
        const auto* subject = std::find_if(std::begin(Subjects), std::end(Subjects),
                                           [&name](const Subject& s) { return name == s.name; });
        if (subject == std::end(Subjects)) {
            std::fprintf(stderr, "no subject %s\n", name.c_str());
            return 2;
        }
        reached = measure(*subject, rounds) && reached;
    }
    std::printf("\n%s (load %s)\n", reached ? "all reached" : "some MISSED", load().c_str());
    return reached ? 0 : 1;
}
