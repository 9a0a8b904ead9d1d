#include "open/iap/scancontrol.h"

void ScanControl::setHolding(bool leftHand, bool vertical)
{
    const std::lock_guard lock(m_mutex);
    m_settings.leftHand = leftHand;
    m_settings.vertical = vertical;
    m_stopped = false;
}

void ScanControl::setHan(bool han)
{
    const std::lock_guard lock(m_mutex);
    m_settings.han = han;
}

void ScanControl::setReceiver(ZEMBRA_IAP_PanoImageCallback receiver)
{
    const std::lock_guard lock(m_mutex);
    m_receiver = receiver;
}

void ScanControl::setStop(bool stop)
{
    const std::lock_guard lock(m_mutex);
    m_stopped = stop;
    if (stop)
        ++m_stopCount;
}

ScanControl::Permit ScanControl::permit() const
{
    const std::lock_guard lock(m_mutex);
    return {m_settings, !m_stopped, m_stopCount};
}

ZEMBRA_IAP_PanoImageCallback ScanControl::receiverFor(const Permit& permit) const
{
    const std::lock_guard lock(m_mutex);
    const bool wanted = permit.isWanted && permit.stopCount == m_stopCount;
    return wanted ? m_receiver : nullptr;
}
