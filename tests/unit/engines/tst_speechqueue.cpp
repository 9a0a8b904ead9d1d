/*
 * The logic that workers, screens and engines' threads share, on plain threads and without Qt, so
 * that ThreadSanitizer sees all of it: queues, key flag, stop requests, receivers.
 */
#include "engines/receiver.h"
#include "engines/speechqueue.h"
#include "engines/stoprequests.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using Queue = SpeechQueue<std::string>;
using Texts = std::vector<std::string>;

int failures = 0;

void check(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "FAIL: %s\n", what);
    ++failures;
}

const auto nothing = [] {};
const auto talking = [] { return false; };

void onlyTheNewestIsTaken()
{
    Queue queue;
    std::string text;
    check(!queue.takeNewest(text, nothing), "an empty queue gives nothing");
    queue.add("one");
    queue.add("two");
    queue.add("three");
    int taken = 0;
    check(queue.takeNewest(text, [&taken] { ++taken; }) && text == "three", "the newest is taken");
    check(taken == 1, "taking is told once");
    check(queue.isEmpty() && !queue.takeNewest(text, [&taken] { ++taken; }) && taken == 1,
          "older texts are dropped");
    queue.add("four");
    queue.clear();
    check(queue.isEmpty(), "a cleared queue is empty");
    queue.close();
    queue.add("five");
    check(queue.isEmpty(), "a closed queue takes nothing");
}

void readingTakesWhatCameMeanwhile()
{
    Queue queue;
    Texts read;
    queue.add("first");
    readNewest(queue, nothing, [&](const std::string& text) {
        read.push_back(text);
        if (text == "first") {
            queue.add("dropped");
            queue.add("second");
        }
    });
    check(read == Texts{"first", "second"}, "the newest of what came meanwhile is read next");
}

void menusSpeakItemsBeforeInstructions()
{
    Queue items;
    Queue instructions;
    std::atomic<bool> key{true};
    Texts spoken;
    const auto speak = [&spoken](const std::string& text) { spoken.push_back(text); };
    items.add("old");
    items.add("item");
    instructions.add("old help");
    instructions.add("help");
    check(speakMenus(items, instructions, key, nothing, talking, speak)
              == MenuSpeechEnd::QueuesEmpty,
          "menu speech ends with empty queues");
    check(spoken == Texts{"item", "help"}, "item, then instruction, the newest of each");
    check(!key, "the key flag is cleared");
}

void aKeyEndsMenuSpeech()
{
    Queue items;
    Queue instructions;
    std::atomic<bool> key{false};
    Texts spoken;
    items.add("item");
    instructions.add("help");
    const auto speak = [&](const std::string& text) {
        spoken.push_back(text);
        key = true;
    };
    check(speakMenus(items, instructions, key, nothing, talking, speak)
              == MenuSpeechEnd::KeyPressed,
          "a key ends menu speech");
    check(spoken == Texts{"item"} && !key && !instructions.isEmpty(),
          "what is behind stays queued, the flag is cleared");
}

void mutedMenusConsumeATextSilently()
{
    Queue items;
    Queue instructions;
    std::atomic<bool> key{false};
    Texts spoken;
    items.add("item");
    const auto speak = [&spoken](const std::string& text) { spoken.push_back(text); };
    const MenuSpeechEnd end = speakMenus(
        items, instructions, key, nothing, [] { return true; }, speak);
    check(end == MenuSpeechEnd::Muted && spoken.empty() && items.isEmpty(),
          "talking menus off: the text is consumed and not spoken");
}

// The interface thread queues, clears and presses keys while the worker speaks.
void menuSpeechUnderFire()
{
    Queue items;
    Queue instructions;
    std::atomic<bool> key{false};
    std::atomic<bool> over{false};
    std::string last;
    std::thread worker([&] {
        while (!over || !items.isEmpty()) {
            speakMenus(items, instructions, key, nothing, talking,
                       [&last](const std::string& text) { last = text; });
        }
    });
    for (int i = 0; i < 5000; ++i) {
        items.add("item " + std::to_string(i));
        instructions.add("help " + std::to_string(i));
        if (i % 7 == 0)
            instructions.clear();
        if (i % 11 == 0)
            key = true;
    }
    instructions.clear();
    items.add("last");
    over = true;
    worker.join();
    check(last == "last" || last.starts_with("help"), "the newest is spoken in the end");
    check(items.isEmpty(), "nothing is left");
}

// A stop that follows the taking cancels; one that came before the text was queued does not.
void stopsAndTexts()
{
    StopRequests stops;
    Queue queue;
    std::string text;
    StopRequests::Mark mark = 0;
    const auto note = [&] { mark = stops.mark(); };
    stops.request();
    queue.add("text");
    check(queue.takeNewest(text, note) && !stops.cancelled(mark), "an old stop does not cancel");
    stops.request();
    check(stops.cancelled(mark), "a stop after the taking cancels");
}

void stopsUnderFire()
{
    StopRequests stops;
    Queue queue;
    std::atomic<bool> over{false};
    std::atomic<bool> finalSpoken{false};
    std::thread worker([&] {
        StopRequests::Mark mark = 0;
        const auto note = [&] { mark = stops.mark(); };
        while (!over || !queue.isEmpty()) {
            readNewest(queue, note, [&](const std::string& text) {
                if (!stops.cancelled(mark) && text == "final")
                    finalSpoken = true;
            });
        }
    });
    std::thread engine([&stops] {
        for (int i = 0; i < 5000; ++i)
            stops.request();
    });
    for (int i = 0; i < 5000; ++i) {
        stops.request();
        queue.add("text");
    }
    engine.join();
    stops.request();
    queue.add("final");
    over = true;
    worker.join();
    check(finalSpoken, "a text queued after the last stop is spoken");
}

struct Screen
{
    ~Screen() { alive = false; }
    void receive()
    {
        check(alive, "a report reached a screen that was gone");
        ++received;
    }
    bool alive = true;
    int received = 0;
};

void receiversBasics()
{
    Receiver<Screen> receiver;
    Screen one;
    Screen two;
    check(!receiver.call([](Screen&) {}), "without a receiver nothing is called");
    receiver = &one;
    check(receiver == &one && receiver.call([](Screen& screen) { screen.receive(); }),
          "the receiver is called");
    receiver.forget(&two);
    check(receiver == &one, "forgetting another changes nothing");
    receiver.call([&receiver](Screen& screen) { receiver.forget(&screen); });
    check(receiver == nullptr, "a call may forget its own receiver");
    check(one.received == 1 && two.received == 0, "one report was received");
}

// Screens come and go on one thread while two engines report.
void receiversUnderFire()
{
    Receiver<Screen> receiver;
    std::atomic<bool> over{false};
    std::atomic<int> delivered{0};
    const auto report = [&] {
        while (!over) {
            if (receiver.call([](Screen& screen) { screen.receive(); }))
                ++delivered;
        }
    };
    std::thread first(report);
    std::thread second(report);
    for (int i = 0; i < 500 || delivered == 0; ++i) {
        auto* const screen = new Screen;
        receiver = screen;
        std::this_thread::yield();
        receiver.forget(screen);
        delete screen;
    }
    over = true;
    first.join();
    second.join();
    check(delivered > 0, "reports were delivered");
}

} // namespace

int main()
{
    onlyTheNewestIsTaken();
    readingTakesWhatCameMeanwhile();
    menusSpeakItemsBeforeInstructions();
    aKeyEndsMenuSpeech();
    mutedMenusConsumeATextSilently();
    menuSpeechUnderFire();
    stopsAndTexts();
    stopsUnderFire();
    receiversBasics();
    receiversUnderFire();
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
