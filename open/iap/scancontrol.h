#ifndef SCANCONTROL_H
#define SCANCONTROL_H

#include "open/iap/stitcher.h"
#include "platform/zembra_iap.h"

#include <cstdint>
#include <mutex>

/*
 * What the application tells the engine, and what swipes ask for: the way the pen is held, the
 * receiver, the stop signal. Any thread.
 */
class ScanControl
{
public:
    /* What holds for one swipe from its press on. */
    struct Permit
    {
        ScanSettings settings;
        bool isWanted = false; // the stop signal was not set at the press
        std::uint64_t stopCount = 0;
    };

    void setHolding(bool leftHand, bool vertical); // clears the stop signal
    void setHan(bool han);
    void setReceiver(ZEMBRA_IAP_PanoImageCallback receiver);
    void setStop(bool stop);

    /* For a swipe that begins now. */
    Permit permit() const;
    /* The receiver of that swipe; null when there is none or the stop signal was set meanwhile. */
    ZEMBRA_IAP_PanoImageCallback receiverFor(const Permit& permit) const;

    /* Held during a callback: there is one at a time. */
    std::mutex& deliveryMutex() { return m_delivery; }

private:
    mutable std::mutex m_mutex;
    std::mutex m_delivery;
    ScanSettings m_settings;
    ZEMBRA_IAP_PanoImageCallback m_receiver = nullptr;
    bool m_stopped = false;
    std::uint64_t m_stopCount = 0; // how often the stop signal was set
};

#endif
