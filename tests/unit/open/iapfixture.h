#ifndef TESTS_IAPFIXTURE_H
#define TESTS_IAPFIXTURE_H

#include "platform/zembra_iap.h"
#include "tests/unit/open/fakedesk.h"
#include "tests/unit/open/iappictures.h"

#include <QObject>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

/* What the receiver got. */
struct Delivery
{
    cv::Mat image; // empty for a null image
    bool isNull = false;
    int flag = -1;
    int width = -1;
    int height = -1;
    int stateInside = -1;
};

/* The receiver of pictures, as long as it lives; stops the engine at its end. */
class Receiver
{
public:
    static int callback(void* context, unsigned char* image, int width, int height,
                        unsigned char flag, char* extra)
    {
        return s_current->take(context, image, width, height, flag, extra);
    }

    Receiver() { s_current = this; }
    ~Receiver()
    {
        ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr);
        ZEMBRA_IAP_Uninitialize();
        // A callback that stopped the engine itself may still be on its way out.
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_running == 0; });
    }

    /* Waits for the delivery number `count`, from 1. */
    std::optional<Delivery> delivery(std::size_t count = 1)
    {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait_for(lock, std::chrono::seconds(60),
                                [&] { return m_deliveries.size() >= count; }))
            return std::nullopt;
        return m_deliveries[count - 1];
    }

    std::size_t count()
    {
        const std::lock_guard lock(m_mutex);
        return m_deliveries.size();
    }

    std::function<void()> inside; // called by the callback after it has noted the delivery

private:
    int take(void* context, unsigned char* image, int width, int height, unsigned char flag,
             char* extra)
    {
        Delivery delivery;
        delivery.isNull = image == nullptr;
        if (image)
            delivery.image = cv::Mat(height, width, CV_8U, image).clone();
        delivery.width = width;
        delivery.height = height;
        delivery.flag = context || extra ? -2 : flag;
        ZEMBRA_IAP_GetWorkState(&delivery.stateInside);
        {
            const std::lock_guard lock(m_mutex);
            m_deliveries.push_back(delivery);
            ++m_running;
            m_changed.notify_all();
        }
        if (inside)
            inside();
        const std::lock_guard lock(m_mutex);
        --m_running;
        m_changed.notify_all();
        return 0;
    }

    static inline Receiver* s_current = nullptr;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Delivery> m_deliveries;
    int m_running = 0;
};

/* Holds a callback until it is opened. */
class Gate
{
public:
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_opened.notify_all();
    }
    void pass()
    {
        std::unique_lock lock(m_mutex);
        m_opened.wait(lock, [this] { return m_isOpen; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_isOpen = false;
};

/* The engine's state, -1 when it tells none. */
int workState();

/* The frames of a swipe over a line of print. */
const std::vector<Frame>& lineFrames();

/* Some of them, where the picture does not matter. */
std::vector<Frame> fewFrames();

/* Tests of the scan engine: each with a desk of its own, which the engine finds. */
class IapFixture : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_desk.emplace(); }
    void cleanup();

protected:
    /* Starts the engine with the receiver's callback, and hears its greeting. */
    void start(int hand = ZEMBRA_IAP_RIGHT_HAND);
    /* The next message, which tells what became of a swipe. */
    desklink::SwipeResultHead nextResult(QString* reason = nullptr);
    void restartDesk();

    std::optional<FakeDesk> m_desk;
};

#endif
