/* Closing and starting the engine again and again. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace {

int entriesOf(const char* folder)
{
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<int>(std::distance(begin(entries), end(entries)));
}

double residentMegabytes()
{
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    return static_cast<double>(resident * ::sysconf(_SC_PAGESIZE)) / 1048576;
}

} // namespace

void measureRestarts(int rounds)
{
    Disk disk(Disk::Pace::Speech);
    if (!engine::start())
        return goals::check("the engine starts", false);
    const int count = rounds > 0 ? rounds : 100;
    engine::play(u"One.");
    const int threads = entriesOf("/proc/self/task");
    const int files = entriesOf("/proc/self/fd");
    const double memory = residentMegabytes();
    int mostThreads = threads;
    int mostFiles = files;
    int silent = 0;
    Figures times;
    for (int round = 0; round < count; ++round) {
        const Clock::time_point begin = Clock::now();
        engine::close();
        if (!engine::start())
            return goals::check("the engine starts again", false);
        times.add(msBetween(begin, Clock::now()));
        disk.tape().clear();
        const int result = engine::play(u"One.");
        silent += result != 0 || engine::reports().size() != 1 || disk.tape().sounds(500).empty();
        mostThreads = std::max(mostThreads, entriesOf("/proc/self/task"));
        mostFiles = std::max(mostFiles, entriesOf("/proc/self/fd"));
    }
    Figures::printTitle("(ms)");
    times.print("closing and starting");
    std::printf("threads %d, at most %d; files %d, at most %d; memory %.1f MB, then %.1f\n",
                threads, mostThreads, files, mostFiles, memory, residentMegabytes());
    goals::check("threads stay as many", mostThreads == threads);
    goals::check("files stay as many", mostFiles == files);
    goals::check("it speaks each time", silent == 0);
    engine::close();
}
