// Random walks through the whole application over scripted engines: nothing may crash, stick, leak
// or lose a scan.

#include "tests/flows/scenarios/wanderer.h"

#include <QDir>
#include <QElapsedTimer>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr unsigned FirstSeed = 1;
constexpr int Walks = 500;
constexpr int Steps = 200;
constexpr int WarmUps = 3; // what a process keeps for good is there by then

struct Options
{
    unsigned firstSeed = FirstSeed;
    int walks = Walks;
    int steps = Steps;
    bool tell = false;
};

qsizetype countIn(const char* folder)
{
    return QDir(QString::fromLatin1(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

qsizetype descriptors()
{
    return countIn("/proc/self/fd");
}

qsizetype threads()
{
    return countIn("/proc/self/task");
}

bool walk(unsigned seed, const Options& options)
{
    Wanderer wanderer(seed, options.steps);
    const bool good = wanderer.walk();
    if (!good || options.tell)
        std::fprintf(stderr, "%s\n", qPrintable(wanderer.story()));
    if (!good)
        std::fprintf(stderr, "FAILED with seed %u: %s\nagain: soak --seed %u\n", seed,
                     qPrintable(wanderer.failure()), seed);
    return good;
}

// Workers of the engines end a moment after they were told.
bool settled(qsizetype (*count)(), qsizetype most)
{
    QElapsedTimer waiting;
    waiting.start();
    while (count() > most) {
        if (waiting.elapsed() > 10'000)
            return false;
        std::this_thread::yield();
    }
    return true;
}

bool soak(const Options& options)
{
    qsizetype fds = 0;
    qsizetype tasks = 0;
    for (int i = 0; i < options.walks; ++i) {
        const unsigned seed = options.firstSeed + static_cast<unsigned>(i);
        if (!walk(seed, options))
            return false;
        if (i < WarmUps) {
            fds = descriptors();
            tasks = threads();
        } else if (!settled(descriptors, fds) || !settled(threads, tasks)) {
            std::fprintf(stderr,
                         "FAILED with seed %u: %lld descriptors of %lld, %lld threads of %lld\n",
                         seed, static_cast<long long>(descriptors()), static_cast<long long>(fds),
                         static_cast<long long>(threads()), static_cast<long long>(tasks));
            return false;
        }
    }
    return true;
}

bool read(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view name(argv[i]);
        if (name == "--tell") {
            options.tell = true;
            continue;
        }
        if (++i == argc)
            return false;
        const int number = std::atoi(argv[i]);
        if (name == "--seed") {
            options.firstSeed = static_cast<unsigned>(number);
            options.walks = 1;
        } else if (name == "--walks") {
            options.walks = number;
        } else if (name == "--steps") {
            options.steps = number;
        } else {
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!read(argc, argv, options)) {
        std::fprintf(stderr, "usage: soak [--seed N] [--walks N] [--steps N] [--tell]\n");
        return 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QElapsedTimer time;
    time.start();
    std::fprintf(stderr, "%d walks of %d steps, seeds from %u\n", options.walks, options.steps,
                 options.firstSeed);
    const bool good = soak(options);
    std::fprintf(stderr, "%s after %lld ms\n", good ? "well" : "FAILED",
                 static_cast<long long>(time.elapsed()));
    return good ? 0 : 1;
}
