#include "tests/fakes/fakeiap.h"

#include "platform/zembra_iap.h"
#include "tests/fakes/calllog.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace {

struct Settings
{
    int initializeResult = 0;
    bool started = false;
    int hand = 0;
    int direction = 0;
    int script = 0;
    bool stop = false;
    ZEMBRA_IAP_PanoImageCallback callback = nullptr;
    bool pressed = false;
    bool armed = false; // the swipe in progress will be delivered
    std::optional<FakeIap::Picture> lifted;
    std::optional<int> result;
    int deliveries = 0;
};

struct State
{
    std::mutex mutex;
    std::condition_variable changed;
    Settings set;
    unsigned session = 0; // counts starts of the engine
    bool inCallback = false;
    std::thread::id callbackThread;
    std::vector<unsigned char> buffer;
};

State& state()
{
    static auto* const state = new State;
    return *state;
}

void handOver(std::unique_lock<std::mutex>& lock, FakeIap::Picture picture)
{
    State& engine = state();
    const ZEMBRA_IAP_PanoImageCallback callback = engine.set.callback;
    if (!engine.set.armed || !callback)
        return;

    const bool line = !picture.pixels.empty() || picture.width != 0 || picture.height != 0;
    engine.buffer = std::move(picture.pixels);
    if (engine.buffer.empty())
        engine.buffer.push_back(FakeIap::Poison);
    engine.inCallback = true;
    engine.callbackThread = std::this_thread::get_id();
    ++engine.set.deliveries;
    lock.unlock();
    const int result = line ? callback(nullptr, engine.buffer.data(), picture.width, picture.height,
                                       picture.flag, nullptr)
                            : callback(nullptr, nullptr, 0, 0, picture.flag, nullptr);
    lock.lock();
    std::fill(engine.buffer.begin(), engine.buffer.end(), FakeIap::Poison);
    engine.set.result = result;
    engine.inCallback = false;
    engine.callbackThread = {};
}

// The engine's thread, from one start to the end that belongs to it.
void work(unsigned session)
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    const auto over = [&] { return engine.session != session || !engine.set.started; };
    for (;;) {
        engine.changed.wait(lock,
                            [&] { return over() || (engine.set.lifted && !engine.inCallback); });
        if (over())
            return;
        FakeIap::Picture picture = std::move(*engine.set.lifted);
        engine.set.lifted.reset();
        handOver(lock, std::move(picture));
        if (!over())
            engine.set.pressed = false;
        engine.changed.notify_all();
    }
}

bool inOwnCallback()
{
    return state().inCallback && state().callbackThread == std::this_thread::get_id();
}

// Ends the work of the present session; waits for a callback unless it is the caller.
void end(std::unique_lock<std::mutex>& lock)
{
    State& engine = state();
    engine.set.started = false;
    engine.set.pressed = false;
    engine.set.lifted.reset();
    engine.changed.notify_all();
    engine.changed.wait(lock, [&engine] { return !engine.inCallback || inOwnCallback(); });
}

template <class Value> Value read(Value Settings::*member)
{
    const std::lock_guard lock(state().mutex);
    return state().set.*member;
}

void logCall(const char* function, const std::string& arguments)
{
    CallLog::add(std::string(function) + "(" + arguments + ")");
}

} // namespace

void FakeIap::reset()
{
    std::unique_lock lock(state().mutex);
    end(lock);
    state().set = Settings();
}

void FakeIap::setInitializeResult(int result)
{
    const std::lock_guard lock(state().mutex);
    state().set.initializeResult = result;
}

bool FakeIap::press()
{
    State& engine = state();
    const std::lock_guard lock(engine.mutex);
    if (!engine.set.started)
        return false;
    engine.set.pressed = true;
    engine.set.armed = !engine.set.stop;
    engine.set.result.reset();
    return true;
}

void FakeIap::lift(Picture picture)
{
    State& engine = state();
    {
        const std::lock_guard lock(engine.mutex);
        if (engine.set.pressed)
            engine.set.lifted = std::move(picture);
    }
    engine.changed.notify_all();
}

void FakeIap::liftWithoutLine()
{
    lift(Picture());
}

bool FakeIap::waitUntilIdle()
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    return engine.changed.wait_for(lock, FakePatience,
                                   [&engine] { return !engine.set.pressed && !engine.inCallback; });
}

bool FakeIap::isIdle()
{
    const std::lock_guard lock(state().mutex);
    return !state().set.pressed && !state().inCallback;
}

std::optional<int> FakeIap::swipe(Picture picture)
{
    if (!press())
        return std::nullopt;
    lift(std::move(picture));
    if (!waitUntilIdle())
        return std::nullopt;
    return read(&Settings::result);
}

bool FakeIap::isStarted()
{
    return read(&Settings::started);
}

int FakeIap::hand()
{
    return read(&Settings::hand);
}

int FakeIap::direction()
{
    return read(&Settings::direction);
}

int FakeIap::script()
{
    return read(&Settings::script);
}

bool FakeIap::stopSignal()
{
    return read(&Settings::stop);
}

int FakeIap::deliveries()
{
    return read(&Settings::deliveries);
}

FakeIap::Picture FakeIap::pattern(int width, int height, unsigned char flag)
{
    Picture picture{width, height, {}, flag};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.pixels.push_back(static_cast<unsigned char>(x * 7 + y * 13 + 1));
    }
    return picture;
}

int ZEMBRA_IAP_Initialize(int hand, int direction, int reserved1, int reserved2)
{
    logCall("ZEMBRA_IAP_Initialize", std::to_string(hand) + ", " + std::to_string(direction) + ", "
                                         + std::to_string(reserved1) + ", "
                                         + std::to_string(reserved2));
    State& engine = state();
    const std::lock_guard lock(engine.mutex);
    if (engine.set.initializeResult != 0)
        return engine.set.initializeResult;
    engine.set.hand = hand;
    engine.set.direction = direction;
    engine.set.stop = false;
    if (!engine.set.started) {
        engine.set.started = true;
        std::thread(&work, ++engine.session).detach();
    }
    return 0;
}

int ZEMBRA_IAP_SetLangPara(int mode)
{
    logCall("ZEMBRA_IAP_SetLangPara", std::to_string(mode));
    const std::lock_guard lock(state().mutex);
    if (!state().set.started)
        return -1;
    state().set.script = mode;
    return 0;
}

int ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(int channel, ZEMBRA_IAP_PanoImageCallback callback)
{
    logCall("ZEMBRA_IAP_SetReceivePanoImageCallBackFunc",
            std::to_string(channel) + (callback ? ", callback" : ", null"));
    const std::lock_guard lock(state().mutex);
    state().set.callback = callback;
    return 0;
}

int ZEMBRA_IAP_GetWorkState(int* workState)
{
    const std::lock_guard lock(state().mutex);
    if (!state().set.started || !workState)
        return -1;
    *workState = state().set.pressed || state().inCallback ? ZEMBRA_IAP_BUSY : ZEMBRA_IAP_IDLE;
    return 0;
}

int ZEMBRA_IAP_SetStopSignal(int flag)
{
    logCall("ZEMBRA_IAP_SetStopSignal", std::to_string(flag));
    const std::lock_guard lock(state().mutex);
    state().set.stop = flag != 0;
    if (flag)
        state().set.armed = false;
    return 0;
}

int ZEMBRA_IAP_Uninitialize(void)
{
    logCall("ZEMBRA_IAP_Uninitialize", "");
    std::unique_lock lock(state().mutex);
    if (!state().set.started)
        return -1;
    end(lock);
    return 0;
}
