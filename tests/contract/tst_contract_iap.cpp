/*
 * What platform/zembra_iap.h promises, as far as a caller can see it. Built once for each engine;
 * nothing here knows which one it is.
 */
#include "platform/zembra_iap.h"
#include "tests/contract/penhost.h"

#include <QGuiApplication>
#include <QTest>
#include <atomic>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

namespace {

struct Delivery
{
    bool hasImage = false;
    int width = -1;
    int height = -1;
    bool reservedAreNull = false;
    std::thread::id thread;
    int state = -1; // work state inside the callback
};

std::mutex mutex;
std::vector<Delivery> deliveries;
std::function<void()> inside;
std::atomic<int> running{0};
std::atomic<bool> overlapped{false};
std::atomic<int> otherDeliveries{0};

int stateNow()
{
    int state = -1;
    return ZEMBRA_IAP_GetWorkState(&state) == 0 ? state : -1;
}

int receive(void* context, unsigned char* image, int width, int height, unsigned char, char* extra)
{
    if (++running > 1)
        overlapped = true;
    Delivery delivery{image != nullptr,           width,     height, !context && !extra,
                      std::this_thread::get_id(), stateNow()};
    // Every byte may be read, and written: the buffer is the engine's but nobody else's.
    for (int i = 0; image && i < width * height; ++i)
        image[i] = static_cast<unsigned char>(255 - image[i]);
    std::function<void()> reaction;
    {
        const std::lock_guard lock(mutex);
        deliveries.push_back(delivery);
        reaction = inside;
    }
    if (reaction)
        reaction();
    --running;
    return 0;
}

int receiveOther(void*, unsigned char*, int, int, unsigned char, char*)
{
    ++otherDeliveries;
    return -1;
}

std::size_t count()
{
    const std::lock_guard lock(mutex);
    return deliveries.size();
}

Delivery delivered(std::size_t index)
{
    const std::lock_guard lock(mutex);
    return deliveries.at(index);
}

void react(std::function<void()> reaction)
{
    const std::lock_guard lock(mutex);
    inside = std::move(reaction);
}

} // namespace

class ContractIap : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void beforeTheStart();
    void aSwipeIsDelivered();
    void aSwipeWithoutPrintIsDeliveredEmpty();
    void theStateIsBusyFromPressToReturn();
    void theStateNeedsAPlace();
    void scriptsAreTakenWhileStarted();
    void aStopBeforeThePressSuppressesTheSwipe();
    void aStopDuringTheSwipeSuppressesIt();
    void afterTheStopIsTakenBackTheNextPressCounts();
    void startingClearsTheStop();
    void theReceiverSetLastReceives();
    void withoutReceiverNothingHappens();
    void aSecondStartKeepsTheReceiver();
    void callbacksComeOneAtATime();
    void shutDownWaitsForTheCallback();
    void shutDownInsideTheCallbackMakesItTheLast();
    void afterTheShutDownNothingIsDelivered();
    void itStartsAgainAfterAShutDown();

private:
    void start();
    void press();
    void swipe();
};

void ContractIap::init()
{
    react({});
    {
        const std::lock_guard lock(mutex);
        deliveries.clear();
    }
    overlapped = false;
    otherDeliveries = 0;
    penhost::begin();
}

void ContractIap::cleanup()
{
    ZEMBRA_IAP_Uninitialize();
    QTRY_COMPARE(running.load(), 0);
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr);
    ZEMBRA_IAP_SetStopSignal(0);
    penhost::end();
}

void ContractIap::start()
{
    QCOMPARE(ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, &receive), 0);
    QCOMPARE(ZEMBRA_IAP_Initialize(ZEMBRA_IAP_RIGHT_HAND, ZEMBRA_IAP_HORIZONTAL, 0, 0), 0);
    QVERIFY(penhost::connected());
    QCOMPARE(stateNow(), int(ZEMBRA_IAP_IDLE));
}

void ContractIap::press()
{
    penhost::press();
    QTRY_COMPARE(stateNow(), int(ZEMBRA_IAP_BUSY));
}

// A whole swipe, until the engine has done with it.
void ContractIap::swipe()
{
    press();
    penhost::liftAfterLine();
    QTRY_COMPARE_WITH_TIMEOUT(stateNow(), int(ZEMBRA_IAP_IDLE), 20000);
}

void ContractIap::beforeTheStart()
{
    int state = 42;
    QCOMPARE(ZEMBRA_IAP_GetWorkState(&state), -1);
    QCOMPARE(state, 42);
    QCOMPARE(ZEMBRA_IAP_GetWorkState(nullptr), -1);
    QCOMPARE(ZEMBRA_IAP_SetLangPara(ZEMBRA_IAP_SCRIPT_ALPHA), -1);
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), -1);
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(0), 0);
    QCOMPARE(ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr), 0);
    QCOMPARE(ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, &receive), 0);
}

void ContractIap::aSwipeIsDelivered()
{
    start();
    swipe();
    QCOMPARE(count(), std::size_t{1});
    const Delivery delivery = delivered(0);
    QVERIFY(delivery.hasImage);
    QVERIFY(delivery.width > 0);
    QVERIFY(delivery.height > 0);
    QVERIFY(delivery.reservedAreNull);
    QVERIFY(delivery.thread != std::this_thread::get_id());
}

void ContractIap::aSwipeWithoutPrintIsDeliveredEmpty()
{
    start();
    press();
    penhost::liftAfterBlank();
    QTRY_COMPARE_WITH_TIMEOUT(count(), std::size_t{1}, 20000);
    const Delivery delivery = delivered(0);
    QCOMPARE(delivery.width, 0);
    QCOMPARE(delivery.height, 0);
}

void ContractIap::theStateIsBusyFromPressToReturn()
{
    start();
    std::promise<void> goOn;
    std::shared_future<void> gate = goOn.get_future().share();
    react([gate] { gate.wait(); });
    press();
    penhost::liftAfterLine();
    QTRY_COMPARE_WITH_TIMEOUT(count(), std::size_t{1}, 20000);
    QCOMPARE(delivered(0).state, int(ZEMBRA_IAP_BUSY));
    QCOMPARE(stateNow(), int(ZEMBRA_IAP_BUSY));
    goOn.set_value();
    QTRY_COMPARE(stateNow(), int(ZEMBRA_IAP_IDLE));
}

void ContractIap::theStateNeedsAPlace()
{
    start();
    QCOMPARE(ZEMBRA_IAP_GetWorkState(nullptr), -1);
}

void ContractIap::scriptsAreTakenWhileStarted()
{
    start();
    QCOMPARE(ZEMBRA_IAP_SetLangPara(ZEMBRA_IAP_SCRIPT_HAN), 0);
    QCOMPARE(ZEMBRA_IAP_SetLangPara(ZEMBRA_IAP_SCRIPT_ALPHA), 0);
}

void ContractIap::aStopBeforeThePressSuppressesTheSwipe()
{
    start();
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    swipe();
    QCOMPARE(count(), std::size_t{0});
}

void ContractIap::aStopDuringTheSwipeSuppressesIt()
{
    start();
    press();
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(0), 0);
    penhost::liftAfterLine();
    QTRY_COMPARE_WITH_TIMEOUT(stateNow(), int(ZEMBRA_IAP_IDLE), 20000);
    QCOMPARE(count(), std::size_t{0});
}

void ContractIap::afterTheStopIsTakenBackTheNextPressCounts()
{
    start();
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    swipe();
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(0), 0);
    swipe();
    QCOMPARE(count(), std::size_t{1});
}

void ContractIap::startingClearsTheStop()
{
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    start();
    swipe();
    QCOMPARE(count(), std::size_t{1});
}

void ContractIap::theReceiverSetLastReceives()
{
    start();
    QCOMPARE(ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, &receiveOther), 0);
    swipe();
    QCOMPARE(otherDeliveries.load(), 1);
    QCOMPARE(count(), std::size_t{0});
}

void ContractIap::withoutReceiverNothingHappens()
{
    start();
    QCOMPARE(ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr), 0);
    swipe();
    QCOMPARE(count(), std::size_t{0});
}

void ContractIap::aSecondStartKeepsTheReceiver()
{
    start();
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    QCOMPARE(ZEMBRA_IAP_Initialize(ZEMBRA_IAP_RIGHT_HAND, ZEMBRA_IAP_HORIZONTAL, 0, 0), 0);
    swipe();
    QCOMPARE(count(), std::size_t{1});
}

void ContractIap::callbacksComeOneAtATime()
{
    start();
    std::promise<void> goOn;
    std::shared_future<void> gate = goOn.get_future().share();
    std::atomic<int> restarted{-2};
    react([gate, &restarted] {
        if (count() > 1)
            return;
        ZEMBRA_IAP_Uninitialize();
        restarted = ZEMBRA_IAP_Initialize(ZEMBRA_IAP_RIGHT_HAND, ZEMBRA_IAP_HORIZONTAL, 0, 0);
        gate.wait();
    });
    press();
    penhost::liftAfterBlank();
    // From here on the first callback is held, and the engine started afresh.
    QTRY_COMPARE_WITH_TIMEOUT(restarted.load(), 0, 20000);
    const bool isConnected = penhost::connected();
    penhost::press();
    penhost::liftAfterBlank();
    // An engine that calls twice at a time does so as soon as it has worked the swipe up.
    const bool cameTwice = QTest::qWaitFor([] { return overlapped.load(); }, 2000);
    goOn.set_value();
    QVERIFY(isConnected);
    QTRY_COMPARE_WITH_TIMEOUT(count(), std::size_t{2}, 20000);
    QTRY_COMPARE(running.load(), 0);
    QVERIFY(!cameTwice);
    QVERIFY(!overlapped);
    react({});
}

void ContractIap::shutDownWaitsForTheCallback()
{
    start();
    std::promise<void> goOn;
    std::shared_future<void> gate = goOn.get_future().share();
    std::atomic<bool> returning{false};
    react([gate, &returning] {
        gate.wait();
        returning = true;
    });
    press();
    penhost::liftAfterLine();
    QTRY_COMPARE_WITH_TIMEOUT(count(), std::size_t{1}, 20000);
    auto shutDown = std::async(std::launch::async, [&returning] {
        const int result = ZEMBRA_IAP_Uninitialize();
        return std::pair(result, returning.load());
    });
    const bool hasBegun = QTest::qWaitFor([] { return stateNow() == -1; }, 20000);
    goOn.set_value();
    const auto [result, waited] = shutDown.get();
    QVERIFY(hasBegun);
    QCOMPARE(result, 0);
    QVERIFY(waited);
    react({});
}

void ContractIap::shutDownInsideTheCallbackMakesItTheLast()
{
    start();
    std::promise<int> result;
    react([&result] { result.set_value(ZEMBRA_IAP_Uninitialize()); });
    press();
    penhost::liftAfterLine();
    auto future = result.get_future();
    QTRY_VERIFY_WITH_TIMEOUT(future.wait_for(std::chrono::seconds(0)) == std::future_status::ready,
                             20000);
    QCOMPARE(future.get(), 0);
    QTRY_COMPARE(running.load(), 0);
    QCOMPARE(stateNow(), -1);
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), -1);
    QCOMPARE(count(), std::size_t{1});
}

void ContractIap::afterTheShutDownNothingIsDelivered()
{
    start();
    press();
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), 0);
    QCOMPARE(ZEMBRA_IAP_Uninitialize(), -1);
    QCOMPARE(stateNow(), -1);
    QCOMPARE(count(), std::size_t{0});
}

void ContractIap::itStartsAgainAfterAShutDown()
{
    for (std::size_t i = 1; i <= 3; ++i) {
        start();
        swipe();
        QCOMPARE(count(), i);
        QCOMPARE(ZEMBRA_IAP_Uninitialize(), 0);
        penhost::disconnected();
    }
}

QTEST_MAIN(ContractIap)
#include "tst_contract_iap.moc"
