#include "tests/unit/open/iapfixture.h"

#include <QTest>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <new>

#include <dlfcn.h>
#include <pthread.h>

namespace {

std::atomic<std::size_t> s_refusedBytes{0}; // from here on C++ gets no memory; 0: it does
std::atomic<int> s_threadsLeft{-1};         // before there are no more; negative: no end

} // namespace

void* operator new(std::size_t size)
{
    const std::size_t refused = s_refusedBytes;
    void* memory = refused > 0 && size >= refused ? nullptr : std::malloc(size > 0 ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*run)(void*), void* argument)
{
    using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const auto create = reinterpret_cast<Create>(::dlsym(RTLD_NEXT, "pthread_create"));
    if (s_threadsLeft == 0)
        return EAGAIN;
    if (s_threadsLeft > 0)
        --s_threadsLeft;
    return create(thread, attributes, run, argument);
}

/* Swipes that ask for more than there can be: each ends with a callback, and the next one is read.
 */
class TestIapTrouble : public IapFixture
{
    Q_OBJECT

private slots:
    void restOnABlank();
    void swipeLongerThanAnyLine();
    void noMemoryForThePicture();
    void noMoreThreads_data();
    void noMoreThreads();

private:
    void theNextSwipeIsRead(Receiver& receiver);
};

void TestIapTrouble::theNextSwipeIsRead(Receiver& receiver)
{
    const std::size_t before = receiver.count();
    m_desk->swipe(lineFrames());
    const auto delivery = receiver.delivery(before + 1);
    QVERIFY(delivery && !delivery->isNull);
    QVERIFY(likeness(cleanLine(), delivery->image) > 0.85);
}

void TestIapTrouble::restOnABlank()
{
    Receiver receiver;
    start();
    m_desk->swipe(swipeWithRest(partedLine("Nobody knew who", "built the bridge"), 200.0, 15));
    const auto delivery = receiver.delivery();
    QVERIFY(delivery && !delivery->isNull);
    theNextSwipeIsRead(receiver);
}

void TestIapTrouble::swipeLongerThanAnyLine()
{
    Receiver receiver;
    start();
    m_desk->swipe(endlessSwipe(36000));
    QVERIFY(receiver.delivery());
    theNextSwipeIsRead(receiver);
}

void TestIapTrouble::noMemoryForThePicture()
{
    // Larger than a frame, smaller than the line's picture.
    constexpr std::size_t refused = 30000;
    Receiver receiver;
    start();
    m_desk->press();
    for (const Frame& frame : lineFrames())
        m_desk->sendFrame(frame);
    s_refusedBytes = refused;
    m_desk->lift();
    const auto delivery = receiver.delivery();
    s_refusedBytes = 0;
    QVERIFY(delivery && !delivery->isNull);
    QCOMPARE(delivery->width, 0);
    QString reason;
    QCOMPARE(nextResult(&reason).outcome, desklink::SwipeOutcome::BadMotion);
    QVERIFY2(reason.contains("bad_alloc"), qPrintable(reason));
    theNextSwipeIsRead(receiver);
}

void TestIapTrouble::noMoreThreads_data()
{
    QTest::addColumn<int>("left");
    QTest::newRow("none for the work") << 0;
    QTest::newRow("none for the source") << 1;
}

void TestIapTrouble::noMoreThreads()
{
    QFETCH(int, left);
    s_threadsLeft = left;
    const int result = ZEMBRA_IAP_Initialize(1, 0, 0, 0);
    s_threadsLeft = -1;
    QVERIFY(result != 0);
    QCOMPARE(workState(), -1);
    restartDesk();
    Receiver receiver;
    start();
    theNextSwipeIsRead(receiver);
}

QTEST_MAIN(TestIapTrouble)
#include "tst_iap_trouble.moc"
