/*
 * The scan engine's threads, for the thread sanitizer: without Qt, whose own threads it cannot see
 * into. A video plays the camera; the engine is called from several threads at once.
 */
#include "platform/zembra_iap.h"
#include "tests/unit/open/printedvideo.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#define REQUIRE(condition)                                                                         \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "line %d: %s does not hold\n", __LINE__, #condition);             \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

namespace {

/* What the callback notes. */
struct Receiver
{
    std::mutex mutex;
    std::condition_variable changed;
    int count = 0;
    int pictures = 0;
    int widest = 0;
    std::function<void()> inside;
    std::atomic<int> running = 0;
    std::atomic<bool> mayRun = true;
    std::thread::id thread;

    void begin(std::function<void()> whatInside = {})
    {
        const std::lock_guard lock(mutex);
        count = pictures = widest = 0;
        inside = std::move(whatInside);
    }
    int delivered()
    {
        const std::lock_guard lock(mutex);
        return count;
    }
    void waitForOne()
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return count > 0 && running == 0; });
    }
};

Receiver receiver;

int receive(void*, unsigned char* image, int width, int height, unsigned char, char*)
{
    REQUIRE(receiver.running++ == 0); // one at a time
    REQUIRE(receiver.mayRun);
    REQUIRE((image != nullptr) == (width * height > 0));
    for (int i = 0; i < width * height; ++i)
        image[i] = static_cast<unsigned char>(255 - image[i]);
    std::function<void()> inside;
    {
        const std::lock_guard lock(receiver.mutex);
        inside = receiver.inside;
        receiver.thread = std::this_thread::get_id();
    }
    if (inside)
        inside();
    const std::lock_guard lock(receiver.mutex);
    ++receiver.count;
    receiver.pictures += image ? 1 : 0;
    receiver.widest = std::max(receiver.widest, width);
    --receiver.running;
    receiver.changed.notify_all();
    return 0;
}

int workState()
{
    int state = -1;
    return ZEMBRA_IAP_GetWorkState(&state) == 0 ? state : -1;
}

void start()
{
    REQUIRE(ZEMBRA_IAP_Initialize(ZEMBRA_IAP_RIGHT_HAND, ZEMBRA_IAP_HORIZONTAL, 0, 0) == 0);
}

/* A swipe is delivered, on a thread of the engine's. */
void swipeIsDelivered()
{
    receiver.begin();
    start();
    receiver.waitForOne();
    REQUIRE(receiver.pictures == 1);
    REQUIRE(receiver.widest > 500);
    REQUIRE(receiver.thread != std::this_thread::get_id());
    REQUIRE(ZEMBRA_IAP_Uninitialize() == 0);
    REQUIRE(workState() == -1);
}

/* Nothing is delivered of a swipe during which the stop signal was set, even if it was reset. */
void stopSignalDuringSwipes()
{
    for (int i = 0; i < 4; ++i) {
        receiver.begin();
        start();
        while (workState() != ZEMBRA_IAP_BUSY && receiver.delivered() == 0)
            std::this_thread::yield();
        std::thread stopper([] { ZEMBRA_IAP_SetStopSignal(1); });
        stopper.join();
        const int before = receiver.delivered(); // 0, unless this thread slept through the swipe
        ZEMBRA_IAP_SetStopSignal(0);
        while (i % 2 == 0 && workState() == ZEMBRA_IAP_BUSY)
            std::this_thread::yield();
        REQUIRE(ZEMBRA_IAP_Uninitialize() == 0);
        REQUIRE(receiver.delivered() == before);
    }
}

void endsInsideTheCallback()
{
    std::atomic<int> ended = -2;
    receiver.begin([&ended] { ended = ZEMBRA_IAP_Uninitialize(); });
    start();
    receiver.waitForOne();
    REQUIRE(ended == 0);
    REQUIRE(ZEMBRA_IAP_Uninitialize() == -1);
}

void restartsInsideTheCallback()
{
    std::atomic<int> rounds = 0;
    receiver.begin([&rounds] {
        if (++rounds == 1) {
            ZEMBRA_IAP_Uninitialize();
            start();
        }
    });
    start();
    {
        std::unique_lock lock(receiver.mutex);
        receiver.changed.wait(lock, [] { return receiver.count == 2; });
    }
    REQUIRE(ZEMBRA_IAP_Uninitialize() == 0);
}

/* Everything at once, from everywhere. After the end of an engine no callback runs. */
void startedAndEndedUnderLoad()
{
    receiver.begin();
    std::atomic<bool> isOver = false;
    const auto untilOver = [&isOver](const std::function<void(int)>& call) {
        return std::thread([&isOver, call] {
            for (int i = 0; !isOver; ++i) {
                call(i);
                std::this_thread::yield();
            }
        });
    };
    std::vector<std::thread> callers;
    callers.push_back(untilOver([](int) { workState(); }));
    callers.push_back(untilOver([](int i) { ZEMBRA_IAP_SetLangPara(i % 2); }));
    callers.push_back(untilOver([](int i) { ZEMBRA_IAP_SetStopSignal(i % 64 == 0 ? 1 : 0); }));
    callers.push_back(untilOver([](int i) {
        ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, i % 16 == 0 ? nullptr : receive);
    }));
    for (int round = 0; round < 12; ++round) {
        receiver.mayRun = true;
        start();
        for (int busy = 0; busy < round % 3; ++busy)
            while (workState() == ZEMBRA_IAP_IDLE)
                std::this_thread::yield();
        if (round % 4 == 0)
            start(); // once more, with the same camera
        REQUIRE(ZEMBRA_IAP_Uninitialize() == 0);
        receiver.mayRun = false;
        REQUIRE(receiver.running == 0);
    }
    isOver = true;
    for (std::thread& caller : callers)
        caller.join();
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, receive);
    ZEMBRA_IAP_SetStopSignal(0);
    receiver.mayRun = true;
}

/* Of several threads that end the engine one succeeds. */
void endedByManyThreads()
{
    for (int round = 0; round < 8; ++round) {
        start();
        std::atomic<int> succeeded = 0;
        std::vector<std::thread> enders;
        enders.reserve(3);
        for (int i = 0; i < 3; ++i)
            enders.emplace_back([&] { succeeded += ZEMBRA_IAP_Uninitialize() == 0 ? 1 : 0; });
        for (std::thread& ender : enders)
            ender.join();
        REQUIRE(succeeded == 1);
    }
}

} // namespace

int main()
{
    namespace fs = std::filesystem;
    std::string folder = (fs::temp_directory_path() / "iap-threads-XXXXXX").string();
    REQUIRE(mkdtemp(folder.data()) != nullptr);
    const std::string video = folder + "/line.y4m";
    writePrintedVideo(video, 500);
    setenv("SWIPELINE_CAMERA", video.c_str(), 1);
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, receive);
    swipeIsDelivered();
    stopSignalDuringSwipes();
    endsInsideTheCallback();
    restartsInsideTheCallback();
    startedAndEndedUnderLoad();
    endedByManyThreads();
    swipeIsDelivered();
    fs::remove_all(folder);
    return 0;
}
