/*
 * Play to the first sample, Stop to silence, highlight against sound.
 *
 * cmake --preset release && cmake --build --preset release --target speech_latency
 * build/release/bench/speech_latency [ROUNDS]
 *
 * The engine speaks into an output that takes blocks of 512 samples at the pace of a sound card
 * and notes when each block was taken; a card adds its own latency, the same for every program.
 * Beside it the `espeak-ng` command writing to a pipe: start to first sample.
 */
#include "open/tts/player.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int AudibleLevel = 20; // of 32768; synthetic speech has no noise below it

double msBetween(Clock::time_point from, Clock::time_point to)
{
    return std::chrono::duration<double, std::milli>(to - from).count();
}

Clock::duration lengthOf(std::size_t samples)
{
    return std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(static_cast<double>(samples) / tts::SampleRate));
}

/* When sound was heard: one entry for every block. */
class Tape
{
public:
    struct Block
    {
        Clock::time_point at;
        std::array<std::int16_t, tts::BlockSamples> samples;
    };

    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_blocks.clear();
    }

    void add(const Block& block)
    {
        const std::lock_guard lock(m_mutex);
        m_blocks.push_back(block);
    }

    /* The times at which sound begins after at least `silence` of none. */
    std::vector<Clock::time_point> onsets(Clock::duration silence) const
    {
        std::vector<Clock::time_point> result;
        Clock::time_point last = {};
        forEachAudible([&](Clock::time_point at) {
            if (at - last > silence)
                result.push_back(at);
            last = at;
        });
        return result;
    }

    Clock::time_point lastSound() const
    {
        Clock::time_point last = {};
        forEachAudible([&](Clock::time_point at) { last = at; });
        return last;
    }

private:
    template <typename Visit> void forEachAudible(Visit visit) const
    {
        const std::lock_guard lock(m_mutex);
        for (const Block& block : m_blocks)
            for (std::size_t i = 0; i < block.samples.size(); ++i)
                if (std::abs(block.samples[i]) > AudibleLevel)
                    visit(block.at + lengthOf(i));
    }

    mutable std::mutex m_mutex;
    std::vector<Block> m_blocks;
};

Tape s_tape;

class TapeOutput : public tts::AudioOutput
{
public:
    explicit TapeOutput(tts::SampleQueue& queue) : m_queue(queue), m_thread([this] { work(); }) {}
    ~TapeOutput() override
    {
        m_closing = true;
        m_thread.join();
    }

private:
    void work()
    {
        Clock::time_point next = Clock::now();
        while (!m_closing) {
            Tape::Block block = {};
            m_queue.fill(block.samples);
            block.at = Clock::now();
            s_tape.add(block);
            next = std::max(next + lengthOf(tts::BlockSamples), Clock::now());
            std::this_thread::sleep_until(next);
        }
    }

    tts::SampleQueue& m_queue;
    std::atomic<bool> m_closing = false;
    std::thread m_thread;
};

std::mutex s_reportMutex;
std::condition_variable s_reported;
std::vector<Clock::time_point> s_reports;

int receive(int, int, int)
{
    const std::lock_guard lock(s_reportMutex);
    s_reports.push_back(Clock::now());
    s_reported.notify_all();
    return 0;
}

void waitForReport()
{
    std::unique_lock lock(s_reportMutex);
    s_reported.wait(lock, [] { return !s_reports.empty(); });
}

class Figures
{
public:
    void add(double value) { m_values.push_back(value); }

    void print(const char* name)
    {
        std::sort(m_values.begin(), m_values.end());
        if (m_values.empty())
            std::printf("%-42s none\n", name);
        else
            std::printf("%-42s %7.1f %7.1f %7.1f %7.1f   %zu\n", name, at(0), at(0.5), at(0.99),
                        at(1), m_values.size());
    }

private:
    double at(double share) const
    {
        const auto last = static_cast<double>(m_values.size() - 1);
        return m_values[static_cast<std::size_t>(share * last + 0.5)];
    }

    std::vector<double> m_values;
};

/* Blocks come every 23 ms: begin anywhere between two. */
void waitForOddMoment(int round)
{
    std::this_thread::sleep_for(std::chrono::microseconds(5000 + (round * 7919) % 23000));
}

void measureStartAndStop(tts::Player& player, int rounds)
{
    const std::u16string text = u"The harbour lay quiet, and only the gulls were awake that day.";
    Figures start;
    Figures stopCall;
    Figures stopSilence;
    Figures stopReturn;
    for (int round = 0; round < rounds; ++round) {
        waitForOddMoment(round);
        s_tape.clear();
        s_reports.clear();
        Clock::time_point begin;
        Clock::time_point returned;
        std::thread speaker([&] {
            begin = Clock::now();
            player.play(text);
            returned = Clock::now();
        });
        waitForReport();
        std::this_thread::sleep_for(std::chrono::milliseconds(500 + round % 50));
        const Clock::time_point stop = Clock::now();
        player.stop();
        const Clock::time_point called = Clock::now();
        speaker.join();
        std::this_thread::sleep_for(std::chrono::milliseconds(80));
        const auto onsets = s_tape.onsets(std::chrono::seconds(10));
        if (onsets.empty())
            continue;
        start.add(msBetween(begin, onsets.front()));
        stopCall.add(msBetween(stop, called));
        stopReturn.add(msBetween(stop, returned));
        stopSilence.add(std::max(0.0, msBetween(stop, s_tape.lastSound())));
    }
    start.print("Play to first sample");
    stopCall.print("Stop: the call");
    stopReturn.print("Stop to Play's return");
    stopSilence.print("Stop to silence");
}

void measureHighlights(tts::Player& player, int rounds)
{
    const std::u16string pause = u"<vtml_pause time=\"400\"/> ";
    std::u16string text;
    for (const char16_t* word : {u"boat", u"dog", u"garden", u"tea", u"kitchen", u"book", u"paper"})
        text += word + pause;
    Figures error;
    for (int round = 0; round < std::max(1, rounds / 20); ++round) {
        waitForOddMoment(round);
        s_tape.clear();
        s_reports.clear();
        player.play(text);
        const auto onsets = s_tape.onsets(std::chrono::milliseconds(300));
        if (onsets.size() != s_reports.size()) {
            std::printf("%zu words heard, %zu reported\n", onsets.size(), s_reports.size());
            continue;
        }
        for (std::size_t i = 0; i < onsets.size(); ++i)
            error.add(msBetween(onsets[i], s_reports[i]));
    }
    error.print("Highlight after sound (isolated words)");
}

/* Start of the command to the first audible sample on its output. */
double commandLatency()
{
    int ends[2];
    if (::pipe(ends) != 0)
        return 0;
    const Clock::time_point begin = Clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        ::execlp("espeak-ng", "espeak-ng", "--stdout", "-v", "gmw/en",
                 "The harbour lay quiet, and only the gulls were awake that day.",
                 static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(ends[1]);
    std::array<char, 4096> bytes;
    ssize_t total = 0;
    double latency = 0;
    while (const ssize_t got = ::read(ends[0], bytes.data(), bytes.size())) {
        if (got < 0)
            break;
        total += got;
        if (latency == 0 && total > 44)
            latency = msBetween(begin, Clock::now());
    }
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return latency;
}

void printMemory()
{
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    std::printf("resident memory: %.1f MB\n",
                static_cast<double>(resident * ::sysconf(_SC_PAGESIZE)) / 1048576);
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 100;
    tts::Player player([](tts::SampleQueue& queue) { return std::make_unique<TapeOutput>(queue); });
    if (!player.start({})) {
        std::fprintf(stderr, "no voice\n");
        return 1;
    }
    player.setCallback(receive);
    std::printf("%-42s %7s %7s %7s %7s   n\n", "ms, blocks of 23 ms", "min", "median", "p99",
                "max");
    measureStartAndStop(player, rounds);
    measureHighlights(player, rounds);
    Figures command;
    for (int round = 0; round < rounds; ++round)
        command.add(commandLatency());
    command.print("espeak-ng command: start to first sample");
    printMemory();
    player.close();
    return 0;
}
