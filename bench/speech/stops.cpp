/* Stops at any moment: none may be lost, none may hit the text that is begun after it. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include "platform/zembra_tts.h"

#include <atomic>
#include <cstdio>
#include <random>
#include <thread>

namespace {

struct Counts
{
    int lost = 0;  // the text went on
    int stale = 0; // the text after it was cut short
    int late = 0;  // reports after the text's end
    Figures call;
    Figures end; // Stop to Play's return
};

constexpr double MostMs = 2000; // Stop to Play's return, before the stop counts as lost

/* Stops a text of half a minute some time after it was begun. */
void stopOne(std::u16string_view text, std::chrono::microseconds after, Counts& counts)
{
    std::atomic<bool> begun = false;
    std::atomic<bool> ended = false;
    int result = -5;
    std::thread speaker([&] {
        begun = true;
        result = engine::play(text);
        ended = true;
    });
    while (!begun)
        std::this_thread::yield();
    std::this_thread::sleep_for(after);
    const Clock::time_point stop = Clock::now();
    ZEMBRA_TTS_Stop();
    counts.call.add(msBetween(stop, Clock::now()));
    while (!ended && msBetween(stop, Clock::now()) < MostMs)
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    const double end = msBetween(stop, Clock::now());
    counts.end.add(end);
    if (!ended)
        ZEMBRA_TTS_Stop();
    speaker.join();
    if (end >= MostMs || result != 1)
        ++counts.lost;
}

void playAfterStop(Counts& counts)
{
    const std::u16string text = u"Yes.";
    ZEMBRA_TTS_Stop();
    const int result = engine::play(text);
    if (result != 0 || engine::reports().size() != 1)
        ++counts.stale;
}

} // namespace

void measureStops(int rounds)
{
    Disk disk(Disk::Pace::Speech);
    if (!engine::start())
        return goals::check("the engine starts", false);
    ZEMBRA_TTS_SetSpeed(96);
    std::u16string text;
    for (int i = 0; i < 40; ++i)
        text += u"And so it goes on, and on, ";
    const int count = rounds > 0 ? rounds : 1000;
    std::mt19937 random(20);
    std::uniform_int_distribution<int> moment(100, 80000);
    Counts counts;
    for (int round = 0; round < count; ++round) {
        stopOne(text, std::chrono::microseconds(moment(random)), counts);
        const std::size_t reports = engine::reports().size();
        disk.tape().wait(1);
        counts.late += engine::reports().size() != reports;
        playAfterStop(counts);
    }
    Figures::printTitle("stopped within 80 ms (ms)");
    counts.call.print("Stop: the call");
    counts.end.print("Stop to Play's return");
    std::printf("of %d stops %d lost, %d stale; %d with reports after the end\n", count,
                counts.lost, counts.stale, counts.late);
    goals::check("no stop is lost", counts.lost == 0);
    goals::check("no stop hits the next text", counts.stale == 0);
    goals::check("no report after the end", counts.late == 0);
    goals::atMost("Stop call, p99", counts.call.at(0.99), 1);
    engine::close();
}
