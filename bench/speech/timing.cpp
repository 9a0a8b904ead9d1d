/* Play to sound, Stop to silence, and how long the call of Stop takes. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include "platform/zembra_tts.h"

#include <algorithm>
#include <cstdio>
#include <thread>

namespace {

struct Latencies
{
    Figures start;
    Figures stopCall;
    Figures stopReturn;
    Figures stopSilence;
    int silent = 0;
};

/* Blocks come every 23 ms: begin anywhere between two. */
void waitForOddMoment(int round)
{
    std::this_thread::sleep_for(std::chrono::microseconds(5000 + (round * 7919) % 23000));
}

void measureRound(Tape& tape, std::u16string_view text, int round, Latencies& latencies)
{
    waitForOddMoment(round);
    tape.clear();
    engine::forgetReports();
    Clock::time_point begin;
    Clock::time_point returned;
    std::thread speaker([&] {
        begin = Clock::now();
        engine::play(text);
        returned = Clock::now();
    });
    engine::waitForReport();
    std::this_thread::sleep_for(std::chrono::milliseconds(300 + round % 50));
    const Clock::time_point stop = Clock::now();
    ZEMBRA_TTS_Stop();
    const Clock::time_point called = Clock::now();
    speaker.join();
    tape.wait(4 * static_cast<std::size_t>(SampleRate) / 100);
    const auto onsets = tape.onsets(10000);
    if (onsets.empty()) {
        ++latencies.silent;
        return;
    }
    latencies.start.add(msBetween(begin, onsets.front()));
    latencies.stopCall.add(msBetween(stop, called));
    latencies.stopReturn.add(msBetween(stop, returned));
    latencies.stopSilence.add(std::max(0.0, msBetween(stop, tape.lastSound())));
}

void printAndCheck(const Latencies& latencies)
{
    latencies.start.print("Play to first sound");
    latencies.stopCall.print("Stop: the call");
    latencies.stopReturn.print("Stop to Play's return");
    latencies.stopSilence.print("Stop to silence");
    goals::check("every text was heard", latencies.silent == 0);
    goals::atMost("Play to first sound, median", latencies.start.at(0.5), 30);
    goals::atMost("Play to first sound, p99", latencies.start.at(0.99), 60);
    goals::atMost("Stop to silence, median", latencies.stopSilence.at(0.5), 30);
    goals::atMost("Stop to silence, p99", latencies.stopSilence.at(0.99), 60);
    goals::atMost("Stop call, p99", latencies.stopCall.at(0.99), 1);
}

} // namespace

void measureTiming(int rounds)
{
    Disk disk(Disk::Pace::Speech);
    if (!engine::start())
        return goals::check("the engine starts", false);
    const int count = rounds > 0 ? rounds : 300;
    const std::u16string line = u"The harbour lay quiet, and only the gulls were awake that day.";
    Figures::printTitle("one line, English (ms)");
    Latencies one;
    for (int round = 0; round < count; ++round)
        measureRound(disk.tape(), line, round, one);
    printAndCheck(one);

    std::u16string page;
    while (page.size() + line.size() < 32768)
        page += line + u" ";
    page.resize(32768, u'.');
    Figures::printTitle("32,768 units (ms)");
    Latencies full;
    for (int round = 0; round < std::max(1, count / 3); ++round)
        measureRound(disk.tape(), page, round, full);
    printAndCheck(full);

    Figures::printTitle("another language each time (ms)");
    Latencies changing;
    constexpr int Codes[] = {101, 103, 104, 105, 106, 107, 108, 109, 110, 111, 151, 152, 1};
    for (int round = 0; round < std::max(1, count / 3); ++round) {
        ZEMBRA_TTS_SetLang(Codes[round % std::size(Codes)]);
        measureRound(disk.tape(), u"Radio 12, radio 13, radio 14, radio 15.", round, changing);
    }
    printAndCheck(changing);
    engine::close();
}
